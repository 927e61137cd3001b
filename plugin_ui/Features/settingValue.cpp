#include "plugin_ui/Features/settingValue.h"

#include "jtcore/Services/KolmaException.h"
#include "jtcore/Services/trace.h"

FeatureValue readSetting(const FeatureSettings& settings, const FeatureId& feature, std::size_t occurrence) {
    try {
        return settings.getFeatureValue(feature, occurrence);
    } catch (const UnknownFeatureRequestException& failure) {
        traceException(&failure, u"readSetting()", feature.getUniqueId());
        return unknownValue;
    }
}
