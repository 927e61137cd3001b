// The sides of the sheet that are printed. On the page it announces itself to those that depend on it.
#pragma once

#include "plugin_ui/UIFeature.h"

class PlexUIFeature : public UIFeature {
public:
    // On the page.
    PlexUIFeature(UIContext& context, Feature parentFeature);
    // Inside another feature: no picture, and no announcement.
    PlexUIFeature(UIContext& context, std::uint16_t labelId, std::uint16_t listId, Feature parentFeature);

    // False when the settings do not say.
    bool isOneSided();

    bool isFeatureSupported() override { return removeUnsupportedFeatures(); }
    void initializeFeature() override;
    void updateFeatureWithNewSettings() override;
    void handleSubjectUpdate(std::uint16_t subjectId) override;

private:
    bool announces_;
};
