// The items of a list view: rows of one model that each of its views shows. Which of them are selected and which has
// the focus is the selection model's to know.
#pragma once

#include "platform/list_view.h"

#include <QStandardItemModel>

class ListViewItems : public QStandardItemModel {
public:
    enum Role { imageRole = Qt::UserRole + 1, parameterRole, marksRole };

    ListViewItems() : QStandardItemModel(0, 1) {}

    bool has(int row) const { return row >= 0 && row < rowCount(); }
    bool hasCell(int row, int column) const { return has(row) && column >= 0 && column < columnCount(); }

    // Where item.iItem says, or at the end where that is beyond it. The row; -1 where there is no such place.
    int insert(const LVITEMW& item);
    // Everything that the mask names but the state. False for what is no cell.
    bool write(const LVITEMW& item);
    bool read(LVITEMW& item) const;

    QString text(int row, int column = 0) const { return index(row, column).data(Qt::DisplayRole).toString(); }
    LPARAM parameter(int row) const;
    // The picture's number in the image list.
    int image(int row) const;
    // The state but for LVIS_SELECTED and LVIS_FOCUSED.
    UINT marks(int row) const { return index(row, 0).data(marksRole).toUInt(); }
    void setMarks(int row, UINT marks) { setData(index(row, 0), marks, marksRole); }
};

// The text of an item or a column; nothing for none and for one that the program would have to be asked for.
QString givenText(LPCWSTR text);
// Back to the program: at most room - 1 characters and a terminator. The number copied; 0 for no buffer.
int giveText(const QString& text, LPWSTR buffer, int room);
