// An edit item as the entry controls use it.
#pragma once

#include "platform/windows.h"
#include "plugin_ui/Controls/keyFilter.h"

#include <cstdint>
#include <string>
#include <string_view>

std::u16string readWindowText(HWND window);
EntryState readEntryState(HWND window);

// Puts the procedure before the field's own, with the type and the length that it goes by. False when there is no such
// window.
bool subclassEntryField(HWND window, WNDPROC procedure, std::int32_t type, std::int32_t maxChars);
void unsubclassEntryField(HWND window);

// Whether a field of the type takes the key.
using KeyTest = bool (*)(std::uint32_t type, char16_t key, const EntryState& field, std::int32_t maxChars);
// The window procedure of a field that is subclassed so: a key that it does not take never reaches it. The method is
// what a failure is shown under.
LRESULT filterKeys(HWND window, UINT message, WPARAM wParam, LPARAM lParam, std::u16string_view method,
                   KeyTest accepts) noexcept;
