#include "plugin_ui/Controls/PushButtonUIControl.h"

#include "jtcore/Services/ResourceLibrary.h"
#include "platform/modules.h"

PushButtonUIControl::PushButtonUIControl(std::uint16_t itemId, std::uint16_t bitmapId)
    : UIControl(itemId), itemId_(itemId), bitmapId_(bitmapId) {
    addControlId(itemId);
}

void PushButtonUIControl::initializeControl() {
    if (bitmapId_ == 0) return;
    OwnedGdi<HBITMAP> picture(LoadBitmapW(ResourceLibrary().getModuleHandle(), MAKEINTRESOURCEW(bitmapId_)));
    sendToItem(itemId_, BM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(picture.get()));
    picture_ = std::move(picture);
}

bool PushButtonUIControl::handleControlMessage(const UIMessage& message, LRESULT&) {
    if (!isCommand(message, itemId_, BN_CLICKED)) return false;
    notifyObservers();
    return true;
}

bool PushButtonUIControl::onLock(const UIMessage&, LRESULT&) { return false; }
