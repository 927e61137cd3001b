// Windows, as far as the reporting of failures needs them.
#pragma once

#include "platform/types.h"

#ifdef _WIN32

#include <windows.h>

#else

inline constexpr UINT MB_OK = 0x0000;
inline constexpr UINT MB_OKCANCEL = 0x0001;
inline constexpr UINT MB_ABORTRETRYIGNORE = 0x0002;
inline constexpr UINT MB_YESNOCANCEL = 0x0003;
inline constexpr UINT MB_YESNO = 0x0004;
inline constexpr UINT MB_RETRYCANCEL = 0x0005;
inline constexpr UINT MB_TYPEMASK = 0x000F;
inline constexpr UINT MB_ICONHAND = 0x0010;
inline constexpr UINT MB_ICONSTOP = MB_ICONHAND;
inline constexpr UINT MB_ICONERROR = MB_ICONHAND;
inline constexpr UINT MB_ICONQUESTION = 0x0020;
inline constexpr UINT MB_ICONEXCLAMATION = 0x0030;
inline constexpr UINT MB_ICONWARNING = MB_ICONEXCLAMATION;
inline constexpr UINT MB_ICONASTERISK = 0x0040;
inline constexpr UINT MB_ICONINFORMATION = MB_ICONASTERISK;
inline constexpr UINT MB_ICONMASK = 0x00F0;
inline constexpr UINT MB_DEFBUTTON1 = 0x0000;
inline constexpr UINT MB_DEFBUTTON2 = 0x0100;
inline constexpr UINT MB_DEFBUTTON3 = 0x0200;
inline constexpr UINT MB_DEFMASK = 0x0F00;
inline constexpr UINT MB_APPLMODAL = 0x0000;
inline constexpr UINT MB_SYSTEMMODAL = 0x1000;
inline constexpr UINT MB_TASKMODAL = 0x2000;
inline constexpr UINT MB_HELP = 0x4000;
inline constexpr UINT MB_SETFOREGROUND = 0x10000;

inline constexpr int IDOK = 1;
inline constexpr int IDCANCEL = 2;
inline constexpr int IDABORT = 3;
inline constexpr int IDRETRY = 4;
inline constexpr int IDIGNORE = 5;
inline constexpr int IDYES = 6;
inline constexpr int IDNO = 7;

extern "C" {

// The button that ended the box. Where no window layer is up, title and text go to the standard error and the box
// answers itself: IDOK where it has that button, else the button that agrees to nothing.
KOLMA_PLATFORM_API int WINAPI MessageBoxW(HWND hWnd, LPCWSTR lpText, LPCWSTR lpCaption, UINT uType);

// The number of characters copied, without the terminator; 0 with ERROR_INVALID_WINDOW_HANDLE for what is no window.
KOLMA_PLATFORM_API int WINAPI GetWindowTextW(HWND hWnd, LPWSTR lpString, int nMaxCount);
KOLMA_PLATFORM_API int WINAPI GetWindowTextLengthW(HWND hWnd);
}

#endif
