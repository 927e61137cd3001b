// Any bytes as the user's file of stocks: a library is read, or it is refused with a failure of the family. What was
// read can be used in a job, saved and read again, and the second save is the first one.
#include "jtcore/AnlXlate/SpfTranslator.h"
#include "jtcore/Services/KolmaException.h"
#include "jtcore/Stock/StockList.h"

#include <cstdint>
#include <cstdlib>

namespace {

StockList readLibrary(const AttrNodeList& content) {
    const AttrNodeList* values = nullptr;
    if (!content.JtifAttrToList(values, u"media-user-defined")) return {};
    return StockList::fromAttributes(*values, StockType::user);
}

AttrNodeList writeLibrary(const StockList& stocks) {
    AttrNodeList content;
    AttrNodeList& values = content.add1setOf(u"media-user-defined");
    for (const Stock& stock : stocks)
        stock.writeToMediaDatabase(values.addCollection(u"value"));
    return content;
}

// The bytes of what was read, after a journey through a file.
AttrNodeList throughAFile(const AttrNodeList& content) {
    ByteBuffer bytes;
    SpfTranslator().anlToBuffer(content, bytes);
    AttrNodeList again;
    SpfTranslator().bufferToAnl(bytes, again);
    return again;
}

void use(StockList& stocks) {
    AttrNodeList job;
    for (const Stock& stock : stocks) {
        stock.applyTo(&job);
        const auto found = Stock::fromSettings(FeatureSettings::view(&job), StockType::job);
        if (!found || found->hasSameMedia(stock) != stock.hasSameMedia(*found)) std::abort();
        stock.getSettings().getStockSize();
        for (const Stock& other : stocks)
            if (stock.matches(other) != other.matches(stock)) std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    StockList stocks;
    try {
        AttrNodeList content;
        SpfTranslator().bufferToAnl(ByteBuffer(data, size), content);
        stocks = readLibrary(content);
    } catch (const KolmaException&) {
        return 0;
    }
    use(stocks);
    const AttrNodeList first = throughAFile(writeLibrary(stocks));
    const AttrNodeList second = throughAFile(writeLibrary(readLibrary(first)));
    if (!first.equals(second)) std::abort();
    return 0;
}
