#include "plugin_ui/Features/CustomStringDialogUIFeature.h"

#include "jtcore/Capabilities/Capabilities.h"
#include "plugin_ui/Controls/TextBoxUIControl.h"
#include "resources/ids.h"

namespace {

constexpr std::int32_t lengthWithoutLimit = 255;

} // namespace

CustomStringDialogUIFeature::CustomStringDialogUIFeature(UIContext& context, const FeatureId& feature,
                                                         std::u16string& target)
    : UIFeature(context, noParentFeature),
      textBox_(
          addObserved<TextBoxUIControl>(IDC_CUSTOM_ENTRY_LABEL, IDC_CUSTOM_ENTRY_EDIT, 0, lengthWithoutLimit, false)),
      feature_(feature),
      target_(target),
      text_(target) {}

bool CustomStringDialogUIFeature::isFeatureSupported() {
    return isSupportedFeature(feature_) && getCapabilities().isUserDefinedAllowed(feature_);
}

void CustomStringDialogUIFeature::initializeFeature() {
    textBox_.setMaxChars(getCapabilities().getUpperLimit(feature_));
    if (!getCapabilities().allowsEmbeddedSpaces(feature_)) textBox_.setTextType(TextBoxType::customName);
}

void CustomStringDialogUIFeature::updateFeatureWithNewSettings() {
    textBox_.setText(text_);
    enableOk();
}

void CustomStringDialogUIFeature::handleSubjectUpdate(std::uint16_t) {
    text_ = textBox_.getText();
    enableOk();
}

bool CustomStringDialogUIFeature::isEntryValid(HWND) { return !text_.empty(); }

void CustomStringDialogUIFeature::enableOk() { EnableWindow(GetDlgItem(getWindow(), IDOK), !text_.empty()); }
