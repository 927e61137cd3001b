#pragma once

#include "platform/windows.h"

#include <string>

// The width in pixels of the text in the window's font.
LONG measureText(HWND window, const std::u16string& text);
