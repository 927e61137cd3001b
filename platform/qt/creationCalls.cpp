// Windows made one by one, without a template.
#include "platform/qt/Dialog.h"
#include "platform/qt/controlClasses.h"
#include "platform/qt/windowCalls.h"

#include <algorithm>

namespace {

std::unique_ptr<Window> makeDialogWindow(const WindowTraits& traits, QWidget* parent) {
    bool isPart = (traits.style & WS_CHILD) != 0;
    auto widget = std::make_unique<QWidget>(parent, isPart ? Qt::Widget : Qt::Dialog);
    widget->setWindowTitle(QString::fromStdU16String(traits.text));
    QFont font = parent == nullptr ? dialogFont(0, {}) : parent->font();
    return std::make_unique<Dialog>(std::move(widget), traits, font, nullptr);
}

// The published default place: the class decides.
QRect placeFor(int x, int y, int width, int height) {
    auto orZero = [](int value) { return value == CW_USEDEFAULT ? 0 : value; };
    return {orZero(x), orZero(y), std::max(orZero(width), 0), std::max(orZero(height), 0)};
}

ControlFactory factoryOf(const std::u16string& className) {
    if (className == fromWide(dialogClassName)) return &makeDialogWindow;
    const ControlClass* known = controlClass(className);
    return known == nullptr ? nullptr : known->make;
}

} // namespace

namespace qt {

HWND CreateWindowExW(DWORD dwExStyle, LPCWSTR lpClassName, LPCWSTR lpWindowName, DWORD dwStyle, int X, int Y,
                     int nWidth, int nHeight, HWND hWndParent, HMENU hMenu, HINSTANCE hInstance, LPVOID /*lpParam*/) {
    constexpr ULONG_PTR firstName = 0x10000;
    Window* parent = hWndParent == nullptr ? nullptr : Window::of(hWndParent);
    if (hWndParent != nullptr && parent == nullptr) return nullptr;
    if (reinterpret_cast<ULONG_PTR>(lpClassName) < firstName) {
        SetLastError(ERROR_CANNOT_FIND_WND_CLASS);
        return nullptr;
    }
    auto id = static_cast<WORD>(reinterpret_cast<ULONG_PTR>(hMenu));
    std::u16string text = textFrom(lpWindowName).toStdU16String();
    WindowTraits traits{fromWide(lpClassName), dwStyle, dwExStyle, id, text, 0, hInstance};
    ControlFactory make = factoryOf(traits.className);
    if (make == nullptr) return nullptr;
    Window& window = Window::keep(make(traits, parent == nullptr ? nullptr : parent->widget()));
    if (X != CW_USEDEFAULT || nWidth != CW_USEDEFAULT) window.place(placeFor(X, Y, nWidth, nHeight));
    window.widget()->setEnabled((dwStyle & WS_DISABLED) == 0);
    if ((dwStyle & WS_VISIBLE) != 0) window.widget()->show();
    return window.handle();
}

BOOL DestroyWindow(HWND hWnd) {
    Window* window = Window::of(hWnd);
    if (window == nullptr) return FALSE;
    window->destroy();
    return TRUE;
}

} // namespace qt
