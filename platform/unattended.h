// A call of this program's own: windows that nobody needs to see.
#pragma once

#include "platform/types.h"

#ifdef _WIN32

inline void AllowWindowsWithoutDisplay() {}

#else

extern "C" {

// From now on windows can be opened where there is no display too; they are then drawn into memory. To be called before
// the first window.
KOLMA_PLATFORM_API void WINAPI AllowWindowsWithoutDisplay();
}

#endif
