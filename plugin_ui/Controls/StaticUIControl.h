// A text that is only shown.
#pragma once

#include "plugin_ui/Controls/UIControl.h"

class StaticUIControl : public UIControl {
public:
    explicit StaticUIControl(std::uint16_t itemId);

    void setText(const std::u16string& text);

private:
    std::uint16_t itemId_;
};
