// Drawing: device contexts, bitmaps, pens, brushes and fonts.
//
// Coordinates are logical pixels; a screen of higher density is told by nothing but its sharpness. An object that is
// selected in a device context is not deleted; a handle that means nothing fails the call.
#pragma once

#include "platform/types.h"

#ifdef _WIN32

#include <windows.h>

#else

constexpr COLORREF RGB(unsigned red, unsigned green, unsigned blue) noexcept {
    return (red & 0xFFU) | (green & 0xFFU) << 8U | (blue & 0xFFU) << 16U;
}
constexpr BYTE GetRValue(COLORREF color) noexcept { return static_cast<BYTE>(color); }
constexpr BYTE GetGValue(COLORREF color) noexcept { return static_cast<BYTE>(color >> 8U); }
constexpr BYTE GetBValue(COLORREF color) noexcept { return static_cast<BYTE>(color >> 16U); }
inline constexpr COLORREF CLR_INVALID = 0xFFFFFFFF;

// GetDeviceCaps.
inline constexpr int HORZRES = 8;
inline constexpr int VERTRES = 10;
inline constexpr int BITSPIXEL = 12;
inline constexpr int PLANES = 14;
inline constexpr int LOGPIXELSX = 88;
inline constexpr int LOGPIXELSY = 90;

inline constexpr DWORD GR_GDIOBJECTS = 0;

// Stock objects.
inline constexpr int WHITE_BRUSH = 0;
inline constexpr int LTGRAY_BRUSH = 1;
inline constexpr int GRAY_BRUSH = 2;
inline constexpr int DKGRAY_BRUSH = 3;
inline constexpr int BLACK_BRUSH = 4;
inline constexpr int NULL_BRUSH = 5;
inline constexpr int WHITE_PEN = 6;
inline constexpr int BLACK_PEN = 7;
inline constexpr int NULL_PEN = 8;
inline constexpr int SYSTEM_FONT = 13;
inline constexpr int DEFAULT_GUI_FONT = 17;

inline constexpr DWORD SRCCOPY = 0x00CC0020;
inline constexpr DWORD SRCPAINT = 0x00EE0086;
inline constexpr DWORD SRCAND = 0x008800C6;
inline constexpr DWORD SRCINVERT = 0x00660046;
inline constexpr DWORD NOTSRCCOPY = 0x00330008;
inline constexpr DWORD PATCOPY = 0x00F00021;
inline constexpr DWORD BLACKNESS = 0x00000042;
inline constexpr DWORD WHITENESS = 0x00FF0062;

inline constexpr int TRANSPARENT = 1;
inline constexpr int OPAQUE = 2;

inline constexpr int PS_SOLID = 0;
inline constexpr int PS_NULL = 5;

inline constexpr UINT IMAGE_BITMAP = 0;
inline constexpr UINT IMAGE_ICON = 1;

inline constexpr int FW_DONTCARE = 0;
inline constexpr int FW_NORMAL = 400;
inline constexpr int FW_BOLD = 700;
inline constexpr DWORD DEFAULT_CHARSET = 1;
inline constexpr DWORD OUT_DEFAULT_PRECIS = 0;
inline constexpr DWORD CLIP_DEFAULT_PRECIS = 0;
inline constexpr DWORD DEFAULT_QUALITY = 0;
inline constexpr DWORD DEFAULT_PITCH = 0;
inline constexpr DWORD FF_DONTCARE = 0;
inline constexpr int LF_FACESIZE = 32;

inline constexpr UINT DT_LEFT = 0x0000;
inline constexpr UINT DT_CENTER = 0x0001;
inline constexpr UINT DT_RIGHT = 0x0002;
inline constexpr UINT DT_VCENTER = 0x0004;
inline constexpr UINT DT_WORDBREAK = 0x0010;
inline constexpr UINT DT_SINGLELINE = 0x0020;
inline constexpr UINT DT_CALCRECT = 0x0400;
inline constexpr UINT DT_NOPREFIX = 0x0800;
inline constexpr UINT DT_END_ELLIPSIS = 0x8000;

struct BITMAP {
    LONG bmType;
    LONG bmWidth;
    LONG bmHeight;
    LONG bmWidthBytes;
    WORD bmPlanes;
    WORD bmBitsPixel;
    LPVOID bmBits;
};
static_assert(sizeof(void*) != 8 || sizeof(BITMAP) == 32);

struct LOGFONTW {
    LONG lfHeight;
    LONG lfWidth;
    LONG lfEscapement;
    LONG lfOrientation;
    LONG lfWeight;
    BYTE lfItalic;
    BYTE lfUnderline;
    BYTE lfStrikeOut;
    BYTE lfCharSet;
    BYTE lfOutPrecision;
    BYTE lfClipPrecision;
    BYTE lfQuality;
    BYTE lfPitchAndFamily;
    WCHAR lfFaceName[LF_FACESIZE];
};
static_assert(sizeof(LOGFONTW) == 92);

struct TEXTMETRICW {
    LONG tmHeight;
    LONG tmAscent;
    LONG tmDescent;
    LONG tmInternalLeading;
    LONG tmExternalLeading;
    LONG tmAveCharWidth;
    LONG tmMaxCharWidth;
    LONG tmWeight;
    LONG tmOverhang;
    LONG tmDigitizedAspectX;
    LONG tmDigitizedAspectY;
    WCHAR tmFirstChar;
    WCHAR tmLastChar;
    WCHAR tmDefaultChar;
    WCHAR tmBreakChar;
    BYTE tmItalic;
    BYTE tmUnderlined;
    BYTE tmStruckOut;
    BYTE tmPitchAndFamily;
    BYTE tmCharSet;
};
using LPTEXTMETRICW = TEXTMETRICW*;
static_assert(sizeof(TEXTMETRICW) == 60);

struct PAINTSTRUCT {
    HDC hdc;
    BOOL fErase;
    RECT rcPaint;
    BOOL fRestore;
    BOOL fIncUpdate;
    BYTE rgbReserved[32];
};
using LPPAINTSTRUCT = PAINTSTRUCT*;
static_assert(sizeof(void*) != 8 || sizeof(PAINTSTRUCT) == 72);

extern "C" {

// Device contexts. A window's is valid until ReleaseDC; that of a null window is the screen's, for measuring.
KOLMA_PLATFORM_API HDC WINAPI GetDC(HWND hWnd);
KOLMA_PLATFORM_API HDC WINAPI GetWindowDC(HWND hWnd);
KOLMA_PLATFORM_API int WINAPI ReleaseDC(HWND hWnd, HDC hDC);
KOLMA_PLATFORM_API HDC WINAPI BeginPaint(HWND hWnd, LPPAINTSTRUCT lpPaint);
KOLMA_PLATFORM_API BOOL WINAPI EndPaint(HWND hWnd, const PAINTSTRUCT* lpPaint);
KOLMA_PLATFORM_API HDC WINAPI CreateCompatibleDC(HDC hdc);
KOLMA_PLATFORM_API BOOL WINAPI DeleteDC(HDC hdc);
KOLMA_PLATFORM_API int WINAPI GetDeviceCaps(HDC hdc, int index);
KOLMA_PLATFORM_API int WINAPI SaveDC(HDC hdc);
KOLMA_PLATFORM_API BOOL WINAPI RestoreDC(HDC hdc, int nSavedDC);

// Objects. Those that a program made it deletes; stock objects and the system's brushes are never deleted.
KOLMA_PLATFORM_API HGDIOBJ WINAPI SelectObject(HDC hdc, HGDIOBJ h);
KOLMA_PLATFORM_API BOOL WINAPI DeleteObject(HGDIOBJ ho);
KOLMA_PLATFORM_API int WINAPI GetObjectW(HANDLE h, int c, LPVOID pv);
// How many objects and device contexts the process has made and not deleted.
KOLMA_PLATFORM_API DWORD WINAPI GetGuiResources(HANDLE hProcess, DWORD uiFlags);
KOLMA_PLATFORM_API HGDIOBJ WINAPI GetStockObject(int i);
KOLMA_PLATFORM_API HBRUSH WINAPI CreateSolidBrush(COLORREF color);
KOLMA_PLATFORM_API HBRUSH WINAPI GetSysColorBrush(int nIndex);
KOLMA_PLATFORM_API HPEN WINAPI CreatePen(int iStyle, int cWidth, COLORREF color);
KOLMA_PLATFORM_API HFONT WINAPI CreateFontW(int cHeight, int cWidth, int cEscapement, int cOrientation, int cWeight,
                                            DWORD bItalic, DWORD bUnderline, DWORD bStrikeOut, DWORD iCharSet,
                                            DWORD iOutPrecision, DWORD iClipPrecision, DWORD iQuality,
                                            DWORD iPitchAndFamily, LPCWSTR pszFaceName);
KOLMA_PLATFORM_API HFONT WINAPI CreateFontIndirectW(const LOGFONTW* lplf);

// Bitmaps. One loaded from a module has the size and the colours of its resource of type RT_BITMAP; a drawing of type
// "SVG" under the same name, if there is one, makes it sharp on every screen.
KOLMA_PLATFORM_API HBITMAP WINAPI LoadBitmapW(HINSTANCE hInstance, LPCWSTR lpBitmapName);
KOLMA_PLATFORM_API HBITMAP WINAPI CreateCompatibleBitmap(HDC hdc, int cx, int cy);
KOLMA_PLATFORM_API HBITMAP WINAPI CreateBitmap(int nWidth, int nHeight, UINT nPlanes, UINT nBitCount,
                                               const void* lpBits);
KOLMA_PLATFORM_API BOOL WINAPI BitBlt(HDC hdc, int x, int y, int cx, int cy, HDC hdcSrc, int x1, int y1, DWORD rop);
KOLMA_PLATFORM_API BOOL WINAPI StretchBlt(HDC hdcDest, int xDest, int yDest, int wDest, int hDest, HDC hdcSrc, int xSrc,
                                          int ySrc, int wSrc, int hSrc, DWORD rop);
// Leaves out the pixels of that colour; a bitmap with a drawing is laid over with the drawing's own transparency.
KOLMA_PLATFORM_API BOOL WINAPI TransparentBlt(HDC hdcDest, int xoriginDest, int yoriginDest, int wDest, int hDest,
                                              HDC hdcSrc, int xoriginSrc, int yoriginSrc, int wSrc, int hSrc,
                                              UINT crTransparent);
KOLMA_PLATFORM_API BOOL WINAPI DrawIconEx(HDC hdc, int xLeft, int yTop, HICON hIcon, int cxWidth, int cyWidth,
                                          UINT istepIfAniCur, HBRUSH hbrFlickerFreeDraw, UINT diFlags);

// Drawing.
KOLMA_PLATFORM_API COLORREF WINAPI SetBkColor(HDC hdc, COLORREF color);
KOLMA_PLATFORM_API COLORREF WINAPI GetBkColor(HDC hdc);
KOLMA_PLATFORM_API int WINAPI SetBkMode(HDC hdc, int mode);
KOLMA_PLATFORM_API COLORREF WINAPI SetTextColor(HDC hdc, COLORREF color);
KOLMA_PLATFORM_API COLORREF WINAPI GetTextColor(HDC hdc);
KOLMA_PLATFORM_API COLORREF WINAPI GetPixel(HDC hdc, int x, int y);
KOLMA_PLATFORM_API COLORREF WINAPI SetPixel(HDC hdc, int x, int y, COLORREF color);
KOLMA_PLATFORM_API BOOL WINAPI Rectangle(HDC hdc, int left, int top, int right, int bottom);
KOLMA_PLATFORM_API BOOL WINAPI MoveToEx(HDC hdc, int x, int y, LPPOINT lppt);
KOLMA_PLATFORM_API BOOL WINAPI LineTo(HDC hdc, int x, int y);
KOLMA_PLATFORM_API int WINAPI FillRect(HDC hDC, const RECT* lprc, HBRUSH hbr);
KOLMA_PLATFORM_API BOOL WINAPI DrawFocusRect(HDC hDC, const RECT* lprc);
KOLMA_PLATFORM_API BOOL WINAPI TextOutW(HDC hdc, int x, int y, LPCWSTR lpString, int c);
KOLMA_PLATFORM_API int WINAPI DrawTextW(HDC hdc, LPCWSTR lpchText, int cchText, LPRECT lprc, UINT format);

// Measuring, in the font that is selected.
KOLMA_PLATFORM_API BOOL WINAPI GetTextExtentPoint32W(HDC hdc, LPCWSTR lpString, int c, LPSIZE psizl);
KOLMA_PLATFORM_API BOOL WINAPI GetTextMetricsW(HDC hdc, LPTEXTMETRICW lptm);
}

#endif
