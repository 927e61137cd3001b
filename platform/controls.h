// The classes of controls: buttons, labels, fields, lists, trackbar, up-down and tool tips, with their styles, messages
// and notifications.
#pragma once

#include "platform/types.h"
#include "platform/windows.h"

#ifdef _WIN32

#include <commctrl.h>

#else

// Names of the classes; a template may name the first five by ordinal.
inline constexpr const WCHAR* WC_BUTTONW = u"Button";
inline constexpr const WCHAR* WC_EDITW = u"Edit";
inline constexpr const WCHAR* WC_STATICW = u"Static";
inline constexpr const WCHAR* WC_LISTBOXW = u"ListBox";
inline constexpr const WCHAR* WC_COMBOBOXW = u"ComboBox";
inline constexpr const WCHAR* WC_LISTVIEWW = u"SysListView32";
inline constexpr const WCHAR* TRACKBAR_CLASSW = u"msctls_trackbar32";
inline constexpr const WCHAR* UPDOWN_CLASSW = u"msctls_updown32";
inline constexpr const WCHAR* TOOLTIPS_CLASSW = u"tooltips_class32";
inline constexpr const WCHAR* WC_TABCONTROLW = u"SysTabControl32";

// Button.
inline constexpr DWORD BS_PUSHBUTTON = 0x0000;
inline constexpr DWORD BS_DEFPUSHBUTTON = 0x0001;
inline constexpr DWORD BS_CHECKBOX = 0x0002;
inline constexpr DWORD BS_AUTOCHECKBOX = 0x0003;
inline constexpr DWORD BS_RADIOBUTTON = 0x0004;
inline constexpr DWORD BS_3STATE = 0x0005;
inline constexpr DWORD BS_AUTO3STATE = 0x0006;
inline constexpr DWORD BS_GROUPBOX = 0x0007;
inline constexpr DWORD BS_AUTORADIOBUTTON = 0x0009;
inline constexpr DWORD BS_OWNERDRAW = 0x000B;
inline constexpr DWORD BS_TYPEMASK = 0x000F;
inline constexpr DWORD BS_LEFTTEXT = 0x0020;
inline constexpr DWORD BS_ICON = 0x0040;
inline constexpr DWORD BS_BITMAP = 0x0080;
inline constexpr DWORD BS_LEFT = 0x0100;
inline constexpr DWORD BS_RIGHT = 0x0200;
inline constexpr DWORD BS_CENTER = 0x0300;
inline constexpr DWORD BS_TOP = 0x0400;
inline constexpr DWORD BS_BOTTOM = 0x0800;
inline constexpr DWORD BS_VCENTER = 0x0C00;
inline constexpr DWORD BS_PUSHLIKE = 0x1000;
inline constexpr DWORD BS_MULTILINE = 0x2000;
inline constexpr DWORD BS_NOTIFY = 0x4000;
inline constexpr DWORD BS_FLAT = 0x8000;
inline constexpr UINT BM_GETCHECK = 0x00F0;
inline constexpr UINT BM_SETCHECK = 0x00F1;
inline constexpr UINT BM_GETSTATE = 0x00F2;
inline constexpr UINT BM_SETSTATE = 0x00F3;
inline constexpr UINT BM_SETSTYLE = 0x00F4;
inline constexpr UINT BM_CLICK = 0x00F5;
inline constexpr UINT BM_GETIMAGE = 0x00F6;
inline constexpr UINT BM_SETIMAGE = 0x00F7;
inline constexpr WORD BN_CLICKED = 0;
inline constexpr WORD BN_DOUBLECLICKED = 5;
inline constexpr WORD BN_SETFOCUS = 6;
inline constexpr WORD BN_KILLFOCUS = 7;
inline constexpr WPARAM BST_UNCHECKED = 0;
inline constexpr WPARAM BST_CHECKED = 1;
inline constexpr WPARAM BST_INDETERMINATE = 2;
inline constexpr WPARAM BST_PUSHED = 4;
inline constexpr WPARAM BST_FOCUS = 8;

// Static.
inline constexpr DWORD SS_LEFT = 0x0000;
inline constexpr DWORD SS_CENTER = 0x0001;
inline constexpr DWORD SS_RIGHT = 0x0002;
inline constexpr DWORD SS_ICON = 0x0003;
inline constexpr DWORD SS_BLACKRECT = 0x0004;
inline constexpr DWORD SS_GRAYRECT = 0x0005;
inline constexpr DWORD SS_WHITERECT = 0x0006;
inline constexpr DWORD SS_BLACKFRAME = 0x0007;
inline constexpr DWORD SS_GRAYFRAME = 0x0008;
inline constexpr DWORD SS_WHITEFRAME = 0x0009;
inline constexpr DWORD SS_SIMPLE = 0x000B;
inline constexpr DWORD SS_LEFTNOWORDWRAP = 0x000C;
inline constexpr DWORD SS_OWNERDRAW = 0x000D;
inline constexpr DWORD SS_BITMAP = 0x000E;
inline constexpr DWORD SS_ETCHEDHORZ = 0x0010;
inline constexpr DWORD SS_ETCHEDVERT = 0x0011;
inline constexpr DWORD SS_ETCHEDFRAME = 0x0012;
inline constexpr DWORD SS_TYPEMASK = 0x001F;
inline constexpr DWORD SS_REALSIZECONTROL = 0x0040;
inline constexpr DWORD SS_NOPREFIX = 0x0080;
inline constexpr DWORD SS_NOTIFY = 0x0100;
inline constexpr DWORD SS_CENTERIMAGE = 0x0200;
inline constexpr DWORD SS_RIGHTJUST = 0x0400;
inline constexpr DWORD SS_REALSIZEIMAGE = 0x0800;
inline constexpr DWORD SS_SUNKEN = 0x1000;
inline constexpr DWORD SS_EDITCONTROL = 0x2000;
inline constexpr DWORD SS_ENDELLIPSIS = 0x4000;
inline constexpr UINT STM_SETICON = 0x0170;
inline constexpr UINT STM_GETICON = 0x0171;
inline constexpr UINT STM_SETIMAGE = 0x0172;
inline constexpr UINT STM_GETIMAGE = 0x0173;
inline constexpr WORD STN_CLICKED = 0;
inline constexpr WORD STN_DBLCLK = 1;

// Edit.
inline constexpr DWORD ES_LEFT = 0x0000;
inline constexpr DWORD ES_CENTER = 0x0001;
inline constexpr DWORD ES_RIGHT = 0x0002;
inline constexpr DWORD ES_MULTILINE = 0x0004;
inline constexpr DWORD ES_UPPERCASE = 0x0008;
inline constexpr DWORD ES_LOWERCASE = 0x0010;
inline constexpr DWORD ES_PASSWORD = 0x0020;
inline constexpr DWORD ES_AUTOVSCROLL = 0x0040;
inline constexpr DWORD ES_AUTOHSCROLL = 0x0080;
inline constexpr DWORD ES_NOHIDESEL = 0x0100;
inline constexpr DWORD ES_READONLY = 0x0800;
inline constexpr DWORD ES_WANTRETURN = 0x1000;
inline constexpr DWORD ES_NUMBER = 0x2000;
inline constexpr UINT EM_GETSEL = 0x00B0;
inline constexpr UINT EM_SETSEL = 0x00B1;
inline constexpr UINT EM_SCROLLCARET = 0x00B7;
inline constexpr UINT EM_GETMODIFY = 0x00B8;
inline constexpr UINT EM_SETMODIFY = 0x00B9;
inline constexpr UINT EM_GETLINECOUNT = 0x00BA;
inline constexpr UINT EM_REPLACESEL = 0x00C2;
inline constexpr UINT EM_LIMITTEXT = 0x00C5;
inline constexpr UINT EM_SETLIMITTEXT = EM_LIMITTEXT;
inline constexpr UINT EM_CANUNDO = 0x00C6;
inline constexpr UINT EM_UNDO = 0x00C7;
inline constexpr UINT EM_SETPASSWORDCHAR = 0x00CC;
inline constexpr UINT EM_SETREADONLY = 0x00CF;
inline constexpr UINT EM_GETLIMITTEXT = 0x00D5;
inline constexpr WORD EN_SETFOCUS = 0x0100;
inline constexpr WORD EN_KILLFOCUS = 0x0200;
inline constexpr WORD EN_CHANGE = 0x0300;
inline constexpr WORD EN_UPDATE = 0x0400;
inline constexpr WORD EN_MAXTEXT = 0x0501;

// ComboBox.
inline constexpr DWORD CBS_SIMPLE = 0x0001;
inline constexpr DWORD CBS_DROPDOWN = 0x0002;
inline constexpr DWORD CBS_DROPDOWNLIST = 0x0003;
inline constexpr DWORD CBS_OWNERDRAWFIXED = 0x0010;
inline constexpr DWORD CBS_AUTOHSCROLL = 0x0040;
inline constexpr DWORD CBS_SORT = 0x0100;
inline constexpr DWORD CBS_HASSTRINGS = 0x0200;
inline constexpr DWORD CBS_NOINTEGRALHEIGHT = 0x0400;
inline constexpr DWORD CBS_DISABLENOSCROLL = 0x0800;
inline constexpr UINT CB_GETEDITSEL = 0x0140;
inline constexpr UINT CB_LIMITTEXT = 0x0141;
inline constexpr UINT CB_SETEDITSEL = 0x0142;
inline constexpr UINT CB_ADDSTRING = 0x0143;
inline constexpr UINT CB_DELETESTRING = 0x0144;
inline constexpr UINT CB_GETCOUNT = 0x0146;
inline constexpr UINT CB_GETCURSEL = 0x0147;
inline constexpr UINT CB_GETLBTEXT = 0x0148;
inline constexpr UINT CB_GETLBTEXTLEN = 0x0149;
inline constexpr UINT CB_INSERTSTRING = 0x014A;
inline constexpr UINT CB_RESETCONTENT = 0x014B;
inline constexpr UINT CB_FINDSTRING = 0x014C;
inline constexpr UINT CB_SELECTSTRING = 0x014D;
inline constexpr UINT CB_SETCURSEL = 0x014E;
inline constexpr UINT CB_SHOWDROPDOWN = 0x014F;
inline constexpr UINT CB_GETITEMDATA = 0x0150;
inline constexpr UINT CB_SETITEMDATA = 0x0151;
inline constexpr UINT CB_GETDROPPEDCONTROLRECT = 0x0152;
inline constexpr UINT CB_GETITEMHEIGHT = 0x0154;
inline constexpr UINT CB_GETDROPPEDSTATE = 0x0157;
inline constexpr UINT CB_FINDSTRINGEXACT = 0x0158;
inline constexpr UINT CB_GETDROPPEDWIDTH = 0x015F;
inline constexpr UINT CB_SETDROPPEDWIDTH = 0x0160;
inline constexpr LRESULT CB_OKAY = 0;
inline constexpr LRESULT CB_ERR = -1;
inline constexpr LRESULT CB_ERRSPACE = -2;
inline constexpr WORD CBN_SELCHANGE = 1;
inline constexpr WORD CBN_DBLCLK = 2;
inline constexpr WORD CBN_SETFOCUS = 3;
inline constexpr WORD CBN_KILLFOCUS = 4;
inline constexpr WORD CBN_EDITCHANGE = 5;
inline constexpr WORD CBN_EDITUPDATE = 6;
inline constexpr WORD CBN_DROPDOWN = 7;
inline constexpr WORD CBN_CLOSEUP = 8;
inline constexpr WORD CBN_SELENDOK = 9;
inline constexpr WORD CBN_SELENDCANCEL = 10;

// ListBox.
inline constexpr DWORD LBS_NOTIFY = 0x0001;
inline constexpr DWORD LBS_SORT = 0x0002;
inline constexpr DWORD LBS_MULTIPLESEL = 0x0008;
inline constexpr DWORD LBS_HASSTRINGS = 0x0040;
inline constexpr DWORD LBS_USETABSTOPS = 0x0080;
inline constexpr DWORD LBS_NOINTEGRALHEIGHT = 0x0100;
inline constexpr DWORD LBS_EXTENDEDSEL = 0x0800;
inline constexpr DWORD LBS_DISABLENOSCROLL = 0x1000;
inline constexpr DWORD LBS_NOSEL = 0x4000;
inline constexpr UINT LB_ADDSTRING = 0x0180;
inline constexpr UINT LB_INSERTSTRING = 0x0181;
inline constexpr UINT LB_DELETESTRING = 0x0182;
inline constexpr UINT LB_RESETCONTENT = 0x0184;
inline constexpr UINT LB_SETSEL = 0x0185;
inline constexpr UINT LB_SETCURSEL = 0x0186;
inline constexpr UINT LB_GETSEL = 0x0187;
inline constexpr UINT LB_GETCURSEL = 0x0188;
inline constexpr UINT LB_GETTEXT = 0x0189;
inline constexpr UINT LB_GETTEXTLEN = 0x018A;
inline constexpr UINT LB_GETCOUNT = 0x018B;
inline constexpr UINT LB_SELECTSTRING = 0x018C;
inline constexpr UINT LB_GETTOPINDEX = 0x018E;
inline constexpr UINT LB_FINDSTRING = 0x018F;
inline constexpr UINT LB_GETSELCOUNT = 0x0190;
inline constexpr UINT LB_GETSELITEMS = 0x0191;
inline constexpr UINT LB_SETHORIZONTALEXTENT = 0x0194;
inline constexpr UINT LB_SETTOPINDEX = 0x0197;
inline constexpr UINT LB_GETITEMRECT = 0x0198;
inline constexpr UINT LB_GETITEMDATA = 0x0199;
inline constexpr UINT LB_SETITEMDATA = 0x019A;
inline constexpr UINT LB_SETCARETINDEX = 0x019E;
inline constexpr UINT LB_GETCARETINDEX = 0x019F;
inline constexpr UINT LB_FINDSTRINGEXACT = 0x01A2;
inline constexpr LRESULT LB_OKAY = 0;
inline constexpr LRESULT LB_ERR = -1;
inline constexpr LRESULT LB_ERRSPACE = -2;
inline constexpr WORD LBN_SELCHANGE = 1;
inline constexpr WORD LBN_DBLCLK = 2;
inline constexpr WORD LBN_SELCANCEL = 3;
inline constexpr WORD LBN_SETFOCUS = 4;
inline constexpr WORD LBN_KILLFOCUS = 5;

// Trackbar.
inline constexpr DWORD TBS_AUTOTICKS = 0x0001;
inline constexpr DWORD TBS_VERT = 0x0002;
inline constexpr DWORD TBS_HORZ = 0x0000;
inline constexpr DWORD TBS_TOP = 0x0004;
inline constexpr DWORD TBS_BOTTOM = 0x0000;
inline constexpr DWORD TBS_BOTH = 0x0008;
inline constexpr DWORD TBS_NOTICKS = 0x0010;
inline constexpr DWORD TBS_TOOLTIPS = 0x0100;
inline constexpr UINT TBM_GETPOS = WM_USER;
inline constexpr UINT TBM_GETRANGEMIN = WM_USER + 1;
inline constexpr UINT TBM_GETRANGEMAX = WM_USER + 2;
inline constexpr UINT TBM_SETTIC = WM_USER + 4;
inline constexpr UINT TBM_SETPOS = WM_USER + 5;
inline constexpr UINT TBM_SETRANGE = WM_USER + 6;
inline constexpr UINT TBM_SETRANGEMIN = WM_USER + 7;
inline constexpr UINT TBM_SETRANGEMAX = WM_USER + 8;
inline constexpr UINT TBM_CLEARTICS = WM_USER + 9;
inline constexpr UINT TBM_GETNUMTICS = WM_USER + 16;
inline constexpr UINT TBM_SETTICFREQ = WM_USER + 20;
inline constexpr UINT TBM_SETPAGESIZE = WM_USER + 21;
inline constexpr UINT TBM_GETPAGESIZE = WM_USER + 22;
inline constexpr UINT TBM_SETLINESIZE = WM_USER + 23;
inline constexpr UINT TBM_GETLINESIZE = WM_USER + 24;
inline constexpr WORD TB_LINEUP = 0;
inline constexpr WORD TB_LINEDOWN = 1;
inline constexpr WORD TB_PAGEUP = 2;
inline constexpr WORD TB_PAGEDOWN = 3;
inline constexpr WORD TB_THUMBPOSITION = 4;
inline constexpr WORD TB_THUMBTRACK = 5;
inline constexpr WORD TB_TOP = 6;
inline constexpr WORD TB_BOTTOM = 7;
inline constexpr WORD TB_ENDTRACK = 8;

// Up-down.
inline constexpr DWORD UDS_WRAP = 0x0001;
inline constexpr DWORD UDS_SETBUDDYINT = 0x0002;
inline constexpr DWORD UDS_ALIGNRIGHT = 0x0004;
inline constexpr DWORD UDS_ALIGNLEFT = 0x0008;
inline constexpr DWORD UDS_AUTOBUDDY = 0x0010;
inline constexpr DWORD UDS_ARROWKEYS = 0x0020;
inline constexpr DWORD UDS_HORZ = 0x0040;
inline constexpr DWORD UDS_NOTHOUSANDS = 0x0080;
inline constexpr UINT UDM_SETRANGE = WM_USER + 101;
inline constexpr UINT UDM_GETRANGE = WM_USER + 102;
inline constexpr UINT UDM_SETPOS = WM_USER + 103;
inline constexpr UINT UDM_GETPOS = WM_USER + 104;
inline constexpr UINT UDM_SETBUDDY = WM_USER + 105;
inline constexpr UINT UDM_GETBUDDY = WM_USER + 106;
inline constexpr UINT UDM_SETBASE = WM_USER + 109;
inline constexpr UINT UDM_GETBASE = WM_USER + 110;
inline constexpr UINT UDM_SETRANGE32 = WM_USER + 111;
inline constexpr UINT UDM_GETRANGE32 = WM_USER + 112;
inline constexpr UINT UDM_SETPOS32 = WM_USER + 113;
inline constexpr UINT UDM_GETPOS32 = WM_USER + 114;
inline constexpr UINT UDN_FIRST = 0U - 721U;
inline constexpr UINT UDN_DELTAPOS = UDN_FIRST - 1;

struct NMUPDOWN {
    NMHDR hdr;
    int iPos;
    int iDelta;
};
using LPNMUPDOWN = NMUPDOWN*;
static_assert(sizeof(void*) != 8 || sizeof(NMUPDOWN) == 32);

// Tool tips.
inline constexpr DWORD TTS_ALWAYSTIP = 0x01;
inline constexpr DWORD TTS_NOPREFIX = 0x02;
inline constexpr DWORD TTS_BALLOON = 0x40;
inline constexpr UINT TTF_IDISHWND = 0x0001;
inline constexpr UINT TTF_CENTERTIP = 0x0002;
inline constexpr UINT TTF_SUBCLASS = 0x0010;
inline constexpr WPARAM TTDT_AUTOMATIC = 0;
inline constexpr WPARAM TTDT_RESHOW = 1;
inline constexpr WPARAM TTDT_AUTOPOP = 2;
inline constexpr WPARAM TTDT_INITIAL = 3;
inline constexpr UINT TTM_ACTIVATE = WM_USER + 1;
inline constexpr UINT TTM_SETDELAYTIME = WM_USER + 3;
inline constexpr UINT TTM_GETTOOLCOUNT = WM_USER + 13;
inline constexpr UINT TTM_GETDELAYTIME = WM_USER + 21;
inline constexpr UINT TTM_SETMAXTIPWIDTH = WM_USER + 24;
inline constexpr UINT TTM_GETMAXTIPWIDTH = WM_USER + 25;
inline constexpr UINT TTM_POP = WM_USER + 28;
inline constexpr UINT TTM_ADDTOOLW = WM_USER + 50;
inline constexpr UINT TTM_DELTOOLW = WM_USER + 51;
inline constexpr UINT TTM_GETTEXTW = WM_USER + 56;
inline constexpr UINT TTM_UPDATETIPTEXTW = WM_USER + 57;

struct TTTOOLINFOW {
    UINT cbSize;
    UINT uFlags;
    HWND hwnd;
    UINT_PTR uId;
    RECT rect;
    HINSTANCE hinst;
    LPWSTR lpszText;
    LPARAM lParam;
    void* lpReserved;
};
using TOOLINFOW = TTTOOLINFOW;
using LPTOOLINFOW = TTTOOLINFOW*;
static_assert(sizeof(void*) != 8 || sizeof(TTTOOLINFOW) == 72);

// Tab control: the property sheet's.
inline constexpr UINT TCM_FIRST = 0x1300;
inline constexpr UINT TCM_GETITEMCOUNT = TCM_FIRST + 4;
inline constexpr UINT TCM_GETCURSEL = TCM_FIRST + 11;
inline constexpr UINT TCM_SETCURSEL = TCM_FIRST + 12;
inline constexpr UINT TCM_GETITEMW = TCM_FIRST + 60;
inline constexpr UINT TCIF_TEXT = 0x0001;
inline constexpr UINT TCIF_IMAGE = 0x0002;
inline constexpr UINT TCIF_PARAM = 0x0008;
struct TCITEMW {
    UINT mask;
    DWORD dwState;
    DWORD dwStateMask;
    LPWSTR pszText;
    int cchTextMax;
    int iImage;
    LPARAM lParam;
};
static_assert(sizeof(void*) != 8 || sizeof(TCITEMW) == 40);

struct INITCOMMONCONTROLSEX {
    DWORD dwSize;
    DWORD dwICC;
};
static_assert(sizeof(INITCOMMONCONTROLSEX) == 8);
inline constexpr DWORD ICC_LISTVIEW_CLASSES = 0x0001;
inline constexpr DWORD ICC_BAR_CLASSES = 0x0004;
inline constexpr DWORD ICC_TAB_CLASSES = 0x0008;
inline constexpr DWORD ICC_UPDOWN_CLASS = 0x0010;
inline constexpr DWORD ICC_WIN95_CLASSES = 0x00FF;

inline constexpr UINT ILC_MASK = 0x0001;
inline constexpr UINT ILC_COLOR = 0x0000;
inline constexpr UINT ILC_COLOR24 = 0x0018;
inline constexpr UINT ILC_COLOR32 = 0x0020;
inline constexpr UINT ILD_NORMAL = 0x0000;
inline constexpr UINT ILD_TRANSPARENT = 0x0001;

extern "C" {

// Every class is there from the start: the call only checks the structure.
KOLMA_PLATFORM_API BOOL WINAPI InitCommonControlsEx(const INITCOMMONCONTROLSEX* picce);

KOLMA_PLATFORM_API HIMAGELIST WINAPI ImageList_Create(int cx, int cy, UINT flags, int cInitial, int cGrow);
KOLMA_PLATFORM_API BOOL WINAPI ImageList_Destroy(HIMAGELIST himl);
// Index -1 appends. The index of the image, or -1. The list keeps a picture of its own.
KOLMA_PLATFORM_API int WINAPI ImageList_ReplaceIcon(HIMAGELIST himl, int i, HICON hicon);
// A strip of pictures of the list's size, without what is white in the mask or has the colour. The index of the first
// one, or -1.
KOLMA_PLATFORM_API int WINAPI ImageList_Add(HIMAGELIST himl, HBITMAP hbmImage, HBITMAP hbmMask);
KOLMA_PLATFORM_API int WINAPI ImageList_AddMasked(HIMAGELIST himl, HBITMAP hbmImage, COLORREF crMask);
// Index -1 removes all.
KOLMA_PLATFORM_API BOOL WINAPI ImageList_Remove(HIMAGELIST himl, int i);
KOLMA_PLATFORM_API int WINAPI ImageList_GetImageCount(HIMAGELIST himl);
KOLMA_PLATFORM_API BOOL WINAPI ImageList_GetIconSize(HIMAGELIST himl, int* cx, int* cy);
KOLMA_PLATFORM_API BOOL WINAPI ImageList_Draw(HIMAGELIST himl, int i, HDC hdcDst, int x, int y, UINT fStyle);
}

#endif

#include "platform/list_view.h"
