// The mouse and the keys, asked for and pressed by programs.
#include "platform/qt/Window.h"
#include "platform/qt/keyboard.h"
#include "platform/qt/keys.h"
#include "platform/qt/windowCalls.h"

#include <QApplication>
#include <QCursor>

namespace {

// Modifiers that a program holds down.
Qt::KeyboardModifiers& held() {
    static Qt::KeyboardModifiers modifiers;
    return modifiers;
}

Qt::KeyboardModifier modifierOf(WORD virtualKey) {
    switch (virtualKey) {
    case VK_SHIFT:
        return Qt::ShiftModifier;
    case VK_CONTROL:
        return Qt::ControlModifier;
    case VK_MENU:
        return Qt::AltModifier;
    default:
        return Qt::NoModifier;
    }
}

// A list that dropped down takes the keys first.
QWidget* keyTarget() {
    if (QWidget* popup = QApplication::activePopupWidget())
        return popup->focusWidget() == nullptr ? popup : popup->focusWidget();
    if (QWidget* focused = focusedPart()) return focused;
    const Window* active = Window::of(qt::GetActiveWindow());
    return active == nullptr ? nullptr : active->widget();
}

void pressKey(WORD virtualKey, bool isRelease, Qt::KeyboardModifiers modifiers) {
    QWidget* target = keyTarget();
    if (target == nullptr) return;
    bool isBackwards = virtualKey == VK_TAB && modifiers.testFlag(Qt::ShiftModifier);
    int key = isBackwards ? Qt::Key_Backtab : qtKeyOf(virtualKey);
    QKeyEvent event(isRelease ? QEvent::KeyRelease : QEvent::KeyPress, key, modifiers,
                    textOfKey(virtualKey, modifiers));
    QApplication::sendEvent(target, &event);
}

} // namespace

namespace qt {

void keybd_event(BYTE bVk, BYTE /*bScan*/, DWORD dwFlags, ULONG_PTR /*dwExtraInfo*/) {
    bool isRelease = (dwFlags & KEYEVENTF_KEYUP) != 0;
    held().setFlag(modifierOf(bVk), !isRelease && modifierOf(bVk) != Qt::NoModifier);
    Qt::KeyboardModifiers modifiers = held();
    QMetaObject::invokeMethod(
        QCoreApplication::instance(), [=] { pressKey(bVk, isRelease, modifiers); }, Qt::QueuedConnection);
}

SHORT GetKeyState(int nVirtKey) {
    constexpr int isDown = 0x8000;
    Qt::KeyboardModifier modifier = modifierOf(static_cast<WORD>(nVirtKey));
    bool isHeld = modifier != Qt::NoModifier && (QApplication::keyboardModifiers() | held()).testFlag(modifier);
    return static_cast<SHORT>(isHeld ? isDown : 0);
}

BOOL GetCursorPos(LPPOINT lpPoint) {
    if (lpPoint == nullptr) return FALSE;
    QPoint at = QCursor::pos();
    *lpPoint = {at.x(), at.y()};
    return TRUE;
}

// Of what can be asked for there is the mouse leaving the window; that it rests on one nobody is told.
BOOL TrackMouseEvent(LPTRACKMOUSEEVENT lpEventTrack) {
    if (lpEventTrack == nullptr || lpEventTrack->cbSize != sizeof(TRACKMOUSEEVENT)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    Window* window = Window::of(lpEventTrack->hwndTrack);
    if (window == nullptr) return FALSE;
    if ((lpEventTrack->dwFlags & TME_LEAVE) == 0) {
        SetLastError(ERROR_NOT_SUPPORTED);
        return FALSE;
    }
    window->tracksLeave = (lpEventTrack->dwFlags & TME_CANCEL) == 0;
    return TRUE;
}

} // namespace qt
