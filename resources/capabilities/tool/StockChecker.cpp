#include "resources/capabilities/tool/StockChecker.h"

#include "resources/capabilities/tool/CapabilityChecker.h"

#include "jtcore/Attributes/IppList.h"
#include "jtcore/FeatureSettings/FeatureId.h"
#include "jtcore/Services/text.h"

#include <set>

namespace {

constexpr std::size_t fewestStocks = 12;
constexpr std::size_t mostStocks = 30;

// What tells one paper from another to somebody who loads a tray. In the older form, and where nothing may be left
// open, a stock that lacks one cannot be used for a cover.
constexpr Feature toldOfEveryStock[] = {Feature::mediaSize, Feature::mediaColor, Feature::mediaType,
                                        Feature::mediaHoleCount, Feature::mediaWeightMetric};

PaperSize sizeOf(const AttrValue& value) {
    PaperSize size;
    value.asList()->getList().JtifAttrToLong(size.x, u"x-dimension");
    value.asList()->getList().JtifAttrToLong(size.y, u"y-dimension");
    return size;
}

std::u16string textOf(const ListedStock& stock, std::u16string_view id) {
    std::u16string text;
    stock.members.JtifAttrToString(text, id);
    return text;
}

} // namespace

void StockChecker::check() {
    if (data_.stocks.size() < fewestStocks || data_.stocks.size() > mostStocks)
        fault("stocks", "lists " + std::to_string(data_.stocks.size()) + " stocks; a printer lists " +
                            std::to_string(fewestStocks) + " to " + std::to_string(mostStocks));
    checkNames();
    for (const ListedStock& stock : data_.stocks)
        checkStock(stock);
}

void StockChecker::checkStock(const ListedStock& stock) {
    for (const AttrNode& member : stock.members)
        checkMember(stock, member);
    checkTold(stock);
    checkColor(stock);
}

void StockChecker::checkMember(const ListedStock& stock, const AttrNode& member) {
    const Feature feature = FeatureId(member.getAttrID().getName()).getNumber();
    if (feature == Feature::mediaKey) return;
    const bool isSize = feature == Feature::mediaSize;
    const Statement* statement = findValues(data_.composition, isSize ? Feature::xDimension : feature);
    const AttrValue& value = member.getAttrValue();
    if (statement && (isSize ? allowsSize(*statement, sizeOf(value)) : allows(*statement, value))) return;
    const std::string text = isSize ? describe(sizeOf(value)) : toUtf8(value.getIppValue());
    fault(stock.name, toUtf8(FeatureDataBase::describe(feature)) + " " + text + " is none that the printer takes");
}

void StockChecker::checkTold(const ListedStock& stock) {
    for (const Feature feature : toldOfEveryStock) {
        const auto name = FeatureDataBase::describe(feature);
        if (data_.supported.has(feature) && !stock.members.getNode(name))
            fault(stock.name, "says nothing of " + toUtf8(name));
    }
}

// The property dialog refuses any other stock without a color.
void StockChecker::checkColor(const ListedStock& stock) {
    if (textOf(stock, u"media-color") == u"no-color" && textOf(stock, u"media-type") != u"transparency")
        fault(stock.name, "only a transparency has no color");
}

void StockChecker::checkNames() {
    std::set<std::u16string> names;
    for (const ListedStock& stock : data_.stocks) {
        const std::u16string name = textOf(stock, u"media-key");
        if (!names.insert(name).second) fault(stock.name, "another stock is called \"" + toUtf8(name) + "\" too");
    }
}

void StockChecker::fault(const std::string& key, const std::string& text) {
    faults_->add({data_.family.file, key}, text + (data_.form == TicketForm::rendo2x ? " (older form)" : ""));
}
