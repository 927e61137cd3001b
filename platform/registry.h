// Named values per user, in a tree of keys under HKEY_CURRENT_USER.
//
// The results are error numbers (0 is success); the last error is left alone. Key and value names compare without case.
#pragma once

#include "platform/types.h"

#ifdef _WIN32

#include <windows.h>

#else

inline const HKEY HKEY_CURRENT_USER =
    reinterpret_cast<HKEY>(static_cast<LONG_PTR>(static_cast<LONG>(0x80000001U))); // NOLINT

inline constexpr DWORD REG_NONE = 0;
inline constexpr DWORD REG_SZ = 1;
inline constexpr DWORD REG_BINARY = 3;
inline constexpr DWORD REG_DWORD = 4;

inline constexpr REGSAM KEY_QUERY_VALUE = 0x0001;
inline constexpr REGSAM KEY_SET_VALUE = 0x0002;
inline constexpr REGSAM KEY_CREATE_SUB_KEY = 0x0004;
inline constexpr REGSAM KEY_READ = 0x20019;
inline constexpr REGSAM KEY_WRITE = 0x20006;
inline constexpr REGSAM KEY_ALL_ACCESS = 0xF003F;

inline constexpr DWORD REG_OPTION_NON_VOLATILE = 0;
inline constexpr DWORD REG_CREATED_NEW_KEY = 1;
inline constexpr DWORD REG_OPENED_EXISTING_KEY = 2;

extern "C" {

// Creates the key with all its parents, or opens it.
KOLMA_PLATFORM_API LSTATUS WINAPI RegCreateKeyExW(HKEY hKey, LPCWSTR lpSubKey, DWORD Reserved, LPWSTR lpClass,
                                                  DWORD dwOptions, REGSAM samDesired,
                                                  LPSECURITY_ATTRIBUTES lpSecurityAttributes, PHKEY phkResult,
                                                  LPDWORD lpdwDisposition);
// ERROR_FILE_NOT_FOUND when there is no such key.
KOLMA_PLATFORM_API LSTATUS WINAPI RegOpenKeyExW(HKEY hKey, LPCWSTR lpSubKey, DWORD ulOptions, REGSAM samDesired,
                                                PHKEY phkResult);
// A null lpData with lpcbData asks for the size. A buffer too small gives ERROR_MORE_DATA and the size, and is left
// alone. A value that is not there gives ERROR_FILE_NOT_FOUND.
KOLMA_PLATFORM_API LSTATUS WINAPI RegQueryValueExW(HKEY hKey, LPCWSTR lpValueName, LPDWORD lpReserved, LPDWORD lpType,
                                                   LPBYTE lpData, LPDWORD lpcbData);
// The bytes are kept as they are: a text has a terminator only when one was given.
KOLMA_PLATFORM_API LSTATUS WINAPI RegSetValueExW(HKEY hKey, LPCWSTR lpValueName, DWORD Reserved, DWORD dwType,
                                                 const BYTE* lpData, DWORD cbData);
KOLMA_PLATFORM_API LSTATUS WINAPI RegCloseKey(HKEY hKey);
}

#endif
