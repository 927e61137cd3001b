#include "plugin_ui/Features/CopiesUIFeature.h"

#include "jtcore/Capabilities/Capabilities.h"
#include "plugin_ui/Controls/NumberBoxUIControl.h"
#include "resources/ids.h"

CopiesUIFeature::CopiesUIFeature(UIContext& context)
    : UIFeature(context, noParentFeature),
      copies_(addObserved<NumberBoxUIControl>(IDC_COPIES_LABEL, IDC_COPIES_EDIT, IDC_COPIES_SPIN, 0, true)) {}

bool CopiesUIFeature::isFeatureSupported() { return getCapabilities().isFeatureSupported(Feature::copies); }

void CopiesUIFeature::initializeFeature() {
    std::int32_t lower = 0;
    std::int32_t upper = 0;
    getCapabilities().getFeatureCapabilities(Feature::copies, lower, upper);
    copies_.setNumberType(NumberBoxType::signedInteger);
    copies_.setRange(lower, upper);
    copies_.setMaxChars(NumberBoxUIControl::digitsNeeded(upper));
}

void CopiesUIFeature::updateFeatureWithNewSettings() {
    std::int32_t copies = 0;
    if (getDialogSettings().getLong(FeatureId(Feature::copies), copies)) return copies_.setValue(copies);
    copies_.setEmptyValue();
    copies_.displayControl();
}

void CopiesUIFeature::handleSubjectUpdate(std::uint16_t) {
    const FeatureId copies(Feature::copies);
    markPageChanged();
    if (copies_.isEmptyValue())
        getDialogSettings().setFeatureValue(copies, Value::notSet);
    else
        getDialogSettings().setLong(copies, copies_.getValue());
}
