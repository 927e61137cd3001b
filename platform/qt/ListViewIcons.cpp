#include "platform/qt/ListViewIcons.h"

#include <QEvent>
#include <QScrollBar>

#include <algorithm>

namespace {

constexpr int smallestSpacing = 75;
// A usual label in one line.
constexpr int labelLength = 13;

} // namespace

ListViewIcons::ListViewIcons(const ListViewLook& look, QWidget* parent)
    : QListView(parent), look_(look), delegate_(look, this) {
    makeShowOnly(*this);
    setItemDelegate(&delegate_);
    setMovement(QListView::Static);
    setResizeMode(QListView::Adjust);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
}

int ListViewIcons::neighbour(RowStep step) { return moveCursor(static_cast<CursorAction>(step), Qt::NoModifier).row(); }

void ListViewIcons::setModel(QAbstractItemModel* model) {
    QListView::setModel(model);
    connect(model, &QAbstractItemModel::rowsInserted, this, [this] { arrange(); });
    connect(model, &QAbstractItemModel::rowsRemoved, this, [this] { arrange(); });
    connect(model, &QAbstractItemModel::dataChanged, this, [this] { arrange(); });
}

QSize ListViewIcons::iconSpacing() const {
    int width = std::max(smallestSpacing, labelLength * fontMetrics().averageCharWidth());
    return {spacing_.width() > 0 ? spacing_.width() : width,
            spacing_.height() > 0 ? spacing_.height() : smallestSpacing};
}

void ListViewIcons::setIconSpacing(QSize spacing) {
    spacing_ = spacing;
    arrange();
}

void ListViewIcons::setColumnWidth(int width) {
    columnWidth_ = width;
    arrange();
}

void ListViewIcons::settle() { executeDelayedItemsLayout(); }

void ListViewIcons::arrange() {
    if (model() == nullptr) return;
    Cells cells = look_.isIcons() ? cellsOfIcons() : cellsOfList();
    setFlow(look_.isIcons() && !cells.areOneColumn ? QListView::LeftToRight : QListView::TopToBottom);
    setWrapping(!cells.areOneColumn);
    if (cells.size != gridSize()) setGridSize(cells.size);
    scheduleDelayedItemsLayout();
}

// What the base class lays out in when it wraps: it keeps the place of the scroll bars free, and the last pixel.
QSize ListViewIcons::layoutSize() const {
    bool hasScrollBars = verticalScrollBarPolicy() != Qt::ScrollBarAlwaysOff;
    int bar = hasScrollBars ? style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this) : 0;
    return maximumViewportSize() - QSize(bar + 1, bar + 1);
}

// As many columns as there is room for share the width.
ListViewIcons::Cells ListViewIcons::cellsOfIcons() const {
    QSize cell = iconSpacing();
    int columns = layoutSize().width() / cell.width();
    cell.setWidth(columns > 1 ? layoutSize().width() / columns : std::max(viewport()->width(), 1));
    return {cell, columns <= 1};
}

// As wide as the longest text; a single column takes the whole width.
ListViewIcons::Cells ListViewIcons::cellsOfList() const {
    int count = model()->rowCount();
    int height = delegate_.rowHeight(fontMetrics());
    bool areOneColumn = count * height <= maximumViewportSize().height();
    if (columnWidth_ > 0) return {{columnWidth_, height}, areOneColumn};
    int width = areOneColumn ? viewport()->width() : 1;
    for (int row = 0; row < count; ++row)
        width = std::max(width, delegate_.contentWidth(model()->index(row, 0), fontMetrics()));
    return {{width, height}, areOneColumn};
}

void ListViewIcons::changeEvent(QEvent* event) {
    QListView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) arrange();
}

void ListViewIcons::resizeEvent(QResizeEvent* event) {
    arrange();
    QListView::resizeEvent(event);
}

void ListViewIcons::focusInEvent(QFocusEvent* /*event*/) {
    // The base class would give the focus to an item of its choice without asking.
    viewport()->update();
}
