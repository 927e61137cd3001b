// A button with a text or a picture; observers hear of each click. It stays pressable in a read-only session.
#pragma once

#include "plugin_ui/Controls/OwnedGdi.h"
#include "plugin_ui/Controls/UIControl.h"

class PushButtonUIControl : public UIControl {
public:
    // With bitmapId 0 the button shows the template's text.
    explicit PushButtonUIControl(std::uint16_t itemId, std::uint16_t bitmapId = 0);

    void initializeControl() override;
    bool handleControlMessage(const UIMessage& message, LRESULT& result) override;
    bool onLock(const UIMessage& message, LRESULT& result) override;

private:
    std::uint16_t itemId_;
    std::uint16_t bitmapId_;
    OwnedGdi<HBITMAP> picture_; // the button borrows it
};
