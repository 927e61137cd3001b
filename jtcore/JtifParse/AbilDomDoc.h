// The capability file of a printer.
#pragma once

#include "jtcore/JtifParse/KolmaDomDoc.h"

class AbilDomDoc final : public KolmaDomDoc {
public:
    AbilDomDoc(std::u16string bufferId, bool validate);

protected:
    std::string_view getTemplate() const noexcept override;
};
