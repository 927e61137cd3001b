// Pages of a property sheet, and what the sheet and its pages tell each other.
#pragma once

#include "platform/types.h"
#include "platform/windows.h"

#ifdef _WIN32

#include <prsht.h>

#else

inline constexpr DWORD PSP_DEFAULT = 0x00000000;
inline constexpr DWORD PSP_DLGINDIRECT = 0x00000001;
inline constexpr DWORD PSP_USEHICON = 0x00000002;
inline constexpr DWORD PSP_USEICONID = 0x00000004;
inline constexpr DWORD PSP_USETITLE = 0x00000008;
inline constexpr DWORD PSP_HASHELP = 0x00000020;
inline constexpr DWORD PSP_USEREFPARENT = 0x00000040;
inline constexpr DWORD PSP_USECALLBACK = 0x00000080;

inline constexpr UINT PSPCB_ADDREF = 0;
inline constexpr UINT PSPCB_RELEASE = 1;
inline constexpr UINT PSPCB_CREATE = 2;

inline constexpr UINT PSN_FIRST = 0U - 200U;
inline constexpr UINT PSN_SETACTIVE = PSN_FIRST - 0;
inline constexpr UINT PSN_KILLACTIVE = PSN_FIRST - 1;
inline constexpr UINT PSN_APPLY = PSN_FIRST - 2;
inline constexpr UINT PSN_RESET = PSN_FIRST - 3;
inline constexpr UINT PSN_HELP = PSN_FIRST - 5;
inline constexpr UINT PSN_QUERYCANCEL = PSN_FIRST - 9;

inline constexpr LRESULT PSNRET_NOERROR = 0;
inline constexpr LRESULT PSNRET_INVALID = 1;
inline constexpr LRESULT PSNRET_INVALID_NOCHANGEPAGE = 2;

inline constexpr UINT PSM_SETCURSEL = WM_USER + 101;
inline constexpr UINT PSM_CHANGED = WM_USER + 104;
inline constexpr UINT PSM_CANCELTOCLOSE = WM_USER + 107;
inline constexpr UINT PSM_QUERYSIBLINGS = WM_USER + 108;
inline constexpr UINT PSM_UNCHANGED = WM_USER + 109;
inline constexpr UINT PSM_APPLY = WM_USER + 110;
inline constexpr UINT PSM_PRESSBUTTON = WM_USER + 113;
inline constexpr UINT PSM_SETCURSELID = WM_USER + 114;
inline constexpr UINT PSM_GETTABCONTROL = WM_USER + 116;
inline constexpr UINT PSM_GETCURRENTPAGEHWND = WM_USER + 118;
inline constexpr UINT PSM_SETTITLEW = WM_USER + 120;
inline constexpr UINT PSM_HWNDTOINDEX = WM_USER + 129;
inline constexpr UINT PSM_INDEXTOHWND = WM_USER + 130;

// PSM_PRESSBUTTON.
inline constexpr WPARAM PSBTN_OK = 3;
inline constexpr WPARAM PSBTN_APPLYNOW = 4;
inline constexpr WPARAM PSBTN_CANCEL = 5;
inline constexpr WPARAM PSBTN_HELP = 6;

// The control id of the sheet's button that applies.
inline constexpr int ID_APPLY_NOW = 0x3021;

struct PSP;
using HPROPSHEETPAGE = PSP*;
struct PROPSHEETPAGEW;
using LPFNPSPCALLBACKW = UINT(CALLBACK*)(HWND, UINT, PROPSHEETPAGEW*);

// The page's dialog gets a copy of this record as lParam of WM_INITDIALOG.
struct PROPSHEETPAGEW {
    DWORD dwSize;
    DWORD dwFlags;
    HINSTANCE hInstance;
    union {
        LPCWSTR pszTemplate;
        LPCDLGTEMPLATEW pResource;
    };
    union {
        HICON hIcon;
        LPCWSTR pszIcon;
    };
    LPCWSTR pszTitle;
    DLGPROC pfnDlgProc;
    LPARAM lParam;
    LPFNPSPCALLBACKW pfnCallback;
    UINT* pcRefParent;
    LPCWSTR pszHeaderTitle;
    LPCWSTR pszHeaderSubTitle;
    HANDLE hActCtx;
    union {
        HBITMAP hbmHeader;
        LPCWSTR pszbmHeader;
    };
};
using LPPROPSHEETPAGEW = PROPSHEETPAGEW*;
using LPCPROPSHEETPAGEW = const PROPSHEETPAGEW*;
static_assert(sizeof(void*) != 8 || sizeof(PROPSHEETPAGEW) == 104);
// The record up to and with pcRefParent: the form that every version of the sheet takes.
inline constexpr DWORD PROPSHEETPAGEW_V1_SIZE = sizeof(void*) == 8 ? 72 : 40;

struct PSHNOTIFY {
    NMHDR hdr;
    LPARAM lParam;
};
using LPPSHNOTIFY = PSHNOTIFY*;
static_assert(sizeof(void*) != 8 || sizeof(PSHNOTIFY) == 32);

#endif
