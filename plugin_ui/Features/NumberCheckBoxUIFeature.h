// An integer that may also stay unset: a number box, a hint that tells its range, and a check box for the unset state,
// each of them present or not.
#pragma once

#include "plugin_ui/UIFeature.h"

class CheckBoxUIControl;
class NumberBoxUIControl;
class TextBoxUIControl;

class NumberCheckBoxUIFeature : public UIFeature {
public:
    // Without a hint, field or check box its id is 0. There is a check box only where the attribute may stay unset.
    // inverted: a ticked box means that it is not set.
    NumberCheckBoxUIFeature(UIContext& context, const FeatureId& feature, std::uint16_t labelId, std::uint16_t hintId,
                            std::uint16_t editId, std::uint16_t spinId, std::uint16_t checkId,
                            std::int32_t initialValue, bool inverted, bool clampOnLeave, Feature parentFeature);

    // The number of the last change by the user; the initial one when he unset it.
    std::int32_t getLastValue() const noexcept { return lastValue_; }
    // False when there is no check box.
    bool isChecked() const;
    // The check box and, unless it is ticked, the number and its hint.
    void enableAll();
    void disableAll();
    // The number and its hint.
    void disableEntry();

    void setToDefault(FeatureSettings& settings) override;
    void setDefaultLabel(std::uint16_t stringId) override;
    bool isFeatureSupported() override;
    void initializeFeature() override;
    void updateFeatureWithNewSettings() override;
    void handleSubjectUpdate(std::uint16_t subjectId) override;

private:
    void showNumber(std::int32_t value);
    void showUnset();
    void handleCheckBox();
    void writeNumber();

    FeatureId feature_;
    TextBoxUIControl* hint_ = nullptr;
    NumberBoxUIControl* number_ = nullptr;
    CheckBoxUIControl* checkBox_ = nullptr;
    std::int32_t lower_ = 0;
    std::int32_t upper_ = 0;
    std::int32_t initialValue_;
    bool inverted_;
    std::int32_t lastValue_;
};
