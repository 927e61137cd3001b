#include "jtcore/Stock/StockPreferences.h"

#include "jtcore/AnlXlate/SpfTranslator.h"
#include "jtcore/Attributes/AttrValueFactory.h"
#include "jtcore/Attributes/IppList.h"
#include "jtcore/Services/JtifParseException.h"
#include "jtcore/Services/User.h"
#include "jtcore/Stock/mediaMembers.h"
#include "platform/files.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace {

constexpr std::u16string_view userStocks = u"media-user-defined";
constexpr std::u16string_view userFavorites = u"media-favorites-user-defined";
constexpr std::u16string_view printerFavorites = u"media-favorites-printer";

std::u16string inProfile(std::u16string_view name) {
    return User::getProfileDirectoryPath().append(u"\\").append(name);
}

std::u16string currentPath() { return inProfile(u"stkpr35.spf"); }

// Surely not there. A file that is only closed to us must not count as missing: the next save would replace it.
bool isMissing(const std::u16string& path) {
    if (GetFileAttributesW(toWide(path)) != INVALID_FILE_ATTRIBUTES) return false;
    const DWORD error = GetLastError();
    return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND;
}

// Refuses what a save would lose: values in a place where only lists are kept, and stocks that cannot be understood.
void validateContent(const AttrNodeList& content) {
    for (const std::u16string_view attribute : {userStocks, userFavorites, printerFavorites}) {
        const AttrNodeList* values = nullptr;
        if (!content.JtifAttrToList(values, attribute)) continue;
        for (const AttrNode& node : *values) {
            const IppList* members = node.getAttrValue().asList();
            if (members)
                refuseUnreadable(members->getList());
            else if (attribute == userStocks)
                raise<AttributeTypeMismatchException>(u"validateContent(): '%s' holds a value of "
                                                      u"syntax '%s' where a stock should stand.\r\n",
                                                      attribute, node.getAttrValue().getSyntaxName());
        }
    }
}

std::unique_ptr<AttrNodeList> readContent(const std::u16string& path) {
    auto content = std::make_unique<AttrNodeList>();
    SpfTranslator().fileToAnl(path, *content);
    try {
        validateContent(*content);
    } catch (const KolmaException& failure) {
        raiseJtifParse(JtifParseCode::ERROR_REPORTED_DURING_PARSE,
                       u"StockPreferences::StockPreferences(): %s is no usable library. %s", path,
                       failure.getMessage());
    }
    return content;
}

Stock makeCommonStock(StockSize::Id size) {
    FeatureSettings settings;
    settings.setFeatureValue(FeatureId(Feature::mediaColor), Value::white);
    settings.setFeatureValue(FeatureId(Feature::mediaType), Value::mediaTypeStationery);
    settings.setFeatureValue(FeatureId(Feature::mediaHoleCount), Value::mediaHoleCount0);
    settings.setStockSize(StockSize(size));
    Stock stock(0, {}, StockType::user, StockNameKind::key, settings);
    stock.setFavorite(true);
    return stock;
}

StockList makeFirstLibrary() {
    using enum StockSize::Id;
    StockList stocks;
    for (const StockSize::Id size : {letter, legal, ledger, letterCover, folio, a4Wide, a4, a3, isoB4, jisB4})
        stocks.addStock(makeCommonStock(size));
    return stocks;
}

// A favourite of the older file is told as a whole stock. One without a name is known by what it describes.
bool isFavorite(const Stock& stock, const Stock& favorite) {
    return favorite.isNamed() ? stock.getName() == favorite.getName() : stock.matches(favorite) != StockMatch::none;
}

bool isFavorite(const Stock& stock, std::u16string_view name) {
    return stock.isNamed() && stock.getName().getValueText() == name;
}

template <typename Favorite>
bool markFirst(StockList& stocks, const Favorite& favorite) {
    for (Stock& stock : stocks)
        if (isFavorite(stock, favorite)) {
            stock.setFavorite(true);
            return true;
        }
    return false;
}

// The stock that a favourite of the older file tells of, or null.
std::unique_ptr<Stock> readOlderFavorite(const AttrNodeList& members) {
    FeatureSettings settings;
    settings.getAttrNodeList().setNode(idOf(Feature::mediaCol), IppList(members, syntaxCollection));
    return Stock::fromSettings(settings, StockType::job);
}

void addName(AttrNodeList& names, std::u16string_view syntaxName, std::u16string_view text) {
    names.addNode(u"value", AttrValueFactory::createAttrValue(syntaxName, text));
}

void addName(AttrNodeList& names, FeatureValue name) {
    if (name.isSet()) addName(names, name.getSyntaxName(), name.getValueText());
}

} // namespace

std::u16string StockPreferences::findFile() {
    for (std::u16string path : {currentPath(), inProfile(u"stkpref.spf")})
        if (!isMissing(path)) return path;
    return {};
}

StockPreferences::StockPreferences() : filePath_(findFile()) {
    if (!filePath_.empty()) content_ = readContent(filePath_);
}

StockList StockPreferences::getUserStocks() const {
    if (!content_) return makeFirstLibrary();
    const AttrNodeList* values = nullptr;
    if (!content_->JtifAttrToList(values, userStocks)) return {};
    StockList stocks = StockList::fromAttributes(*values, StockType::user);
    markFavorites(userFavorites, stocks);
    return stocks;
}

void StockPreferences::markPrinterFavorites(StockList& printerStocks) {
    pendingPrinterFavorites_.clear();
    if (content_) pendingPrinterFavorites_ = markFavorites(printerFavorites, printerStocks);
}

std::vector<StockPreferences::Favorite> StockPreferences::markFavorites(std::u16string_view attribute,
                                                                        StockList& stocks) const {
    std::vector<Favorite> missing;
    const AttrNodeList* values = nullptr;
    if (!content_->JtifAttrToList(values, attribute)) return missing;
    for (const AttrNode& node : *values) {
        const AttrValue& value = node.getAttrValue();
        if (const IppList* members = value.asList()) {
            const auto favorite = readOlderFavorite(members->getList());
            if (favorite && !markFirst(stocks, *favorite) && favorite->isNamed())
                missing.push_back({std::u16string(favorite->getName().getValueText()),
                                   std::u16string(favorite->getName().getSyntaxName())});
        } else if (std::u16string text = value.getIppValue(); !text.empty() && !markFirst(stocks, text)) {
            missing.push_back({std::move(text), std::u16string(value.getSyntaxName())});
        }
    }
    return missing;
}

AttrNodeList StockPreferences::makeContent(const StockList& stocks) const {
    AttrNodeList content;
    AttrNodeList& library = content.add1setOf(userStocks);
    AttrNodeList& ofUser = content.add1setOf(userFavorites);
    AttrNodeList& ofPrinter = content.add1setOf(printerFavorites);
    for (const Stock& stock : stocks) {
        if (stock.getType() == StockType::user) stock.writeToMediaDatabase(library.addCollection(u"value"));
        if (!stock.isFavorite() || stock.getType() == StockType::job) continue;
        addName(stock.getType() == StockType::user ? ofUser : ofPrinter, stock.getName());
    }
    for (const Favorite& favorite : pendingPrinterFavorites_)
        addName(ofPrinter, favorite.syntaxName, favorite.text);
    return content;
}

void StockPreferences::write(const StockList& stocks) {
    std::u16string path = currentPath();
    content_ = std::make_unique<AttrNodeList>(makeContent(stocks));
    SpfTranslator().anlToFile(*content_, path);
    filePath_ = std::move(path);
}
