#include "platform/qt/ListViewSurface.h"

#include "platform/windows.h"

#include <QEvent>
#include <QScrollBar>

#include <array>

namespace {

ListViewLook::View viewOf(DWORD style) {
    switch (style & LVS_TYPEMASK) {
    case LVS_ICON:
        return ListViewLook::View::icons;
    case LVS_REPORT:
        return ListViewLook::View::report;
    default:
        return ListViewLook::View::list;
    }
}

QFrame::Shape frameOf(DWORD style, DWORD extendedStyle) {
    bool hasFrame = (style & WS_BORDER) != 0 || (extendedStyle & (WS_EX_CLIENTEDGE | WS_EX_STATICEDGE)) != 0;
    return hasFrame ? QFrame::StyledPanel : QFrame::NoFrame;
}

} // namespace

ListViewSurface::ListViewSurface(QWidget* parent) : QWidget(parent) {}

ListViewSurface::~ListViewSurface() = default;

ListViewReport& ListViewSurface::report() {
    if (report_ == nullptr) {
        report_ = std::make_unique<ListViewReport>(look_, items_, this);
        report_->hide();
        dress(*report_);
        if (reportMade) reportMade(*report_);
    }
    return *report_;
}

ListViewIcons& ListViewSurface::icons() {
    if (icons_ == nullptr) {
        icons_ = std::make_unique<ListViewIcons>(look_, this);
        icons_->setModel(&items_);
        icons_->hide();
        dress(*icons_);
        if (iconsMade) iconsMade(*icons_);
    }
    return *icons_;
}

ListViewFace& ListViewSurface::face() {
    if (look_.isReport()) return report();
    return icons();
}

void ListViewSurface::dress(QAbstractItemView& view) const {
    auto scrollBars = (style_ & LVS_NOSCROLL) != 0 ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAsNeeded;
    view.setFrameShape(frameOf(style_, extendedStyle_));
    view.setHorizontalScrollBarPolicy(scrollBars);
    view.setVerticalScrollBarPolicy(scrollBars);
    if (&view == report_.get())
        report_->setHeader((style_ & LVS_NOCOLUMNHEADER) == 0, (style_ & LVS_NOSORTHEADER) == 0);
}

void ListViewSurface::follow(DWORD style, DWORD extendedStyle) {
    style_ = style;
    extendedStyle_ = extendedStyle;
    bool hadFocus = focusProxy() != nullptr && focusProxy()->hasFocus();
    look_.view = viewOf(style);
    for (QAbstractItemView* made :
         {static_cast<QAbstractItemView*>(report_.get()), static_cast<QAbstractItemView*>(icons_.get())}) {
        if (made == nullptr) continue;
        dress(*made);
        if (made != &view()) made->hide();
    }
    setFocusProxy(&view());
    view().setAccessibleName(accessibleName());
    view().show();
    if (hadFocus) view().setFocus();
    arrange();
}

void ListViewSurface::arrange() {
    view().setGeometry(rect());
    face().arrange();
}

bool ListViewSurface::event(QEvent* event) {
    if (event->type() == QEvent::Resize || event->type() == QEvent::Show) {
        view().setGeometry(rect());
        // The surface bears the name that a screen reader says; the view is what it asks.
        view().setAccessibleName(accessibleName());
    }
    return QWidget::event(event);
}

ListViewSurface::Hit ListViewSurface::hit(QPoint at) {
    face().settle();
    QPoint inView = view().viewport()->mapFrom(this, at);
    QModelIndex index = view().viewport()->rect().contains(inView) ? view().indexAt(inView) : QModelIndex();
    if (!index.isValid() || (look_.isReport() && report_->columnCount() == 0)) return {};
    auto parts = delegate().parts(view().visualRect(index), index, view().fontMetrics());
    bool isSubItem = index.column() != 0;
    if (!parts.bounds.contains(inView) || (isSubItem && !look_.hasFullRows()))
        return {-1, index.column(), LVHT_NOWHERE};
    if (parts.state.contains(inView)) return {index.row(), 0, LVHT_ONITEMSTATEICON};
    if (parts.icon.contains(inView)) return {index.row(), 0, LVHT_ONITEMICON};
    return {index.row(), index.column(), LVHT_ONITEMLABEL};
}

QRect ListViewSurface::rectangle(int row, int column, int part) {
    if (!items_.hasCell(row, column)) return {};
    face().settle();
    QModelIndex index = items_.index(row, column);
    QRect cell = view().visualRect(index);
    auto parts = delegate().parts(cell, index, view().fontMetrics());
    QRect wanted = std::array{cell, parts.icon, parts.label, parts.bounds}.at(static_cast<std::size_t>(part));
    if (part == LVIR_BOUNDS && column == 0 && look_.isReport())
        wanted.setRight(view().visualRect(items_.index(row, items_.columnCount() - 1)).right());
    return wanted.translated(fromViewport({0, 0}));
}

bool ListViewSurface::reveal(int row, bool partlyIsEnough) {
    if (!items_.has(row)) return false;
    face().settle();
    QRect cell = view().visualRect(items_.index(row, 0));
    bool isVisible = partlyIsEnough ? view().viewport()->rect().intersects(cell)
                                    : cell.top() >= 0 && cell.bottom() < view().viewport()->height();
    if (look_.isReport() && isVisible) return true;
    // A table shows the row and stays where it is from left to right.
    int sideways = view().horizontalScrollBar()->value();
    view().scrollTo(items_.index(row, 0));
    if (look_.isReport()) view().horizontalScrollBar()->setValue(sideways);
    return true;
}

int ListViewSurface::topRow() {
    face().settle();
    QModelIndex top = look_.isReport() ? report_->indexAt({0, 0}) : QModelIndex();
    return top.isValid() ? top.row() : 0;
}

int ListViewSurface::rowsPerPage() { return look_.isReport() ? report_->rowsPerPage() : items_.rowCount(); }
