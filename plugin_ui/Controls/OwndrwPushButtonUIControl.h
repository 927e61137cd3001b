// A button that is drawn as one of three pictures; observers hear of each click. It stays pressable in a read-only
// session.
//
// A WM_DRAWITEM names its item, and the pictures are on the item: any of these controls draws any such button, and the
// first one in the tree draws them all.
#pragma once

#include "plugin_ui/Controls/PushButtonUIControl.h"

class OwndrwPushButtonUIControl : public PushButtonUIControl {
public:
    OwndrwPushButtonUIControl(std::uint16_t itemId, std::uint16_t upBitmapId, std::uint16_t downBitmapId,
                              std::uint16_t disabledBitmapId);

    void initializeControl() override;
    bool onOtherMessage(const UIMessage& message, LRESULT& result) override;
    bool onDestroy(const UIMessage& message, LRESULT& result) override;

    // False when there is nothing to draw. lParam is the address of a DRAWITEMSTRUCT.
    virtual bool drawItem(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

private:
    std::uint16_t itemId_;
    std::uint16_t upBitmapId_;
    std::uint16_t downBitmapId_;
    std::uint16_t disabledBitmapId_;
};
