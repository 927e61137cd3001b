#include "plugin_ui/Features/PlexUIFeature.h"

#include "plugin_ui/Features/KeyWordListUIFeature.h"
#include "plugin_ui/Features/introduction.h"
#include "plugin_ui/Features/settingValue.h"
#include "resources/ids.h"

PlexUIFeature::PlexUIFeature(UIContext& context, Feature parentFeature)
    : UIFeature(context, parentFeature), announces_(true) {
    addObserved<KeyWordListUIFeature>(context, IDC_PLEX_LABEL, IDC_PLEX_LIST, Feature::sides, parentFeature,
                                      IDC_PLEX_PICTURE, IDB_PLEX, 0);
}

PlexUIFeature::PlexUIFeature(UIContext& context, std::uint16_t labelId, std::uint16_t listId, Feature parentFeature)
    : UIFeature(context, parentFeature), announces_(false) {
    addObserved<KeyWordListUIFeature>(context, labelId, listId, Feature::sides, parentFeature);
}

bool PlexUIFeature::isOneSided() {
    return readSetting(getDialogSettings(), Feature::sides) == FeatureValue(Value::oneSided);
}

void PlexUIFeature::initializeFeature() {
    if (announces_) introduce(*this, Introduction::plex);
}

void PlexUIFeature::updateFeatureWithNewSettings() { notifyObservers(); }

void PlexUIFeature::handleSubjectUpdate(std::uint16_t) {
    notifyObservers();
    if (isOnJob()) markPageChanged();
}
