#include "plugin_ui/Controls/bitmapLayout.h"

#include "resources/ids.h"

namespace {

constexpr LONG designResolution = 96;
constexpr LONG largeFontsResolution = 120;

SIZE scale(const SIZE& size, const SIZE& resolution) {
    return {size.cx * resolution.cx / designResolution, size.cy * resolution.cy / designResolution};
}

LONG mulDiv(LONG number, LONG numerator, LONG denominator) {
    return static_cast<LONG>((2 * static_cast<std::int64_t>(number) * numerator + denominator) / (2 * denominator));
}

// With large fonts the page grows by other factors than the resolution does, and the picture fills its item.
BitmapLayout fillItem(const SIZE& client, const SIZE& resolution) {
    const SIZE size{mulDiv(client.cx, resolution.cx, 90), mulDiv(client.cy, resolution.cy, 97)};
    return {{size.cx, size.cy - 2}, size};
}

} // namespace

BitmapLayout layOutBitmap(std::uint16_t bitmapId, const SIZE& bitmap, const SIZE& client, const SIZE& resolution) {
    const SIZE scaled = scale(bitmap, resolution);
    if (bitmapId != IDB_ABOUT_LOGO) return {scaled, {}};
    if (resolution.cx == largeFontsResolution) return fillItem(client, resolution);
    return {scaled, {scaled.cx + 1, scaled.cy + 1}};
}
