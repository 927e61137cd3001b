// The common property sheet interface: how a driver's pages and option items come into the host's sheets.
#pragma once

#include "platform/property_sheet.h"
#include "platform/types.h"

#ifdef _WIN32

#include <compstui.h>

#else

// Functions of pfnComPropSheet.
inline constexpr UINT CPSFUNC_ADD_HPROPSHEETPAGE = 0;
inline constexpr UINT CPSFUNC_ADD_PROPSHEETPAGEW = 1;
inline constexpr UINT CPSFUNC_ADD_PCOMPROPSHEETUIW = 3;
inline constexpr UINT CPSFUNC_ADD_PFNPROPSHEETUIW = 5;
inline constexpr UINT CPSFUNC_DELETE_HCOMPROPSHEET = 6;
inline constexpr UINT CPSFUNC_SET_HSTARTPAGE = 7;
inline constexpr UINT CPSFUNC_GET_PAGECOUNT = 8;
inline constexpr UINT CPSFUNC_SET_RESULT = 9;
inline constexpr UINT CPSFUNC_GET_HPSUIPAGES = 10;
inline constexpr UINT CPSFUNC_LOAD_CPSUI_STRINGW = 12;
inline constexpr UINT CPSFUNC_LOAD_CPSUI_ICON = 13;
inline constexpr UINT CPSFUNC_SET_PSUIPAGE_TITLEW = 19;
inline constexpr UINT CPSFUNC_IGNORE_CPSUI_PSN_APPLY = 24;
inline constexpr UINT CPSFUNC_DO_APPLY_CPSUI = 25;

inline constexpr WORD PROPSHEETUI_INFO_VERSION = 0x0100;
inline constexpr WORD PROPSHEETUI_REASON_INIT = 0;
inline constexpr WORD PROPSHEETUI_REASON_GET_INFO_HEADER = 1;
inline constexpr WORD PROPSHEETUI_REASON_DESTROY = 2;
inline constexpr WORD PROPSHEETUI_REASON_SET_RESULT = 3;
inline constexpr WORD PROPSHEETUI_REASON_GET_ICON = 4;
inline constexpr WORD PSUIINFO_UNICODE = 0x0001;

inline constexpr LONG CPSUI_CANCEL = 0;
inline constexpr LONG CPSUI_OK = 1;
inline constexpr LONG CPSUI_RESTARTWINDOWS = 2;
inline constexpr LONG CPSUI_REBOOTSYSTEM = 3;

inline constexpr LONG ERR_CPSUI_GETLASTERROR = -1;
inline constexpr LONG ERR_CPSUI_ALLOCMEM_FAILED = -2;
inline constexpr LONG ERR_CPSUI_INVALID_PDATA = -3;
inline constexpr LONG ERR_CPSUI_INVALID_LPARAM = -4;
inline constexpr LONG ERR_CPSUI_NO_PROPSHEETPAGE = -8;
inline constexpr LONG ERR_CPSUI_TOO_MANY_PROPSHEETPAGES = -9;
inline constexpr LONG ERR_CPSUI_CREATEPROPPAGE_FAILED = -10;

using PFNCOMPROPSHEET = LONG_PTR(CALLBACK*)(HANDLE hComPropSheet, UINT Function, LPARAM lParam1, LPARAM lParam2);

struct PROPSHEETUI_INFO {
    WORD cbSize;
    WORD Version;
    WORD Flags;
    WORD Reason;
    HANDLE hComPropSheet;
    PFNCOMPROPSHEET pfnComPropSheet;
    LPARAM lParamInit;
    ULONG_PTR UserData;
    ULONG_PTR Result;
};
using PPROPSHEETUI_INFO = PROPSHEETUI_INFO*;
static_assert(sizeof(void*) != 8 || sizeof(PROPSHEETUI_INFO) == 48);

using PFNPROPSHEETUI = LONG(CALLBACK*)(PPROPSHEETUI_INFO pPSUIInfo, LPARAM lParam);

inline constexpr WORD PSUIHDRF_OBSOLETE = 0x0001;
inline constexpr WORD PSUIHDRF_NOAPPLYNOW = 0x0002;
inline constexpr WORD PSUIHDRF_PROPTITLE = 0x0004;
inline constexpr WORD PSUIHDRF_USEHICON = 0x0008;
inline constexpr WORD PSUIHDRF_DEFTITLE = 0x0010;
inline constexpr WORD PSUIHDRF_EXACT_PTITLE = 0x0020;

struct PROPSHEETUI_INFO_HEADER {
    WORD cbSize;
    WORD Flags;
    LPWSTR pTitle;
    HWND hWndParent;
    HINSTANCE hInst;
    union {
        HICON hIcon;
        ULONG_PTR IconID;
    };
};
using PPROPSHEETUI_INFO_HEADER = PROPSHEETUI_INFO_HEADER*;
static_assert(sizeof(void*) != 8 || sizeof(PROPSHEETUI_INFO_HEADER) == 40);

struct SETRESULT_INFO {
    WORD cbSize;
    WORD wReserved;
    HANDLE hSetResult;
    LRESULT Result;
};
using PSETRESULT_INFO = SETRESULT_INFO*;
static_assert(sizeof(void*) != 8 || sizeof(SETRESULT_INFO) == 24);

// What kind an option is (OPTTYPE::Type), and how many parameters it takes.
inline constexpr BYTE TVOT_2STATES = 0;
inline constexpr BYTE TVOT_3STATES = 1;
inline constexpr BYTE TVOT_UDARROW = 2;
inline constexpr BYTE TVOT_TRACKBAR = 3;
inline constexpr BYTE TVOT_SCROLLBAR = 4;
inline constexpr BYTE TVOT_LISTBOX = 5;
inline constexpr BYTE TVOT_COMBOBOX = 6;
inline constexpr BYTE TVOT_EDITBOX = 7;
inline constexpr BYTE TVOT_PUSHBUTTON = 8;
inline constexpr BYTE TVOT_CHKBOX = 9;
inline constexpr BYTE TVOT_NONE = 10;

// OPTTYPE::Style.
inline constexpr WORD OTS_LBCB_SORT = 0x0001;
inline constexpr WORD OTS_LBCB_INCL_ITEM_NONE = 0x0008;
inline constexpr WORD OTS_LBCB_NO_ICON16_IN_ITEM = 0x0010;

// OPTTYPE::Flags.
inline constexpr BYTE OPTTF_TYPE_DISABLED = 0x01;

// OPTPARAM::Flags.
inline constexpr BYTE OPTPF_HIDE = 0x01;
inline constexpr BYTE OPTPF_DISABLED = 0x02;
inline constexpr BYTE OPTPF_ICONID_AS_HICON = 0x04;

// OPTITEM::Flags.
inline constexpr DWORD OPTIF_COLLAPSE = 0x00000001;
inline constexpr DWORD OPTIF_HIDE = 0x00000002;
inline constexpr DWORD OPTIF_CALLBACK = 0x00000004;
inline constexpr DWORD OPTIF_CHANGED = 0x00000008;
inline constexpr DWORD OPTIF_CHANGEONCE = 0x00000010;
inline constexpr DWORD OPTIF_DISABLED = 0x00000020;
inline constexpr DWORD OPTIF_ECB_CHECKED = 0x00000040;
inline constexpr DWORD OPTIF_EXT_HIDE = 0x00000080;
inline constexpr DWORD OPTIF_EXT_DISABLED = 0x00000100;
inline constexpr DWORD OPTIF_INITIAL_TVITEM = 0x00008000;

// Icons of the sheet itself (OPTPARAM::IconID).
inline constexpr ULONG_PTR IDI_CPSUI_NO = 64003;
inline constexpr ULONG_PTR IDI_CPSUI_YES = 64004;

struct OPTPARAM {
    WORD cbSize;
    BYTE Flags;
    BYTE Style;
    LPWSTR pData;
    ULONG_PTR IconID;
    LPARAM lParam;
    ULONG_PTR dwReserved[2];
};
using POPTPARAM = OPTPARAM*;
static_assert(sizeof(OPTPARAM) == (sizeof(void*) == 8 ? 48 : 24));

struct OPTTYPE {
    WORD cbSize;
    BYTE Type;
    BYTE Flags;
    WORD Count;
    WORD BegCtrlID;
    POPTPARAM pOptParam;
    WORD Style;
    WORD wReserved[3];
    ULONG_PTR dwReserved[3];
};
using POPTTYPE = OPTTYPE*;
static_assert(sizeof(OPTTYPE) == (sizeof(void*) == 8 ? 48 : 32));

struct EXTCHKBOX;
using PEXTCHKBOX = EXTCHKBOX*;
struct EXTPUSH;
using PEXTPUSH = EXTPUSH*;
struct OIEXT;
using POIEXT = OIEXT*;

struct OPTITEM {
    WORD cbSize;
    BYTE Level;
    BYTE DlgPageIdx;
    DWORD Flags;
    ULONG_PTR UserData;
    LPWSTR pName;
    union {
        LONG Sel;
        LPWSTR pSel;
    };
    union {
        PEXTCHKBOX pExtChkBox;
        PEXTPUSH pExtPush;
    };
    POPTTYPE pOptType;
    DWORD HelpIndex;
    BYTE DMPubID;
    BYTE UserItemID;
    WORD wReserved;
    POIEXT pOIExt;
    ULONG_PTR dwReserved[3];
};
using POPTITEM = OPTITEM*;
static_assert(sizeof(OPTITEM) == (sizeof(void*) == 8 ? 88 : 52));

// CPSUICBPARAM::Reason.
inline constexpr WORD CPSUICB_REASON_SEL_CHANGED = 0;
inline constexpr WORD CPSUICB_REASON_PUSHBUTTON = 1;
inline constexpr WORD CPSUICB_REASON_ECB_CHANGED = 2;
inline constexpr WORD CPSUICB_REASON_DLGPROC = 3;
inline constexpr WORD CPSUICB_REASON_UNDO_CHANGES = 4;
inline constexpr WORD CPSUICB_REASON_EXTPUSH = 5;
inline constexpr WORD CPSUICB_REASON_APPLYNOW = 6;
inline constexpr WORD CPSUICB_REASON_OPTITEM_SETFOCUS = 7;
inline constexpr WORD CPSUICB_REASON_ITEMS_REVERTED = 8;
inline constexpr WORD CPSUICB_REASON_ABOUT = 9;
inline constexpr WORD CPSUICB_REASON_SETACTIVE = 10;
inline constexpr WORD CPSUICB_REASON_KILLACTIVE = 11;

// What the callback wants done.
inline constexpr LONG CPSUICB_ACTION_NONE = 0;
inline constexpr LONG CPSUICB_ACTION_OPTIF_CHANGED = 1;
inline constexpr LONG CPSUICB_ACTION_REINIT_ITEMS = 2;
inline constexpr LONG CPSUICB_ACTION_NO_APPLY_EXIT = 3;
inline constexpr LONG CPSUICB_ACTION_ITEMS_APPLIED = 4;

struct CPSUICBPARAM {
    WORD cbSize;
    WORD Reason;
    HWND hDlg;
    POPTITEM pOptItem;
    WORD cOptItem;
    WORD Flags;
    POPTITEM pCurItem;
    union {
        LONG OldSel;
        LPWSTR pOldSel;
    };
    ULONG_PTR UserData;
    ULONG_PTR Result;
};
using PCPSUICBPARAM = CPSUICBPARAM*;
static_assert(sizeof(CPSUICBPARAM) == (sizeof(void*) == 8 ? 64 : 32));
using _CPSUICALLBACK = LONG(CALLBACK*)(PCPSUICBPARAM pCPSUICBParam); // NOLINT: published

struct DLGPAGE {
    WORD cbSize;
    WORD Flags;
    DLGPROC DlgProc;
    LPWSTR pTabName;
    ULONG_PTR IconID;
    union {
        WORD DlgTemplateID;
        HANDLE hDlgTemplate;
    };
};
using PDLGPAGE = DLGPAGE*;
static_assert(sizeof(void*) != 8 || sizeof(DLGPAGE) == 40);

// COMPROPSHEETUI::pDlgPage, in place of a pointer: one of the sheet's own pages.
inline const PDLGPAGE CPSUI_PDLGPAGE_DOCPROP = reinterpret_cast<PDLGPAGE>(static_cast<ULONG_PTR>(1));      // NOLINT
inline const PDLGPAGE CPSUI_PDLGPAGE_ADVDOCPROP = reinterpret_cast<PDLGPAGE>(static_cast<ULONG_PTR>(2));   // NOLINT
inline const PDLGPAGE CPSUI_PDLGPAGE_PRINTERPROP = reinterpret_cast<PDLGPAGE>(static_cast<ULONG_PTR>(3));  // NOLINT
inline const PDLGPAGE CPSUI_PDLGPAGE_TREEVIEWONLY = reinterpret_cast<PDLGPAGE>(static_cast<ULONG_PTR>(4)); // NOLINT

// COMPROPSHEETUI::Flags.
inline constexpr WORD CPSUIF_UPDATE_PERMISSION = 0x0001;
inline constexpr WORD CPSUIF_ICONID_AS_HICON = 0x0002;
inline constexpr WORD CPSUIF_ABOUT_CALLBACK = 0x0004;

struct COMPROPSHEETUI {
    WORD cbSize;
    WORD Flags;
    HINSTANCE hInstCaller;
    LPWSTR pCallerName;
    ULONG_PTR UserData;
    LPWSTR pHelpFile;
    _CPSUICALLBACK pfnCallBack;
    POPTITEM pOptItem;
    PDLGPAGE pDlgPage;
    WORD cOptItem;
    WORD cDlgPage;
    ULONG_PTR IconID;
    LPWSTR pOptItemName;
    WORD CallerVersion;
    WORD OptItemVersion;
    ULONG_PTR dwReserved[4];
};
using PCOMPROPSHEETUI = COMPROPSHEETUI*;
static_assert(sizeof(void*) != 8 || sizeof(COMPROPSHEETUI) == 128);

extern "C" {

// Runs a modal sheet with the pages that pfnPropSheetUI adds. CPSUI_OK or CPSUI_CANCEL in *pResult; below 0 on failure.
KOLMA_PLATFORM_API LONG WINAPI CommonPropertySheetUIW(HWND hWndOwner, PFNPROPSHEETUI pfnPropSheetUI, LPARAM lParam,
                                                      LPDWORD pResult);
}

#endif
