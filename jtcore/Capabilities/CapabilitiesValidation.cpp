// Whether settings are within what the printer can do, and what becomes of those that are not.
#include "jtcore/Capabilities/Capabilities.h"

#include "jtcore/AnlXlate/PersistentSettings.h"
#include "jtcore/Capabilities/SettingsProblemFixer.h"
#include "jtcore/Capabilities/SettingsProblemReporter.h"
#include "jtcore/Capabilities/SettingsValidator.h"
#include "jtcore/Printer/PrinterDefaults.h"

#include <algorithm>

namespace {

// The job's own list where the collection has none.
const AttrNodeList* findMembers(const Capabilities& capabilities, Feature collection) {
    const AttrNodeList* members = collection == noParentFeature
                                      ? nullptr
                                      : capabilities.getCapabilityList({collection, CapabilityType::memberList});
    return members ? members : capabilities.getCapabilityList({Feature::any, CapabilityType::memberList});
}

PersistentSettings toPersistentSettings(const PrinterDefaults& defaults) {
    PersistentSettings settings;
    settings.setAttrNodeList(defaults.getFeatureSettings().getAttrNodeList());
    return settings;
}

} // namespace

bool Capabilities::validateSettings(FeatureSettings& settings, SettingsProblemList& problems, Feature feature,
                                    const std::vector<FeatureId>* required) const {
    AttrNodeList& root = settings.getAttrNodeList();
    problems.setRoot(&root);
    SettingsValidator validator(*this, problems);
    std::vector<Feature> features;
    if (required)
        std::transform(required->begin(), required->end(), std::back_inserter(features),
                       [](const FeatureId& id) { return id.getNumber(); });
    else
        features = validator.findRequiredFeatures(findMembers(*this, feature), feature);
    return validator.validate(root, features, feature);
}

bool Capabilities::validateStock(FeatureSettings& settings, SettingsProblemList& problems, Feature feature) const {
    std::vector<FeatureId> required;
    for (const Feature stock :
         SettingsValidator(*this, problems).findRequiredFeatures(findMembers(*this, feature), feature))
        if (stock == Feature::media || stock == Feature::mediaCol) required.emplace_back(stock);
    return validateSettings(settings, problems, feature, &required);
}

bool Capabilities::validateAndResolve(FeatureSettings& settings, const PrinterDefaults& defaults, bool& hadProblems,
                                      SettingsProblemReporter& reporter) const {
    SettingsProblemList problems;
    hadProblems = !validateSettings(settings, problems);
    if (!hadProblems) return true;
    if (reporter.report(problems) != 1) return false;
    SettingsProblemFixer(toPersistentSettings(defaults)).fixUntilValid(problems, [&](SettingsProblemList& left) {
        return validateSettings(settings, left);
    });
    return true;
}

bool Capabilities::validateAndResolve(FeatureSettings& settings, const PrinterDefaults& defaults, bool& hadProblems,
                                      HWND window, std::uint16_t titleId, const std::u16string& fileName,
                                      bool detailed) const {
    SettingsProblemReporter reporter(window, titleId, fileName, toPersistentSettings(defaults), detailed, true);
    return validateAndResolve(settings, defaults, hadProblems, reporter);
}
