// A call of this program's own: pictures of windows. No published call writes one to a file.
#pragma once

#include "platform/types.h"

#ifdef _WIN32
#define KOLMA_PLATFORM_API
#endif

extern "C" {

// Writes the window with what it shows as a PNG file, at the device pixel ratio of its screen. False with the last
// error: ERROR_INVALID_WINDOW_HANDLE, ERROR_WRITE_FAULT when the file cannot be written.
KOLMA_PLATFORM_API BOOL WINAPI SaveWindowPicture(HWND hWnd, LPCWSTR lpFileName);
}
