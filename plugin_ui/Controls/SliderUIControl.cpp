#include "plugin_ui/Controls/SliderUIControl.h"

#include <algorithm>

SliderUIControl::SliderUIControl(std::uint16_t labelId, std::uint16_t trackId,
                                 std::initializer_list<std::uint16_t> auxiliaryIds, std::int32_t minimum,
                                 std::int32_t maximum, std::int32_t ticFrequency)
    : UIControl(trackId), trackId_(trackId), minimum_(minimum), maximum_(maximum), ticFrequency_(ticFrequency) {
    addControlId(labelId);
    addControlId(trackId);
    for (const std::uint16_t id : auxiliaryIds)
        addControlId(id);
}

void SliderUIControl::setPosition(std::int32_t position) {
    position_ = std::max(minimum_, std::min(position, maximum_));
    displayControl();
}

void SliderUIControl::setRange(std::int32_t minimum, std::int32_t maximum, std::int32_t ticFrequency) {
    minimum_ = minimum;
    maximum_ = maximum;
    ticFrequency_ = ticFrequency;
    initializeControl();
}

void SliderUIControl::displayControl() { sendToItem(trackId_, TBM_SETPOS, TRUE, position_); }

void SliderUIControl::initializeControl() {
    sendToItem(trackId_, TBM_SETRANGE, TRUE, MAKELPARAM(static_cast<WORD>(minimum_), static_cast<WORD>(maximum_)));
    sendToItem(trackId_, TBM_SETTICFREQ, static_cast<WPARAM>(ticFrequency_));
}

bool SliderUIControl::handleControlMessage(const UIMessage& message, LRESULT&) {
    if (message.id != WM_HSCROLL || message.lParam == 0) return false;
    if (message.lParam != reinterpret_cast<LPARAM>(getItem(trackId_))) return false;
    const auto position = static_cast<std::int32_t>(sendToItem(trackId_, TBM_GETPOS));
    if (position == position_) return true;
    position_ = position;
    notifyObservers();
    return true;
}
