// Whether the copies come out set by set. It announces itself to the finishing.
#pragma once

#include "plugin_ui/UIFeature.h"

class CollationUIFeature : public UIFeature {
public:
    CollationUIFeature(UIContext& context, Feature parentFeature);

    bool isCollated();

    bool isFeatureSupported() override { return removeUnsupportedFeatures(); }
    void initializeFeature() override;
    void updateFeatureWithNewSettings() override {}
    void handleSubjectUpdate(std::uint16_t subjectId) override;
};
