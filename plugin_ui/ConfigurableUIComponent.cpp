#include "plugin_ui/ConfigurableUIComponent.h"

#include "jtcore/Capabilities/Capabilities.h"
#include "plugin_ui/UIFeature.h"

namespace {

UIFeature* asFeature(MessageProcessor& child) noexcept { return dynamic_cast<UIFeature*>(&child); }

} // namespace

ConfigurableUIComponent::ConfigurableUIComponent(UIContext& context, Feature parentFeature)
    : context_(context), parentFeature_(parentFeature) {}

bool ConfigurableUIComponent::removeUnsupportedFeatures() {
    bool isAnyLeft = false;
    for (Position child = firstChild(); child != endOfChildren();) {
        UIFeature* feature = asFeature(**child);
        const bool stays = !feature || feature->isFeatureSupported();
        if (feature && stays) isAnyLeft = true;
        child = stays ? child + 1 : removeChild(child);
    }
    return isAnyLeft;
}

void ConfigurableUIComponent::setParentFeature(Feature feature) {
    parentFeature_ = feature;
    for (Position child = firstChild(); child != endOfChildren(); ++child)
        if (UIFeature* below = asFeature(**child)) below->setParentFeature(feature);
}

bool ConfigurableUIComponent::isSupportedFeature(const FeatureId& feature) const {
    if (isOnJob()) return getCapabilities().isFeatureSupported(feature);
    return getCapabilities().isMemberSupported(parentFeature_, feature);
}
