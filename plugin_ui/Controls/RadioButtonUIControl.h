// A group of buttons of which one is chosen; the value is its id.
#pragma once

#include "plugin_ui/Controls/UIControl.h"

class RadioButtonUIControl : public UIControl {
public:
    // The label or frame round the group; 0 for none.
    explicit RadioButtonUIControl(std::uint16_t groupLabelId);

    void addButton(std::uint16_t id);
    // An id that is none of the buttons clears them all.
    void setSelected(std::uint16_t id);
    // 0 when none is.
    std::uint16_t getSelected() const noexcept { return selectedId_; }
    // That one button, whatever the state of the control.
    void enableButton(std::uint16_t id);
    void disableButton(std::uint16_t id);

    void displayControl() override;
    bool handleControlMessage(const UIMessage& message, LRESULT& result) override;

private:
    bool isButton(WPARAM id) const noexcept;
    std::uint16_t findChecked() const;

    std::uint16_t selectedId_ = 0;
    std::vector<std::uint16_t> buttonIds_;
};
