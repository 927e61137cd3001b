// What this program is: its picture, its name and version, and the legal notice. The same whatever the settings.
#pragma once

#include "plugin_ui/UIFeature.h"

class BitmapUIControl;
class TextBoxUIControl;

class AboutUIFeature : public UIFeature {
public:
    explicit AboutUIFeature(UIContext& context);

    bool isFeatureSupported() override;
    void updateFeatureWithNewSettings() override;
    void initializeFeature() override;
    void handleSubjectUpdate(std::uint16_t subjectId) override;

private:
    TextBoxUIControl& addText(std::uint16_t controlId);

    BitmapUIControl& logo_;
    TextBoxUIControl& titleBox_;
    TextBoxUIControl& versionBox_;
    TextBoxUIControl& legalBox_;
};
