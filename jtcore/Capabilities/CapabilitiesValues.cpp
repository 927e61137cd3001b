// Ranges, limits and lists of values.
#include "jtcore/Capabilities/Capabilities.h"
#include "jtcore/FeatureSettings/NestedAttrID.h"
#include "jtcore/Services/KolmaException.h"
#include "jtcore/Services/trace.h"

#include <algorithm>

namespace {

[[noreturn]] void raiseMissing(std::u16string_view operation, const CapabilityId& id) {
    raise<MissingCapabilityDataException>(u"Capabilities::%s: Could not find the %s capability.\r\n", operation,
                                          id.getNestedId().getOutermostId());
}

std::int32_t requireNumber(const Settings& capabilities, const CapabilityId& id, std::u16string_view operation) {
    std::int32_t number = 0;
    if (!capabilities.getLong(id, number)) raiseMissing(operation, id);
    return number;
}

bool isSetOfRanges(const CapabilityId& id) {
    const AttrPath& path = id.info().path;
    return !path.steps.empty() && path.steps[0].syntax == syntax1setOf;
}

void traceIgnoredValue(const FeatureId& feature, const AttrValue& value) {
    traceText(u"Capabilities::getFeatureCapabilities(list of values)",
              formatMessage(u"Tried to create FeatureValue with value '%s' & syntax '%s' for feature '%s'. This is not "
                            u"a fatal error. The value is being ignored and it is safe to continue.\r\n",
                            value.getIppValue(), value.getSyntaxName(), feature.getUniqueId()));
}

void appendValues(const FeatureId& feature, const AttrNodeList& list, std::vector<FeatureValue>& values) {
    for (const AttrNode& node : list) {
        try {
            values.push_back(FeatureValue::fromAttrValue(feature, node.getAttrValue()));
        } catch (const KolmaException&) {
            traceIgnoredValue(feature, node.getAttrValue());
        }
    }
}

} // namespace

void Capabilities::getFeatureCapabilities(const FeatureId& feature, std::int32_t& lower, std::int32_t& upper) const {
    const CapabilityId id(feature.getNumber(), CapabilityType::intRange);
    const std::size_t count = isSetOfRanges(id) ? capabilities_.getValueCount(id) : 1;
    std::int32_t least = 0;
    std::int32_t greatest = 0;
    if (!capabilities_.getRange(id, least, greatest)) raiseMissing(u"getFeatureCapabilities(range of integer)", id);
    for (std::size_t i = 1; i < count; ++i) {
        std::int32_t low = 0;
        std::int32_t high = 0;
        if (!capabilities_.getRange(id, low, high, i)) continue;
        least = std::min(least, low);
        greatest = std::max(greatest, high);
    }
    lower = least;
    upper = greatest;
}

std::int32_t Capabilities::getUpperLimit(const FeatureId& feature) const {
    return requireNumber(capabilities_, {feature.getNumber(), CapabilityType::intUpperLimit}, u"getUpperLimit()");
}

std::int32_t Capabilities::getPrecision(const FeatureId& feature) const {
    return requireNumber(capabilities_, {feature.getNumber(), CapabilityType::precision}, u"getPrecision()");
}

std::int32_t Capabilities::getCharacterSetRestriction(const FeatureId& feature) const {
    return requireNumber(capabilities_, {feature.getNumber(), CapabilityType::charRestriction},
                         u"getCharacterSetRestriction()");
}

void Capabilities::getFeatureCapabilities(const FeatureId& feature, Feature parent,
                                          std::vector<FeatureValue>& values) const {
    const AttrNodeList* list = getCapabilityList({feature.getNumber(), CapabilityType::valueList});
    if (list) appendValues(feature, *list, values);
    if (isUnspecifiedAllowed(feature, parent)) values.emplace_back();
    std::stable_sort(values.begin(), values.end());
}

StockSizeRange Capabilities::getStockSizeRange() const {
    StockSizeRange range;
    getFeatureCapabilities(Feature::xDimension, range.xMinimum, range.xMaximum);
    getFeatureCapabilities(Feature::yDimension, range.yMinimum, range.yMaximum);
    return range;
}

void Capabilities::getSupportedStockSizes(Feature parent, std::vector<StockSize>& sizes) const {
    const StockSizeRange range = getStockSizeRange();
    if (isUnspecifiedAllowed(Feature::xDimension, parent) && isUnspecifiedAllowed(Feature::yDimension, parent))
        sizes.emplace_back();
    StockSize::getAllInRange(range, sizes);
    sizes.emplace_back(StockSize::Id::custom);
}

void Capabilities::getSupportedResolutions(Feature parent, std::vector<Resolution>& resolutions) const {
    const CapabilityId id(Feature::printerResolution, CapabilityType::valueList);
    if (isUnspecifiedAllowed(Feature::printerResolution, parent)) resolutions.emplace_back();
    for (std::size_t i = 0, count = capabilities_.getValueCount(id); i < count; ++i)
        if (Resolution resolution; capabilities_.getResolution(id, resolution, i)) resolutions.push_back(resolution);
}
