// The device context of a window, given back with its owner. Null for what is no window.
#pragma once

#include "platform/gdi.h"

class WindowContext {
public:
    explicit WindowContext(HWND window) : window_(window), context_(GetDC(window)) {}
    WindowContext(const WindowContext&) = delete;
    WindowContext& operator=(const WindowContext&) = delete;
    ~WindowContext() {
        if (context_) ReleaseDC(window_, context_);
    }
    HDC get() const noexcept { return context_; }

private:
    HWND window_;
    HDC context_;
};

// In dots per inch.
inline int verticalResolution(HWND window) { return GetDeviceCaps(WindowContext(window).get(), LOGPIXELSY); }
