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

ListViewSurface::ListViewSurface(QWidget* parent)
    : QWidget(parent),
      report_(std::make_unique<ListViewReport>(look_, items_, this)),
      icons_(std::make_unique<ListViewIcons>(look_, this)) {
    icons_->setModel(&items_);
    for (QAbstractItemView* view : {&report_->view(), &icons_->view()}) {
        view->setSelectionModel(&selection_);
        view->hide();
    }
}

ListViewSurface::~ListViewSurface() = default;

ListViewFace& ListViewSurface::face() noexcept {
    if (look_.isReport()) return *report_;
    return *icons_;
}

void ListViewSurface::follow(DWORD style, DWORD extendedStyle) {
    bool hadFocus = view().hasFocus();
    look_.view = viewOf(style);
    report_->setHeader((style & LVS_NOCOLUMNHEADER) == 0, (style & LVS_NOSORTHEADER) == 0);
    for (QAbstractItemView* other : {&report_->view(), &icons_->view()}) {
        other->setFrameShape(frameOf(style, extendedStyle));
        auto scrollBars = (style & LVS_NOSCROLL) != 0 ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAsNeeded;
        other->setHorizontalScrollBarPolicy(scrollBars);
        other->setVerticalScrollBarPolicy(scrollBars);
        if (other != &view()) other->hide();
    }
    setFocusProxy(&view());
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
    int sideways = report_->horizontalScrollBar()->value();
    view().scrollTo(items_.index(row, 0));
    if (look_.isReport()) report_->horizontalScrollBar()->setValue(sideways);
    return true;
}

int ListViewSurface::topRow() {
    face().settle();
    QModelIndex top = look_.isReport() ? report_->indexAt({0, 0}) : QModelIndex();
    return top.isValid() ? top.row() : 0;
}

int ListViewSurface::rowsPerPage() { return look_.isReport() ? report_->rowsPerPage() : items_.rowCount(); }
