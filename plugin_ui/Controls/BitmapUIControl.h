// A picture, painted over whatever its item shows. A clickable one is framed as the mouse comes over it and presses it,
// and tells its observers of each click.
#pragma once

#include "plugin_ui/Controls/UIControl.h"

enum class HotState : std::uint32_t { flat = 0x8001, sunken = 0x8002, raised = 0x8003 };

class BitmapUIControl : public UIControl {
public:
    // With bitmapId 0 the picture is known later: subclassItem() gives it, once there is a window.
    BitmapUIControl(std::uint16_t itemId, std::uint16_t bitmapId);
    ~BitmapUIControl() override;

    // Takes the item's painting over. False when the template has no such item. Done again it only changes the picture.
    bool subclassItem(std::uint16_t bitmapId);
    // REQUIRES: the item is subclassed.
    void setBitmap(std::uint16_t bitmapId);

    void setClickable() noexcept { clickable_ = true; }
    HotState getHotState() const noexcept { return hotState_; }
    // Of a clickable picture; nothing happens to another one.
    void setHotState(HotState state);

    void initializeControl() override;
    bool handleControlMessage(const UIMessage& message, LRESULT& result) override;

private:
    static LRESULT CALLBACK windowProc(HWND item, UINT message, WPARAM wParam, LPARAM lParam);
    static LRESULT answer(HWND item, UINT message, WPARAM wParam, LPARAM lParam);
    void handleMouse(HWND item, UINT message);
    bool pressInside();
    bool isHit(const UIMessage& message) const;
    void release();

    std::uint16_t itemId_;
    std::uint16_t bitmapId_;
    HWND item_ = nullptr; // while it is subclassed
    HotState hotState_ = HotState::flat;
    bool clickable_ = false;
};
