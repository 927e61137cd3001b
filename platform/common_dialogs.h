// The dialogs that choose a file.
#pragma once

#include "platform/types.h"

#ifdef _WIN32

#include <windows.h>

#include <commdlg.h>

#else

inline constexpr DWORD OFN_READONLY = 0x00000001;
inline constexpr DWORD OFN_OVERWRITEPROMPT = 0x00000002;
inline constexpr DWORD OFN_HIDEREADONLY = 0x00000004;
inline constexpr DWORD OFN_NOCHANGEDIR = 0x00000008;
inline constexpr DWORD OFN_NOVALIDATE = 0x00000100;
inline constexpr DWORD OFN_EXTENSIONDIFFERENT = 0x00000400;
inline constexpr DWORD OFN_PATHMUSTEXIST = 0x00000800;
inline constexpr DWORD OFN_FILEMUSTEXIST = 0x00001000;
inline constexpr DWORD OFN_CREATEPROMPT = 0x00002000;
inline constexpr DWORD OFN_NOREADONLYRETURN = 0x00008000;
inline constexpr DWORD OFN_EXPLORER = 0x00080000;
inline constexpr DWORD OFN_LONGNAMES = 0x00200000;
inline constexpr DWORD OFN_DONTADDTORECENT = 0x02000000;

// CommDlgExtendedError. 0 after a failed call means that the user chose nothing.
inline constexpr DWORD CDERR_DIALOGFAILURE = 0xFFFF;
inline constexpr DWORD CDERR_STRUCTSIZE = 0x0001;
inline constexpr DWORD CDERR_INITIALIZATION = 0x0002;
inline constexpr DWORD CDERR_MEMALLOCFAILURE = 0x0009;
inline constexpr DWORD FNERR_SUBCLASSFAILURE = 0x3001;
inline constexpr DWORD FNERR_INVALIDFILENAME = 0x3002;
inline constexpr DWORD FNERR_BUFFERTOOSMALL = 0x3003;

using LPOFNHOOKPROC = UINT_PTR(CALLBACK*)(HWND, UINT, WPARAM, LPARAM);

// lpstrFilter is pairs of label and pattern, each with its terminator, ended by an empty one; nFilterIndex counts the
// pairs from 1. nMaxFile counts the terminator.
struct OPENFILENAMEW {
    DWORD lStructSize;
    HWND hwndOwner;
    HINSTANCE hInstance;
    LPCWSTR lpstrFilter;
    LPWSTR lpstrCustomFilter;
    DWORD nMaxCustFilter;
    DWORD nFilterIndex;
    LPWSTR lpstrFile;
    DWORD nMaxFile;
    LPWSTR lpstrFileTitle;
    DWORD nMaxFileTitle;
    LPCWSTR lpstrInitialDir;
    LPCWSTR lpstrTitle;
    DWORD Flags;
    WORD nFileOffset;
    WORD nFileExtension;
    LPCWSTR lpstrDefExt;
    LPARAM lCustData;
    LPOFNHOOKPROC lpfnHook;
    LPCWSTR lpTemplateName;
    void* pvReserved;
    DWORD dwReserved;
    DWORD FlagsEx;
};
using LPOPENFILENAMEW = OPENFILENAMEW*;
static_assert(sizeof(void*) != 8 || sizeof(OPENFILENAMEW) == 152);
inline constexpr DWORD OPENFILENAME_SIZE_VERSION_400W = sizeof(void*) == 8 ? 136 : 76;

extern "C" {

// True when the user chose a file. False with CommDlgExtendedError: 0 for Cancel.
KOLMA_PLATFORM_API BOOL WINAPI GetOpenFileNameW(LPOPENFILENAMEW lpofn);
KOLMA_PLATFORM_API BOOL WINAPI GetSaveFileNameW(LPOPENFILENAMEW lpofn);
KOLMA_PLATFORM_API DWORD WINAPI CommDlgExtendedError();
}

#endif
