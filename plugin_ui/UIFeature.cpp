#include "plugin_ui/UIFeature.h"

#include "jtcore/Services/KolmaException.h"
#include "platform/property_sheet.h"
#include "platform/windows.h"
#include "plugin_ui/Controls/StaticUIControl.h"

UIFeature::UIFeature(UIContext& context, Feature parentFeature) : ConfigurableUIComponent(context, parentFeature) {}

FeatureSettings& UIFeature::getDialogSettings() {
    if (!dialogSettings_)
        raise<UnknownCaseException>(u"UIFeature::getDialogSettings(): the feature has no settings yet.\r\n");
    return *dialogSettings_;
}

void UIFeature::initializeFeature() {}

bool UIFeature::onInitDialog(const UIMessage& message, LRESULT& result) {
    window_ = message.window;
    dialogSettings_ = reinterpret_cast<FeatureSettings*>(message.lParam);
    const bool isHandled = sendToChildren(message, result);
    initializeFeature();
    return isHandled;
}

bool UIFeature::onRefresh(const UIMessage& message, LRESULT& result) {
    updateFeatureWithNewSettings();
    return sendToChildren(message, result);
}

void UIFeature::addStaticLabel(std::uint16_t controlId) { addNew<StaticUIControl>(controlId); }

void UIFeature::refreshDialog() { SendMessageW(window_, UIM_REFRESH, 0, 0); }

void UIFeature::refreshFeature() { tellItself(UIM_REFRESH); }

void UIFeature::enableFeature() { tellItself(UIM_ENABLE); }

void UIFeature::disableFeature() { tellItself(UIM_DISABLE); }

void UIFeature::setDialogSettings(FeatureSettings* settings) {
    dialogSettings_ = settings;
    for (Position child = firstChild(); child != endOfChildren(); ++child)
        if (auto* below = dynamic_cast<UIFeature*>(child->get())) below->setDialogSettings(settings);
}

void UIFeature::markPageChanged() {
    SendMessageW(GetParent(window_), PSM_CHANGED, reinterpret_cast<WPARAM>(window_), reinterpret_cast<LPARAM>(window_));
}

bool UIFeature::tellItself(UINT message) {
    LRESULT result = 0;
    return processMessage({window_, message, 0, 0}, result);
}
