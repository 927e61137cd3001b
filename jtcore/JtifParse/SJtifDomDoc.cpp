#include "jtcore/JtifParse/SJtifDomDoc.h"

#include "jtcore/JtifParse/compactSyntax.h"

SJtifDomDoc::SJtifDomDoc(std::u16string bufferId, bool validate)
    : KolmaDomDoc(std::move(bufferId), validate, u"sjtif") {}

std::string_view SJtifDomDoc::getTemplate() const noexcept {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?><sjtif xml:lang=\"en-US\"> </sjtif>";
}

const char16_t* SJtifDomDoc::getSyntaxAttrName() const noexcept { return u"s"; }

std::u16string_view SJtifDomDoc::toDocumentSyntax(std::u16string_view syntaxName) const noexcept {
    return toCompactSyntax(syntaxName);
}

std::u16string_view SJtifDomDoc::fromDocumentSyntax(std::u16string_view syntax) const noexcept {
    return fromCompactSyntax(syntax);
}
