#include "plugin_ui/DialogLaunchButtonUIFeature.h"

#include "plugin_ui/Controls/PushButtonUIControl.h"

DialogLaunchButtonUIFeature::DialogLaunchButtonUIFeature(UIContext& context, std::uint16_t buttonId,
                                                         std::unique_ptr<UIDialog> dialog, std::uint16_t bitmapId)
    : UIFeature(context, noParentFeature),
      dialog_(std::move(dialog)),
      button_(addObserved<PushButtonUIControl>(buttonId, bitmapId)) {
    addComponent(*dialog_);
}

DialogLaunchButtonUIFeature::~DialogLaunchButtonUIFeature() = default;

void DialogLaunchButtonUIFeature::enableButton() { button_.enableControl(); }

void DialogLaunchButtonUIFeature::disableButton() { button_.disableControl(); }

bool DialogLaunchButtonUIFeature::isFeatureSupported() { return dialog_->removeUnsupportedFeatures(); }

void DialogLaunchButtonUIFeature::handleSubjectUpdate(std::uint16_t) {
    if (dialog_->showModal(getWindow(), getDialogSettings())) notifyObservers();
}

void DialogLaunchButtonUIFeature::updateFeatureWithNewSettings() {}

void DialogLaunchButtonUIFeature::setParentFeature(Feature feature) {
    UIFeature::setParentFeature(feature);
    dialog_->setParentFeature(feature);
}

void DialogLaunchButtonUIFeature::setToDefault(FeatureSettings& settings) { dialog_->requestDefault(settings); }

bool DialogLaunchButtonUIFeature::onLock(const UIMessage& message, LRESULT& result) {
    getContext().readOnly = true;
    return sendToChildren(message, result);
}

bool DialogLaunchButtonUIFeature::onUnlock(const UIMessage& message, LRESULT& result) {
    getContext().readOnly = false;
    return sendToChildren(message, result);
}
