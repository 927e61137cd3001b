// The messages of windows and dialogs; those of the control classes stand in controls.h.
#pragma once

#include "platform/types.h"

#ifdef _WIN32

#include <windows.h>

#else

inline constexpr UINT WM_NULL = 0x0000;
inline constexpr UINT WM_CREATE = 0x0001;
inline constexpr UINT WM_DESTROY = 0x0002;
inline constexpr UINT WM_MOVE = 0x0003;
inline constexpr UINT WM_SIZE = 0x0005;
inline constexpr UINT WM_ACTIVATE = 0x0006;
inline constexpr UINT WM_SETFOCUS = 0x0007;
inline constexpr UINT WM_KILLFOCUS = 0x0008;
inline constexpr UINT WM_ENABLE = 0x000A;
inline constexpr UINT WM_SETREDRAW = 0x000B;
inline constexpr UINT WM_SETTEXT = 0x000C;
inline constexpr UINT WM_GETTEXT = 0x000D;
inline constexpr UINT WM_GETTEXTLENGTH = 0x000E;
inline constexpr UINT WM_PAINT = 0x000F;
inline constexpr UINT WM_CLOSE = 0x0010;
inline constexpr UINT WM_ERASEBKGND = 0x0014;
inline constexpr UINT WM_SYSCOLORCHANGE = 0x0015;
inline constexpr UINT WM_SHOWWINDOW = 0x0018;
inline constexpr UINT WM_SETTINGCHANGE = 0x001A;
inline constexpr UINT WM_SETCURSOR = 0x0020;
inline constexpr UINT WM_MOUSEACTIVATE = 0x0021;
inline constexpr UINT WM_NEXTDLGCTL = 0x0028;
inline constexpr UINT WM_DRAWITEM = 0x002B;
inline constexpr UINT WM_MEASUREITEM = 0x002C;
inline constexpr UINT WM_DELETEITEM = 0x002D;
inline constexpr UINT WM_COMPAREITEM = 0x0039;
inline constexpr UINT WM_SETFONT = 0x0030;
inline constexpr UINT WM_GETFONT = 0x0031;
inline constexpr UINT WM_WINDOWPOSCHANGED = 0x0047;
inline constexpr UINT WM_NOTIFY = 0x004E;
inline constexpr UINT WM_HELP = 0x0053;
inline constexpr UINT WM_CONTEXTMENU = 0x007B;
inline constexpr UINT WM_STYLECHANGED = 0x007D;
inline constexpr UINT WM_GETICON = 0x007F;
inline constexpr UINT WM_SETICON = 0x0080;
inline constexpr UINT WM_NCDESTROY = 0x0082;
inline constexpr UINT WM_GETDLGCODE = 0x0087;
inline constexpr UINT WM_KEYFIRST = 0x0100;
inline constexpr UINT WM_KEYDOWN = 0x0100;
inline constexpr UINT WM_KEYUP = 0x0101;
inline constexpr UINT WM_CHAR = 0x0102;
inline constexpr UINT WM_SYSKEYDOWN = 0x0104;
inline constexpr UINT WM_SYSKEYUP = 0x0105;
inline constexpr UINT WM_SYSCHAR = 0x0106;
inline constexpr UINT WM_KEYLAST = 0x0109;
inline constexpr UINT WM_INITDIALOG = 0x0110;
inline constexpr UINT WM_COMMAND = 0x0111;
inline constexpr UINT WM_SYSCOMMAND = 0x0112;
inline constexpr UINT WM_TIMER = 0x0113;
inline constexpr UINT WM_HSCROLL = 0x0114;
inline constexpr UINT WM_VSCROLL = 0x0115;
inline constexpr UINT WM_ENTERIDLE = 0x0121;
inline constexpr UINT WM_CTLCOLORMSGBOX = 0x0132;
inline constexpr UINT WM_CTLCOLOREDIT = 0x0133;
inline constexpr UINT WM_CTLCOLORLISTBOX = 0x0134;
inline constexpr UINT WM_CTLCOLORBTN = 0x0135;
inline constexpr UINT WM_CTLCOLORDLG = 0x0136;
inline constexpr UINT WM_CTLCOLORSCROLLBAR = 0x0137;
inline constexpr UINT WM_CTLCOLORSTATIC = 0x0138;
inline constexpr UINT WM_MOUSEFIRST = 0x0200;
inline constexpr UINT WM_MOUSEMOVE = 0x0200;
inline constexpr UINT WM_LBUTTONDOWN = 0x0201;
inline constexpr UINT WM_LBUTTONUP = 0x0202;
inline constexpr UINT WM_LBUTTONDBLCLK = 0x0203;
inline constexpr UINT WM_RBUTTONDOWN = 0x0204;
inline constexpr UINT WM_RBUTTONUP = 0x0205;
inline constexpr UINT WM_RBUTTONDBLCLK = 0x0206;
inline constexpr UINT WM_MBUTTONDOWN = 0x0207;
inline constexpr UINT WM_MBUTTONUP = 0x0208;
inline constexpr UINT WM_MOUSEWHEEL = 0x020A;
inline constexpr UINT WM_CAPTURECHANGED = 0x0215;
inline constexpr UINT WM_MOUSEHOVER = 0x02A1;
inline constexpr UINT WM_MOUSELEAVE = 0x02A3;
inline constexpr UINT WM_CUT = 0x0300;
inline constexpr UINT WM_COPY = 0x0301;
inline constexpr UINT WM_PASTE = 0x0302;
inline constexpr UINT WM_CLEAR = 0x0303;
inline constexpr UINT WM_UNDO = 0x0304;
inline constexpr UINT WM_USER = 0x0400;
inline constexpr UINT WM_APP = 0x8000;

// To a dialog: its default push button. The answer to DM_GETDEFID has DC_HASDEFID in its high word when there is one.
inline constexpr UINT DM_GETDEFID = WM_USER + 0;
inline constexpr UINT DM_SETDEFID = WM_USER + 1;
inline constexpr WORD DC_HASDEFID = 0x534B;

// WM_ACTIVATE, low word of wParam.
inline constexpr WORD WA_INACTIVE = 0;
inline constexpr WORD WA_ACTIVE = 1;
inline constexpr WORD WA_CLICKACTIVE = 2;

// WM_SIZE, wParam.
inline constexpr WPARAM SIZE_RESTORED = 0;
inline constexpr WPARAM SIZE_MINIMIZED = 1;
inline constexpr WPARAM SIZE_MAXIMIZED = 2;

// WM_SYSCOMMAND, wParam without its low four bits.
inline constexpr WPARAM SC_CLOSE = 0xF060;

// Mouse messages, wParam.
inline constexpr WPARAM MK_LBUTTON = 0x0001;
inline constexpr WPARAM MK_RBUTTON = 0x0002;
inline constexpr WPARAM MK_SHIFT = 0x0004;
inline constexpr WPARAM MK_CONTROL = 0x0008;
inline constexpr WPARAM MK_MBUTTON = 0x0010;

// WM_SETICON, wParam.
inline constexpr WPARAM ICON_SMALL = 0;
inline constexpr WPARAM ICON_BIG = 1;

// WM_GETDLGCODE: which keys a control wants for itself.
inline constexpr LRESULT DLGC_WANTARROWS = 0x0001;
inline constexpr LRESULT DLGC_WANTTAB = 0x0002;
inline constexpr LRESULT DLGC_WANTALLKEYS = 0x0004;
inline constexpr LRESULT DLGC_WANTMESSAGE = 0x0004;
inline constexpr LRESULT DLGC_HASSETSEL = 0x0008;
inline constexpr LRESULT DLGC_DEFPUSHBUTTON = 0x0010;
inline constexpr LRESULT DLGC_UNDEFPUSHBUTTON = 0x0020;
inline constexpr LRESULT DLGC_RADIOBUTTON = 0x0040;
inline constexpr LRESULT DLGC_WANTCHARS = 0x0080;
inline constexpr LRESULT DLGC_STATIC = 0x0100;
inline constexpr LRESULT DLGC_BUTTON = 0x2000;

// WM_HSCROLL and WM_VSCROLL, low word of wParam; SB_... of a scroll bar and of an up-down.
inline constexpr WORD SB_THUMBPOSITION = 4;
inline constexpr WORD SB_ENDSCROLL = 8;

inline constexpr int VK_LBUTTON = 0x01;
inline constexpr int VK_RBUTTON = 0x02;
inline constexpr int VK_BACK = 0x08;
inline constexpr int VK_TAB = 0x09;
inline constexpr int VK_RETURN = 0x0D;
inline constexpr int VK_SHIFT = 0x10;
inline constexpr int VK_CONTROL = 0x11;
inline constexpr int VK_MENU = 0x12;
inline constexpr int VK_ESCAPE = 0x1B;
inline constexpr int VK_SPACE = 0x20;
inline constexpr int VK_PRIOR = 0x21;
inline constexpr int VK_NEXT = 0x22;
inline constexpr int VK_END = 0x23;
inline constexpr int VK_HOME = 0x24;
inline constexpr int VK_LEFT = 0x25;
inline constexpr int VK_UP = 0x26;
inline constexpr int VK_RIGHT = 0x27;
inline constexpr int VK_DOWN = 0x28;
inline constexpr int VK_INSERT = 0x2D;
inline constexpr int VK_DELETE = 0x2E;
inline constexpr int VK_ADD = 0x6B;
inline constexpr int VK_SUBTRACT = 0x6D;
inline constexpr int VK_F1 = 0x70;
inline constexpr int VK_F4 = 0x73;
inline constexpr int VK_F12 = 0x7B;

struct NMHDR {
    HWND hwndFrom;
    UINT_PTR idFrom;
    UINT code;
};
using LPNMHDR = NMHDR*;
static_assert(sizeof(void*) != 8 || sizeof(NMHDR) == 24);

// WM_NOTIFY codes that several classes send.
inline constexpr UINT NM_FIRST = 0U - 0U;
inline constexpr UINT NM_OUTOFMEMORY = NM_FIRST - 1;
inline constexpr UINT NM_CLICK = NM_FIRST - 2;
inline constexpr UINT NM_DBLCLK = NM_FIRST - 3;
inline constexpr UINT NM_RETURN = NM_FIRST - 4;
inline constexpr UINT NM_RCLICK = NM_FIRST - 5;
inline constexpr UINT NM_RDBLCLK = NM_FIRST - 6;
inline constexpr UINT NM_SETFOCUS = NM_FIRST - 7;
inline constexpr UINT NM_KILLFOCUS = NM_FIRST - 8;
inline constexpr UINT NM_HOVER = NM_FIRST - 13;

struct DRAWITEMSTRUCT {
    UINT CtlType;
    UINT CtlID;
    UINT itemID;
    UINT itemAction;
    UINT itemState;
    HWND hwndItem;
    HDC hDC;
    RECT rcItem;
    ULONG_PTR itemData;
};
using LPDRAWITEMSTRUCT = DRAWITEMSTRUCT*;
static_assert(sizeof(void*) != 8 || sizeof(DRAWITEMSTRUCT) == 64);

inline constexpr UINT ODT_MENU = 1;
inline constexpr UINT ODT_LISTBOX = 2;
inline constexpr UINT ODT_COMBOBOX = 3;
inline constexpr UINT ODT_BUTTON = 4;
inline constexpr UINT ODT_STATIC = 5;
inline constexpr UINT ODA_DRAWENTIRE = 0x0001;
inline constexpr UINT ODA_SELECT = 0x0002;
inline constexpr UINT ODA_FOCUS = 0x0004;
inline constexpr UINT ODS_SELECTED = 0x0001;
inline constexpr UINT ODS_GRAYED = 0x0002;
inline constexpr UINT ODS_DISABLED = 0x0004;
inline constexpr UINT ODS_CHECKED = 0x0008;
inline constexpr UINT ODS_FOCUS = 0x0010;
inline constexpr UINT ODS_DEFAULT = 0x0020;

// WM_HELP, lParam.
struct HELPINFO {
    UINT cbSize;
    int iContextType;
    int iCtrlId;
    HANDLE hItemHandle;
    ULONG_PTR dwContextId;
    POINT MousePos;
};
using LPHELPINFO = HELPINFO*;
static_assert(sizeof(void*) != 8 || sizeof(HELPINFO) == 40);
inline constexpr int HELPINFO_WINDOW = 1;

#endif
