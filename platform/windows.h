// Windows and dialogs: styles, structures and calls of windows of every class.
//
// All windows belong to the thread that opened the first one; a call from another thread fails as if no window were
// there. A stale, foreign or invented handle is refused with ERROR_INVALID_WINDOW_HANDLE and nothing is dereferenced.
// The window layer is loaded by the first call that makes or measures a window; where no display can start such a call
// fails with ERROR_REQUIRES_INTERACTIVE_WINDOWSTATION.
#pragma once

#include "platform/types.h"
#include "platform/window_messages.h"

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
inline constexpr int IDCLOSE = 8;
inline constexpr int IDHELP = 9;
// The text of a message box, and every label whose template gives no id.
inline constexpr WORD IDC_STATIC = 0xFFFF;

inline constexpr DWORD WS_OVERLAPPED = 0x00000000;
inline constexpr DWORD WS_POPUP = 0x80000000;
inline constexpr DWORD WS_CHILD = 0x40000000;
inline constexpr DWORD WS_MINIMIZE = 0x20000000;
inline constexpr DWORD WS_VISIBLE = 0x10000000;
inline constexpr DWORD WS_DISABLED = 0x08000000;
inline constexpr DWORD WS_CLIPSIBLINGS = 0x04000000;
inline constexpr DWORD WS_CLIPCHILDREN = 0x02000000;
inline constexpr DWORD WS_MAXIMIZE = 0x01000000;
inline constexpr DWORD WS_CAPTION = 0x00C00000;
inline constexpr DWORD WS_BORDER = 0x00800000;
inline constexpr DWORD WS_DLGFRAME = 0x00400000;
inline constexpr DWORD WS_VSCROLL = 0x00200000;
inline constexpr DWORD WS_HSCROLL = 0x00100000;
inline constexpr DWORD WS_SYSMENU = 0x00080000;
inline constexpr DWORD WS_THICKFRAME = 0x00040000;
inline constexpr DWORD WS_GROUP = 0x00020000;
inline constexpr DWORD WS_TABSTOP = 0x00010000;
inline constexpr DWORD WS_MINIMIZEBOX = 0x00020000;
inline constexpr DWORD WS_MAXIMIZEBOX = 0x00010000;

inline constexpr DWORD WS_EX_DLGMODALFRAME = 0x00000001;
inline constexpr DWORD WS_EX_NOPARENTNOTIFY = 0x00000004;
inline constexpr DWORD WS_EX_TOPMOST = 0x00000008;
inline constexpr DWORD WS_EX_TRANSPARENT = 0x00000020;
inline constexpr DWORD WS_EX_TOOLWINDOW = 0x00000080;
inline constexpr DWORD WS_EX_WINDOWEDGE = 0x00000100;
inline constexpr DWORD WS_EX_CLIENTEDGE = 0x00000200;
inline constexpr DWORD WS_EX_CONTEXTHELP = 0x00000400;
inline constexpr DWORD WS_EX_CONTROLPARENT = 0x00010000;
inline constexpr DWORD WS_EX_STATICEDGE = 0x00020000;

inline constexpr DWORD DS_ABSALIGN = 0x0001;
inline constexpr DWORD DS_3DLOOK = 0x0004;
inline constexpr DWORD DS_SETFONT = 0x0040;
inline constexpr DWORD DS_MODALFRAME = 0x0080;
inline constexpr DWORD DS_NOIDLEMSG = 0x0100;
inline constexpr DWORD DS_SETFOREGROUND = 0x0200;
inline constexpr DWORD DS_CONTROL = 0x0400;
inline constexpr DWORD DS_CENTER = 0x0800;
inline constexpr DWORD DS_CENTERMOUSE = 0x1000;
inline constexpr DWORD DS_CONTEXTHELP = 0x2000;
inline constexpr DWORD DS_SHELLFONT = 0x0048;

inline constexpr int SW_HIDE = 0;
inline constexpr int SW_SHOWNORMAL = 1;
inline constexpr int SW_SHOWNOACTIVATE = 4;
inline constexpr int SW_SHOW = 5;
inline constexpr int SW_SHOWNA = 8;

inline constexpr UINT SWP_NOSIZE = 0x0001;
inline constexpr UINT SWP_NOMOVE = 0x0002;
inline constexpr UINT SWP_NOZORDER = 0x0004;
inline constexpr UINT SWP_NOREDRAW = 0x0008;
inline constexpr UINT SWP_NOACTIVATE = 0x0010;
inline constexpr UINT SWP_FRAMECHANGED = 0x0020;
inline constexpr UINT SWP_SHOWWINDOW = 0x0040;
inline constexpr UINT SWP_HIDEWINDOW = 0x0080;
inline constexpr UINT SWP_NOOWNERZORDER = 0x0200;

inline const HWND HWND_TOP = nullptr;
inline const HWND HWND_BOTTOM = reinterpret_cast<HWND>(static_cast<LONG_PTR>(1));     // NOLINT
inline const HWND HWND_TOPMOST = reinterpret_cast<HWND>(static_cast<LONG_PTR>(-1));   // NOLINT
inline const HWND HWND_NOTOPMOST = reinterpret_cast<HWND>(static_cast<LONG_PTR>(-2)); // NOLINT
inline constexpr int CW_USEDEFAULT = static_cast<int>(0x80000000);

// SetWindowLongW takes styles and the id; what is as wide as a pointer goes through the Ptr calls.
inline constexpr int GWL_STYLE = -16;
inline constexpr int GWL_EXSTYLE = -20;
inline constexpr int GWLP_WNDPROC = -4;
inline constexpr int GWLP_HINSTANCE = -6;
inline constexpr int GWLP_HWNDPARENT = -8;
inline constexpr int GWLP_ID = -12;
inline constexpr int GWLP_USERDATA = -21;
inline constexpr int DWLP_MSGRESULT = 0;
inline constexpr int DWLP_DLGPROC = static_cast<int>(DWLP_MSGRESULT + sizeof(LRESULT));
inline constexpr int DWLP_USER = static_cast<int>(DWLP_DLGPROC + sizeof(DLGPROC));

inline constexpr UINT GW_HWNDFIRST = 0;
inline constexpr UINT GW_HWNDLAST = 1;
inline constexpr UINT GW_HWNDNEXT = 2;
inline constexpr UINT GW_HWNDPREV = 3;
inline constexpr UINT GW_OWNER = 4;
inline constexpr UINT GW_CHILD = 5;
inline constexpr UINT GA_PARENT = 1;
inline constexpr UINT GA_ROOT = 2;
inline constexpr UINT GA_ROOTOWNER = 3;

inline constexpr UINT SPI_GETWORKAREA = 0x0030;
inline constexpr int SM_CXSCREEN = 0;
inline constexpr int SM_CYSCREEN = 1;
inline constexpr int SM_CXVSCROLL = 2;
inline constexpr int SM_CYHSCROLL = 3;
inline constexpr int SM_CYCAPTION = 4;
inline constexpr int SM_CXBORDER = 5;
inline constexpr int SM_CYBORDER = 6;
inline constexpr int SM_CXDLGFRAME = 7;
inline constexpr int SM_CYDLGFRAME = 8;
inline constexpr int SM_CXICON = 11;
inline constexpr int SM_CYICON = 12;
inline constexpr int SM_CXCURSOR = 13;
inline constexpr int SM_CYCURSOR = 14;
inline constexpr int SM_CXEDGE = 45;
inline constexpr int SM_CYEDGE = 46;
inline constexpr int SM_CXSMICON = 49;
inline constexpr int SM_CYSMICON = 50;

inline constexpr int COLOR_WINDOW = 5;
inline constexpr int COLOR_WINDOWTEXT = 8;
inline constexpr int COLOR_HIGHLIGHT = 13;
inline constexpr int COLOR_HIGHLIGHTTEXT = 14;
inline constexpr int COLOR_BTNFACE = 15;
inline constexpr int COLOR_3DFACE = COLOR_BTNFACE;
inline constexpr int COLOR_BTNSHADOW = 16;
inline constexpr int COLOR_GRAYTEXT = 17;
inline constexpr int COLOR_BTNTEXT = 18;
inline constexpr int COLOR_BTNHIGHLIGHT = 20;
inline constexpr int COLOR_INFOTEXT = 23;
inline constexpr int COLOR_INFOBK = 24;

inline constexpr DWORD TME_HOVER = 0x00000001;
inline constexpr DWORD TME_LEAVE = 0x00000002;
inline constexpr DWORD TME_CANCEL = 0x80000000;
inline constexpr DWORD HOVER_DEFAULT = 0xFFFFFFFF;

inline constexpr DWORD KEYEVENTF_KEYUP = 0x0002;

inline constexpr UINT HELP_CONTEXT = 0x0001;
inline constexpr UINT HELP_QUIT = 0x0002;

struct TRACKMOUSEEVENT {
    DWORD cbSize;
    DWORD dwFlags;
    HWND hwndTrack;
    DWORD dwHoverTime;
};
using LPTRACKMOUSEEVENT = TRACKMOUSEEVENT*;
static_assert(sizeof(void*) != 8 || sizeof(TRACKMOUSEEVENT) == 24);

struct OSVERSIONINFOW {
    DWORD dwOSVersionInfoSize;
    DWORD dwMajorVersion;
    DWORD dwMinorVersion;
    DWORD dwBuildNumber;
    DWORD dwPlatformId;
    WCHAR szCSDVersion[128];
};
using LPOSVERSIONINFOW = OSVERSIONINFOW*;
static_assert(sizeof(OSVERSIONINFOW) == 276);
inline constexpr DWORD VER_PLATFORM_WIN32_NT = 2;

// A dialog template: this header; menu, class and title; with DS_SETFONT point size and face name; then the items, each
// on a four-byte boundary.
#pragma pack(push, 2)
struct DLGTEMPLATE {
    DWORD style;
    DWORD dwExtendedStyle;
    WORD cdit;
    SHORT x;
    SHORT y;
    SHORT cx;
    SHORT cy;
};
struct DLGITEMTEMPLATE {
    DWORD style;
    DWORD dwExtendedStyle;
    SHORT x;
    SHORT y;
    SHORT cx;
    SHORT cy;
    WORD id;
};
#pragma pack(pop)
static_assert(sizeof(DLGTEMPLATE) == 18 && sizeof(DLGITEMTEMPLATE) == 18);
using LPCDLGTEMPLATEW = const DLGTEMPLATE*;

struct CREATESTRUCTW {
    LPVOID lpCreateParams;
    HINSTANCE hInstance;
    HMENU hMenu;
    HWND hwndParent;
    int cy;
    int cx;
    int y;
    int x;
    LONG style;
    LPCWSTR lpszName;
    LPCWSTR lpszClass;
    DWORD dwExStyle;
};
static_assert(sizeof(void*) != 8 || sizeof(CREATESTRUCTW) == 80);

extern "C" {

// The button that ended the box. Where no window layer is up, title and text go to the standard error and the box
// answers itself: IDOK where it has that button, else the button that agrees to nothing.
KOLMA_PLATFORM_API int WINAPI MessageBoxW(HWND hWnd, LPCWSTR lpText, LPCWSTR lpCaption, UINT uType);
KOLMA_PLATFORM_API BOOL WINAPI MessageBeep(UINT uType);

// Making and ending. lpClassName is one of the classes of controls.h, or "#32770" for a dialog window without items.
KOLMA_PLATFORM_API HWND WINAPI CreateWindowExW(DWORD dwExStyle, LPCWSTR lpClassName, LPCWSTR lpWindowName,
                                               DWORD dwStyle, int X, int Y, int nWidth, int nHeight, HWND hWndParent,
                                               HMENU hMenu, HINSTANCE hInstance, LPVOID lpParam);
KOLMA_PLATFORM_API BOOL WINAPI DestroyWindow(HWND hWnd);
KOLMA_PLATFORM_API BOOL WINAPI IsWindow(HWND hWnd);

// Messages.
KOLMA_PLATFORM_API LRESULT WINAPI SendMessageW(HWND hWnd, UINT Msg, WPARAM wParam, LPARAM lParam);
// Posted messages are delivered by the next turn of the message loop, in their order.
KOLMA_PLATFORM_API BOOL WINAPI PostMessageW(HWND hWnd, UINT Msg, WPARAM wParam, LPARAM lParam);
KOLMA_PLATFORM_API LRESULT WINAPI SendDlgItemMessageW(HWND hDlg, int nIDDlgItem, UINT Msg, WPARAM wParam,
                                                      LPARAM lParam);
KOLMA_PLATFORM_API LRESULT WINAPI DefWindowProcW(HWND hWnd, UINT Msg, WPARAM wParam, LPARAM lParam);
KOLMA_PLATFORM_API LRESULT WINAPI CallWindowProcW(WNDPROC lpPrevWndFunc, HWND hWnd, UINT Msg, WPARAM wParam,
                                                  LPARAM lParam);

// What programs keep on a window. Names of properties are compared without case; properties that are left go with the
// window. A value of 0 is told from a failure by the last error, which the caller clears beforehand.
KOLMA_PLATFORM_API LONG WINAPI GetWindowLongW(HWND hWnd, int nIndex);
KOLMA_PLATFORM_API LONG WINAPI SetWindowLongW(HWND hWnd, int nIndex, LONG dwNewLong);
KOLMA_PLATFORM_API LONG_PTR WINAPI GetWindowLongPtrW(HWND hWnd, int nIndex);
KOLMA_PLATFORM_API LONG_PTR WINAPI SetWindowLongPtrW(HWND hWnd, int nIndex, LONG_PTR dwNewLong);
KOLMA_PLATFORM_API BOOL WINAPI SetPropW(HWND hWnd, LPCWSTR lpString, HANDLE hData);
KOLMA_PLATFORM_API HANDLE WINAPI GetPropW(HWND hWnd, LPCWSTR lpString);
KOLMA_PLATFORM_API HANDLE WINAPI RemovePropW(HWND hWnd, LPCWSTR lpString);

// Text. The number of characters copied, without the terminator; 0 with ERROR_INVALID_WINDOW_HANDLE for what is no
// window.
KOLMA_PLATFORM_API int WINAPI GetWindowTextW(HWND hWnd, LPWSTR lpString, int nMaxCount);
KOLMA_PLATFORM_API int WINAPI GetWindowTextLengthW(HWND hWnd);
KOLMA_PLATFORM_API BOOL WINAPI SetWindowTextW(HWND hWnd, LPCWSTR lpString);
KOLMA_PLATFORM_API int WINAPI GetClassNameW(HWND hWnd, LPWSTR lpClassName, int nMaxCount);

// Which windows there are. Children come in the order in which they were made, which is the template's.
KOLMA_PLATFORM_API HWND WINAPI GetParent(HWND hWnd);
KOLMA_PLATFORM_API HWND WINAPI GetAncestor(HWND hWnd, UINT gaFlags);
KOLMA_PLATFORM_API HWND WINAPI GetWindow(HWND hWnd, UINT uCmd);
KOLMA_PLATFORM_API BOOL WINAPI IsChild(HWND hWndParent, HWND hWnd);
KOLMA_PLATFORM_API BOOL WINAPI EnumChildWindows(HWND hWndParent, WNDENUMPROC lpEnumFunc, LPARAM lParam);
KOLMA_PLATFORM_API BOOL WINAPI EnumThreadWindows(DWORD dwThreadId, WNDENUMPROC lpfn, LPARAM lParam);
KOLMA_PLATFORM_API DWORD WINAPI GetWindowThreadProcessId(HWND hWnd, LPDWORD lpdwProcessId);
KOLMA_PLATFORM_API DWORD WINAPI GetCurrentThreadId();
KOLMA_PLATFORM_API HWND WINAPI GetDesktopWindow();
KOLMA_PLATFORM_API HWND WINAPI GetActiveWindow();
KOLMA_PLATFORM_API HWND WINAPI GetForegroundWindow();
KOLMA_PLATFORM_API BOOL WINAPI SetForegroundWindow(HWND hWnd);
KOLMA_PLATFORM_API HWND WINAPI GetLastActivePopup(HWND hWnd);
KOLMA_PLATFORM_API HWND WINAPI GetFocus();
KOLMA_PLATFORM_API HWND WINAPI SetFocus(HWND hWnd);

// State and place. Positions are in logical pixels; a window's rectangle is its place on the screen with its frame.
KOLMA_PLATFORM_API BOOL WINAPI ShowWindow(HWND hWnd, int nCmdShow);
KOLMA_PLATFORM_API BOOL WINAPI IsWindowVisible(HWND hWnd);
KOLMA_PLATFORM_API BOOL WINAPI EnableWindow(HWND hWnd, BOOL bEnable);
KOLMA_PLATFORM_API BOOL WINAPI IsWindowEnabled(HWND hWnd);
KOLMA_PLATFORM_API BOOL WINAPI MoveWindow(HWND hWnd, int X, int Y, int nWidth, int nHeight, BOOL bRepaint);
KOLMA_PLATFORM_API BOOL WINAPI SetWindowPos(HWND hWnd, HWND hWndInsertAfter, int X, int Y, int cx, int cy, UINT uFlags);
KOLMA_PLATFORM_API BOOL WINAPI GetWindowRect(HWND hWnd, LPRECT lpRect);
KOLMA_PLATFORM_API BOOL WINAPI GetClientRect(HWND hWnd, LPRECT lpRect);
KOLMA_PLATFORM_API BOOL WINAPI ClientToScreen(HWND hWnd, LPPOINT lpPoint);
KOLMA_PLATFORM_API BOOL WINAPI ScreenToClient(HWND hWnd, LPPOINT lpPoint);
KOLMA_PLATFORM_API int WINAPI MapWindowPoints(HWND hWndFrom, HWND hWndTo, LPPOINT lpPoints, UINT cPoints);
KOLMA_PLATFORM_API BOOL WINAPI InvalidateRect(HWND hWnd, const RECT* lpRect, BOOL bErase);
KOLMA_PLATFORM_API BOOL WINAPI UpdateWindow(HWND hWnd);
KOLMA_PLATFORM_API int WINAPI GetSystemMetrics(int nIndex);
KOLMA_PLATFORM_API BOOL WINAPI SystemParametersInfoW(UINT uiAction, UINT uiParam, PVOID pvParam, UINT fWinIni);
KOLMA_PLATFORM_API DWORD WINAPI GetSysColor(int nIndex);

// Dialogs. A template from memory is trusted as far as its header goes and refused where its items do not hang
// together; one from a module is checked against its size. The failure values are -1 and null.
KOLMA_PLATFORM_API INT_PTR WINAPI DialogBoxParamW(HINSTANCE hInstance, LPCWSTR lpTemplateName, HWND hWndParent,
                                                  DLGPROC lpDialogFunc, LPARAM dwInitParam);
KOLMA_PLATFORM_API INT_PTR WINAPI DialogBoxIndirectParamW(HINSTANCE hInstance, LPCDLGTEMPLATEW hDialogTemplate,
                                                          HWND hWndParent, DLGPROC lpDialogFunc, LPARAM dwInitParam);
KOLMA_PLATFORM_API HWND WINAPI CreateDialogParamW(HINSTANCE hInstance, LPCWSTR lpTemplateName, HWND hWndParent,
                                                  DLGPROC lpDialogFunc, LPARAM dwInitParam);
KOLMA_PLATFORM_API HWND WINAPI CreateDialogIndirectParamW(HINSTANCE hInstance, LPCDLGTEMPLATEW lpTemplate,
                                                          HWND hWndParent, DLGPROC lpDialogFunc, LPARAM dwInitParam);
KOLMA_PLATFORM_API BOOL WINAPI EndDialog(HWND hDlg, INT_PTR nResult);
KOLMA_PLATFORM_API LRESULT WINAPI DefDlgProcW(HWND hDlg, UINT Msg, WPARAM wParam, LPARAM lParam);
KOLMA_PLATFORM_API BOOL WINAPI MapDialogRect(HWND hDlg, LPRECT lpRect);
KOLMA_PLATFORM_API HWND WINAPI GetDlgItem(HWND hDlg, int nIDDlgItem);
KOLMA_PLATFORM_API int WINAPI GetDlgCtrlID(HWND hWnd);
KOLMA_PLATFORM_API HWND WINAPI GetNextDlgTabItem(HWND hDlg, HWND hCtl, BOOL bPrevious);
KOLMA_PLATFORM_API HWND WINAPI GetNextDlgGroupItem(HWND hDlg, HWND hCtl, BOOL bPrevious);
KOLMA_PLATFORM_API BOOL WINAPI SetDlgItemTextW(HWND hDlg, int nIDDlgItem, LPCWSTR lpString);
KOLMA_PLATFORM_API UINT WINAPI GetDlgItemTextW(HWND hDlg, int nIDDlgItem, LPWSTR lpString, int cchMax);
KOLMA_PLATFORM_API BOOL WINAPI SetDlgItemInt(HWND hDlg, int nIDDlgItem, UINT uValue, BOOL bSigned);
KOLMA_PLATFORM_API UINT WINAPI GetDlgItemInt(HWND hDlg, int nIDDlgItem, BOOL* lpTranslated, BOOL bSigned);
KOLMA_PLATFORM_API BOOL WINAPI CheckDlgButton(HWND hDlg, int nIDButton, UINT uCheck);
KOLMA_PLATFORM_API BOOL WINAPI CheckRadioButton(HWND hDlg, int nIDFirstButton, int nIDLastButton, int nIDCheckButton);
KOLMA_PLATFORM_API UINT WINAPI IsDlgButtonChecked(HWND hDlg, int nIDButton);

// Timers and the mouse.
KOLMA_PLATFORM_API UINT_PTR WINAPI SetTimer(HWND hWnd, UINT_PTR nIDEvent, UINT uElapse, TIMERPROC lpTimerFunc);
KOLMA_PLATFORM_API BOOL WINAPI KillTimer(HWND hWnd, UINT_PTR uIDEvent);
KOLMA_PLATFORM_API BOOL WINAPI TrackMouseEvent(LPTRACKMOUSEEVENT lpEventTrack);
KOLMA_PLATFORM_API BOOL WINAPI GetCursorPos(LPPOINT lpPoint);
KOLMA_PLATFORM_API SHORT WINAPI GetKeyState(int nVirtKey);
// Presses a key as a person would: it goes to the window with the focus, by the next turn of the message loop.
KOLMA_PLATFORM_API void WINAPI keybd_event(BYTE bVk, BYTE bScan, DWORD dwFlags, ULONG_PTR dwExtraInfo);

// Opens the help file at the topic; false where there is none, or nothing that could show it.
KOLMA_PLATFORM_API BOOL WINAPI WinHelpW(HWND hWndMain, LPCWSTR lpszHelp, UINT uCommand, ULONG_PTR dwData);

// The platform counts as version 10.0 of the published one.
KOLMA_PLATFORM_API BOOL WINAPI GetVersionExW(LPOSVERSIONINFOW lpVersionInformation);
// nNumber * nNumerator / nDenominator, rounded half away from zero; -1 on overflow and for a denominator of 0.
KOLMA_PLATFORM_API int WINAPI MulDiv(int nNumber, int nNumerator, int nDenominator);
}

inline BOOL SetRect(LPRECT lprc, int left, int top, int right, int bottom) {
    *lprc = {left, top, right, bottom};
    return TRUE;
}

#endif
