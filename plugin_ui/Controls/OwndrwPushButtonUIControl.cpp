#include "plugin_ui/Controls/OwndrwPushButtonUIControl.h"

#include "plugin_ui/Controls/paintBitmap.h"
#include "plugin_ui/Controls/windowProperties.h"

namespace {

// Where the keyboard is. The rectangle goes by being drawn once more.
void drawFocus(const DRAWITEMSTRUCT& request) {
    const bool isDrawnAnew = request.itemAction == ODA_DRAWENTIRE && (request.itemState & ODS_FOCUS) != 0;
    if (isDrawnAnew || request.itemAction == ODA_FOCUS) DrawFocusRect(request.hDC, &request.rcItem);
}

} // namespace

OwndrwPushButtonUIControl::OwndrwPushButtonUIControl(std::uint16_t itemId, std::uint16_t upBitmapId,
                                                     std::uint16_t downBitmapId, std::uint16_t disabledBitmapId)
    : PushButtonUIControl(itemId),
      itemId_(itemId),
      upBitmapId_(upBitmapId),
      downBitmapId_(downBitmapId),
      disabledBitmapId_(disabledBitmapId) {}

void OwndrwPushButtonUIControl::initializeControl() {
    const HWND item = getItem(itemId_);
    setProperty(item, property::bitmap, upBitmapId_);
    setProperty(item, property::pressedBitmap, downBitmapId_);
    setProperty(item, property::disabledBitmap, disabledBitmapId_);
}

bool OwndrwPushButtonUIControl::onOtherMessage(const UIMessage& message, LRESULT& result) {
    if (message.id != WM_DRAWITEM) return PushButtonUIControl::onOtherMessage(message, result);
    drawItem(message.window, message.id, message.wParam, message.lParam);
    drawFocus(*reinterpret_cast<const DRAWITEMSTRUCT*>(message.lParam));
    return true;
}

bool OwndrwPushButtonUIControl::onDestroy(const UIMessage& message, LRESULT& result) {
    const HWND item = getItem(itemId_);
    removeProperty(item, property::bitmap);
    removeProperty(item, property::pressedBitmap);
    removeProperty(item, property::disabledBitmap);
    return PushButtonUIControl::onDestroy(message, result);
}

bool OwndrwPushButtonUIControl::drawItem(HWND dialog, UINT, WPARAM, LPARAM lParam) {
    const auto& request = *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
    if (request.itemAction != ODA_DRAWENTIRE && request.itemAction != ODA_SELECT) return false;
    const char16_t* picture = property::bitmap;
    if ((request.itemState & ODS_SELECTED) != 0)
        picture = property::pressedBitmap;
    else if ((request.itemState & ODS_DISABLED) != 0)
        picture = property::disabledBitmap;
    const HWND item = GetDlgItem(dialog, static_cast<int>(request.CtlID));
    paintBitmap(request.hDC, item, static_cast<std::uint16_t>(getProperty(item, picture)));
    return true;
}
