// Basic types of the platform, in their published names and sizes.
//
// Published structures keep their published member order; a LONG has 32 bits everywhere, pointers and handles have
// the platform's own width.
#pragma once

#ifdef _WIN32

#include <windows.h>

#else

#include <cstdint>

// On this platform wide text is char16_t: one UTF-16 code unit, as everywhere in this system.
using WCHAR = char16_t;
using LPWSTR = WCHAR*;
using PWSTR = WCHAR*;
using LPCWSTR = const WCHAR*;
using PCWSTR = const WCHAR*;
using CHAR = char;
using LPSTR = char*;
using LPCSTR = const char*;

using BOOL = std::int32_t;
using BYTE = std::uint8_t;
using UCHAR = std::uint8_t;
using PBYTE = BYTE*;
using LPBYTE = BYTE*;
using SHORT = std::int16_t;
using USHORT = std::uint16_t;
using WORD = std::uint16_t;
using INT = std::int32_t;
using UINT = std::uint32_t;
using LONG = std::int32_t;
using ULONG = std::uint32_t;
using PULONG = ULONG*;
using DWORD = std::uint32_t;
using PDWORD = DWORD*;
using LPDWORD = DWORD*;
using LONG_PTR = std::intptr_t;
using ULONG_PTR = std::uintptr_t;
using UINT_PTR = std::uintptr_t;
using INT_PTR = std::intptr_t;
using SIZE_T = std::size_t;
using LPARAM = LONG_PTR;
using WPARAM = UINT_PTR;
using LRESULT = LONG_PTR;
using PVOID = void*;
using LPVOID = void*;
using LPCVOID = const void*;
using HANDLE = void*;
using PHANDLE = HANDLE*;
using LPHANDLE = HANDLE*;
using HRESULT = std::int32_t;
using LONGLONG = std::int64_t;
using ULONGLONG = std::uint64_t;
using FLONG = std::uint32_t;
using REGSAM = DWORD;
// The entry of a module before it is cast to its own type; void (*)() is what compilers let be cast to any.
using FARPROC = void (*)();
struct SECURITY_ATTRIBUTES;
using LPSECURITY_ATTRIBUTES = SECURITY_ATTRIBUTES*;
using PSECURITY_DESCRIPTOR = void*;
using LSTATUS = LONG;
using LCID = DWORD;
using LCTYPE = DWORD;

// Handles of different kinds are different types, so that one cannot be taken for another.
struct HINSTANCE__;
using HINSTANCE = HINSTANCE__*;
using HMODULE = HINSTANCE;
struct HRSRC__;
using HRSRC = HRSRC__*;
using HGLOBAL = HANDLE;
struct HWND__;
using HWND = HWND__*;
struct HICON__;
using HICON = HICON__*;
using HCURSOR = HICON;
struct HMENU__;
using HMENU = HMENU__*;
struct HDC__;
using HDC = HDC__*;
struct HBITMAP__;
using HBITMAP = HBITMAP__*;
struct HBRUSH__;
using HBRUSH = HBRUSH__*;
struct HPEN__;
using HPEN = HPEN__*;
struct HFONT__;
using HFONT = HFONT__*;
struct HRGN__;
using HRGN = HRGN__*;
// Any object that a device context takes; each of their handles converts to it.
using HGDIOBJ = void*;
struct _IMAGELIST; // NOLINT: published
using HIMAGELIST = _IMAGELIST*;
struct HKEY__;
using HKEY = HKEY__*;
using PHKEY = HKEY*;

struct POINT {
    LONG x;
    LONG y;
};
using LPPOINT = POINT*;
struct SIZE {
    LONG cx;
    LONG cy;
};
using LPSIZE = SIZE*;
struct RECT {
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
};
using LPRECT = RECT*;
using LPCRECT = const RECT*;

// 0x00BBGGRR.
using COLORREF = DWORD;
using ATOM = WORD;

struct GUID {
    std::uint32_t Data1;
    std::uint16_t Data2;
    std::uint16_t Data3;
    std::uint8_t Data4[8];
};
using IID = GUID;
using CLSID = GUID;
using REFGUID = const GUID&;
using REFIID = const IID&;
using REFCLSID = const CLSID&;

inline constexpr bool operator==(const GUID& a, const GUID& b) noexcept {
    if (a.Data1 != b.Data1 || a.Data2 != b.Data2 || a.Data3 != b.Data3) return false;
    for (int i = 0; i < 8; ++i)
        if (a.Data4[i] != b.Data4[i]) return false;
    return true;
}

inline constexpr BOOL TRUE = 1;
inline constexpr BOOL FALSE = 0;

inline const HANDLE INVALID_HANDLE_VALUE = reinterpret_cast<HANDLE>(static_cast<LONG_PTR>(-1)); // NOLINT

// Calling conventions that this platform has no use for.
#define WINAPI
#define APIENTRY
#define CALLBACK
#define STDMETHODCALLTYPE

using WNDPROC = LRESULT(CALLBACK*)(HWND, UINT, WPARAM, LPARAM);
using DLGPROC = INT_PTR(CALLBACK*)(HWND, UINT, WPARAM, LPARAM);
using WNDENUMPROC = BOOL(CALLBACK*)(HWND, LPARAM);
using TIMERPROC = void(CALLBACK*)(HWND, UINT, UINT_PTR, DWORD);

constexpr WORD LOWORD(ULONG_PTR value) noexcept { return static_cast<WORD>(value & 0xFFFFU); }
constexpr WORD HIWORD(ULONG_PTR value) noexcept { return static_cast<WORD>(value >> 16U & 0xFFFFU); }
constexpr WORD LOWORD(LONG_PTR value) noexcept { return LOWORD(static_cast<ULONG_PTR>(value)); }
constexpr WORD HIWORD(LONG_PTR value) noexcept { return HIWORD(static_cast<ULONG_PTR>(value)); }
constexpr WORD LOWORD(DWORD value) noexcept { return LOWORD(static_cast<ULONG_PTR>(value)); }
constexpr WORD HIWORD(DWORD value) noexcept { return HIWORD(static_cast<ULONG_PTR>(value)); }
constexpr WORD LOWORD(LONG value) noexcept { return LOWORD(static_cast<DWORD>(value)); }
constexpr WORD HIWORD(LONG value) noexcept { return HIWORD(static_cast<DWORD>(value)); }
template <typename Low, typename High>
constexpr LONG MAKELONG(Low low, High high) noexcept {
    return static_cast<LONG>(static_cast<DWORD>(static_cast<WORD>(low)) | static_cast<DWORD>(static_cast<WORD>(high))
                                                                              << 16U);
}
template <typename Low, typename High>
constexpr LPARAM MAKELPARAM(Low low, High high) noexcept {
    return static_cast<LPARAM>(static_cast<DWORD>(MAKELONG(low, high)));
}
template <typename Low, typename High>
constexpr WPARAM MAKEWPARAM(Low low, High high) noexcept {
    return static_cast<WPARAM>(static_cast<DWORD>(MAKELONG(low, high)));
}

// Marks what libkolmaplatform gives to the host and to the module; everything else in it is hidden.
#define KOLMA_PLATFORM_API __attribute__((visibility("default")))

inline constexpr HRESULT S_OK = 0;
inline constexpr HRESULT S_FALSE = 1;
inline constexpr HRESULT E_NOTIMPL = static_cast<HRESULT>(0x80004001U);
inline constexpr HRESULT E_NOINTERFACE = static_cast<HRESULT>(0x80004002U);
inline constexpr HRESULT E_FAIL = static_cast<HRESULT>(0x80004005U);
inline constexpr HRESULT E_OUTOFMEMORY = static_cast<HRESULT>(0x8007000EU);
inline constexpr HRESULT E_POINTER = static_cast<HRESULT>(0x80004003U);
inline constexpr HRESULT CLASS_E_NOAGGREGATION = static_cast<HRESULT>(0x80040110U);
inline constexpr HRESULT CLASS_E_CLASSNOTAVAILABLE = static_cast<HRESULT>(0x80040111U);

inline constexpr DWORD ERROR_SUCCESS = 0;
inline constexpr DWORD ERROR_FILE_NOT_FOUND = 2;
inline constexpr DWORD ERROR_PATH_NOT_FOUND = 3;
inline constexpr DWORD ERROR_TOO_MANY_OPEN_FILES = 4;
inline constexpr DWORD ERROR_ACCESS_DENIED = 5;
inline constexpr DWORD ERROR_INVALID_HANDLE = 6;
inline constexpr DWORD ERROR_NOT_ENOUGH_MEMORY = 8;
inline constexpr DWORD ERROR_NOT_SAME_DEVICE = 17;
inline constexpr DWORD ERROR_WRITE_PROTECT = 19;
inline constexpr DWORD ERROR_WRITE_FAULT = 29;
inline constexpr DWORD ERROR_READ_FAULT = 30;
inline constexpr DWORD ERROR_GEN_FAILURE = 31;
inline constexpr DWORD ERROR_SHARING_VIOLATION = 32;
inline constexpr DWORD ERROR_NOT_SUPPORTED = 50;
inline constexpr DWORD ERROR_DEV_NOT_EXIST = 55;
inline constexpr DWORD ERROR_FILE_EXISTS = 80;
inline constexpr DWORD ERROR_INVALID_PARAMETER = 87;
inline constexpr DWORD ERROR_DISK_FULL = 112;
inline constexpr DWORD ERROR_INSUFFICIENT_BUFFER = 122;
inline constexpr DWORD ERROR_INVALID_NAME = 123;
inline constexpr DWORD ERROR_INVALID_LEVEL = 124;
inline constexpr DWORD ERROR_MOD_NOT_FOUND = 126;
inline constexpr DWORD ERROR_PROC_NOT_FOUND = 127;
inline constexpr DWORD ERROR_BUSY = 170;
inline constexpr DWORD ERROR_ALREADY_EXISTS = 183;
inline constexpr DWORD ERROR_BAD_EXE_FORMAT = 193;
inline constexpr DWORD ERROR_FILENAME_EXCED_RANGE = 206;
inline constexpr DWORD ERROR_FILE_TOO_LARGE = 223;
inline constexpr DWORD ERROR_MORE_DATA = 234;
inline constexpr DWORD ERROR_REGISTRY_CORRUPT = 1015;
inline constexpr DWORD ERROR_REGISTRY_IO_FAILED = 1016;
inline constexpr DWORD ERROR_NO_UNICODE_TRANSLATION = 1113;
inline constexpr DWORD ERROR_NO_SUCH_USER = 1317;
inline constexpr DWORD ERROR_INVALID_WINDOW_HANDLE = 1400;
inline constexpr DWORD ERROR_INVALID_MENU_HANDLE = 1401;
inline constexpr DWORD ERROR_INVALID_CURSOR_HANDLE = 1402;
inline constexpr DWORD ERROR_CANNOT_FIND_WND_CLASS = 1407;
inline constexpr DWORD ERROR_INVALID_INDEX = 1413;
inline constexpr DWORD ERROR_CONTROL_ID_NOT_FOUND = 1421;
// No display on which a window could open.
inline constexpr DWORD ERROR_REQUIRES_INTERACTIVE_WINDOWSTATION = 1459;
inline constexpr DWORD ERROR_UNKNOWN_PRINTER_DRIVER = 1797;
inline constexpr DWORD ERROR_INVALID_PRINTER_NAME = 1801;
inline constexpr DWORD ERROR_PRINTER_ALREADY_EXISTS = 1802;
inline constexpr DWORD ERROR_INVALID_ENVIRONMENT = 1805;
inline constexpr DWORD ERROR_RESOURCE_DATA_NOT_FOUND = 1812;
inline constexpr DWORD ERROR_RESOURCE_TYPE_NOT_FOUND = 1813;
inline constexpr DWORD ERROR_RESOURCE_NAME_NOT_FOUND = 1814;
inline constexpr DWORD ERROR_PRINTER_DELETED = 1905;
inline constexpr DWORD ERROR_CANT_RESOLVE_FILENAME = 1921;

// The last error belongs to the calling thread; a call that succeeds leaves it alone.
extern "C" {
KOLMA_PLATFORM_API DWORD WINAPI GetLastError();
KOLMA_PLATFORM_API void WINAPI SetLastError(DWORD error);
}

inline LONG InterlockedIncrement(LONG volatile* value) { return __atomic_add_fetch(value, 1, __ATOMIC_SEQ_CST); }
inline LONG InterlockedDecrement(LONG volatile* value) { return __atomic_sub_fetch(value, 1, __ATOMIC_SEQ_CST); }

#endif

#include <string>

// The one place where wide text of this system (char16_t) and of the platform (WCHAR) meet.
inline const WCHAR* toWide(const char16_t* text) noexcept { return reinterpret_cast<const WCHAR*>(text); }
inline WCHAR* toWide(char16_t* text) noexcept { return reinterpret_cast<WCHAR*>(text); }
inline const WCHAR* toWide(const std::u16string& text) noexcept { return toWide(text.c_str()); }
inline const char16_t* fromWide(const WCHAR* text) noexcept { return reinterpret_cast<const char16_t*>(text); }
