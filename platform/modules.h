// Modules, and the resources in them.
#pragma once

#include "platform/types.h"

#ifdef _WIN32

#include <windows.h>

#else

inline constexpr DWORD LOAD_LIBRARY_AS_DATAFILE = 0x02;
inline constexpr DWORD LOAD_WITH_ALTERED_SEARCH_PATH = 0x08;

// A resource name or type that is a number travels as a pointer below 65536.
inline LPCWSTR MAKEINTRESOURCEW(ULONG_PTR id) noexcept { return reinterpret_cast<LPCWSTR>(id & 0xFFFFU); } // NOLINT
inline bool IS_INTRESOURCE(LPCWSTR name) noexcept { return reinterpret_cast<ULONG_PTR>(name) < 0x10000U; }

inline const LPCWSTR RT_CURSOR = MAKEINTRESOURCEW(1);
inline const LPCWSTR RT_BITMAP = MAKEINTRESOURCEW(2);
inline const LPCWSTR RT_ICON = MAKEINTRESOURCEW(3);
inline const LPCWSTR RT_MENU = MAKEINTRESOURCEW(4);
inline const LPCWSTR RT_DIALOG = MAKEINTRESOURCEW(5);
inline const LPCWSTR RT_STRING = MAKEINTRESOURCEW(6);
inline const LPCWSTR RT_RCDATA = MAKEINTRESOURCEW(10);
inline const LPCWSTR RT_GROUP_ICON = MAKEINTRESOURCEW(14);
inline const LPCWSTR RT_VERSION = MAKEINTRESOURCEW(16);

extern "C" {

// Loads a program module or a resource module; which of the two is seen from the file. A second load of one file gives
// the same handle and counts. Null on failure: ERROR_MOD_NOT_FOUND when there is no such file, ERROR_BAD_EXE_FORMAT
// when it is no module. A bare file name means a module of the system ("userenv.dll") or one that lies beside the
// driver's files, never one in the current folder.
KOLMA_PLATFORM_API HMODULE WINAPI LoadLibraryExW(LPCWSTR lpLibFileName, HANDLE hFile, DWORD dwFlags);
KOLMA_PLATFORM_API HMODULE WINAPI LoadLibraryW(LPCWSTR lpLibFileName);
KOLMA_PLATFORM_API BOOL WINAPI FreeLibrary(HMODULE hLibModule);
// Null with ERROR_PROC_NOT_FOUND when the module has no such entry. REQUIRES: a name, not an ordinal.
KOLMA_PLATFORM_API FARPROC WINAPI GetProcAddress(HMODULE hModule, LPCSTR lpProcName);

// Resources live until the module is freed for the last time. A neutral one is preferred, else the first of its name.
// Failures: ERROR_RESOURCE_TYPE_NOT_FOUND, ERROR_RESOURCE_NAME_NOT_FOUND, ERROR_RESOURCE_DATA_NOT_FOUND (the module's
// resources are damaged), ERROR_INVALID_HANDLE.
KOLMA_PLATFORM_API HRSRC WINAPI FindResourceW(HMODULE hModule, LPCWSTR lpName, LPCWSTR lpType);
KOLMA_PLATFORM_API DWORD WINAPI SizeofResource(HMODULE hModule, HRSRC hResInfo);
KOLMA_PLATFORM_API HGLOBAL WINAPI LoadResource(HMODULE hModule, HRSRC hResInfo);
KOLMA_PLATFORM_API LPVOID WINAPI LockResource(HGLOBAL hResData);

// The number of characters copied, without the terminator; 0 when the string is missing or empty. A string too long is
// cut. With cchBufferMax 0, lpBuffer is the address of a pointer that is set to the string in the module (which has no
// terminator), and the result is its length.
KOLMA_PLATFORM_API int WINAPI LoadStringW(HINSTANCE hInstance, UINT uID, LPWSTR lpBuffer, int cchBufferMax);
// The icon lives as long as its module.
KOLMA_PLATFORM_API HICON WINAPI LoadIconW(HINSTANCE hInstance, LPCWSTR lpIconName);
}

#endif
