#include "platform/qt/ListViewReport.h"

#include "platform/qt/ListViewItems.h"

#include <QHeaderView>
#include <QPainter>

#include <algorithm>

namespace {

constexpr int usualWidth = 50;

QVariant alignmentOf(int format) {
    switch (format & 3) {
    case LVCFMT_RIGHT:
        return static_cast<int>(Qt::AlignRight | Qt::AlignVCenter);
    case LVCFMT_CENTER:
        return static_cast<int>(Qt::AlignCenter);
    default:
        return static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter);
    }
}

int formatOf(int alignment) {
    if ((alignment & Qt::AlignRight) != 0) return LVCFMT_RIGHT;
    return (alignment & Qt::AlignHCenter) != 0 ? LVCFMT_CENTER : LVCFMT_LEFT;
}

} // namespace

ListViewReport::ListViewReport(const ListViewLook& look, ListViewItems& items, QWidget* parent)
    : QTreeView(parent), look_(look), items_(items), delegate_(look, this) {
    makeShowOnly(*this);
    setItemDelegate(&delegate_);
    setModel(&items);
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setExpandsOnDoubleClick(false);
    setIndentation(0);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    header()->setSectionsMovable(false);
    header()->setStretchLastSection(false);
    header()->setMinimumSectionSize(0);
    header()->setHighlightSections(false);
    header()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    header()->hideSection(0);
}

int ListViewReport::neighbour(RowStep step) {
    return moveCursor(static_cast<CursorAction>(step), Qt::NoModifier).row();
}

void ListViewReport::settle() { executeDelayedItemsLayout(); }

void ListViewReport::arrange() {
    header()->setVisible(wantsHeader_ && columnCount() != 0);
    scheduleDelayedItemsLayout();
    viewport()->update();
}

// The model's first column is always there: it is hidden until the program has made a column of it.
int ListViewReport::columnCount() const { return header()->isSectionHidden(0) ? 0 : items_.columnCount(); }

int ListViewReport::insertColumn(int column, const LVCOLUMNW& description) {
    if (column < 0) return -1;
    int at = std::min(column, columnCount());
    if (columnCount() != 0)
        items_.insertColumn(at);
    else
        header()->showSection(0);
    fillsWidth_ = false;
    items_.setHeaderData(at, Qt::Horizontal, QString());
    items_.setHeaderData(at, Qt::Horizontal, alignmentOf(LVCFMT_LEFT), Qt::TextAlignmentRole);
    header()->resizeSection(at, usualWidth);
    writeColumn(at, description);
    arrange();
    return at;
}

bool ListViewReport::deleteColumn(int column) {
    if (!hasColumn(column)) return false;
    if (columnCount() > 1)
        items_.removeColumn(column);
    else
        header()->hideSection(0);
    arrange();
    return true;
}

bool ListViewReport::writeColumn(int column, const LVCOLUMNW& description) {
    if (!hasColumn(column)) return false;
    if ((description.mask & LVCF_FMT) != 0 && column != 0)
        items_.setHeaderData(column, Qt::Horizontal, alignmentOf(description.fmt), Qt::TextAlignmentRole);
    if ((description.mask & LVCF_TEXT) != 0)
        items_.setHeaderData(column, Qt::Horizontal, givenText(description.pszText));
    return (description.mask & LVCF_WIDTH) == 0 || setWidthOf(column, description.cx);
}

bool ListViewReport::readColumn(int column, LVCOLUMNW& description) const {
    if (!hasColumn(column)) return false;
    int alignment = items_.headerData(column, Qt::Horizontal, Qt::TextAlignmentRole).toInt();
    if ((description.mask & LVCF_FMT) != 0) description.fmt = formatOf(alignment);
    if ((description.mask & LVCF_WIDTH) != 0) description.cx = header()->sectionSize(column);
    if ((description.mask & LVCF_SUBITEM) != 0) description.iSubItem = column;
    if ((description.mask & LVCF_TEXT) != 0)
        giveText(items_.headerData(column, Qt::Horizontal).toString(), description.pszText, description.cchTextMax);
    return true;
}

bool ListViewReport::setWidthOf(int column, int width) {
    if (!hasColumn(column) || width < LVSCW_AUTOSIZE_USEHEADER) return false;
    int hint = header()->sectionSizeHint(column);
    int label = header()->fontMetrics().horizontalAdvance(items_.headerData(column, Qt::Horizontal).toString());
    bool isLast = column == columnCount() - 1;
    int rest = widthOfRest(column, maximumViewportSize().width());
    if (isLast) fillsWidth_ = width == LVSCW_AUTOSIZE_USEHEADER && rest >= hint;
    if (width == LVSCW_AUTOSIZE)
        width = widthOfCells(column);
    else if (width == LVSCW_AUTOSIZE_USEHEADER)
        width = isLast && fillsWidth_ ? rest : std::max(widthOfCells(column), hint);
    else if (width >= label && width < hint && label != 0)
        // Measured for the label alone: without room for the header's margins it could not be read.
        width = hint;
    header()->resizeSection(column, width);
    return true;
}

int ListViewReport::widthOfCells(int column) const {
    int width = 0;
    for (int row = 0; row < items_.rowCount(); ++row)
        width = std::max(width, delegate_.contentWidth(items_.index(row, column), fontMetrics()));
    return width;
}

int ListViewReport::widthOfRest(int column, int available) const {
    int used = 0;
    for (int other = 0; other < columnCount(); ++other)
        if (other != column) used += header()->sectionSize(other);
    return available - used;
}

void ListViewReport::resizeEvent(QResizeEvent* event) {
    QTreeView::resizeEvent(event);
    int last = columnCount() - 1;
    if (fillsWidth_ && last >= 0)
        header()->resizeSection(last,
                                std::max(widthOfRest(last, viewport()->width()), header()->sectionSizeHint(last)));
}

void ListViewReport::setHeader(bool isShown, bool isClickable) {
    wantsHeader_ = isShown;
    header()->setSectionsClickable(isClickable);
    arrange();
}

int ListViewReport::rowsPerPage() const { return viewport()->height() / delegate_.rowHeight(fontMetrics()); }

void ListViewReport::focusInEvent(QFocusEvent* /*event*/) {
    // The base class would give the focus to an item of its choice without asking.
    viewport()->update();
}

void ListViewReport::paintEvent(QPaintEvent* event) {
    QTreeView::paintEvent(event);
    if (look_.hasGridLines()) paintGrid();
}

// Over the whole of the area, also where there are no items.
void ListViewReport::paintGrid() {
    QPainter painter(viewport());
    QColor colour = palette().color(QPalette::Text);
    colour.setAlpha(40);
    painter.setPen(colour);
    for (int column = 0; column < columnCount(); ++column) {
        int x = columnViewportPosition(column) + columnWidth(column) - 1;
        painter.drawLine(x, 0, x, viewport()->height());
    }
    int height = delegate_.rowHeight(fontMetrics());
    for (int y = height - 1; y < viewport()->height(); y += height)
        painter.drawLine(0, y, viewport()->width(), y);
}
