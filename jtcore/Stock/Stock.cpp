#include "jtcore/Stock/Stock.h"

#include "jtcore/Attributes/IppList.h"
#include "jtcore/Attributes/PrimitiveInteger.h"
#include "jtcore/Services/KolmaException.h"
#include "jtcore/Services/ResourceLibrary.h"
#include "jtcore/Stock/mediaMembers.h"
#include "resources/ids.h"

#include <atomic>

namespace {

constinit std::atomic<std::uint32_t> lastLogicalId = 0;

void writeLogicalId(FeatureSettings& level, std::uint32_t logicalId) {
    AttrNodeList& list = level.getAttrNodeList();
    if (logicalId != 0)
        list.setNode(Stock::logicalIdAttribute, IppInteger(static_cast<std::int32_t>(logicalId))).setPrivate(true);
    else
        list.deleteNode(Stock::logicalIdAttribute);
}

} // namespace

Stock::Stock(std::uint32_t logicalId, FeatureValue name, StockType type, StockNameKind nameKind,
             const FeatureSettings& settings)
    : logicalId_(logicalId), name_(name), type_(type), nameKind_(nameKind), settings_(settings.getAttrNodeList()) {}

std::unique_ptr<Stock> Stock::fromSettings(const FeatureSettings& settings, StockType type) {
    const AttrNodeList& list = settings.getAttrNodeList();
    if (!list.getNode(idOf(Feature::media)) && !list.getNode(idOf(Feature::mediaCol))) return nullptr;
    FeatureSettings work;
    copyMedia(settings, work);
    AttrNodeList& level = work.getAttrNodeList();
    FeatureValue name = readStockName(level, Feature::media);
    if (AttrNodeList* members = findMediaMembers(level)) {
        work.setFeatureValue(FeatureId(Feature::media), {});
        dropUnreadable(*members);
        name = readStockName(*members, Feature::mediaKey);
        // One that is no name must not be taken for the stock's either.
        while (members->getNode(idOf(Feature::mediaKey)))
            members->deleteNode(idOf(Feature::mediaKey));
        if (!members->isEmpty())
            return std::make_unique<Stock>(getLogicalIdOf(work), name, type, StockNameKind::key, work);
        level.deleteNode(idOf(Feature::mediaCol));
        work.setFeatureValue(FeatureId(Feature::media), name);
    }
    if (!name.isSet()) return nullptr;
    return std::make_unique<Stock>(getLogicalIdOf(work), name, type, StockNameKind::media, work);
}

void Stock::setName(FeatureValue name) {
    if (nameKind_ == StockNameKind::media) settings_.setFeatureValue(FeatureId(Feature::media), name);
    name_ = name;
}

void Stock::setNameKind(StockNameKind kind) {
    if (kind == nameKind_) return;
    if (kind == StockNameKind::media) {
        settings_.setFeatureValue(FeatureId(Feature::mediaCol), {});
        settings_.setFeatureValue(FeatureId(Feature::media), name_);
    } else {
        settings_.setFeatureValue(FeatureId(Feature::media), {});
    }
    nameKind_ = kind;
}

void Stock::setLogicalId(std::uint32_t logicalId) {
    writeLogicalId(settings_, logicalId);
    logicalId_ = logicalId;
}

void Stock::assignNewLogicalId() { setLogicalId(++lastLogicalId); }

std::u16string Stock::getDisplayString() const {
    std::u16string name = name_.getDisplayString();
    switch (type_) {
    case StockType::job:
        return name;
    case StockType::user:
        return name + ResourceLibrary().getString(IDS_STOCK_SUFFIX_USER);
    case StockType::printer:
        return name + ResourceLibrary().getString(IDS_STOCK_SUFFIX_PRINTER);
    }
    raise<UnknownCaseException>(u"Stock::getDisplayString(): Unexpected stock type enumeration value of (%u)!\r\n",
                                type_);
}

void Stock::applyTo(FeatureSettings& level) const {
    clearFrom(level);
    copyMedia(settings_, level);
}

void Stock::applyTo(AttrNodeList* level) const {
    FeatureSettings view = FeatureSettings::view(level);
    applyTo(view);
}

void Stock::clearFrom(FeatureSettings& level) {
    level.setFeatureValue(FeatureId(Feature::media), {});
    level.setFeatureValue(FeatureId(Feature::mediaCol), {});
    writeLogicalId(level, 0);
}

void Stock::copyMedia(const FeatureSettings& source, FeatureSettings& target) {
    const AttrNodeList& list = source.getAttrNodeList();
    target.setFeatureValue(FeatureId(Feature::media), readStockName(list, Feature::media));
    if (const AttrNodeList* members = findMediaMembers(list); members && !members->isEmpty())
        target.getAttrNodeList().setNode(idOf(Feature::mediaCol),
                                         list.getNode(idOf(Feature::mediaCol))->getAttrValue());
    writeLogicalId(target, getLogicalIdOf(source));
}

std::uint32_t Stock::getLogicalIdOf(const FeatureSettings& settings) {
    const AttrNode* node = settings.getAttrNodeList().getNode(logicalIdAttribute);
    const PrimitiveInteger* id = node && node->isPrivate() ? node->getAttrValue().asPrimitiveInteger() : nullptr;
    return id ? static_cast<std::uint32_t>(id->getValue()) : 0;
}

void Stock::writeToMediaDatabase(AttrNodeList& out) const {
    FeatureSettings described;
    FeatureValue name = name_;
    if (nameKind_ == StockNameKind::key)
        described = settings_;
    else
        name = settings_.getFeatureValue(FeatureId(Feature::media)).translateTo(Feature::mediaKey);
    described.setFeatureValue(FeatureId(Feature::mediaKey), name);
    const AttrNodeList* members = findMediaMembers(described.getAttrNodeList());
    out = members ? *members : AttrNodeList();
}
