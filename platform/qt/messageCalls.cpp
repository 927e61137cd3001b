#include "platform/posix/service.h"
#include "platform/qt/Dialog.h"
#include "platform/qt/windowCalls.h"

#include <QCoreApplication>

namespace qt {

LRESULT SendMessageW(HWND hWnd, UINT Msg, WPARAM wParam, LPARAM lParam) {
    Window* window = Window::of(hWnd);
    return window == nullptr ? 0 : window->send(Msg, wParam, lParam);
}

BOOL PostMessageW(HWND hWnd, UINT Msg, WPARAM wParam, LPARAM lParam) {
    if (Window::of(hWnd) == nullptr) return FALSE;
    auto deliver = [=]() noexcept {
        try {
            qt::SendMessageW(hWnd, Msg, wParam, lParam);
        } catch (...) {
            SetLastError(errorOfCurrentException());
        }
    };
    return QMetaObject::invokeMethod(QCoreApplication::instance(), deliver, Qt::QueuedConnection) ? TRUE : FALSE;
}

LRESULT SendDlgItemMessageW(HWND hDlg, int nIDDlgItem, UINT Msg, WPARAM wParam, LPARAM lParam) {
    HWND item = qt::GetDlgItem(hDlg, nIDDlgItem);
    return item == nullptr ? 0 : qt::SendMessageW(item, Msg, wParam, lParam);
}

LRESULT DefWindowProcW(HWND hWnd, UINT Msg, WPARAM wParam, LPARAM lParam) {
    Window* window = Window::of(hWnd);
    return window == nullptr ? 0 : window->Window::answer(Msg, wParam, lParam);
}

LRESULT DefDlgProcW(HWND hDlg, UINT Msg, WPARAM wParam, LPARAM lParam) {
    Dialog* dialog = Dialog::of(Window::of(hDlg));
    return dialog == nullptr ? 0 : dialog->answer(Msg, wParam, lParam);
}

LRESULT CallWindowProcW(WNDPROC lpPrevWndFunc, HWND hWnd, UINT Msg, WPARAM wParam, LPARAM lParam) {
    if (Window::of(hWnd) == nullptr) return 0;
    if (lpPrevWndFunc != nullptr) return lpPrevWndFunc(hWnd, Msg, wParam, lParam);
    SetLastError(ERROR_INVALID_PARAMETER);
    return 0;
}

} // namespace qt
