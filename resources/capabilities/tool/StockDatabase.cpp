#include "resources/capabilities/tool/StockDatabase.h"

#include "jtcore/Attributes/PrimitiveInteger.h"
#include "jtcore/Attributes/PrimitiveString.h"
#include "jtcore/FeatureSettings/FeatureDataBase.h"
#include "jtcore/Services/text.h"

#include <algorithm>

namespace {

std::vector<std::string> stockNames(const FamilyFile& family, const SharedData& shared, FaultList& faults) {
    std::vector<std::string> names;
    for (const std::string& setName : family.stockSets) {
        if (const auto* set = shared.findStockSet(setName))
            names.insert(names.end(), set->begin(), set->end());
        else
            faults.add({family.file, "stock-sets"}, "\"" + setName + "\" is no set of stocks.json");
    }
    names.insert(names.end(), family.stocks.begin(), family.stocks.end());
    return names;
}

class StockMaker {
public:
    StockMaker(const SharedData& shared, const SupportedFeatures& supported, FaultList& faults)
        : shared_(&shared), supported_(&supported), faults_(&faults) {}

    ListedStock make(const std::string& name, const WrittenStock& written) const {
        checkKeys(name, written);
        ListedStock stock;
        stock.name = name;
        for (const FeatureInfo& row : FeatureDataBase::rows()) {
            const auto member = written.members.find(toUtf8(row.uniqueId()));
            if (member == written.members.end() || collectionOf(row.number) != Feature::mediaCol) continue;
            auto value = readMember(row, *member, {written.file, name});
            if (value && supported_->has(row.number))
                stock.members.addNode(row.uniqueId(), std::move(value));
            else
                stock.isShortened = true;
        }
        return stock;
    }

private:
    void checkKeys(const std::string& name, const WrittenStock& written) const {
        for (const auto& [key, value] : written.members.items()) {
            const FeatureInfo* info = FeatureDataBase::find(fromUtf8(key));
            if (!info || collectionOf(info->number) != Feature::mediaCol)
                faults_->add({written.file, name}, "\"" + key + "\" is no member of a stock");
        }
        if (!written.members.contains("media-key"))
            faults_->add({written.file, name}, "has no media-key, so nobody could name it");
    }

    std::unique_ptr<AttrValue> readMember(const FeatureInfo& row, const Json& json, const Place& place) const {
        switch (row.number) {
        // Names of the maker's own, whatever else the features may hold.
        case Feature::mediaKey:
        case Feature::mediaDescription:
            return readFeatureValue(json, row.number, syntax::name, place, *faults_);
        case Feature::mediaWeightMetric:
        case Feature::mediaOrderCount:
            return readCount(json, place);
        case Feature::mediaSize:
            return readSize(json, place);
        default:
            return readFeatureValue(json, row.number, row.syntaxes, place, *faults_);
        }
    }

    std::unique_ptr<AttrValue> readCount(const Json& json, const Place& place) const {
        constexpr int most = 100000;
        if (json.is_number_integer() && json > 0 && json < most)
            return std::make_unique<IppInteger>(json.get<std::int32_t>());
        faults_->add(place, show(json) + " is no count and no weight");
        return nullptr;
    }

    std::unique_ptr<AttrValue> readSize(const Json& json, const Place& place) const {
        const PaperSize* size = json.is_string() ? shared_->sizes().find(json.get<std::string>()) : nullptr;
        if (size) return makeSize(*size);
        faults_->add(place, show(json) + " is no size of sizes.json");
        return nullptr;
    }

    const SharedData* shared_;
    const SupportedFeatures* supported_;
    FaultList* faults_;
};

// All but the name.
bool hasSameMedia(const ListedStock& one, const ListedStock& other) {
    AttrNodeList first = one.members;
    AttrNodeList second = other.members;
    first.deleteNode(u"media-key");
    second.deleteNode(u"media-key");
    return first.equals(second);
}

} // namespace

std::vector<ListedStock> listStocks(const FamilyFile& family, const SharedData& shared,
                                    const SupportedFeatures& supported, FaultList& faults) {
    const StockMaker maker(shared, supported, faults);
    const Place place{family.file, "stocks"};
    std::vector<ListedStock> stocks;
    for (const std::string& name : stockNames(family, shared, faults)) {
        const WrittenStock* written = shared.findStock(name);
        if (!written) {
            faults.add(place, "\"" + name + "\" is no stock of stocks.json");
            continue;
        }
        ListedStock stock = maker.make(name, *written);
        const auto alike = std::ranges::find_if(stocks, [&](const auto& other) { return hasSameMedia(other, stock); });
        if (alike == stocks.end())
            stocks.push_back(std::move(stock));
        else if (alike->name == name)
            faults.add(place, "\"" + name + "\" is listed twice");
        else if (!stock.isShortened && !alike->isShortened)
            faults.add(place, "\"" + name + "\" and \"" + alike->name + "\" differ in nothing but the name");
    }
    return stocks;
}
