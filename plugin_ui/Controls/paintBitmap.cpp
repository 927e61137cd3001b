#include "plugin_ui/Controls/paintBitmap.h"

#include "jtcore/Services/ResourceLibrary.h"
#include "platform/modules.h"
#include "platform/windows.h"
#include "plugin_ui/Controls/OwnedGdi.h"
#include "plugin_ui/Controls/WindowContext.h"
#include "plugin_ui/Controls/bitmapLayout.h"

namespace {

// A bitmap that can be drawn from.
class BitmapContext {
public:
    BitmapContext(HDC like, HBITMAP bitmap)
        : context_(CreateCompatibleDC(like)), replaced_(SelectObject(context_, bitmap)) {}
    BitmapContext(const BitmapContext&) = delete;
    BitmapContext& operator=(const BitmapContext&) = delete;
    ~BitmapContext() {
        SelectObject(context_, replaced_);
        DeleteDC(context_);
    }
    HDC get() const noexcept { return context_; }

private:
    HDC context_;
    HGDIOBJ replaced_;
};

// An object that is selected into a context for a while.
class Selection {
public:
    Selection(HDC context, HGDIOBJ object) : context_(context), replaced_(SelectObject(context, object)) {}
    Selection(const Selection&) = delete;
    Selection& operator=(const Selection&) = delete;
    ~Selection() { SelectObject(context_, replaced_); }

private:
    HDC context_;
    HGDIOBJ replaced_;
};

SIZE clientSize(HWND window) {
    RECT client{};
    GetClientRect(window, &client);
    return {client.right, client.bottom};
}

void fillGround(HDC context, const SIZE& size) {
    const OwnedGdi<HBRUSH> face(CreateSolidBrush(GetSysColor(COLOR_BTNFACE)));
    const Selection brush(context, face.get());
    const Selection pen(context, GetStockObject(NULL_PEN));
    Rectangle(context, 0, 0, size.cx, size.cy);
}

} // namespace

void paintBitmap(HWND item, std::uint16_t bitmapId) {
    if (!IsWindowVisible(item)) return; // it is painted when it is shown
    const WindowContext context(item);
    if (context.get()) paintBitmap(context.get(), item, bitmapId);
}

void paintBitmap(HDC context, HWND item, std::uint16_t bitmapId) {
    const OwnedGdi<HBITMAP> bitmap(LoadBitmapW(ResourceLibrary().getModuleHandle(), MAKEINTRESOURCEW(bitmapId)));
    BITMAP facts{};
    if (!bitmap || GetObjectW(bitmap.get(), sizeof facts, &facts) == 0) return;
    const SIZE size{facts.bmWidth, facts.bmHeight};
    const SIZE resolution{GetDeviceCaps(context, LOGPIXELSX), GetDeviceCaps(context, LOGPIXELSY)};
    const BitmapLayout layout = layOutBitmap(bitmapId, size, clientSize(item), resolution);
    if (layout.background.cx > 0) fillGround(context, layout.background);
    const BitmapContext source(context, bitmap.get());
    TransparentBlt(context, 0, 0, layout.picture.cx, layout.picture.cy, source.get(), 0, 0, size.cx, size.cy,
                   transparentColor);
}
