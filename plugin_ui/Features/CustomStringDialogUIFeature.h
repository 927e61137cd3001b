// The field of the dialog for a value of the user's own. An empty text is no value: OK is disabled.
#pragma once

#include "plugin_ui/UIFeature.h"

#include <string>

class TextBoxUIControl;

class CustomStringDialogUIFeature : public UIFeature {
public:
    CustomStringDialogUIFeature(UIContext& context, const FeatureId& feature, std::u16string& target);

    // Assigns the text to the target.
    void commitText() { target_ = text_; }

    bool isFeatureSupported() override;
    void initializeFeature() override;
    void updateFeatureWithNewSettings() override;
    void handleSubjectUpdate(std::uint16_t subjectId) override;
    bool isEntryValid(HWND window) override;

private:
    void enableOk();

    TextBoxUIControl& textBox_;
    FeatureId feature_;
    std::u16string& target_;
    std::u16string text_;
};
