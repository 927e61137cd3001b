#include "plugin_ui/Features/SubsetUIFeature.h"

#include "jtcore/Capabilities/Capabilities.h"
#include "plugin_ui/Features/NumberCheckBoxUIFeature.h"
#include "resources/ids.h"

SubsetUIFeature::SubsetUIFeature(UIContext& context)
    : UIFeature(context, noParentFeature),
      pages_(addNew<NumberCheckBoxUIFeature>(context, Feature::pagesPerSubset, IDC_SUBSET_LABEL, 0, IDC_SUBSET_EDIT,
                                             IDC_SUBSET_SPIN, IDC_SUBSET_NOT_SET, 1, true, true, noParentFeature)) {
    addStaticLabel(IDC_SUBSET_FRAME);
    addStaticLabel(IDC_SUBSET_UNIT);
}

bool SubsetUIFeature::isSubsetSet() const { return !pages_.isChecked(); }

bool SubsetUIFeature::isFeatureSupported() { return getCapabilities().isFeatureSupported(Feature::pagesPerSubset); }

bool SubsetUIFeature::onUnlock(const UIMessage& message, LRESULT& result) {
    const bool handled = UIFeature::onUnlock(message, result);
    if (pages_.isChecked()) pages_.disableEntry();
    return handled;
}
