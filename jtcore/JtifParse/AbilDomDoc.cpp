#include "jtcore/JtifParse/AbilDomDoc.h"

AbilDomDoc::AbilDomDoc(std::u16string bufferId, bool validate) : KolmaDomDoc(std::move(bufferId), validate, u"abil") {}

std::string_view AbilDomDoc::getTemplate() const noexcept {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>"
           "<abil version=\"1.0\" sema-version=\"2.01\" xml:lang=\"en-US\"> </abil>";
}
