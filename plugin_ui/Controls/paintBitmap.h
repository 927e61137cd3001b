// Pictures of the resource module on dialog items. The colour 0x008000 of a picture is transparent.
#pragma once

#include "platform/gdi.h"

#include <cstdint>

// Paints over whatever the item shows. A picture that cannot be had leaves the item as it is.
void paintBitmap(HWND item, std::uint16_t bitmapId);
// The same into a device context of the item.
void paintBitmap(HDC context, HWND item, std::uint16_t bitmapId);

inline constexpr COLORREF transparentColor = 0x008000;
