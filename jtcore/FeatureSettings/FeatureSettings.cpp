#include "jtcore/FeatureSettings/FeatureSettings.h"

#include "jtcore/FeatureSettings/FeatureId.h"
#include "jtcore/FeatureSettings/NestedAttrID.h"

namespace {

struct ShiftFold {
    Feature old;
    Feature side1;
    Feature side2;
};
constexpr ShiftFold shiftFolds[] = {{Feature::xImageShift, Feature::xSide1ImageShift, Feature::xSide2ImageShift},
                                    {Feature::yImageShift, Feature::ySide1ImageShift, Feature::ySide2ImageShift}};

bool foldImageShift(Settings& level, bool duplex) {
    bool changed = false;
    for (const ShiftFold& fold : shiftFolds) {
        std::int32_t shift = 0;
        if (!level.getLong(FeatureId(fold.old), shift)) continue;
        level.setFeatureValue(FeatureId(fold.old), FeatureValue());
        level.setLong(FeatureId(fold.side1), shift);
        if (duplex) level.setLong(FeatureId(fold.side2), shift);
        changed = true;
    }
    return changed;
}

bool normalizePageOverride(FeatureSettings& entry) {
    const FeatureId inputDocuments(Feature::inputDocuments);
    const FeatureId pages(Feature::pages);
    bool changed = false;
    if (!entry.hasFeature(inputDocuments)) {
        entry.setRange(inputDocuments, 1, 1);
        changed = true;
    }
    AttrNodeList& list = entry.getAttrNodeList();
    const std::u16string& documentsId = inputDocuments.getNestedId().getOutermostId();
    const std::u16string& pagesId = pages.getNestedId().getOutermostId();
    bool inOrder = list.isNodeAt(documentsId, 0) && (list.isNodeAt(pagesId, 1) || !list.getNode(pagesId));
    if (inOrder) return changed;
    list.moveNodeToFront(pagesId);
    list.moveNodeToFront(documentsId);
    return true;
}

} // namespace

StockSize FeatureSettings::getStockSize() const {
    std::int32_t x = 0;
    std::int32_t y = 0;
    if (!getLong(FeatureId(Feature::xDimension), x) || !getLong(FeatureId(Feature::yDimension), y)) return StockSize();
    return StockSize(x, y);
}

void FeatureSettings::setStockSize(const StockSize& size) {
    if (size.isNoSize()) {
        setFeatureValue(FeatureId(Feature::xDimension), FeatureValue());
        setFeatureValue(FeatureId(Feature::yDimension), FeatureValue());
    } else {
        setLong(FeatureId(Feature::xDimension), size.getMin());
        setLong(FeatureId(Feature::yDimension), size.getMax());
    }
}

FeatureSettings FeatureSettings::getCollection(const SettingId& id, std::size_t occurrence) const {
    const AttrNodeList* holder = findHolder(id);
    const AttrNodeList* inner = nullptr;
    if (!holder || !holder->JtifAttrToList(inner, id.getAttrName(), occurrence)) return {};
    return FeatureSettings(*inner);
}

FeatureSettings FeatureSettings::getCollectionView(const SettingId& id, std::size_t occurrence) {
    AttrNodeList* holder = findHolder(id);
    AttrNodeList* inner = nullptr;
    if (!holder || !holder->JtifAttrToList(inner, id.getAttrName(), occurrence)) return {};
    return view(inner);
}

void FeatureSettings::setCollection(const SettingId& id, const Settings& source, std::size_t occurrence) {
    // The source may be a view of the very list that is replaced, or of one that holds it.
    AttrNodeList copy(source.getAttrNodeList());
    makeInnerList(id, id.getSyntaxName(0), occurrence) = std::move(copy);
}

bool FeatureSettings::normalizePageOverrides() {
    const FeatureId pageOverrides(Feature::pageOverrides);
    bool changed = false;
    for (std::size_t i = 0, count = getValueCount(pageOverrides); i < count; ++i) {
        FeatureSettings entry = getCollectionView(pageOverrides, i);
        if (entry.isView()) changed |= normalizePageOverride(entry);
    }
    return changed;
}

bool FeatureSettings::normalizeImageShift() {
    const FeatureId sides(Feature::sides);
    const FeatureId pageOverrides(Feature::pageOverrides);
    const bool duplex = getFeatureValue(sides) != FeatureValue(Value::oneSided);
    bool changed = foldImageShift(*this, duplex);
    for (std::size_t i = 0, count = getValueCount(pageOverrides); i < count; ++i) {
        FeatureSettings entry = getCollectionView(pageOverrides, i);
        if (!entry.isView()) continue;
        FeatureValue own = entry.getFeatureValue(sides);
        changed |= foldImageShift(entry, own.isSet() ? own != FeatureValue(Value::oneSided) : duplex);
    }
    return changed;
}
