// How a stock is recognised in another.
#include "jtcore/Stock/Stock.h"

#include "jtcore/FeatureSettings/NestedAttrID.h"
#include "jtcore/Stock/mediaMembers.h"

#include <algorithm>
#include <array>

namespace {

// What differs most often comes first.
constexpr std::array describingFeatures = {
    Feature::xDimension,       Feature::yDimension,        Feature::mediaType,         Feature::mediaColor,
    Feature::mediaDescription, Feature::mediaWeightMetric, Feature::mediaHoleCount,    Feature::mediaPrePrinted,
    Feature::mediaRecycled,    Feature::mediaOrderCount,   Feature::mediaFrontCoating, Feature::mediaBackCoating,
    Feature::mediaTooth,       Feature::mediaGrain,
};

} // namespace

bool Stock::hasSameMedia(const Stock& other) const {
    return std::all_of(describingFeatures.begin(), describingFeatures.end(),
                       [&](Feature feature) { return settings_.equalFeature(FeatureId(feature), other.settings_); });
}

StockMatch Stock::matches(const Stock& other) const {
    if (logicalId_ != 0 && other.logicalId_ != 0)
        return logicalId_ == other.logicalId_ ? StockMatch::sameId : StockMatch::none;
    if (nameKind_ != other.nameKind_) return StockMatch::none;
    if (nameKind_ == StockNameKind::media) return name_ == other.name_ ? StockMatch::sameName : StockMatch::none;
    const bool areNamed = isNamed() && other.isNamed();
    if (areNamed && name_ != other.name_) return StockMatch::none;
    if (!hasSameMedia(other)) return StockMatch::none;
    return areNamed ? StockMatch::sameName : StockMatch::sameMedia;
}

StockDifference Stock::compare(const Stock& other) const {
    if (nameKind_ != other.nameKind_) return StockDifference::nameKind;
    if (!hasSameMedia(other)) return StockDifference::media;
    if (name_ != other.name_) return StockDifference::name;
    if (type_ != other.type_) return StockDifference::type;
    if (logicalId_ != other.logicalId_) return StockDifference::logicalId;
    return StockDifference::none;
}

bool Stock::isStockFeature(const FeatureId& feature) {
    if (feature.getNumber() == Feature::media || feature.getNumber() == Feature::mediaCol) return true;
    return feature.getNestedId().hasPathEntry(idOf(Feature::mediaCol));
}
