#include "plugin_ui/Features/OffsetUIFeature.h"

#include "plugin_ui/Controls/BitmapUIControl.h"
#include "plugin_ui/Controls/CheckBoxUIControl.h"
#include "plugin_ui/Features/listMember.h"
#include "resources/ids.h"

namespace {

constexpr FeatureValue offset(Value::finishingsJogOffset);

} // namespace

OffsetUIFeature::OffsetUIFeature(UIContext& context)
    : UIFeature(context, noParentFeature),
      box_(addObserved<CheckBoxUIControl>(IDC_OFFSET_CHECK)),
      picture_(addNew<BitmapUIControl>(IDC_OFFSET_PICTURE, IDB_OFFSET_OFF)) {}

bool OffsetUIFeature::isOffsetSet() { return hasMember(getDialogSettings(), Feature::finishings, offset); }

bool OffsetUIFeature::isFeatureSupported() {
    return isValueSupported(getCapabilities(), Feature::finishings, getParentFeature(), offset);
}

void OffsetUIFeature::updateFeatureWithNewSettings() {
    const bool isSet = isOffsetSet();
    box_.setChecked(isSet);
    picture_.setBitmap(isSet ? IDB_OFFSET_ON : IDB_OFFSET_OFF);
}

void OffsetUIFeature::handleSubjectUpdate(std::uint16_t subjectId) {
    if (subjectId != box_.getSubjectId()) return;
    eraseMember(getDialogSettings(), Feature::finishings, offset);
    if (box_.isChecked()) appendMember(getDialogSettings(), Feature::finishings, offset);
    markPageChanged();
    refreshFeature();
}
