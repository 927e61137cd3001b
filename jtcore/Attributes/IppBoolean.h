// A value that is true or false.
#pragma once

#include "jtcore/Attributes/AttrValue.h"

#include <concepts>

class IppBoolean final : public AttrValue {
public:
    static constexpr std::u16string_view syntaxName = u"boolean";

    // A bool and nothing that merely converts to one: a text literal does.
    template <std::same_as<bool> Bool>
    explicit IppBoolean(Bool value) noexcept : AttrValue(AVTE::boolean), value_(value) {}
    // True for "true", "1" and "yes", false for everything else.
    explicit IppBoolean(std::u16string_view text) noexcept;

    bool getValue() const noexcept { return value_; }
    void setValue(bool value) noexcept { value_ = value; }

    std::u16string_view getSyntaxName() const noexcept override { return syntaxName; }
    std::u16string getIppValue() const override { return value_ ? u"true" : u"false"; }
    // Stricter than the constructor: raises UnknownCaseException for anything but "true" and "false".
    void setIppValue(std::u16string_view text) override;
    std::unique_ptr<AttrValue> clone() const override { return std::make_unique<IppBoolean>(*this); }
    bool equals(const AttrValue& other) const override;

private:
    bool value_;
};
