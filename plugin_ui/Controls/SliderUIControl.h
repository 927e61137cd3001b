// A trackbar; the value is its position.
#pragma once

#include "plugin_ui/Controls/UIControl.h"

#include <initializer_list>

class SliderUIControl : public UIControl {
public:
    // The auxiliary items (legends of the scale) are shown and enabled with the trackbar; 0 for none, as for the label.
    SliderUIControl(std::uint16_t labelId, std::uint16_t trackId, std::initializer_list<std::uint16_t> auxiliaryIds,
                    std::int32_t minimum, std::int32_t maximum, std::int32_t ticFrequency);

    // Clamped to the range.
    void setPosition(std::int32_t position);
    std::int32_t getPosition() const noexcept { return position_; }
    // REQUIRES: both bounds have 16 bits.
    void setRange(std::int32_t minimum, std::int32_t maximum, std::int32_t ticFrequency);

    void displayControl() override;
    void initializeControl() override;
    bool handleControlMessage(const UIMessage& message, LRESULT& result) override;

private:
    std::uint16_t trackId_;
    std::int32_t position_ = 0;
    std::int32_t minimum_;
    std::int32_t maximum_;
    std::int32_t ticFrequency_;
};
