// The stocks that a printer brings along.
#include "jtcore/Capabilities/Capabilities.h"
#include "jtcore/Stock/StockList.h"

std::unique_ptr<StockList> Capabilities::getPrinterStocks() const {
    const AttrNodeList* stocks = nullptr;
    if (!getAttrNodeList().JtifAttrToList(stocks, u"media-col-database")) return std::make_unique<StockList>();
    return std::make_unique<StockList>(StockList::fromAttributes(*stocks, StockType::printer));
}
