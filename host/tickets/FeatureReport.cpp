#include "host/tickets/FeatureReport.h"

#include "jtcore/FeatureSettings/NestedAttrID.h"
#include "jtcore/Services/KolmaException.h"

#include <algorithm>

namespace {

std::u16string wordsOr(const std::u16string& words, std::u16string_view text) {
    return words.empty() ? std::u16string(text) : words;
}

// Nothing where the question has no answer: no such capability, or one in another shape.
template <typename Question>
auto answerOf(const Question& question) -> std::optional<decltype(question())> {
    try {
        return question();
    } catch (const KolmaException&) {
        return std::nullopt;
    }
}

std::vector<FeatureReport::Choice> choicesOf(const Capabilities& capabilities, const FeatureId& feature,
                                             const FeatureLabels& labels) {
    std::vector<FeatureValue> values;
    capabilities.getFeatureCapabilities(feature, noParentFeature, values);
    std::vector<FeatureReport::Choice> choices;
    for (const FeatureValue& value : values) {
        if (!value.isSet()) continue;
        const std::u16string_view text = value.getValueText();
        choices.push_back({std::u16string(text), wordsOr(labels.ofValue(feature.getUniqueId(), text), text)});
    }
    return choices;
}

std::vector<Resolution> resolutionsOf(const Capabilities& capabilities) {
    std::vector<Resolution> resolutions;
    capabilities.getSupportedResolutions(noParentFeature, resolutions);
    std::erase_if(resolutions, [](const Resolution& resolution) { return resolution.isEmpty(); });
    return resolutions;
}

std::vector<std::u16string> namedSizesOf(const Capabilities& capabilities) {
    std::vector<StockSize> sizes;
    answerOf([&] { return capabilities.getSupportedStockSizes(noParentFeature, sizes), true; });
    std::vector<std::u16string> names;
    for (const StockSize& size : sizes)
        if (!size.isNoSize() && !size.isCustom())
            if (auto name = answerOf([&] { return size.getName(); })) names.push_back(std::move(*name));
    return names;
}

std::vector<FeatureReport::Choice> membersOf(const Capabilities& capabilities, Feature feature,
                                             const FeatureLabels& labels) {
    std::vector<FeatureReport::Choice> members;
    if (const AttrNodeList* list = capabilities.getCapabilityList({feature, CapabilityType::memberList}))
        for (const AttrNode& node : *list)
            if (const std::u16string* id = listedKeyword(node))
                members.push_back({*id, wordsOr(labels.ofFeature(*id), *id)});
    return members;
}

using Range = std::pair<std::int32_t, std::int32_t>;

Range rangeOf(const Capabilities& capabilities, const FeatureId& feature) {
    Range range;
    capabilities.getFeatureCapabilities(feature, range.first, range.second);
    return range;
}

bool isNamedByACollection(const Capabilities& capabilities, const FeatureId& feature) {
    return std::ranges::any_of(CapabilityDataBase::rows(), [&](const CapabilityInfo& row) {
        return row.type == CapabilityType::memberList && row.feature != Feature::any &&
               capabilities.isFeatureSupported(row.feature) &&
               capabilities.hasKeyword(capabilities.getCapabilityList({row.feature, row.type}), feature.getUniqueId());
    });
}

void askAsTheDriverDoes(const Capabilities& capabilities, const CapabilityInfo& row) {
    switch (row.type) {
    case CapabilityType::intRange:
        rangeOf(capabilities, row.feature);
        break;
    case CapabilityType::intUpperLimit:
        capabilities.getUpperLimit(row.feature);
        break;
    case CapabilityType::precision:
        capabilities.getPrecision(row.feature);
        break;
    case CapabilityType::charRestriction:
        capabilities.getCharacterSetRestriction(row.feature);
        break;
    default:
        break;
    }
}

} // namespace

bool isOffered(const Capabilities& capabilities, const FeatureId& feature) {
    return capabilities.isFeatureSupported(feature) || isNamedByACollection(capabilities, feature);
}

FeatureReport reportFeature(const Capabilities& capabilities, const FeatureId& feature, const FeatureLabels& labels) {
    FeatureReport report;
    report.id = feature.getUniqueId();
    report.words = wordsOr(labels.ofFeature(report.id), report.id);
    if (feature.getNumber() == Feature::printerResolution)
        report.resolutions = resolutionsOf(capabilities);
    else
        report.choices = choicesOf(capabilities, feature, labels);
    if (feature.getNumber() == Feature::mediaSize) {
        report.sizes = namedSizesOf(capabilities);
        report.customSizes = answerOf([&] { return capabilities.getStockSizeRange(); });
    }
    report.members = membersOf(capabilities, feature.getNumber(), labels);
    report.range = answerOf([&] { return rangeOf(capabilities, feature); });
    report.characterLimit = answerOf([&] { return capabilities.getUpperLimit(feature); });
    report.precision = answerOf([&] { return capabilities.getPrecision(feature); });
    report.characterSet = answerOf([&] { return capabilities.getCharacterSetRestriction(feature); });
    report.isText = feature.hasSyntax(AVTE::name) || feature.hasSyntax(AVTE::text);
    report.takesOwnValues = capabilities.isUserDefinedAllowed(feature);
    report.refusesBlanks = !capabilities.allowsEmbeddedSpaces(feature);
    report.mayBeUnset = capabilities.isUnspecifiedAllowed(feature);
    return report;
}

std::vector<std::u16string> findMissingCapabilities(const Capabilities& capabilities) {
    std::vector<std::u16string> missing;
    for (const CapabilityInfo& row : CapabilityDataBase::rows()) {
        if (row.feature == Feature::any || !isOffered(capabilities, row.feature)) continue;
        try {
            askAsTheDriverDoes(capabilities, row);
        } catch (const MissingCapabilityDataException&) {
            missing.push_back(row.nestedId().getOutermostId());
        }
    }
    return missing;
}
