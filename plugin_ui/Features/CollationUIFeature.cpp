#include "plugin_ui/Features/CollationUIFeature.h"

#include "plugin_ui/Features/KeyWordListUIFeature.h"
#include "plugin_ui/Features/introduction.h"
#include "plugin_ui/Features/settingValue.h"
#include "resources/ids.h"

CollationUIFeature::CollationUIFeature(UIContext& context, Feature parentFeature) : UIFeature(context, parentFeature) {
    addObserved<KeyWordListUIFeature>(context, IDC_COLLATION_LABEL, IDC_COLLATION_LIST, Feature::sheetCollate,
                                      parentFeature, IDC_COLLATION_PICTURE, IDB_COLLATION, 0);
}

bool CollationUIFeature::isCollated() {
    return readSetting(getDialogSettings(), Feature::sheetCollate) == FeatureValue(Value::collated);
}

void CollationUIFeature::initializeFeature() { introduce(*this, Introduction::collation); }

void CollationUIFeature::handleSubjectUpdate(std::uint16_t) { notifyObservers(); }
