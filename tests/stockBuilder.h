// Stocks and libraries for tests.
#pragma once

#include "jtcore/Stock/StockList.h"
#include "tests/TemporaryFolder.h"
#include "tests/listBuilder.h"

#include <stdexcept>
#include <string>

// The members of a media-col: a sheet of that colour, A4 unless told otherwise.
inline ListBuilder sheet(std::u16string_view color, std::int32_t x = 21000, std::int32_t y = 29700) {
    return list()
        .keyword(u"media-color", color)
        .collection(u"media-size", list().integer(u"x-dimension", x).integer(u"y-dimension", y));
}
inline ListBuilder namedSheet(std::u16string_view name, std::u16string_view color = u"white") {
    return sheet(color).name(u"media-key", name);
}

// The stock that a level of settings uses.
inline Stock stockOf(const AttrNodeList& level, StockType type = StockType::user, std::uint32_t logicalId = 0) {
    const auto stock = Stock::fromSettings(FeatureSettings(level), type);
    if (!stock) throw std::runtime_error("no stock");
    stock->setLogicalId(logicalId);
    return *stock;
}
// The stock that a media-col of these members describes.
inline Stock described(const ListBuilder& members, StockType type = StockType::user, std::uint32_t logicalId = 0) {
    return stockOf(list().collection(u"media-col", members), type, logicalId);
}

inline FeatureValue nameValue(std::u16string_view text) { return FeatureValue::fromString(Feature::media, text); }

// "user a white 21000x29700 favorite", as far as the stock tells.
inline std::string show(const Stock& stock) {
    constexpr const char* types[] = {"job", "user", "printer"};
    const FeatureSettings& settings = stock.getSettings();
    std::string text = types[static_cast<int>(stock.getType()) - 1];
    text += ' ' + (stock.isNamed() ? toUtf8(stock.getName().getValueText()) : "(unnamed)");
    const FeatureValue color = settings.getFeatureValue(FeatureId(Feature::mediaColor));
    if (color.isSet()) text += ' ' + toUtf8(color.getValueText());
    const StockSize size = settings.getStockSize();
    if (!size.isNoSize()) text += ' ' + std::to_string(size.getX()) + 'x' + std::to_string(size.getY());
    return stock.isFavorite() ? text + " favorite" : text;
}

inline std::vector<std::string> show(const StockList& stocks) {
    std::vector<std::string> lines;
    for (const Stock& stock : stocks)
        lines.push_back(show(stock));
    return lines;
}

// The profile of a user of the test's own.
class UserProfile {
public:
    static constexpr const char* current = "stkpr35.spf";
    static constexpr const char* older = "stkpref.spf";

    const TemporaryFolder& folder() const { return folder_; }
    std::string library() const { return folder_.content(current); }
    void writeLibrary(const std::string& content) const { folder_.write(current, content); }

private:
    TemporaryFolder folder_;
    EnvironmentVariable home_{"HOME", folder_.path().c_str()};
};
