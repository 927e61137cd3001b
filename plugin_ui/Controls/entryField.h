// An edit item as the entry controls use it.
#pragma once

#include "platform/windows.h"
#include "plugin_ui/Controls/keyFilter.h"

#include <cstdint>
#include <string>

std::u16string readWindowText(HWND window);
EntryState readEntryState(HWND window);

// Puts the procedure before the field's own, with the type and the length that it goes by. False when there is no such
// window.
bool subclassEntryField(HWND window, WNDPROC procedure, std::int32_t type, std::int32_t maxChars);
void unsubclassEntryField(HWND window);
