#include "host/tickets/stockRequests.h"

#include "host/ExitCode.h"
#include "host/output.h"
#include "host/tickets/FeatureLabels.h"
#include "host/tickets/attributeJson.h"
#include "host/tickets/textColumns.h"
#include "jtcore/Printer/DriverBasedPrinter.h"
#include "jtcore/Services/JtifParseException.h"
#include "jtcore/Services/text.h"
#include "jtcore/Stock/StockInformation.h"

#include <algorithm>
#include <array>
#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace {

constexpr std::array<const char*, 8> headings = {"Name",  "From", "Favorite", "Size",
                                                 "Color", "Type", "Weight",   "Holes"};
using Row = std::array<std::string, headings.size()>;

// The text of an attribute; empty where the stock does not tell.
std::u16string textOf(const Stock& stock, Feature feature) {
    const auto node = stock.getSettings().getNodeCopy(FeatureId(feature));
    return node ? node->getAttrValue().getIppValue() : std::u16string();
}

// The driver's word for it, or the text where there is none.
std::string describe(const FeatureLabels& labels, Feature feature, const std::u16string& text) {
    const std::u16string label = labels.ofValue(FeatureId(feature).getAttrName(), text);
    return toTerminal(label.empty() ? text : label);
}

std::string describe(const FeatureLabels& labels, const Stock& stock, Feature feature) {
    return describe(labels, feature, textOf(stock, feature));
}

std::string describe(const StockSize& size) {
    if (size.isNoSize()) return {};
    if (!size.isCustom()) return toTerminal(size.getName());
    return fmt::format("{:g} x {:g} mm", size.getX() / 100.0, size.getY() / 100.0);
}

std::string withUnit(const std::string& number, std::string_view unit) {
    return number.empty() ? number : fmt::format("{} {}", number, unit);
}

Row makeRow(const FeatureLabels& labels, const Stock& stock) {
    return {describe(labels, Feature::media, std::u16string(stock.getName().getValueText())),
            stock.getType() == StockType::user ? "library" : "printer",
            stock.isFavorite() ? "yes" : "",
            describe(stock.getSettings().getStockSize()),
            describe(labels, stock, Feature::mediaColor),
            describe(labels, stock, Feature::mediaType),
            withUnit(toTerminal(textOf(stock, Feature::mediaWeightMetric)), "g/m\u00b2"),
            toTerminal(textOf(stock, Feature::mediaHoleCount))};
}

std::string toLine(const Row& row, const std::array<std::size_t, headings.size()>& widths) {
    std::string line;
    for (std::size_t column = 0; column < row.size(); ++column)
        line += pad(row[column], widths[column]) + "  ";
    line.erase(line.find_last_not_of(' ') + 1);
    return line + '\n';
}

void printTable(const std::vector<Row>& rows) {
    std::array<std::size_t, headings.size()> widths{};
    for (const Row& row : rows)
        for (std::size_t column = 0; column < row.size(); ++column)
            widths[column] = std::max(widths[column], columnsOf(row[column]));
    for (const Row& row : rows)
        print(toLine(row, widths));
}

// With one kind of separator, so that it can be typed again.
std::u16string readable(std::u16string path) {
    if (path.find(u'/') != path.npos) std::replace(path.begin(), path.end(), u'\\', u'/');
    return path;
}

void printAsText(const StockInformation& stocks) {
    const std::u16string file = readable(stocks.getPreferences().getFilePath());
    print("Library  " + (file.empty() ? "a first one; it is not stored yet" : toTerminal(file)) + "\n\n");
    const FeatureLabels labels;
    std::vector<Row> rows(1);
    std::copy(headings.begin(), headings.end(), rows.front().begin());
    for (const Stock& stock : stocks.getStocks())
        rows.push_back(makeRow(labels, stock));
    printTable(rows);
}

nlohmann::ordered_json toJson(const Stock& stock) {
    nlohmann::ordered_json json = {{"name", toUtf8(stock.getName().getValueText())},
                                   {"source", stock.getType() == StockType::user ? "user" : "printer"},
                                   {"favorite", stock.isFavorite()}};
    const StockSize size = stock.getSettings().getStockSize();
    // Hundredths of a millimetre, the short edge first.
    if (!size.isNoSize()) json["size"] = {{"x", size.getMin()}, {"y", size.getMax()}};
    for (const auto& [key, feature] : {std::pair("color", Feature::mediaColor), {"type", Feature::mediaType}})
        if (const std::u16string text = textOf(stock, feature); !text.empty()) json[key] = toUtf8(text);
    for (const auto& [key, feature] :
         {std::pair("weight", Feature::mediaWeightMetric), {"holes", Feature::mediaHoleCount}})
        if (std::int32_t number = 0; stock.getSettings().getLong(FeatureId(feature), number)) json[key] = number;
    AttrNodeList members;
    stock.writeToMediaDatabase(members);
    json["attributes"] = toJson(members);
    return json;
}

void printAsJson(const TicketRequest& request, const StockInformation& stocks) {
    nlohmann::ordered_json json = {{"printer", toUtf8(request.printerName)}};
    if (const std::u16string file = readable(stocks.getPreferences().getFilePath()); !file.empty())
        json["file"] = toUtf8(file);
    json["stocks"] = nlohmann::ordered_json::array();
    for (const Stock& stock : stocks.getStocks())
        json["stocks"].push_back(toJson(stock));
    printJson(json);
}

std::unique_ptr<StockInformation> readStocks(const Capabilities& capabilities) {
    try {
        return std::make_unique<StockInformation>(capabilities);
    } catch (const JtifParseException&) {
        printError(formatMessage(u"The user's stocks stand in %s.\r\n", readable(StockPreferences::findFile())));
        throw;
    }
}

} // namespace

int listStocks(const TicketRequest& request) {
    DriverBasedPrinter printer(request.printer);
    const auto stocks = readStocks(printer.getCapabilities());
    request.json ? printAsJson(request, *stocks) : printAsText(*stocks);
    return exitDone;
}
