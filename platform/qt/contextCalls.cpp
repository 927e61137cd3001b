// Device contexts: how programs get them, and what they set on them.
#include "platform/qt/DeviceContext.h"
#include "platform/qt/Window.h"
#include "platform/qt/windowCalls.h"

#include <QApplication>
#include <QScreen>

#include <utility>

namespace {

constexpr int colourBits = 32;
constexpr std::size_t mostSaved = 64;

// Null, with the last error, for what is no window; the screen's for none.
HDC contextOf(HWND window, bool wholeWindow) {
    if (window == nullptr) return DeviceContext::add(std::make_shared<WindowContext>(nullptr, QRect()));
    const Window* found = Window::of(window);
    if (found == nullptr) return nullptr;
    QRect area = wholeWindow ? found->widget()->rect() : found->clientArea();
    return DeviceContext::add(std::make_shared<WindowContext>(found->widget(), area));
}

// The colour that was set before; CLR_INVALID for what is no context.
COLORREF exchangeColour(HDC dc, std::optional<QColor> DeviceContext::State::*which, COLORREF colour, COLORREF unset) {
    auto context = DeviceContext::of(dc);
    if (context == nullptr) return CLR_INVALID;
    auto before = std::exchange(context->state.*which, colourOf(colour));
    return before ? colorrefOf(*before) : unset;
}

COLORREF colourSet(HDC dc, std::optional<QColor> DeviceContext::State::*which, COLORREF unset) {
    auto context = DeviceContext::of(dc);
    if (context == nullptr) return CLR_INVALID;
    const auto& colour = context->state.*which;
    return colour ? colorrefOf(*colour) : unset;
}

constexpr COLORREF black = RGB(0, 0, 0);
constexpr COLORREF white = RGB(255, 255, 255);

} // namespace

namespace qt {

HDC GetDC(HWND hWnd) { return contextOf(hWnd, false); }

HDC GetWindowDC(HWND hWnd) { return contextOf(hWnd, true); }

int ReleaseDC(HWND /*hWnd*/, HDC hDC) { return DeviceContext::remove(hDC) != nullptr ? 1 : 0; }

HDC BeginPaint(HWND hWnd, LPPAINTSTRUCT lpPaint) {
    if (lpPaint == nullptr) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    *lpPaint = {};
    if (Window::of(hWnd) == nullptr) return nullptr;
    lpPaint->hdc = qt::GetDC(hWnd);
    qt::GetClientRect(hWnd, &lpPaint->rcPaint);
    return lpPaint->hdc;
}

BOOL EndPaint(HWND hWnd, const PAINTSTRUCT* lpPaint) {
    if (lpPaint != nullptr) qt::ReleaseDC(hWnd, lpPaint->hdc);
    return TRUE;
}

HDC CreateCompatibleDC(HDC hdc) {
    if (hdc == nullptr) return DeviceContext::add(std::make_shared<MemoryContext>(qApp->devicePixelRatio()));
    auto context = DeviceContext::of(hdc);
    return context == nullptr ? nullptr
                              : DeviceContext::add(std::make_shared<MemoryContext>(context->devicePixelRatio()));
}

BOOL DeleteDC(HDC hdc) { return DeviceContext::remove(hdc) != nullptr; }

int GetDeviceCaps(HDC hdc, int index) {
    if (DeviceContext::of(hdc) == nullptr) return 0;
    const QScreen* screen = QGuiApplication::primaryScreen();
    if (screen == nullptr) return 0;
    switch (index) {
    case HORZRES:
        return screen->size().width();
    case VERTRES:
        return screen->size().height();
    case BITSPIXEL:
        return colourBits;
    case PLANES:
        return 1;
    case LOGPIXELSX:
        return qRound(screen->logicalDotsPerInchX());
    case LOGPIXELSY:
        return qRound(screen->logicalDotsPerInchY());
    default:
        return 0;
    }
}

int SaveDC(HDC hdc) {
    auto context = DeviceContext::of(hdc);
    if (context == nullptr || context->saved.size() >= mostSaved) return 0;
    context->saved.push_back(context->state);
    return static_cast<int>(context->saved.size());
}

// A positive number is one that SaveDC gave, a negative one counts back from the last.
BOOL RestoreDC(HDC hdc, int nSavedDC) {
    auto context = DeviceContext::of(hdc);
    if (context == nullptr) return FALSE;
    auto count = static_cast<std::ptrdiff_t>(context->saved.size());
    std::ptrdiff_t index = nSavedDC > 0 ? nSavedDC - 1 : count + nSavedDC;
    if (nSavedDC == 0 || index < 0 || index >= count) return FALSE;
    context->state = context->saved[static_cast<std::size_t>(index)];
    context->saved.resize(static_cast<std::size_t>(index));
    return TRUE;
}

HGDIOBJ SelectObject(HDC hdc, HGDIOBJ h) {
    auto context = DeviceContext::of(hdc);
    return context == nullptr ? nullptr : context->select(h);
}

COLORREF SetBkColor(HDC hdc, COLORREF color) {
    return exchangeColour(hdc, &DeviceContext::State::backColour, color, white);
}

COLORREF GetBkColor(HDC hdc) { return colourSet(hdc, &DeviceContext::State::backColour, white); }

COLORREF SetTextColor(HDC hdc, COLORREF color) {
    return exchangeColour(hdc, &DeviceContext::State::textColour, color, black);
}

COLORREF GetTextColor(HDC hdc) { return colourSet(hdc, &DeviceContext::State::textColour, black); }

int SetBkMode(HDC hdc, int mode) {
    auto context = DeviceContext::of(hdc);
    return context == nullptr ? 0 : std::exchange(context->state.backMode, mode);
}

} // namespace qt
