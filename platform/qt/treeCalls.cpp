// Which windows there are, and which of them is in use.
#include "platform/qt/Desktop.h"
#include "platform/qt/Dialog.h"
#include "platform/qt/keyboard.h"
#include "platform/qt/windowCalls.h"

#include <QApplication>

#include <algorithm>
#include <unistd.h>

namespace {

HWND handleOf(const Window* window) { return window == nullptr ? nullptr : window->handle(); }

Window* ownerOf(const Window& window) { return Window::holding(window.widget()->parentWidget()); }

std::vector<Window*> topLevels() {
    std::vector<Window*> windows = Window::all();
    std::erase_if(windows, [](const Window* window) { return !window->isTopLevel(); });
    return windows;
}

std::vector<Window*> siblingsOf(const Window& window) {
    return window.isTopLevel() || window.parent() == nullptr ? topLevels() : window.parent()->children();
}

// The sibling that many places further on; null past the ends.
Window* neighbour(const Window& window, std::ptrdiff_t step) {
    std::vector<Window*> siblings = siblingsOf(window);
    auto at = std::ranges::find(siblings, &window) - siblings.begin() + step;
    return at >= 0 && at < std::ssize(siblings) ? siblings[static_cast<std::size_t>(at)] : nullptr;
}

// All windows in it, each before its own parts.
void collect(const Window& window, std::vector<HWND>& handles) {
    for (Window* child : window.children()) {
        handles.push_back(child->handle());
        collect(*child, handles);
    }
}

// Goes on while the program says so; a window that the program destroyed meanwhile is left out.
BOOL forEach(const std::vector<HWND>& handles, WNDENUMPROC use, LPARAM parameter) {
    for (HWND handle : handles)
        if (Window::of(handle) != nullptr && use(handle, parameter) == FALSE) return FALSE;
    return TRUE;
}

bool isOwnedBy(const Window* window, const Window& owner) {
    for (; window != nullptr; window = ownerOf(*window))
        if (window == &owner) return true;
    return false;
}

bool isTip(const Window& window) { return window.widget()->windowType() == Qt::ToolTip; }

// The desktop's active window, as long as no modal dialog stands over it; the desktop may yet have to hear of that one.
Window* activeWindow() {
    Window* active = Window::holding(QApplication::activeWindow());
    if (active != nullptr && !Dialog::isBlocked(*active)) return active;
    std::vector<Window*> windows = topLevels();
    auto last = std::find_if(windows.rbegin(), windows.rend(), [](const Window* window) {
        return window->widget()->isVisible() && !Dialog::isBlocked(*window) && !isTip(*window);
    });
    return last == windows.rend() ? nullptr : *last;
}

} // namespace

namespace qt {

HWND GetParent(HWND hWnd) {
    Window* window = Window::of(hWnd);
    return window == nullptr ? nullptr : handleOf(ownerOf(*window));
}

HWND GetAncestor(HWND hWnd, UINT gaFlags) {
    Window* window = Window::of(hWnd);
    if (window == nullptr) return nullptr;
    switch (gaFlags) {
    case GA_PARENT:
        return window->isTopLevel() ? desktopHandle() : handleOf(window->parent());
    case GA_ROOT:
        return window->root().handle();
    case GA_ROOTOWNER: {
        Window* root = &window->root();
        while (Window* owner = ownerOf(*root))
            root = &owner->root();
        return root->handle();
    }
    default:
        return nullptr;
    }
}

HWND GetWindow(HWND hWnd, UINT uCmd) {
    Window* window = Window::of(hWnd);
    if (window == nullptr) return nullptr;
    switch (uCmd) {
    case GW_HWNDFIRST:
        return handleOf(siblingsOf(*window).front());
    case GW_HWNDLAST:
        return handleOf(siblingsOf(*window).back());
    case GW_HWNDNEXT:
        return handleOf(neighbour(*window, 1));
    case GW_HWNDPREV:
        return handleOf(neighbour(*window, -1));
    case GW_OWNER:
        return window->isTopLevel() ? handleOf(ownerOf(*window)) : nullptr;
    case GW_CHILD: {
        std::vector<Window*> children = window->children();
        return children.empty() ? nullptr : children.front()->handle();
    }
    default:
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
}

BOOL IsWindow(HWND hWnd) { return Window::of(hWnd) != nullptr ? TRUE : FALSE; }

BOOL IsChild(HWND hWndParent, HWND hWnd) {
    Window* parent = Window::of(hWndParent);
    Window* window = Window::of(hWnd);
    if (parent == nullptr || window == nullptr) return FALSE;
    while (window != nullptr && !window->isTopLevel()) {
        window = window->parent();
        if (window == parent) return TRUE;
    }
    return FALSE;
}

BOOL EnumChildWindows(HWND hWndParent, WNDENUMPROC lpEnumFunc, LPARAM lParam) {
    Window* parent = Window::of(hWndParent);
    if (parent == nullptr || lpEnumFunc == nullptr) return FALSE;
    std::vector<HWND> handles;
    collect(*parent, handles);
    return forEach(handles, lpEnumFunc, lParam);
}

BOOL EnumThreadWindows(DWORD dwThreadId, WNDENUMPROC lpfn, LPARAM lParam) {
    if (lpfn == nullptr || dwThreadId != GetCurrentThreadId()) return FALSE;
    std::vector<HWND> handles;
    for (const Window* window : topLevels())
        handles.push_back(window->handle());
    return forEach(handles, lpfn, lParam);
}

DWORD GetWindowThreadProcessId(HWND hWnd, LPDWORD lpdwProcessId) {
    if (Window::of(hWnd) == nullptr) return 0;
    if (lpdwProcessId != nullptr) *lpdwProcessId = static_cast<DWORD>(::getpid());
    return GetCurrentThreadId();
}

HWND GetDesktopWindow() { return desktopHandle(); }

HWND GetActiveWindow() { return handleOf(activeWindow()); }

HWND GetForegroundWindow() { return qt::GetActiveWindow(); }

BOOL SetForegroundWindow(HWND hWnd) {
    Window* window = Window::of(hWnd);
    if (window == nullptr) return FALSE;
    QWidget* top = window->widget()->window();
    top->raise();
    top->activateWindow();
    return TRUE;
}

HWND GetLastActivePopup(HWND hWnd) {
    Window* window = Window::of(hWnd);
    if (window == nullptr) return nullptr;
    const auto& running = Dialog::running();
    auto last = std::find_if(running.rbegin(), running.rend(),
                             [&](const Dialog* dialog) { return isOwnedBy(dialog, *window); });
    return last == running.rend() ? hWnd : (*last)->handle();
}

HWND GetFocus() { return handleOf(Window::holding(focusedPart())); }

HWND SetFocus(HWND hWnd) {
    HWND before = qt::GetFocus();
    Window* window = hWnd == nullptr ? nullptr : Window::of(hWnd);
    if (window != nullptr)
        window->widget()->setFocus(Qt::OtherFocusReason);
    else if (QWidget* focused = QApplication::focusWidget(); focused != nullptr && hWnd == nullptr)
        focused->clearFocus();
    return before;
}

} // namespace qt
