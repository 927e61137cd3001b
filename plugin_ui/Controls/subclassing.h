// Window procedures that stand before a control's own.
#pragma once

#include "platform/windows.h"

#include <string_view>
#include <utility>

// Puts the procedure before the window's own, which is kept on the window. Done again with the same window nothing
// changes. False when there is no such window.
bool subclassWindow(HWND window, WNDPROC procedure);
// Puts the window's own procedure back.
void unsubclassWindow(HWND window);
// The window's own; null when nothing stands before it.
WNDPROC replacedProcedure(HWND window);
// REQUIRES: the window is subclassed.
LRESULT callReplacedProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

// Shows the failure that is being handled. Nothing leaves, whatever the user answers: behind a window procedure stands
// the platform, which cannot be thrown through.
void reportInWindowProcedure(HWND window, std::u16string_view method) noexcept;

// Runs the body of a window procedure. A failure is shown, and the result is 0.
template <typename Body>
LRESULT runInWindowProcedure(HWND window, std::u16string_view method, Body&& body) noexcept {
    try {
        return std::forward<Body>(body)();
    } catch (...) {
        reportInWindowProcedure(window, method);
        return 0;
    }
}
