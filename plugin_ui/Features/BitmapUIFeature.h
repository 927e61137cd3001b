// One member of a list-valued attribute as a picture that the user clicks to choose it. A click never takes the member
// away; the owner, who hears of it, decides what else must go.
#pragma once

#include "jtcore/FeatureSettings/FeatureValue.h"
#include "plugin_ui/UIFeature.h"

#include <string>

class BitmapUIControl;

class BitmapUIFeature : public UIFeature {
public:
    // Without a tip its text is empty.
    BitmapUIFeature(UIContext& context, std::uint16_t itemId, std::uint16_t bitmapId, const FeatureId& feature,
                    FeatureValue value, std::u16string toolTipText);

    bool holdsValue(const FeatureSettings& settings) const;
    void eraseValue();
    // A number for the owner's use.
    void setTag(std::int32_t tag) noexcept { tag_ = tag; }
    std::int32_t getTag() const noexcept { return tag_; }

    bool isFeatureSupported() override;
    void initializeFeature() override;
    void updateFeatureWithNewSettings() override;
    void handleSubjectUpdate(std::uint16_t subjectId) override;

private:
    FeatureId feature_;
    FeatureValue value_;
    std::u16string toolTipText_;
    std::int32_t tag_ = -1;
    BitmapUIControl& picture_;
};
