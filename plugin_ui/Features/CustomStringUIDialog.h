// The small dialog in which a user types a value of his own.
#pragma once

#include "plugin_ui/UIDialog.h"

#include <string>

class CustomStringDialogUIFeature;

class CustomStringUIDialog : public UIDialog {
public:
    // The target is the caller's: where the dialog starts from, and what an OK writes.
    CustomStringUIDialog(UIContext& context, const FeatureId& feature, std::u16string& target);

protected:
    // Writes the text to the target, and no settings.
    void commitSettings(HWND window) override;

private:
    CustomStringDialogUIFeature& entry_;
};
