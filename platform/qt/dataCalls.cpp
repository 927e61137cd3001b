// What programs keep on windows: long words, properties and texts.
#include "platform/qt/Window.h"
#include "platform/qt/windowCalls.h"

#include <algorithm>

namespace {

// Nothing of that kind on this window.
LONG_PTR noSuchWord() {
    SetLastError(ERROR_INVALID_INDEX);
    return 0;
}

LONG_PTR word(Window& window, int index) {
    switch (index) {
    case GWL_STYLE:
        return static_cast<LONG>(window.style());
    case GWL_EXSTYLE:
        return static_cast<LONG>(window.extendedStyle());
    case GWLP_WNDPROC:
        return reinterpret_cast<LONG_PTR>(window.procedure());
    case GWLP_HINSTANCE:
        return reinterpret_cast<LONG_PTR>(window.instance());
    case GWLP_HWNDPARENT:
        return reinterpret_cast<LONG_PTR>(qt::GetParent(window.handle()));
    case GWLP_ID:
        return window.id();
    case GWLP_USERDATA:
        return window.userData;
    default:
        break;
    }
    const LONG_PTR* extra = window.extraWord(index);
    return extra == nullptr ? noSuchWord() : *extra;
}

LONG_PTR setProcedure(Window& window, LONG_PTR procedure) {
    if (procedure != 0) return reinterpret_cast<LONG_PTR>(window.setProcedure(reinterpret_cast<WNDPROC>(procedure)));
    SetLastError(ERROR_INVALID_PARAMETER);
    return 0;
}

LONG_PTR setWord(Window& window, int index, LONG_PTR value) {
    LONG_PTR before = word(window, index);
    switch (index) {
    case GWL_STYLE:
        window.setStyle(static_cast<DWORD>(value));
        return before;
    case GWL_EXSTYLE:
        window.setExtendedStyle(static_cast<DWORD>(value));
        return before;
    case GWLP_WNDPROC:
        return setProcedure(window, value);
    case GWLP_ID:
        window.setId(static_cast<WORD>(value));
        return before;
    case GWLP_USERDATA:
        window.userData = value;
        return before;
    default:
        break;
    }
    LONG_PTR* extra = window.extraWord(index);
    if (extra == nullptr) return noSuchWord();
    return std::exchange(*extra, value);
}

auto findProperty(Window& window, LPCWSTR name) {
    return std::ranges::find_if(window.properties, [&](const auto& property) {
        return QStringView(property.first).compare(QStringView(fromWide(name)), Qt::CaseInsensitive) == 0;
    });
}

// A property by name: atoms are not handed out here.
Window* windowWithNames(HWND handle, LPCWSTR name) {
    constexpr ULONG_PTR firstName = 0x10000;
    Window* window = Window::of(handle);
    if (window == nullptr || reinterpret_cast<ULONG_PTR>(name) >= firstName) return window;
    SetLastError(ERROR_INVALID_PARAMETER);
    return nullptr;
}

int copyOut(const QString& text, LPWSTR buffer, int size) {
    return static_cast<int>(copyText(text, static_cast<WPARAM>(std::max(size, 0)), reinterpret_cast<LPARAM>(buffer)));
}

} // namespace

namespace qt {

LONG_PTR GetWindowLongPtrW(HWND hWnd, int nIndex) {
    Window* window = Window::of(hWnd);
    return window == nullptr ? 0 : word(*window, nIndex);
}

LONG_PTR SetWindowLongPtrW(HWND hWnd, int nIndex, LONG_PTR dwNewLong) {
    Window* window = Window::of(hWnd);
    return window == nullptr ? 0 : setWord(*window, nIndex, dwNewLong);
}

LONG GetWindowLongW(HWND hWnd, int nIndex) { return static_cast<LONG>(qt::GetWindowLongPtrW(hWnd, nIndex)); }

// A pointer does not fit: what holds one is left as it is.
LONG SetWindowLongW(HWND hWnd, int nIndex, LONG dwNewLong) {
    if (nIndex == GWLP_WNDPROC || nIndex == DWLP_DLGPROC) return static_cast<LONG>(noSuchWord());
    return static_cast<LONG>(qt::SetWindowLongPtrW(hWnd, nIndex, dwNewLong));
}

BOOL SetPropW(HWND hWnd, LPCWSTR lpString, HANDLE hData) {
    Window* window = windowWithNames(hWnd, lpString);
    if (window == nullptr) return FALSE;
    auto at = findProperty(*window, lpString);
    if (at == window->properties.end())
        window->properties.emplace_back(fromWide(lpString), hData);
    else
        at->second = hData;
    return TRUE;
}

HANDLE GetPropW(HWND hWnd, LPCWSTR lpString) {
    Window* window = windowWithNames(hWnd, lpString);
    if (window == nullptr) return nullptr;
    auto at = findProperty(*window, lpString);
    return at == window->properties.end() ? nullptr : at->second;
}

HANDLE RemovePropW(HWND hWnd, LPCWSTR lpString) {
    Window* window = windowWithNames(hWnd, lpString);
    if (window == nullptr) return nullptr;
    auto at = findProperty(*window, lpString);
    if (at == window->properties.end()) return nullptr;
    HANDLE data = at->second;
    window->properties.erase(at);
    return data;
}

BOOL SetWindowTextW(HWND hWnd, LPCWSTR lpString) {
    Window* window = Window::of(hWnd);
    return window != nullptr && window->send(WM_SETTEXT, 0, reinterpret_cast<LPARAM>(lpString)) > 0;
}

int GetWindowTextLengthW(HWND hWnd) {
    Window* window = Window::of(hWnd);
    return window == nullptr ? 0 : static_cast<int>(window->send(WM_GETTEXTLENGTH));
}

int GetWindowTextW(HWND hWnd, LPWSTR lpString, int nMaxCount) {
    Window* window = Window::of(hWnd);
    if (lpString == nullptr || nMaxCount <= 0) return 0;
    *lpString = 0;
    if (window == nullptr) return 0;
    return static_cast<int>(
        window->send(WM_GETTEXT, static_cast<WPARAM>(nMaxCount), reinterpret_cast<LPARAM>(lpString)));
}

int GetClassNameW(HWND hWnd, LPWSTR lpClassName, int nMaxCount) {
    Window* window = Window::of(hWnd);
    return window == nullptr ? 0 : copyOut(QString::fromStdU16String(window->className()), lpClassName, nMaxCount);
}

} // namespace qt
