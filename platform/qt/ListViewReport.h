// Report view: items with their subitems under a header. The header knows the columns and their widths for every view.
#pragma once

#include "platform/list_view.h"
#include "platform/qt/ListViewDelegate.h"
#include "platform/qt/ListViewFace.h"

#include <QTreeView>

class ListViewItems;

class ListViewReport : public QTreeView, public ListViewFace {
public:
    ListViewReport(const ListViewLook& look, ListViewItems& items, QWidget* parent);

    QAbstractItemView& view() override { return *this; }
    int neighbour(RowStep step) override;
    void arrange() override;
    void settle() override;

    int columnCount() const;
    bool hasColumn(int column) const { return column >= 0 && column < columnCount(); }
    // The new column's number.
    int insertColumn(int column, const LVCOLUMNW& description);
    bool deleteColumn(int column);
    bool writeColumn(int column, const LVCOLUMNW& description);
    bool readColumn(int column, LVCOLUMNW& description) const;
    // In pixels, or LVSCW_AUTOSIZE for what the cells need, or LVSCW_AUTOSIZE_USEHEADER for what they and the header
    // need, which for the last column is all that is left.
    bool setWidthOf(int column, int width);

    // By LVS_NOCOLUMNHEADER and LVS_NOSORTHEADER.
    void setHeader(bool isShown, bool isClickable);
    int rowsPerPage() const;

protected:
    void focusInEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    int widthOfCells(int column) const;
    int widthOfRest(int column, int available) const;
    void paintGrid();

    const ListViewLook& look_;
    ListViewItems& items_;
    ListViewDelegate delegate_;
    bool wantsHeader_ = true;
    // The last column keeps to all that the others leave.
    bool fillsWidth_ = false;
};
