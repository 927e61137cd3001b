// The limits that the printing standard has no attribute for. What has another shape than the tables say, here or in
// the settings, cannot be judged and passes.
#include "jtcore/Capabilities/SettingsValidator.h"

#include "jtcore/Attributes/IppBoolean.h"
#include "jtcore/Attributes/PrimitiveString.h"
#include "jtcore/Capabilities/FailedEmbeddedSpacesCapability.h"
#include "jtcore/Capabilities/FailedRangeCapability.h"
#include "jtcore/Capabilities/UnsupportedAttribute.h"
#include "jtcore/Capabilities/listValues.h"

#include <limits>
#include <optional>

namespace {

// The first value of the feature.
const AttrValue* findValue(const AttrNodeList& base, const FeatureInfo& feature) {
    const AttrNodeList* list = &base;
    for (const PathStep& step : feature.path.steps) {
        const AttrNode* node = list->getNode(step.id);
        const IppList* inner = node ? node->getAttrValue().asList() : nullptr;
        if (!inner) return nullptr;
        list = &inner->getList();
    }
    const AttrNode* node = list->getNode(feature.path.leaf);
    return node ? &node->getAttrValue() : nullptr;
}

bool takes(const FeatureInfo& feature, const Syntax& wanted) {
    for (const Syntax& syntax : feature.syntaxes)
        if (syntax.name == wanted.name) return true;
    return false;
}

bool takesText(const FeatureInfo& feature) {
    for (const Syntax& wanted : {syntax::keyword, syntax::name, syntax::text, syntax::mimeMediaType, syntax::uri})
        if (takes(feature, wanted)) return true;
    return false;
}

bool isWithin(const NumberPair& limits, std::int64_t number) noexcept {
    return limits.first <= number && number <= limits.second;
}

bool isWithin(const NumberPair& limits, const FeatureInfo& feature, const AttrValue& value) {
    if (takes(feature, syntax::integer) || takes(feature, syntax::enumeration)) {
        const PrimitiveInteger* number = value.asPrimitiveInteger();
        return !number || isWithin(limits, number->getValue());
    }
    if (takes(feature, syntax::rangeOfInteger)) {
        const auto bounds = readBounds(value);
        return !bounds || (isWithin(limits, bounds->first) && isWithin(limits, bounds->second));
    }
    const PrimitiveString* text = takesText(feature) ? value.asPrimitiveString() : nullptr;
    return !text || text->getValue().empty() || isWithin(limits, static_cast<std::int64_t>(text->getValue().size()));
}

struct Limits {
    NumberPair judged;   // what a value must lie within
    NumberPair reported; // what a repair brings it into
};

std::optional<Limits> readLimits(const CapabilityInfo& row, const AttrValue& limit) {
    if (row.type == CapabilityType::intRange) {
        const auto bounds = readBounds(limit);
        return bounds ? std::optional(Limits{*bounds, *bounds}) : std::nullopt;
    }
    const PrimitiveInteger* upper = limit.asPrimitiveInteger();
    if (!upper) return std::nullopt;
    return Limits{{std::numeric_limits<std::int32_t>::min(), upper->getValue()}, {0, upper->getValue()}};
}

bool saysNo(const AttrValue& limit) {
    const IppBoolean* answer = limit.asBoolean();
    return answer && !answer->getValue();
}

} // namespace

bool SettingsValidator::validateExtensions(const Place& place) {
    if (!place.feature) return true;
    bool isValid = true;
    for (const CapabilityInfo& row : CapabilityDataBase::getCapabilities(place.feature->number)) {
        if (row.category != CapabilityCategory::extension) continue;
        if (auto problem = findExtensionProblem(place, row)) isValid = report(std::move(problem));
    }
    return isValid;
}

std::unique_ptr<SettingsProblem> SettingsValidator::findExtensionProblem(const Place& place,
                                                                         const CapabilityInfo& row) const {
    const AttrNode* limit = capabilities_.findCapability(row);
    if (!limit || isWithinExtension(place, row, limit->getAttrValue())) return nullptr;
    AttrLocation location = locate(place);
    location.retarget(place.feature->nestedId());
    const CapabilityId id(row.feature, row.type);
    switch (row.type) {
    case CapabilityType::isSupported:
        return std::make_unique<UnsupportedAttribute>(std::move(location));
    case CapabilityType::embeddedSpaces:
        return std::make_unique<FailedEmbeddedSpacesCapability>(std::move(location), id);
    default:
        break;
    }
    const NumberPair limits = readLimits(row, limit->getAttrValue())->reported;
    return std::make_unique<FailedRangeCapability>(std::move(location), id, limits.first, limits.second);
}

bool SettingsValidator::isWithinExtension(const Place& place, const CapabilityInfo& row, const AttrValue& limit) const {
    switch (row.type) {
    case CapabilityType::isSupported:
        return !saysNo(limit);
    case CapabilityType::embeddedSpaces: {
        const AttrValue* value = saysNo(limit) ? findValue(*place.level.base, *place.feature) : nullptr;
        const PrimitiveString* text = value ? value->asPrimitiveString() : nullptr;
        return !text || text->getValue().find(u' ') == std::u16string::npos;
    }
    case CapabilityType::intRange:
    case CapabilityType::intUpperLimit: {
        const auto limits = readLimits(row, limit);
        const AttrValue* value = limits ? findValue(*place.level.base, *place.feature) : nullptr;
        return !value || isWithin(limits->judged, *place.feature, *value);
    }
    default:
        return true; // what a user may type is kept by the controls
    }
}
