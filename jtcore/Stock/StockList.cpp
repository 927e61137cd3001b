#include "jtcore/Stock/StockList.h"

#include "jtcore/Attributes/IppList.h"
#include "jtcore/Services/KolmaException.h"
#include "jtcore/Stock/mediaMembers.h"

#include <algorithm>
#include <iterator>

StockList::StockList(const StockList& other) { append(other); }

StockList& StockList::operator=(const StockList& other) {
    if (this != &other) *this = StockList(other);
    return *this;
}

StockList StockList::fromAttributes(const AttrNodeList& list, StockType type) {
    StockList stocks;
    for (const AttrNode& node : list) {
        const IppList* members = node.getAttrValue().asList();
        if (!members || node.getAttrID().getName() != u"value") continue;
        FeatureSettings settings;
        settings.getAttrNodeList().setNode(idOf(Feature::mediaCol), IppList(members->getList(), syntaxCollection));
        if (auto stock = Stock::fromSettings(settings, type)) stocks.stocks_.push_back(std::move(stock));
    }
    return stocks;
}

Stock& StockList::addStock(const Stock& stock) { return *stocks_.emplace_back(std::make_unique<Stock>(stock)); }

void StockList::append(const StockList& other) {
    Stocks copies;
    copies.reserve(other.stocks_.size());
    for (const Stock& stock : other)
        copies.push_back(std::make_unique<Stock>(stock));
    stocks_.insert(stocks_.end(), std::make_move_iterator(copies.begin()), std::make_move_iterator(copies.end()));
}

StockList::Position StockList::removeStock(const Stock* stock) {
    const Position position = find(stock);
    if (position == stocks_.size()) return position;
    stocks_.erase(stocks_.begin() + static_cast<Stocks::difference_type>(position));
    if (cursor_ > position) --cursor_;
    return position;
}

void StockList::clear() noexcept {
    stocks_.clear();
    cursor_ = 0;
}

Stock& StockList::getNextStock(Position& position) {
    if (hasMoreStocks(position)) return *stocks_[position++];
    raise<NodeAccessOutOfBoundsException>(
        u"StockList::getNextStock(): No more Stocks to get. Caller failed to test with "
        u"hasMoreStocks() first!\r\n");
}

StockList::Position StockList::find(const Stock* stock) const noexcept {
    const auto found = std::find_if(stocks_.begin(), stocks_.end(),
                                    [stock](const std::unique_ptr<Stock>& element) { return element.get() == stock; });
    return static_cast<Position>(found - stocks_.begin());
}
