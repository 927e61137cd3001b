// A window as text: what can be seen in it, a control a line with its number, kind, label, value and state.
#pragma once

#include "platform/windows.h"

#include <string>

// UTF-8, as a terminal may show it.
std::string showWindow(HWND window);
