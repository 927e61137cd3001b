#include "platform/qt/ListView.h"

#include "platform/controls.h"
#include "platform/qt/controlClasses.h"
#include "platform/qt/windowCalls.h"

#include <QHeaderView>

#include <utility>

namespace {

template <typename Record>
Record* recordAt(LPARAM address) {
    return reinterpret_cast<Record*>(address); // NOLINT
}

LONG_PTR wordsOf(QSize size) { return static_cast<LONG_PTR>(MAKELONG(size.width(), size.height())); }

QPoint pointOf(POINT at) { return {at.x, at.y}; }

} // namespace

ListView::ListView(std::unique_ptr<ListViewSurface> surface, const WindowTraits& traits)
    : ItemViewWindow(std::unique_ptr<QWidget>(surface.release()), traits),
      surface_(static_cast<ListViewSurface&>(*widget())),
      items_(surface_.items()),
      states_(items_, surface_.selection(), [this](UINT code, NMLISTVIEW& note) { return notify(note.hdr, code); }),
      input_(surface_, states_, [this](UINT code, NMHDR& header) { return notify(header, code); }) {
    surface_.iconsMade = [this](ListViewIcons& icons) { adopt(icons); };
    surface_.reportMade = [this](ListViewReport& report) {
        adopt(report);
        connect(report.header(), &QHeaderView::sectionClicked, this, [this](int column) { notifyColumn(column); });
    };
    ListView::styleChanged(0, 0);
}

void ListView::adopt(QAbstractItemView& view) {
    view.setSelectionModel(&surface_.selection());
    watch(view);
}

void ListView::styleChanged(DWORD before, DWORD extendedBefore) {
    Window::styleChanged(before, extendedBefore);
    states_.setSingle((style() & LVS_SINGLESEL) != 0);
    surface_.follow(style(), extendedStyle());
}

void ListView::place(const QRect& area) {
    Window::place(area);
    // Also while nothing is shown yet: programs ask for widths before.
    surface_.arrange();
}

LRESULT ListView::answer(UINT message, WPARAM wParam, LPARAM lParam) {
    if (input_.take(message, wParam, lParam)) return 0;
    switch (message) {
    case WM_GETDLGCODE:
        return DLGC_WANTARROWS | DLGC_WANTCHARS;
    case WM_GETTEXTLENGTH:
        return 0;
    case WM_SETFONT:
        Window::answer(message, wParam, lParam);
        return surface_.arrange(), 0;
    case WM_DESTROY:
        destroyImageLists();
        return Window::answer(message, wParam, lParam);
    default:
        return answerItems(message, wParam, lParam);
    }
}

LRESULT ListView::answerItems(UINT message, WPARAM wParam, LPARAM lParam) {
    int row = static_cast<int>(wParam);
    auto* item = recordAt<LVITEMW>(lParam);
    switch (message) {
    case LVM_GETITEMCOUNT:
        return items_.rowCount();
    case LVM_INSERTITEMW:
        return item == nullptr ? -1 : insertItem(*item);
    case LVM_SETITEMW:
        return item == nullptr ? FALSE : writeItem(*item);
    case LVM_GETITEMW:
        return item == nullptr ? FALSE : readItem(*item);
    case LVM_SETITEMTEXTW:
        return item == nullptr ? FALSE : setItemText(row, *item);
    case LVM_GETITEMTEXTW:
        return item == nullptr ? 0 : getItemText(row, *item);
    case LVM_DELETEITEM:
        return deleteItem(row);
    case LVM_DELETEALLITEMS:
        return deleteAllItems();
    case LVM_FINDITEMW:
        return lParam == 0 ? -1 : findItem(row, *recordAt<LVFINDINFOW>(lParam));
    case LVM_SETITEMCOUNT:
        return TRUE;
    default:
        return answerStates(message, wParam, lParam);
    }
}

LRESULT ListView::answerStates(UINT message, WPARAM wParam, LPARAM lParam) {
    int row = static_cast<int>(wParam);
    switch (message) {
    case LVM_SETITEMSTATE:
        return lParam == 0 ? FALSE : setItemState(row, *recordAt<LVITEMW>(lParam));
    case LVM_GETITEMSTATE:
        return states_.state(row) & static_cast<UINT>(lParam);
    case LVM_GETNEXTITEM:
        return states_.next(row, static_cast<UINT>(lParam) & (LVNI_STATEMASK));
    case LVM_GETSELECTEDCOUNT:
        return states_.selectedCount();
    case LVM_GETSELECTIONMARK:
        return states_.mark();
    case LVM_SETSELECTIONMARK:
        return std::exchange(row, states_.mark()), states_.setMark(static_cast<int>(lParam)), row;
    case LVM_SETEXTENDEDLISTVIEWSTYLE:
        return setExtendedStyle(static_cast<DWORD>(wParam), static_cast<DWORD>(lParam));
    case LVM_GETEXTENDEDLISTVIEWSTYLE:
        return surface_.look().extended;
    case LVM_SETIMAGELIST:
        return setImageList(wParam, reinterpret_cast<HIMAGELIST>(lParam)); // NOLINT
    case LVM_GETIMAGELIST:
        return reinterpret_cast<LRESULT>(imageList(wParam));
    default:
        return answerColumns(message, wParam, lParam);
    }
}

LRESULT ListView::answerColumns(UINT message, WPARAM wParam, LPARAM lParam) {
    int column = static_cast<int>(wParam);
    auto* description = recordAt<LVCOLUMNW>(lParam);
    switch (message) {
    case LVM_INSERTCOLUMNW:
        return description == nullptr ? -1 : surface_.report().insertColumn(column, *description);
    case LVM_SETCOLUMNW:
        return description != nullptr && surface_.report().writeColumn(column, *description) ? TRUE : FALSE;
    case LVM_GETCOLUMNW:
        return description != nullptr && surface_.report().readColumn(column, *description) ? TRUE : FALSE;
    case LVM_DELETECOLUMN:
        return surface_.report().deleteColumn(column) ? TRUE : FALSE;
    case LVM_SETCOLUMNWIDTH:
        return setColumnWidth(column, static_cast<SHORT>(LOWORD(lParam)));
    case LVM_GETCOLUMNWIDTH:
        return columnWidth(column);
    default:
        return answerPlaces(message, wParam, lParam);
    }
}

LRESULT ListView::answerPlaces(UINT message, WPARAM wParam, LPARAM lParam) {
    int row = static_cast<int>(wParam);
    switch (message) {
    case LVM_GETITEMRECT:
        return itemRectangle(row, 0, recordAt<RECT>(lParam));
    case LVM_GETSUBITEMRECT:
        return lParam == 0 ? FALSE : itemRectangle(row, recordAt<RECT>(lParam)->top, recordAt<RECT>(lParam));
    case LVM_HITTEST:
        return hitTest(recordAt<LVHITTESTINFO>(lParam));
    case LVM_ENSUREVISIBLE:
        return surface_.reveal(row, lParam != 0) ? TRUE : FALSE;
    case LVM_GETTOPINDEX:
        return surface_.topRow();
    case LVM_GETCOUNTPERPAGE:
        return surface_.rowsPerPage();
    case LVM_GETITEMSPACING:
        return wordsOf(surface_.icons().iconSpacing());
    case LVM_SETICONSPACING:
        return setIconSpacing(lParam);
    case LVM_UPDATE:
    case LVM_ARRANGE:
        return surface_.arrange(), TRUE;
    case LVM_REDRAWITEMS:
        return surface_.view().viewport()->update(), TRUE;
    case LVM_GETSTRINGWIDTHW:
        return surface_.view().fontMetrics().horizontalAdvance(textFrom(lParam));
    default:
        return Window::answer(message, wParam, lParam);
    }
}

LRESULT ListView::insertItem(const LVITEMW& item) {
    int row = items_.insert(item);
    if (row < 0) return -1;
    QPersistentModelIndex inserted = items_.index(row, 0);
    if (surface_.look().hasCheckBoxes()) states_.set(row, INDEXTOSTATEIMAGEMASK(1), LVIS_STATEIMAGEMASK);
    if ((item.mask & LVIF_STATE) != 0) states_.set(inserted.row(), item.state, item.stateMask);
    if (inserted.isValid()) notifyItem(LVN_INSERTITEM, inserted.row());
    return inserted.row();
}

LRESULT ListView::writeItem(const LVITEMW& item) {
    if (!items_.write(item)) return FALSE;
    return (item.mask & LVIF_STATE) == 0 || states_.set(item.iItem, item.state, item.stateMask) ? TRUE : FALSE;
}

LRESULT ListView::readItem(LVITEMW& item) {
    if (!items_.read(item)) return FALSE;
    if ((item.mask & LVIF_STATE) != 0) item.state = states_.state(item.iItem) & item.stateMask;
    return TRUE;
}

LRESULT ListView::setItemText(int row, const LVITEMW& item) {
    LVITEMW text{};
    text.mask = LVIF_TEXT;
    text.iItem = row;
    text.iSubItem = item.iSubItem;
    text.pszText = item.pszText;
    return items_.write(text) ? TRUE : FALSE;
}

LRESULT ListView::getItemText(int row, const LVITEMW& item) {
    bool isThere = items_.hasCell(row, item.iSubItem);
    return giveText(isThere ? items_.text(row, item.iSubItem) : QString(), item.pszText, item.cchTextMax);
}

LRESULT ListView::deleteItem(int row) {
    if (!items_.has(row)) return FALSE;
    QPersistentModelIndex item = items_.index(row, 0);
    states_.set(row, 0, LVIS_SELECTED);
    if (item.isValid()) notifyItem(LVN_DELETEITEM, item.row());
    return item.isValid() && items_.removeRow(item.row()) ? TRUE : FALSE;
}

LRESULT ListView::deleteAllItems() {
    NMLISTVIEW note{};
    note.iItem = -1;
    bool isSilent = notify(note.hdr, LVN_DELETEALLITEMS) != 0;
    for (int row = items_.rowCount() - 1; !isSilent && items_.has(row); --row)
        notifyItem(LVN_DELETEITEM, row);
    items_.removeRows(0, items_.rowCount());
    return TRUE;
}

LRESULT ListView::findItem(int after, const LVFINDINFOW& sought) {
    if ((sought.flags & LVFI_PARAM) != 0) {
        for (int row = std::max(after, -1) + 1; row < items_.rowCount(); ++row)
            if (items_.parameter(row) == sought.lParam) return row;
        return -1;
    }
    TextSearch search{textFrom(sought.psz), after, (sought.flags & LVFI_PARTIAL) == 0};
    int row = findText(search, items_.rowCount(), [this](int other) { return items_.text(other); });
    return row <= after && (sought.flags & LVFI_WRAP) == 0 ? -1 : row;
}

LRESULT ListView::setItemState(int row, const LVITEMW& item) {
    if (row == -1) return states_.setAll(item.state, item.stateMask), TRUE;
    return states_.set(row, item.state, item.stateMask) ? TRUE : FALSE;
}

LRESULT ListView::setExtendedStyle(DWORD mask, DWORD style) {
    ListViewLook& look = surface_.look();
    DWORD before = look.extended;
    bool hadCheckBoxes = look.hasCheckBoxes();
    look.extended = mask == 0 ? style : (before & ~mask) | (style & mask);
    if (look.hasCheckBoxes() != hadCheckBoxes)
        states_.setAll(hadCheckBoxes ? 0 : INDEXTOSTATEIMAGEMASK(1), LVIS_STATEIMAGEMASK);
    surface_.arrange();
    return before;
}

HIMAGELIST& ListView::imageList(WPARAM which) {
    ListViewLook& look = surface_.look();
    if (which == LVSIL_STATE) return look.state;
    return which == LVSIL_SMALL ? look.small : look.normal;
}

LRESULT ListView::setImageList(WPARAM which, HIMAGELIST images) {
    HIMAGELIST before = std::exchange(imageList(which), images);
    surface_.arrange();
    return reinterpret_cast<LRESULT>(before);
}

void ListView::destroyImageLists() {
    if ((style() & LVS_SHAREIMAGELISTS) != 0) return;
    for (WPARAM which : {LVSIL_NORMAL, LVSIL_SMALL, LVSIL_STATE})
        if (HIMAGELIST images = std::exchange(imageList(which), nullptr); images != nullptr)
            qt::ImageList_Destroy(images);
}

LRESULT ListView::setColumnWidth(int column, int width) {
    if (surface_.look().isReport() || surface_.hasColumn(column))
        return surface_.report().setWidthOf(column, width) ? TRUE : FALSE;
    surface_.icons().setColumnWidth(std::max(width, 0));
    return TRUE;
}

LRESULT ListView::columnWidth(int column) {
    if (surface_.hasColumn(column)) return surface_.report().header()->sectionSize(column);
    return surface_.look().isReport() ? 0 : surface_.icons().columnWidth();
}

// A part that is 0 stays as it is, -1 means the usual one.
LRESULT ListView::setIconSpacing(LPARAM spacing) {
    QSize before = surface_.icons().iconSpacing();
    int width = static_cast<SHORT>(LOWORD(spacing));
    int height = static_cast<SHORT>(HIWORD(spacing));
    surface_.icons().setIconSpacing({width == 0 ? before.width() : width, height == 0 ? before.height() : height});
    return wordsOf(before);
}

LRESULT ListView::itemRectangle(int row, int column, RECT* rectangle) {
    if (rectangle == nullptr || rectangle->left < LVIR_BOUNDS || rectangle->left > LVIR_SELECTBOUNDS) return FALSE;
    if (!items_.hasCell(row, column)) return FALSE;
    QRect area = surface_.rectangle(row, column, rectangle->left);
    *rectangle = {area.left(), area.top(), area.left() + area.width(), area.top() + area.height()};
    return TRUE;
}

LRESULT ListView::hitTest(LVHITTESTINFO* test) {
    if (test == nullptr) return -1;
    ListViewSurface::Hit hit = surface_.hit(pointOf(test->pt));
    test->flags = hit.where;
    test->iItem = hit.row;
    test->iSubItem = hit.column;
    return hit.row;
}

void ListView::notifyColumn(int column) {
    NMLISTVIEW note{};
    note.iItem = -1;
    note.iSubItem = column;
    notify(note.hdr, LVN_COLUMNCLICK);
}

LRESULT ListView::notifyItem(UINT code, int row) {
    NMLISTVIEW note{};
    note.iItem = row;
    note.lParam = items_.parameter(row);
    return notify(note.hdr, code);
}

std::unique_ptr<Window> makeListView(const WindowTraits& traits, QWidget* parent) {
    return std::make_unique<ListView>(std::make_unique<ListViewSurface>(parent), traits);
}
