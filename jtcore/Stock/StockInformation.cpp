#include "jtcore/Stock/StockInformation.h"

#include "jtcore/Attributes/IppList.h"
#include "jtcore/Capabilities/Capabilities.h"
#include "jtcore/Services/KolmaException.h"
#include "jtcore/Services/formatMessage.h"

#include <algorithm>
#include <array>

namespace {

// In the order in which stocks are offered and preferred.
constexpr std::array types = {StockType::user, StockType::printer, StockType::job};

auto rankOf(const Stock& stock) { return std::find(types.begin(), types.end(), stock.getType()) - types.begin(); }

// Calls use(level, feature, stock) for every level that uses a stock.
template <typename Use>
void walkSettings(AttrNodeList& level, const Capabilities& capabilities, Feature feature, const Use& use) {
    if (const auto stock = Stock::fromSettings(FeatureSettings::view(&level), StockType::job))
        use(level, feature, *stock);
    for (AttrNode& node : level)
        if (IppList* inner = node.getAttrValue().asList()) {
            const std::u16string_view id = node.getAttrID().getName();
            walkSettings(inner->getList(), capabilities,
                         capabilities.isNestedFeature(id) ? FeatureId(id).getNumber() : feature, use);
        }
}

// Makes rows of the values that the printer's own stocks may have, before any stock is read.
void registerPrinterValues(const Capabilities& capabilities) {
    for (const Feature feature : {Feature::media, Feature::mediaKey, Feature::mediaDescription}) {
        std::vector<FeatureValue> values;
        capabilities.getFeatureCapabilities(feature, noParentFeature, values);
    }
}

} // namespace

StockInformation::StockInformation(const Capabilities& capabilities) : capabilities_(capabilities) {
    registerPrinterValues(capabilities);
    stocks_ = preferences_.getUserStocks();
    const std::unique_ptr<StockList> printerStocks = capabilities.getPrinterStocks();
    preferences_.markPrinterFavorites(*printerStocks);
    stocks_.append(*printerStocks);
    for (Stock& stock : stocks_) {
        stock.assignNewLogicalId();
        nameStock(stock);
    }
}

void StockInformation::setSettings(FeatureSettings* settings) {
    settings_ = settings;
    refresh();
}

void StockInformation::rebuildUsage() {
    usage_.clear();
    if (!settings_) return;
    const auto use = [this](AttrNodeList& level, Feature feature, Stock& found) {
        Stock* best = findBestMatch(found);
        if (!best) best = &addStock(found);
        best->applyTo(&level);
        recordUse(*best, feature);
    };
    walkSettings(settings_->getAttrNodeList(), capabilities_, noParentFeature, use);
}

void StockInformation::refresh() {
    rebuildUsage();
    StockList::Position position = 0;
    while (stocks_.hasMoreStocks(position)) {
        Stock& stock = stocks_.getNextStock(position);
        if (stock.getType() == StockType::job && !findUsage(&stock)) position = dropStock(stock);
    }
}

std::size_t StockInformation::getUseCount(const Stock* stock) {
    const Usage* usage = findUsage(resolve(stock));
    return usage ? usage->count : 0;
}

bool StockInformation::isUsedInNestedFeature(const Stock* stock) {
    const Usage* usage = findUsage(resolve(stock));
    return usage && usage->features.back() != noParentFeature;
}

bool StockInformation::isNameUsed(FeatureValue name) const {
    return std::any_of(stocks_.begin(), stocks_.end(), [name](const Stock& stock) { return stock.getName() == name; });
}

bool StockInformation::isNameUsed(FeatureValue name, StockType type) const {
    return std::any_of(stocks_.begin(), stocks_.end(),
                       [=](const Stock& stock) { return stock.getType() == type && stock.getName() == name; });
}

FeatureValue StockInformation::generateName() {
    const auto isFree = [this](FeatureValue name) {
        return std::find(generatedNames_.begin(), generatedNames_.end(), name) == generatedNames_.end() &&
               !isNameUsed(name);
    };
    for (std::uint32_t number = 1;; ++number) {
        const FeatureValue name = FeatureValue::fromString(Feature::media, formatMessage(u"%u", number));
        if (!isFree(name)) continue;
        generatedNames_.push_back(name);
        return name;
    }
}

void StockInformation::releaseName(FeatureValue name) { std::erase(generatedNames_, name); }

Stock& StockInformation::addStock(const Stock& stock) {
    Stock& added = stocks_.addStock(stock);
    added.assignNewLogicalId();
    nameStock(added);
    return added;
}

Stock& StockInformation::updateStock(Stock* stock) {
    Stock& element = *resolve(stock);
    if (&element != stock) {
        const std::uint32_t logicalId = element.getLogicalId();
        element = *stock;
        if (element.getLogicalId() == 0) element.setLogicalId(logicalId);
    }
    if (findUsage(&element)) applyWhereUsed(element.getLogicalId(), element);
    return element;
}

void StockInformation::removeStock(Stock* stock) {
    Stock* element = resolve(stock);
    if (!stocks_.contains(element)) return;
    if (element->getType() == StockType::user && findUsage(element))
        element->setType(StockType::job);
    else
        dropStock(*element);
}

void StockInformation::replaceStock(Stock* oldStock, Stock* newStock) {
    Stock& before = *resolve(oldStock);
    const Stock& after = *resolve(newStock);
    if (!findUsage(&before) || &before == &after) return;
    dropUsage(before);
    applyWhereUsed(before.getLogicalId(), after, true);
}

void StockInformation::setFavorite(Stock* stock, bool isFavorite) { resolve(stock)->setFavorite(isFavorite); }

Stock* StockInformation::findStockForSettings(const FeatureSettings& settings) {
    const auto stock = Stock::fromSettings(settings, StockType::job);
    return stock ? findBestMatch(*stock) : nullptr;
}

Stock* StockInformation::findBestMatch(const Stock& stock) {
    Stock* best = nullptr;
    StockMatch bestMatch = StockMatch::none;
    for (Stock& element : stocks_) {
        const StockMatch match = element.matches(stock);
        if (match == StockMatch::sameId) return &element;
        if (match < bestMatch || match == StockMatch::none) continue;
        if (match == bestMatch && rankOf(element) >= rankOf(*best)) continue;
        best = &element;
        bestMatch = match;
    }
    return best;
}

void StockInformation::rewindByType() {
    type_ = 0;
    stocks_.rewind();
    findNextByType();
}

Stock& StockInformation::getNextStockByType() {
    if (!nextByType_)
        raise<NodeAccessOutOfBoundsException>(u"StockInformation::getNextStockByType(): No more Stocks to get. Caller "
                                              u"failed to test with hasMoreStocksByType() first!\r\n");
    Stock& stock = *nextByType_;
    findNextByType();
    return stock;
}

void StockInformation::findNextByType() {
    nextByType_ = nullptr;
    for (; type_ < types.size(); ++type_, stocks_.rewind())
        while (stocks_.hasMoreStocks())
            if (Stock& stock = stocks_.getNextStock(); stock.getType() == types[type_]) {
                nextByType_ = &stock;
                return;
            }
}

Stock* StockInformation::resolve(const Stock* stock) {
    if (!stocks_.contains(stock))
        if (Stock* best = findBestMatch(*stock)) return best;
    return const_cast<Stock*>(stock);
}

const StockInformation::Usage* StockInformation::findUsage(const Stock* stock) const {
    const auto found =
        std::find_if(usage_.begin(), usage_.end(), [stock](const Usage& usage) { return usage.stock == stock; });
    return found == usage_.end() ? nullptr : &*found;
}

void StockInformation::recordUse(const Stock& stock, Feature feature) {
    auto usage = std::find_if(usage_.begin(), usage_.end(), [&](const Usage& entry) { return entry.stock == &stock; });
    if (usage == usage_.end()) usage = usage_.insert(usage, {&stock, 0, {}});
    ++usage->count;
    const auto place = std::lower_bound(usage->features.begin(), usage->features.end(), feature);
    if (place == usage->features.end() || *place != feature) usage->features.insert(place, feature);
}

void StockInformation::dropUsage(const Stock& stock) {
    std::erase_if(usage_, [&](const Usage& usage) { return usage.stock == &stock; });
}

void StockInformation::nameStock(Stock& stock) {
    if (!stock.isNamed()) stock.setName(generateName());
}

StockList::Position StockInformation::dropStock(Stock& stock) {
    if (nextByType_ == &stock) findNextByType();
    dropUsage(stock);
    releaseName(stock.getName());
    return stocks_.removeStock(&stock);
}

void StockInformation::applyWhereUsed(std::uint32_t logicalId, const Stock& replacement, bool isNewUse) {
    const auto use = [&](AttrNodeList& level, Feature feature, const Stock& found) {
        if (found.getLogicalId() != logicalId) return;
        replacement.applyTo(&level);
        if (isNewUse) recordUse(replacement, feature);
    };
    walkSettings(settings_->getAttrNodeList(), capabilities_, noParentFeature, use);
}
