#include "platform/qt/ListViewInput.h"

#include "platform/qt/ItemViewWindow.h"

#include <utility>

namespace {

QPoint pointOf(POINT at) { return {at.x, at.y}; }

} // namespace

ListViewInput::ListViewInput(ListViewSurface& surface, ListViewStates& states, Notify notify)
    : surface_(surface), items_(surface.items()), states_(states), notify_(std::move(notify)) {}

bool ListViewInput::take(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_SETFOCUS:
        return takeFocus(), true;
    case WM_KILLFOCUS:
        return loseFocus(), true;
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN:
        return press(wParam, pointOfMouse(lParam)), true;
    case WM_LBUTTONUP:
        return release(pointOfMouse(lParam)), true;
    case WM_RBUTTONUP:
        return releaseRight(pointOfMouse(lParam)), true;
    case WM_LBUTTONDBLCLK:
        return doublePress(wParam, pointOfMouse(lParam)), true;
    case WM_MOUSEHOVER:
        return hover(pointOfMouse(lParam)), true;
    case WM_KEYDOWN:
        return pressKey(wParam);
    case WM_CHAR:
        return type(wParam), true;
    default:
        return false;
    }
}

LRESULT ListViewInput::notifyClick(UINT code, const ListViewSurface::Hit& hit, POINT at) {
    NMITEMACTIVATE note{};
    note.iItem = hit.row;
    note.iSubItem = hit.column;
    note.ptAction = at;
    note.lParam = items_.has(hit.row) ? items_.parameter(hit.row) : 0;
    return notify_(code, note.hdr);
}

// A list that gets the focus for the first time gives it to its first item, without selecting it. The notification
// names the focused item if it is selected: only then has the user chosen it.
void ListViewInput::takeFocus() {
    if (states_.focused() < 0) states_.set(0, LVIS_FOCUSED, LVIS_FOCUSED);
    surface_.view().viewport()->update();
    int row = states_.focused();
    bool isChosen = row >= 0 && (states_.state(row) & LVIS_SELECTED) != 0;
    notifyClick(NM_SETFOCUS, {isChosen ? row : -1, 0, LVHT_NOWHERE}, {});
}

void ListViewInput::loseFocus() {
    isPressed_ = false;
    surface_.view().viewport()->update();
    notifyClick(NM_KILLFOCUS, {}, {});
}

void ListViewInput::press(WPARAM keys, POINT at) {
    if (!surface_.view().hasFocus()) surface_.view().setFocus(Qt::MouseFocusReason);
    ListViewSurface::Hit hit = surface_.hit(pointOf(at));
    bool extend = (keys & MK_SHIFT) != 0;
    bool toggle = (keys & MK_CONTROL) != 0;
    isPressed_ = (keys & MK_RBUTTON) == 0;
    const QModelIndex box = boxAt(hit);
    pressedBox_ = isPressed_ ? box : QModelIndex();
    if (hit.isOnItem() && !box.isValid())
        states_.choose(hit.row, extend, toggle);
    else if (!hit.isOnItem() && !extend && !toggle)
        states_.setAll(0, LVIS_SELECTED);
    if (hit.isOnItem()) surface_.reveal(hit.row, false);
}

// A program hears of the click before the box has turned.
void ListViewInput::release(POINT at) {
    ListViewSurface::Hit hit = surface_.hit(pointOf(at));
    QPersistentModelIndex box = std::exchange(pressedBox_, {});
    bool isOnBox = box.isValid() && box == boxAt(hit);
    if (std::exchange(isPressed_, false)) notifyClick(NM_CLICK, hit, at);
    if (isOnBox && box.isValid()) states_.toggleCheck(box.row());
}

QModelIndex ListViewInput::boxAt(const ListViewSurface::Hit& hit) const {
    bool isBox = (hit.where & LVHT_ONITEMSTATEICON) != 0 && surface_.look().hasCheckBoxes();
    return isBox ? items_.index(hit.row, 0) : QModelIndex();
}

void ListViewInput::releaseRight(POINT at) { notifyClick(NM_RCLICK, surface_.hit(pointOf(at)), at); }

void ListViewInput::doublePress(WPARAM keys, POINT at) {
    press(keys, at);
    isPressed_ = false;
    ListViewSurface::Hit hit = surface_.hit(pointOf(at));
    notifyClick(NM_DBLCLK, hit, at);
    if (hit.isOnItem()) activate(hit.row);
}

void ListViewInput::hover(POINT at) {
    ListViewSurface::Hit hit = surface_.hit(pointOf(at));
    bool isRefused = notifyClick(NM_HOVER, hit, at) != 0;
    bool selects = (surface_.look().extended & LVS_EX_TRACKSELECT) != 0;
    if (!isRefused && selects && hit.isOnItem()) states_.choose(hit.row, false, false);
}

bool ListViewInput::pressKey(WPARAM key) {
    struct {
        alignas(NMHDR) NMLVKEYDOWN note;
    } told{};
    told.note.wVKey = static_cast<WORD>(key);
    notify_(LVN_KEYDOWN, *reinterpret_cast<NMHDR*>(&told));
    if (auto step = stepOfKey(key)) return moveTo(surface_.face().neighbour(*step)), true;
    bool selectsAll = key == 'A' && isKeyHeld(VK_CONTROL) && !states_.isSingle();
    if (selectsAll) states_.setAll(LVIS_SELECTED, LVIS_SELECTED);
    if (key == VK_SPACE) pressSpace();
    if (key == VK_RETURN) pressReturn();
    return selectsAll || key == VK_SPACE || key == VK_RETURN;
}

void ListViewInput::pressReturn() {
    NMHDR header{};
    notify_(NM_RETURN, header);
    activate(states_.focused());
}

// With Ctrl the focus goes without the selection where several items may be selected.
void ListViewInput::moveTo(int row) {
    if (!items_.has(row)) return;
    if (isKeyHeld(VK_CONTROL) && !isKeyHeld(VK_SHIFT) && !states_.isSingle())
        states_.set(row, LVIS_FOCUSED, LVIS_FOCUSED);
    else
        states_.choose(row, isKeyHeld(VK_SHIFT), isKeyHeld(VK_CONTROL));
    surface_.reveal(row, false);
}

void ListViewInput::pressSpace() {
    int row = states_.focused();
    if (row < 0) return;
    if (surface_.look().hasCheckBoxes() && !isKeyHeld(VK_CONTROL))
        states_.toggleCheck(row);
    else
        states_.choose(row, isKeyHeld(VK_SHIFT), isKeyHeld(VK_CONTROL));
}

void ListViewInput::type(WPARAM unit) {
    if (unit <= VK_SPACE) return;
    int row = search_.type(QChar(static_cast<char16_t>(unit)), states_.focused(), items_.rowCount(),
                           [this](int other) { return items_.text(other); });
    if (row < 0) return;
    states_.choose(row, false, false);
    surface_.reveal(row, false);
}

void ListViewInput::activate(int row) {
    if (items_.has(row)) notifyClick(LVN_ITEMACTIVATE, {row, 0, LVHT_ONITEM}, {});
}
