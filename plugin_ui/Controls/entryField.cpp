#include "plugin_ui/Controls/entryField.h"

#include "platform/controls.h"
#include "plugin_ui/Controls/subclassing.h"
#include "plugin_ui/Controls/windowProperties.h"

std::u16string readWindowText(HWND window) {
    std::u16string text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, u'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(window, toWide(text.data()), static_cast<int>(text.size()))));
    return text;
}

EntryState readEntryState(HWND window) {
    DWORD start = 0;
    DWORD end = 0;
    SendMessageW(window, EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    return {readWindowText(window), start, end};
}

bool subclassEntryField(HWND window, WNDPROC procedure, std::int32_t type, std::int32_t maxChars) {
    unsubclassEntryField(window);
    if (!subclassWindow(window, procedure)) return false;
    setProperty(window, property::entryType, static_cast<std::uint32_t>(type));
    setProperty(window, property::maximumLength, static_cast<std::uint32_t>(maxChars));
    return true;
}

void unsubclassEntryField(HWND window) {
    if (!replacedProcedure(window)) return;
    unsubclassWindow(window);
    removeProperty(window, property::entryType);
    removeProperty(window, property::maximumLength);
}

LRESULT filterKeys(HWND window, UINT message, WPARAM wParam, LPARAM lParam, std::u16string_view method,
                   KeyTest accepts) noexcept {
    return runInWindowProcedure(window, method, [&]() -> LRESULT {
        const bool isRefused =
            message == WM_CHAR &&
            !accepts(getProperty(window, property::entryType), static_cast<char16_t>(wParam), readEntryState(window),
                     static_cast<std::int32_t>(getProperty(window, property::maximumLength)));
        return isRefused ? 0 : callReplacedProcedure(window, message, wParam, lParam);
    });
}
