// What is supported, and what is allowed.
#include "jtcore/Attributes/IppBoolean.h"
#include "jtcore/Capabilities/Capabilities.h"

#include <algorithm>

namespace {

// The outermost collection or set round a feature that is a feature of its own, such as media-col round media-color;
// null when there is none.
const FeatureInfo* findEnclosingFeature(const FeatureId& feature) {
    for (const PathStep& step : feature.info().path.steps)
        if (const FeatureInfo* outer = FeatureDataBase::find(step.id); outer && outer->number != feature.getNumber())
            return outer;
    return nullptr;
}

} // namespace

bool Capabilities::isListed(Feature listOwner, CapabilityType listType, const FeatureId& feature) const {
    return hasKeyword(getCapabilityList({listOwner, listType}), feature.getUniqueId());
}

bool Capabilities::isFeatureSupported(const FeatureId& feature) const {
    if (isListed(Feature::any, CapabilityType::memberList, feature) || isCapabilityTrue(feature)) return true;
    const FeatureInfo* enclosing = findEnclosingFeature(feature);
    return enclosing && isFeatureSupported(enclosing->number) && isMemberSupported(enclosing->number, feature);
}

bool Capabilities::isMemberSupported(const FeatureId& parent, const FeatureId& member) const {
    if (!CapabilityId::isValid(parent.getNumber(), CapabilityType::memberList)) return false;
    if (isListed(parent.getNumber(), CapabilityType::memberList, member)) return true;
    const FeatureInfo* enclosing = findEnclosingFeature(member);
    return enclosing && enclosing->number != parent.getNumber() && isMemberSupported(parent, enclosing->number);
}

bool Capabilities::readBoolean(Feature feature, CapabilityType type, bool defaultAnswer) const {
    const CapabilityInfo* row = CapabilityDataBase::find(feature, type);
    const AttrNode* node = row ? findCapability(*row) : nullptr;
    const IppBoolean* answer = node ? node->getAttrValue().asBoolean() : nullptr;
    return answer ? answer->getValue() : defaultAnswer;
}

bool Capabilities::isCapabilityTrue(const FeatureId& feature) const {
    return readBoolean(feature.getNumber(), CapabilityType::isSupported, false);
}

bool Capabilities::allowsEmbeddedSpaces(const FeatureId& feature) const {
    return readBoolean(feature.getNumber(), CapabilityType::embeddedSpaces, true);
}

bool Capabilities::allowsSeparateCovers() const {
    return readBoolean(Feature::any, CapabilityType::separateCovers, true);
}

bool Capabilities::allowsMultipleInsertMedia() const {
    return readBoolean(Feature::any, CapabilityType::multipleMedia, true);
}

bool Capabilities::isUserDefinedAllowed(const FeatureId& feature) const {
    return isListed(Feature::any, CapabilityType::userDefinedList, feature);
}

bool Capabilities::isUnspecifiedAllowed(const FeatureId& feature, Feature parent) const {
    switch (feature.getUnspecifiedRule()) {
    case UnspecifiedRule::always:
        return true;
    case UnspecifiedRule::never:
        return false;
    case UnspecifiedRule::byPrinter:
        break;
    }
    return model_.isUnspecifiedAllowed(feature.getNumber(), parent, form_);
}

bool Capabilities::isNestedFeature(std::u16string_view attributeId) const {
    return std::any_of(nestedFeatures_.begin(), nestedFeatures_.end(),
                       [&](const FeatureId& feature) { return feature.getUniqueId() == attributeId; });
}
