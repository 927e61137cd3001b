// The compact ticket, in which a syntax is one letter.
#pragma once

#include "jtcore/JtifParse/KolmaDomDoc.h"

class SJtifDomDoc final : public KolmaDomDoc {
public:
    SJtifDomDoc(std::u16string bufferId, bool validate);

protected:
    std::string_view getTemplate() const noexcept override;
    const char16_t* getSyntaxAttrName() const noexcept override;
    // A syntax without a letter, and a letter without a syntax, pass unchanged.
    std::u16string_view toDocumentSyntax(std::u16string_view syntaxName) const noexcept override;
    std::u16string_view fromDocumentSyntax(std::u16string_view syntax) const noexcept override;
};
