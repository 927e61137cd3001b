// Draws the cells of a list view, and knows where in a cell its parts lie: for clicks, rectangles and widths.
#pragma once

#include "platform/list_view.h"

#include <QStyledItemDelegate>

// How a list view looks; what its styles and messages have set.
struct ListViewLook {
    enum class View { icons, list, report };

    bool isIcons() const noexcept { return view == View::icons; }
    bool isReport() const noexcept { return view == View::report; }
    bool hasCheckBoxes() const noexcept { return (extended & LVS_EX_CHECKBOXES) != 0; }
    bool hasGridLines() const noexcept { return (extended & LVS_EX_GRIDLINES) != 0; }
    bool hasFullRows() const noexcept { return (extended & LVS_EX_FULLROWSELECT) != 0; }

    View view = View::icons;
    // LVS_EX_...
    DWORD extended = 0;
    HIMAGELIST normal = nullptr;
    HIMAGELIST small = nullptr;
    HIMAGELIST state = nullptr;
};

class ListViewDelegate : public QStyledItemDelegate {
public:
    // Parts that a cell does not have are null. `bounds` is what a click must hit.
    struct Parts {
        QRect bounds;
        QRect state;
        QRect icon;
        QRect label;
    };

    ListViewDelegate(const ListViewLook& look, QObject* parent) : QStyledItemDelegate(parent), look_(look) {}

    // REQUIRES: cell is the view's rectangle for the index.
    Parts parts(const QRect& cell, const QModelIndex& index, const QFontMetrics& metrics) const;
    // Wide enough for the whole of a cell in list and report view.
    int contentWidth(const QModelIndex& index, const QFontMetrics& metrics) const;
    int rowHeight(const QFontMetrics& metrics) const;

    void paint(QPainter* painter, const QStyleOptionViewItem& given, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    // The whole text where the cell shows only a part of it.
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

private:
    QSize stateSize() const;
    QSize iconSize() const;
    Parts iconParts(const QRect& cell, const QModelIndex& index, const QFontMetrics& metrics) const;
    Parts rowParts(const QRect& cell, const QModelIndex& index, const QFontMetrics& metrics) const;
    bool isCut(const QRect& cell, const QModelIndex& index, const QFontMetrics& metrics) const;

    void paintBack(QPainter& painter, const QStyleOptionViewItem& option, const Parts& parts) const;
    void paintState(QPainter& painter, const QStyleOptionViewItem& option, const QRect& area, UINT image) const;
    void paintIcon(QPainter& painter, const QStyleOptionViewItem& option, const QRect& area, int image) const;
    void paintLabel(QPainter& painter, const QStyleOptionViewItem& option, const QRect& area) const;

    const ListViewLook& look_;
};
