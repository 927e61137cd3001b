// How large a picture comes out on a screen.
#pragma once

#include "platform/gdi.h"

#include <cstdint>

struct BitmapLayout {
    SIZE picture{};
    // Filled with the face colour first; of no size where what lies behind shines through.
    SIZE background{};
};

// All sizes in pixels, the resolution in dots per inch. The picture of the about page lies on a ground of its own.
BitmapLayout layOutBitmap(std::uint16_t bitmapId, const SIZE& bitmap, const SIZE& client, const SIZE& resolution);
