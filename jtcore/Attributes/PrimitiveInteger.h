// Values that are one signed 32-bit number: integers and enums.
#pragma once

#include "jtcore/Attributes/AttrValue.h"

class PrimitiveInteger : public AttrValue {
public:
    std::int32_t getValue() const noexcept { return value_; }
    void setValue(std::int32_t value) noexcept { value_ = value; }

    std::u16string getIppValue() const override;
    void setIppValue(std::u16string_view text) override { value_ = parse(text); }
    bool equals(const AttrValue& other) const override;

    // An optional sign and decimal digits, read up to the first other character and from the first 20 characters only.
    // A text that is no number gives 0; a number beyond 32 bits gives the nearest one that there is.
    static std::int32_t parse(std::u16string_view text) noexcept;

protected:
    PrimitiveInteger(AVTE type, std::int32_t value) noexcept : AttrValue(type), value_(value) {}
    PrimitiveInteger(AVTE type, std::u16string_view text) noexcept : PrimitiveInteger(type, parse(text)) {}

private:
    std::int32_t value_;
};

class IppInteger final : public PrimitiveInteger {
public:
    static constexpr std::u16string_view syntaxName = u"integer";

    explicit IppInteger(std::int32_t value) noexcept : PrimitiveInteger(AVTE::integer, value) {}
    explicit IppInteger(std::u16string_view text) noexcept : PrimitiveInteger(AVTE::integer, text) {}

    std::u16string_view getSyntaxName() const noexcept override { return syntaxName; }
    std::unique_ptr<AttrValue> clone() const override { return std::make_unique<IppInteger>(*this); }
};

class IppEnum final : public PrimitiveInteger {
public:
    static constexpr std::u16string_view syntaxName = u"enum";

    explicit IppEnum(std::int32_t value) noexcept : PrimitiveInteger(AVTE::enumeration, value) {}
    explicit IppEnum(std::u16string_view text) noexcept : PrimitiveInteger(AVTE::enumeration, text) {}

    std::u16string_view getSyntaxName() const noexcept override { return syntaxName; }
    std::unique_ptr<AttrValue> clone() const override { return std::make_unique<IppEnum>(*this); }
};
