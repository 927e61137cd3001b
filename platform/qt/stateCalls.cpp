// How windows stand: shown, enabled, and where.
#include "platform/qt/Desktop.h"
#include "platform/qt/Dialog.h"
#include "platform/qt/windowCalls.h"

namespace {

// Where it is in the coordinates that MoveWindow takes, with its frame.
QRect placeOf(const Window& window) {
    const QWidget& widget = *window.widget();
    return window.isTopLevel() ? widget.frameGeometry() : widget.geometry();
}

QRect screenPlaceOf(const Window& window) {
    const QWidget& widget = *window.widget();
    return window.isTopLevel() ? widget.frameGeometry() : QRect(widget.mapToGlobal(QPoint(0, 0)), widget.size());
}

// The client area's corner on the screen; the desktop's for null.
bool originOf(HWND handle, QPoint& origin) {
    origin = {};
    if (handle == nullptr || handle == desktopHandle()) return true;
    Window* window = Window::of(handle);
    if (window != nullptr) origin = window->widget()->mapToGlobal(QPoint(0, 0));
    return window != nullptr;
}

void shift(LPPOINT points, UINT count, const QPoint& by) {
    for (UINT i = 0; i < count; ++i) {
        points[i].x += by.x();
        points[i].y += by.y();
    }
}

// Windows on the desktop are stacked; the controls of a dialog keep the order of the template.
void stack(Window& window, HWND after) {
    if (!window.isTopLevel()) return;
    if (after == HWND_BOTTOM)
        window.widget()->lower();
    else
        window.widget()->raise();
}

} // namespace

namespace qt {

BOOL ShowWindow(HWND hWnd, int nCmdShow) {
    Window* window = Window::of(hWnd);
    if (window == nullptr) return FALSE;
    QWidget* widget = window->widget();
    bool wasVisible = !widget->isHidden();
    bool activates = nCmdShow == SW_SHOW || nCmdShow == SW_SHOWNORMAL;
    widget->setAttribute(Qt::WA_ShowWithoutActivating, !activates);
    widget->setVisible(nCmdShow != SW_HIDE);
    if (activates && window->isTopLevel()) widget->activateWindow();
    return wasVisible ? TRUE : FALSE;
}

BOOL IsWindowVisible(HWND hWnd) {
    const Window* window = Window::of(hWnd);
    return window != nullptr && window->widget()->isVisible() ? TRUE : FALSE;
}

// The published answer: whether it was disabled before.
BOOL EnableWindow(HWND hWnd, BOOL bEnable) {
    Window* window = Window::of(hWnd);
    if (window == nullptr) return FALSE;
    bool wasDisabled = window->widget()->testAttribute(Qt::WA_ForceDisabled);
    window->widget()->setEnabled(bEnable != FALSE);
    return wasDisabled ? TRUE : FALSE;
}

BOOL IsWindowEnabled(HWND hWnd) {
    const Window* window = Window::of(hWnd);
    if (window == nullptr || window->widget()->testAttribute(Qt::WA_ForceDisabled)) return FALSE;
    return window->isTopLevel() && Dialog::isBlocked(*window) ? FALSE : TRUE;
}

BOOL MoveWindow(HWND hWnd, int X, int Y, int nWidth, int nHeight, BOOL /*bRepaint*/) {
    return qt::SetWindowPos(hWnd, nullptr, X, Y, nWidth, nHeight, SWP_NOZORDER | SWP_NOACTIVATE);
}

BOOL SetWindowPos(HWND hWnd, HWND hWndInsertAfter, int X, int Y, int cx, int cy, UINT uFlags) {
    Window* window = Window::of(hWnd);
    if (window == nullptr) return FALSE;
    QRect area = placeOf(*window);
    if ((uFlags & SWP_NOMOVE) == 0) area.moveTopLeft(QPoint(X, Y));
    if ((uFlags & SWP_NOSIZE) == 0) area.setSize(QSize(std::max(cx, 0), std::max(cy, 0)));
    if (area != placeOf(*window)) window->place(area);
    if ((uFlags & SWP_NOZORDER) == 0) stack(*window, hWndInsertAfter);
    if ((uFlags & SWP_FRAMECHANGED) != 0) window->widget()->update();
    if ((uFlags & SWP_HIDEWINDOW) != 0) qt::ShowWindow(hWnd, SW_HIDE);
    if ((uFlags & SWP_SHOWWINDOW) != 0) qt::ShowWindow(hWnd, (uFlags & SWP_NOACTIVATE) != 0 ? SW_SHOWNA : SW_SHOW);
    return TRUE;
}

BOOL GetWindowRect(HWND hWnd, LPRECT lpRect) {
    if (lpRect == nullptr) return FALSE;
    if (hWnd == desktopHandle()) return *lpRect = rectOf(screenArea()), TRUE;
    const Window* window = Window::of(hWnd);
    if (window == nullptr) return FALSE;
    *lpRect = rectOf(screenPlaceOf(*window));
    return TRUE;
}

BOOL GetClientRect(HWND hWnd, LPRECT lpRect) {
    if (hWnd == desktopHandle()) return qt::GetWindowRect(hWnd, lpRect);
    const Window* window = Window::of(hWnd);
    if (window == nullptr || lpRect == nullptr) return FALSE;
    *lpRect = rectOf(QRect(QPoint(), window->clientArea().size()));
    return TRUE;
}

int MapWindowPoints(HWND hWndFrom, HWND hWndTo, LPPOINT lpPoints, UINT cPoints) {
    QPoint from;
    QPoint to;
    if (lpPoints == nullptr || !originOf(hWndFrom, from) || !originOf(hWndTo, to)) return 0;
    QPoint by = from - to;
    shift(lpPoints, cPoints, by);
    return MAKELONG(by.x(), by.y());
}

BOOL ClientToScreen(HWND hWnd, LPPOINT lpPoint) {
    QPoint origin;
    if (lpPoint == nullptr || hWnd == nullptr || !originOf(hWnd, origin)) return FALSE;
    shift(lpPoint, 1, origin);
    return TRUE;
}

BOOL ScreenToClient(HWND hWnd, LPPOINT lpPoint) {
    QPoint origin;
    if (lpPoint == nullptr || hWnd == nullptr || !originOf(hWnd, origin)) return FALSE;
    shift(lpPoint, 1, -origin);
    return TRUE;
}

BOOL InvalidateRect(HWND hWnd, const RECT* lpRect, BOOL /*bErase*/) {
    const Window* window = Window::of(hWnd);
    if (window == nullptr) return FALSE;
    if (lpRect == nullptr)
        window->widget()->update();
    else
        window->widget()->update(rectOf(*lpRect));
    return TRUE;
}

BOOL UpdateWindow(HWND hWnd) {
    const Window* window = Window::of(hWnd);
    if (window == nullptr) return FALSE;
    window->widget()->repaint();
    return TRUE;
}

} // namespace qt
