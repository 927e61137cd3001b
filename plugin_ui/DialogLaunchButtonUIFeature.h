// A button on a page, and the modal dialog behind it. The dialog is no child: it gets no messages of the page, but the
// default and label notifications.
#pragma once

#include "plugin_ui/UIDialog.h"
#include "plugin_ui/UIFeature.h"

#include <memory>

class PushButtonUIControl;

class DialogLaunchButtonUIFeature : public UIFeature {
public:
    // With bitmapId 0 the button shows its text. Observers hear of each OK in the dialog.
    DialogLaunchButtonUIFeature(UIContext& context, std::uint16_t buttonId, std::unique_ptr<UIDialog> dialog,
                                std::uint16_t bitmapId = 0);
    ~DialogLaunchButtonUIFeature() override;

    void enableButton();
    void disableButton();
    HWND getDialogWindow() const noexcept { return dialog_->getDialogWindow(); }

    // Whether anything is left in the dialog that the printer can do.
    bool isFeatureSupported() override;
    // Runs the dialog on the settings that this feature edits now.
    void handleSubjectUpdate(std::uint16_t subjectId) override;
    void updateFeatureWithNewSettings() override;
    void setParentFeature(Feature feature) override;
    void setToDefault(FeatureSettings& settings) override;
    // The dialog is read-only with the page.
    bool onLock(const UIMessage& message, LRESULT& result) override;
    bool onUnlock(const UIMessage& message, LRESULT& result) override;

private:
    std::unique_ptr<UIDialog> dialog_;
    PushButtonUIControl& button_;
};
