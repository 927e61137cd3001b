#include "plugin_ui/Controls/subclassing.h"

#include "jtcore/Services/quietly.h"
#include "jtcore/Services/reportException.h"
#include "plugin_ui/Controls/windowProperties.h"

#include <exception>

WNDPROC replacedProcedure(HWND window) {
    const auto kept = reinterpret_cast<LONG_PTR>(GetPropW(window, toWide(property::replacedProcedure)));
    return reinterpret_cast<WNDPROC>(kept);
}

bool subclassWindow(HWND window, WNDPROC procedure) {
    if (replacedProcedure(window)) return true;
    const LONG_PTR own = SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure));
    if (own == 0) return false;
    SetPropW(window, toWide(property::replacedProcedure), reinterpret_cast<HANDLE>(own));
    return true;
}

void unsubclassWindow(HWND window) {
    const WNDPROC own = replacedProcedure(window);
    if (!own) return;
    SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(own));
    removeProperty(window, property::replacedProcedure);
}

LRESULT callReplacedProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return CallWindowProcW(replacedProcedure(window), window, message, wParam, lParam);
}

void reportInWindowProcedure(HWND window, std::u16string_view method) noexcept {
    quietly([&] {
        const HWND dialog = GetParent(window);
        try {
            throw;
        } catch (const std::exception& failure) {
            reportException(dialog, failure, 0, method);
        } catch (...) {
            reportUnknownException(dialog, 0, method);
        }
    });
}
