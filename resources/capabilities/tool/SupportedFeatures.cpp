#include "resources/capabilities/tool/SupportedFeatures.h"

#include "jtcore/FeatureSettings/FeatureId.h"

#include <algorithm>
#include <array>

namespace {

// Every job has them; no capability says so.
constexpr auto alwaysSupported = std::to_array<Feature>({Feature::jobName, Feature::requestingUserName});

constexpr auto toldByEntry = std::to_array<Feature>({
    Feature::coverType,
    Feature::inputDocuments,
    Feature::pages,
    Feature::insertAfterPageNumber,
    Feature::insertCount,
});

// Supported when one of their members is.
constexpr auto collections = std::to_array<Feature>({
    Feature::jobSaveDisposition,
    Feature::saveInfo,
    Feature::trc,
    Feature::separatorSheets,
    Feature::finishingsCol,
    Feature::mediaCol,
});

constexpr bool isAmong(const auto& features, Feature feature) {
    return std::ranges::find(features, feature) != features.end();
}

} // namespace

bool SupportedFeatures::has(Feature feature) const {
    if (isAmong(alwaysSupported, feature)) return true;
    if (isAmong(collections, feature)) return !members(feature).empty();
    if (feature == Feature::mediaKey) return hasStocks_;
    if (feature == Feature::mediaSize) return isStated(Feature::xDimension);
    return isStated(feature);
}

bool SupportedFeatures::has(std::u16string_view name) const {
    const FeatureInfo* info = FeatureDataBase::find(name);
    return info && has(info->number);
}

std::vector<Feature> SupportedFeatures::members(Feature collection) const {
    std::vector<Feature> members;
    for (const FeatureInfo& row : FeatureDataBase::rows()) {
        if (!isToldByEntry(row.number) && collectionOf(row.number) == collection && has(row.number))
            members.push_back(row.number);
    }
    return members;
}

bool SupportedFeatures::isToldByEntry(Feature feature) noexcept { return isAmong(toldByEntry, feature); }

bool SupportedFeatures::isStated(Feature feature) const {
    return std::ranges::any_of(composition_->statements(),
                               [&](const auto& item) { return item.second.schema->feature == feature; });
}

Feature collectionOf(Feature feature) {
    Feature collection = Feature::any;
    FeatureId(feature).getParentFeature(collection);
    return collection;
}
