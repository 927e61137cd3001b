#include "plugin_ui/Features/listMember.h"

#include "jtcore/Capabilities/Capabilities.h"
#include "plugin_ui/Features/settingValue.h"

#include <algorithm>

bool hasMember(const FeatureSettings& settings, const FeatureId& feature, FeatureValue value) {
    const std::size_t count = settings.getValueCount(feature);
    for (std::size_t occurrence = 0; occurrence < count; ++occurrence)
        if (readSetting(settings, feature, occurrence) == value) return true;
    return false;
}

void eraseMember(FeatureSettings& settings, const FeatureId& feature, FeatureValue value) {
    // From the end: what is erased moves only those behind it.
    for (std::size_t occurrence = settings.getValueCount(feature); occurrence-- > 0;)
        if (readSetting(settings, feature, occurrence) == value)
            settings.setFeatureValue(feature, Value::notSet, occurrence);
}

void eraseAllMembers(FeatureSettings& settings, const FeatureId& feature) {
    for (std::size_t occurrence = settings.getValueCount(feature); occurrence-- > 0;)
        settings.setFeatureValue(feature, Value::notSet, occurrence);
}

void appendMember(FeatureSettings& settings, const FeatureId& feature, FeatureValue value) {
    settings.setFeatureValue(feature, value, settings.getValueCount(feature));
}

bool isValueSupported(const Capabilities& capabilities, const FeatureId& feature, Feature parent, FeatureValue value) {
    std::vector<FeatureValue> values;
    capabilities.getFeatureCapabilities(feature, parent, values);
    return std::find(values.begin(), values.end(), value) != values.end();
}
