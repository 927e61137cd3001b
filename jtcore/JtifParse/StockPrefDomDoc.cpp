#include "jtcore/JtifParse/StockPrefDomDoc.h"

StockPrefDomDoc::StockPrefDomDoc(std::u16string bufferId, bool validate)
    : KolmaDomDoc(std::move(bufferId), validate, u"stockpref") {}

std::string_view StockPrefDomDoc::getTemplate() const noexcept {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>"
           "<stockpref version=\"1.0\" sema-version=\"2.01\" xml:lang=\"en-US\"> </stockpref>";
}
