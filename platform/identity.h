// The user, the user's locale and the process.
#pragma once

#include "platform/types.h"

#ifdef _WIN32

#include <windows.h>

#include <lmapibuf.h>
#include <lmwksta.h>
#include <userenv.h>
#include <winnetwk.h>

#else

inline constexpr DWORD TOKEN_QUERY = 0x0008;

inline constexpr LCID LOCALE_USER_DEFAULT = 0x0400;
// "0" metric, "1" US.
inline constexpr LCTYPE LOCALE_IMEASURE = 0x000D;
// "1" letter, "5" legal, "8" A3, "9" A4.
inline constexpr LCTYPE LOCALE_IPAPERSIZE = 0x100A;

inline constexpr DWORD NO_ERROR = 0;
inline constexpr DWORD NERR_Success = 0;
using NET_API_STATUS = DWORD;

struct WKSTA_USER_INFO_0 {
    LPWSTR wkui0_username;
};
using LPWKSTA_USER_INFO_0 = WKSTA_USER_INFO_0*;

extern "C" {

KOLMA_PLATFORM_API HANDLE WINAPI GetCurrentProcess();
KOLMA_PLATFORM_API DWORD WINAPI GetCurrentProcessId();
// The token is closed with CloseHandle.
KOLMA_PLATFORM_API BOOL WINAPI OpenProcessToken(HANDLE ProcessHandle, DWORD DesiredAccess, PHANDLE TokenHandle);

// The number of characters with the terminator, 0 on failure; with cchData 0 the number needed. The answer is that of
// the user's locale settings, whatever locale the process itself runs in.
KOLMA_PLATFORM_API int WINAPI GetLocaleInfoW(LCID Locale, LCTYPE LCType, LPWSTR lpLCData, int cchData);

// The number of characters without the terminator, or, when the buffer is too small, the number needed with it. This
// platform has no folder of that role: the answer is the user's own folder.
KOLMA_PLATFORM_API UINT WINAPI GetWindowsDirectoryW(LPWSTR lpBuffer, UINT uSize);

// lpName must be null: the user of this process. The result is an error number; ERROR_MORE_DATA gives the number of
// characters needed.
KOLMA_PLATFORM_API DWORD WINAPI WNetGetUserW(LPCWSTR lpName, LPWSTR lpUserName, LPDWORD lpnLength);

// The entries below are reached with LoadLibraryW and GetProcAddress; these declarations give their types
// (decltype(&GetUserProfileDirectoryW)).
// "userenv.dll": *lpcchSize counts the terminator; a buffer that is null or too small gives false, the size and
// ERROR_INSUFFICIENT_BUFFER.
KOLMA_PLATFORM_API BOOL WINAPI GetUserProfileDirectoryW(HANDLE hToken, LPWSTR lpProfileDir, LPDWORD lpcchSize);
// "netapi32.dll": level 0. The buffer is freed with NetApiBufferFree.
KOLMA_PLATFORM_API NET_API_STATUS WINAPI NetWkstaUserGetInfo(LPWSTR reserved, DWORD level, LPBYTE* bufptr);
KOLMA_PLATFORM_API NET_API_STATUS WINAPI NetApiBufferFree(LPVOID Buffer);
}

#endif
