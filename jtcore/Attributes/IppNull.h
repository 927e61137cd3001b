// What is left of a value whose syntax is not known: the name of the syntax.
#pragma once

#include "jtcore/Attributes/AttrValue.h"

class IppNull final : public AttrValue {
public:
    explicit IppNull(std::u16string_view syntaxName) : AttrValue(AVTE::null), syntaxName_(syntaxName) {}

    std::u16string_view getSyntaxName() const noexcept override { return syntaxName_.text(); }
    std::u16string getIppValue() const override { return {}; }
    void setIppValue(std::u16string_view) override {}
    std::unique_ptr<AttrValue> clone() const override { return std::make_unique<IppNull>(*this); }
    bool equals(const AttrValue& other) const override {
        return other.getValueType() == AVTE::null && other.getSyntaxName() == getSyntaxName();
    }

private:
    SyntaxName syntaxName_;
};
