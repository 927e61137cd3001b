// An attribute with two values as a box that is ticked or not and, where it may stay unset, a second box for that. It
// notifies of every change and does not mark the page: the owner does.
#pragma once

#include "jtcore/FeatureSettings/FeatureValue.h"
#include "plugin_ui/UIFeature.h"

class CheckBoxUIControl;

class CheckBoxUIFeature : public UIFeature {
public:
    CheckBoxUIFeature(UIContext& context, const FeatureId& feature, std::uint16_t mainId, std::uint16_t defaultId,
                      FeatureValue onValue, FeatureValue offValue, Feature parentFeature);

    bool isOn();
    bool isOnIn(const FeatureSettings& settings) const;
    // False without a box for it.
    bool isNotSet();
    // For an owner's onUnlock() when the default box is ticked.
    void disableMainIfDefault();

    void setToDefault(FeatureSettings& settings) override;
    void setDefaultLabel(std::uint16_t stringId) override;
    bool isFeatureSupported() override;
    void updateFeatureWithNewSettings() override;
    void handleSubjectUpdate(std::uint16_t subjectId) override;

private:
    void writeMainValue();
    void handleDefaultBox();

    FeatureId feature_;
    FeatureValue onValue_;
    FeatureValue offValue_;
    CheckBoxUIControl& mainBox_;
    CheckBoxUIControl* defaultBox_ = nullptr;
};
