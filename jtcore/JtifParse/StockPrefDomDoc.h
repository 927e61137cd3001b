// The stock preference file of a user.
#pragma once

#include "jtcore/JtifParse/KolmaDomDoc.h"

class StockPrefDomDoc final : public KolmaDomDoc {
public:
    StockPrefDomDoc(std::u16string bufferId, bool validate);

protected:
    std::string_view getTemplate() const noexcept override;
};
