#include "plugin_ui/dialogGeometry.h"

#include "platform/controls.h"
#include "platform/windows.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace {

constexpr int marginUnits = 7;
// A label's box begins above what is seen of it: a check box, a radio button or a frame counts from here.
constexpr int labelRiseUnits = 3;
constexpr DWORD labelledButtonBits = 0x7;

struct Size {
    int width;
    int height;
};

Size sizeOf(const RECT& rect) noexcept { return {rect.right - rect.left, rect.bottom - rect.top}; }

RECT windowRect(HWND window) {
    RECT rect{};
    GetWindowRect(window, &rect);
    return rect;
}

RECT clientRect(HWND window) {
    RECT rect{};
    GetClientRect(window, &rect);
    return rect;
}

RECT toClient(HWND dialog, const RECT& screen) {
    POINT topLeft{screen.left, screen.top};
    POINT bottomRight{screen.right, screen.bottom};
    ScreenToClient(dialog, &topLeft);
    ScreenToClient(dialog, &bottomRight);
    return {topLeft.x, topLeft.y, bottomRight.x, bottomRight.y};
}

Size toPixels(HWND dialog, int units) {
    RECT rect{0, 0, units, units};
    MapDialogRect(dialog, &rect);
    return {rect.right, rect.bottom};
}

std::vector<HWND> childrenOf(HWND dialog) {
    std::vector<HWND> children;
    for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        children.push_back(child);
    return children;
}

bool isLabelledButton(HWND window) {
    WCHAR name[32] = {};
    GetClassNameW(window, name, 32);
    return std::u16string_view(fromWide(name)) == fromWide(WC_BUTTONW) &&
           (static_cast<DWORD>(GetWindowLongW(window, GWL_STYLE)) & labelledButtonBits) != 0;
}

// On the screen.
RECT boundsOf(const std::vector<HWND>& children, RECT bounds, int labelRise) {
    for (HWND child : children) {
        const RECT rect = windowRect(child);
        const int top = isLabelledButton(child) ? rect.top + labelRise : rect.top;
        bounds = {std::min(bounds.left, rect.left), std::min(bounds.top, top), std::max(bounds.right, rect.right),
                  std::max(bounds.bottom, rect.bottom)};
    }
    return bounds;
}

void moveAll(HWND dialog, const std::vector<HWND>& children, int dx, int dy) {
    for (HWND child : children) {
        const RECT rect = toClient(dialog, windowRect(child));
        SetWindowPos(child, nullptr, rect.left + dx, rect.top + dy, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
}

} // namespace

void fitAroundControls(HWND dialog, HWND okButton) {
    const Size margin = toPixels(dialog, marginUnits);
    const std::vector<HWND> children = childrenOf(dialog);
    const RECT start = windowRect(okButton ? okButton : dialog);
    RECT bounds = toClient(dialog, boundsOf(children, start, toPixels(dialog, labelRiseUnits).height));
    const RECT client = clientRect(dialog);
    const int dx = bounds.left - client.left - margin.width;
    const int dy = bounds.top - client.top - margin.height;
    if (dx != 0 || dy != 0) moveAll(dialog, children, -dx, -dy);
    bounds = {bounds.left - dx, bounds.top - dy, bounds.right - dx, bounds.bottom - dy};
    const RECT window = windowRect(dialog);
    const Size size = sizeOf(window);
    MoveWindow(dialog, window.left, window.top, size.width - (client.right - bounds.right - margin.width),
               size.height - (client.bottom - bounds.bottom - margin.height), IsWindowVisible(dialog));
}

void placeTopRight(HWND window, int anchorX, int& anchorY) {
    RECT workArea{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &workArea, 0);
    const Size size = sizeOf(windowRect(window));
    if (anchorY + size.height > workArea.bottom) anchorY = workArea.bottom - size.height;
    SetWindowPos(window, nullptr, anchorX - size.width, anchorY, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}
