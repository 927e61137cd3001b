#include "plugin_ui/Features/BitmapUIFeature.h"

#include "plugin_ui/Controls/BitmapUIControl.h"
#include "plugin_ui/Features/listMember.h"

#include <utility>

BitmapUIFeature::BitmapUIFeature(UIContext& context, std::uint16_t itemId, std::uint16_t bitmapId,
                                 const FeatureId& feature, FeatureValue value, std::u16string toolTipText)
    : UIFeature(context, noParentFeature),
      feature_(feature),
      value_(value),
      toolTipText_(std::move(toolTipText)),
      picture_(addObserved<BitmapUIControl>(itemId, bitmapId)) {
    picture_.setClickable();
}

bool BitmapUIFeature::holdsValue(const FeatureSettings& settings) const {
    return hasMember(settings, feature_, value_);
}

void BitmapUIFeature::eraseValue() { eraseMember(getDialogSettings(), feature_, value_); }

bool BitmapUIFeature::isFeatureSupported() {
    return isValueSupported(getCapabilities(), feature_, getParentFeature(), value_);
}

void BitmapUIFeature::initializeFeature() {
    if (!toolTipText_.empty()) picture_.setToolTip(toolTipText_);
}

void BitmapUIFeature::updateFeatureWithNewSettings() {
    picture_.setHotState(HotState::flat);
    if (holdsValue(getDialogSettings())) picture_.setHotState(HotState::sunken);
}

void BitmapUIFeature::handleSubjectUpdate(std::uint16_t subjectId) {
    if (subjectId != picture_.getSubjectId()) return;
    eraseValue();
    appendMember(getDialogSettings(), feature_, value_);
    notifyObservers();
}
