// The screen as a window: a handle of its own, and where it is.
#pragma once

#include "platform/types.h"

#include <QRect>

// What GetDesktopWindow gives; no window of a program ever has it.
inline HWND desktopHandle() noexcept { return reinterpret_cast<HWND>(static_cast<ULONG_PTR>(0x10)); } // NOLINT

QRect screenArea();

inline RECT rectOf(const QRect& area) noexcept {
    return {area.left(), area.top(), area.left() + area.width(), area.top() + area.height()};
}
inline QRect rectOf(const RECT& area) noexcept {
    return {area.left, area.top, area.right - area.left, area.bottom - area.top};
}
