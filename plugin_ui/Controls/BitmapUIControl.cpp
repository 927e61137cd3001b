#include "plugin_ui/Controls/BitmapUIControl.h"

#include "jtcore/Services/quietly.h"
#include "plugin_ui/Controls/paintBitmap.h"
#include "plugin_ui/Controls/subclassing.h"
#include "plugin_ui/Controls/windowProperties.h"
#include "resources/ids.h"

namespace {

constexpr LONG_PTR frameStyles = WS_EX_CLIENTEDGE | WS_EX_DLGMODALFRAME;

// What a state's frame adds to a picture: an extended style, and pixels on each side.
struct Frame {
    LONG_PTR style;
    int width;
};

Frame frameOf(HotState state) {
    switch (state) {
    case HotState::sunken:
        return {WS_EX_CLIENTEDGE, 2};
    case HotState::raised:
        return {WS_EX_DLGMODALFRAME, 3};
    default:
        return {0, 0};
    }
}

RECT rectangleInParent(HWND item) {
    RECT rectangle{};
    GetWindowRect(item, &rectangle);
    MapWindowPoints(nullptr, GetParent(item), reinterpret_cast<POINT*>(&rectangle), 2);
    return rectangle;
}

bool contains(const RECT& area, const POINT& point) {
    return point.x >= area.left && point.x < area.right && point.y >= area.top && point.y < area.bottom;
}

void askForLeave(HWND item) {
    TRACKMOUSEEVENT request{};
    request.cbSize = sizeof request;
    request.dwFlags = TME_LEAVE;
    request.hwndTrack = item;
    TrackMouseEvent(&request);
}

BitmapUIControl* controlOf(HWND item) {
    return static_cast<BitmapUIControl*>(GetPropW(item, toWide(property::control)));
}

} // namespace

BitmapUIControl::BitmapUIControl(std::uint16_t itemId, std::uint16_t bitmapId)
    : UIControl(itemId), itemId_(itemId), bitmapId_(bitmapId) {
    addControlId(itemId);
}

BitmapUIControl::~BitmapUIControl() {
    quietly([this] { release(); });
}

void BitmapUIControl::initializeControl() {
    if (bitmapId_ != 0) subclassItem(bitmapId_);
    hotState_ = HotState::flat;
}

bool BitmapUIControl::subclassItem(std::uint16_t bitmapId) {
    const HWND item = getItem(itemId_);
    if (!subclassWindow(item, windowProc)) return false;
    SetPropW(item, toWide(property::control), this);
    setProperty(item, property::bitmap, bitmapId);
    item_ = item;
    return true;
}

void BitmapUIControl::setBitmap(std::uint16_t bitmapId) {
    const HWND item = getItem(itemId_);
    if (!item) return;
    setProperty(item, property::bitmap, bitmapId);
    if (bitmapId != IDB_ABOUT_LOGO) {
        // A smaller picture must leave nothing of a larger one behind.
        RECT area = rectangleInParent(item);
        area.right += 25;
        area.bottom += 25;
        InvalidateRect(GetParent(item), &area, TRUE);
        InvalidateRect(item, nullptr, TRUE);
    }
    paintBitmap(item, bitmapId);
}

void BitmapUIControl::setHotState(HotState state) {
    if (!clickable_ || state == hotState_) return;
    const HWND item = getItem(itemId_);
    const Frame frame = frameOf(state);
    const int growth = frame.width - frameOf(hotState_).width;
    hotState_ = state;
    const RECT area = rectangleInParent(item);
    const LONG_PTR style = GetWindowLongPtrW(item, GWL_EXSTYLE) & ~frameStyles;
    SetWindowLongPtrW(item, GWL_EXSTYLE, style | frame.style);
    SetWindowPos(item, nullptr, area.left - growth, area.top - growth, area.right - area.left + 2 * growth,
                 area.bottom - area.top + 2 * growth, SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
}

LRESULT CALLBACK BitmapUIControl::windowProc(HWND item, UINT message, WPARAM wParam, LPARAM lParam) {
    return runInWindowProcedure(item, u"BitmapUIControl::windowProc()",
                                [&] { return answer(item, message, wParam, lParam); });
}

// An observer may close the dialog, and the item with it.
LRESULT BitmapUIControl::answer(HWND item, UINT message, WPARAM wParam, LPARAM lParam) {
    const WNDPROC own = replacedProcedure(item);
    if (message == WM_PAINT) {
        const LRESULT painted = CallWindowProcW(own, item, message, wParam, lParam);
        paintBitmap(item, static_cast<std::uint16_t>(getProperty(item, property::bitmap)));
        return painted;
    }
    if (BitmapUIControl* const control = controlOf(item)) {
        if (message == WM_DESTROY)
            control->release();
        else
            control->handleMouse(item, message);
    }
    return CallWindowProcW(own, item, message, wParam, lParam);
}

void BitmapUIControl::handleMouse(HWND item, UINT message) {
    if (!clickable_) return;
    switch (message) {
    case WM_LBUTTONDOWN:
        setHotState(HotState::sunken);
        break;
    case WM_LBUTTONUP:
        notifyObservers();
        break;
    case WM_MOUSEMOVE:
        if (hotState_ != HotState::sunken) setHotState(HotState::raised);
        askForLeave(item);
        break;
    case WM_MOUSELEAVE:
        if (hotState_ != HotState::sunken) setHotState(HotState::flat);
        break;
    default:
        break;
    }
}

// An item that takes no mouse messages leaves them to the dialog.
bool BitmapUIControl::handleControlMessage(const UIMessage& message, LRESULT&) {
    if (!clickable_) return false;
    switch (message.id) {
    case WM_MOUSEMOVE: {
        const bool inside = isHit(message);
        if (inside && hotState_ == HotState::flat) setHotState(HotState::raised);
        if (!inside && hotState_ == HotState::raised) setHotState(HotState::flat);
        return false;
    }
    case WM_LBUTTONDOWN:
        return isHit(message) && pressInside();
    case WM_LBUTTONUP:
        if (!isHit(message)) return false;
        notifyObservers();
        return true;
    default:
        return false;
    }
}

bool BitmapUIControl::pressInside() {
    setHotState(hotState_ == HotState::sunken ? HotState::raised : HotState::sunken);
    return true;
}

// A picture of another overlay has the same place on the page, and a disabled one is not to be clicked.
bool BitmapUIControl::isHit(const UIMessage& message) const {
    const HWND item = getItem(itemId_);
    if (!isEnabled() || !IsWindowVisible(item)) return false;
    POINT point{static_cast<SHORT>(LOWORD(message.lParam)), static_cast<SHORT>(HIWORD(message.lParam))};
    ClientToScreen(message.window, &point);
    RECT area{};
    return GetWindowRect(item, &area) != FALSE && contains(area, point);
}

void BitmapUIControl::release() {
    if (!item_) return;
    removeProperty(item_, property::bitmap);
    removeProperty(item_, property::control);
    unsubclassWindow(item_);
    item_ = nullptr;
}
