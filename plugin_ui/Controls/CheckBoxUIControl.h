// A box that is ticked or not.
#pragma once

#include "plugin_ui/Controls/UIControl.h"

class CheckBoxUIControl : public UIControl {
public:
    explicit CheckBoxUIControl(std::uint16_t itemId);

    void setChecked(bool checked);
    bool isChecked() const noexcept { return checked_; }

    // 0 leaves the text that stands there. Raises what the resource module raises.
    void setLabelId(std::uint16_t stringId) override;
    void displayControl() override;
    // Raises what the resource module raises.
    void initializeControl() override;
    bool handleControlMessage(const UIMessage& message, LRESULT& result) override;

private:
    std::uint16_t itemId_;
    bool checked_ = false;
    std::uint16_t labelId_ = 0;
};
