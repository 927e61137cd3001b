// Icon view and list view.
#pragma once

#include "platform/qt/ListViewDelegate.h"
#include "platform/qt/ListViewFace.h"

#include <QListView>

class ListViewIcons : public QListView, public ListViewFace {
public:
    ListViewIcons(const ListViewLook& look, QWidget* parent);

    QAbstractItemView& view() override { return *this; }
    int neighbour(RowStep step) override;
    void arrange() override;
    void settle() override;

    // From one icon to the next, in icon view. What is not above 0 means as the font needs it.
    QSize iconSpacing() const;
    void setIconSpacing(QSize spacing);
    // Of list view's columns; 0 means as the longest text needs it.
    void setColumnWidth(int width);
    int columnWidth() const { return gridSize().width(); }

    void setModel(QAbstractItemModel* model) override;

protected:
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    struct Cells {
        QSize size;
        bool areOneColumn;
    };
    QSize layoutSize() const;
    Cells cellsOfIcons() const;
    Cells cellsOfList() const;

    const ListViewLook& look_;
    ListViewDelegate delegate_;
    QSize spacing_;
    int columnWidth_ = 0;
};
