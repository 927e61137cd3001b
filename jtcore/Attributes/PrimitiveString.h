// Values that are one text.
#pragma once

#include "jtcore/Attributes/AttrValue.h"

#include <utility>

class PrimitiveString : public AttrValue {
public:
    const std::u16string& getValue() const noexcept { return value_; }
    void setValue(std::u16string value) noexcept { value_ = std::move(value); }

    std::u16string getIppValue() const override { return value_; }
    void setIppValue(std::u16string_view text) override { value_.assign(text); }
    bool equals(const AttrValue& other) const override;

protected:
    PrimitiveString(AVTE type, std::u16string_view value) : AttrValue(type), value_(value) {}

private:
    std::u16string value_;
};

class IppKeyword final : public PrimitiveString {
public:
    static constexpr std::u16string_view syntaxName = u"keyword";

    explicit IppKeyword(std::u16string_view text) : PrimitiveString(AVTE::keyword, text) {}

    std::u16string_view getSyntaxName() const noexcept override { return syntaxName; }
    std::unique_ptr<AttrValue> clone() const override { return std::make_unique<IppKeyword>(*this); }
};

class IppName final : public PrimitiveString {
public:
    static constexpr std::u16string_view syntaxName = u"name";

    explicit IppName(std::u16string_view text) : PrimitiveString(AVTE::name, text) {}

    bool isPreservedText() const noexcept override { return true; }
    std::u16string_view getSyntaxName() const noexcept override { return syntaxName; }
    std::unique_ptr<AttrValue> clone() const override { return std::make_unique<IppName>(*this); }
};

class IppText final : public PrimitiveString {
public:
    static constexpr std::u16string_view syntaxName = u"text";

    explicit IppText(std::u16string_view text) : PrimitiveString(AVTE::text, text) {}

    bool isPreservedText() const noexcept override { return true; }
    std::u16string_view getSyntaxName() const noexcept override { return syntaxName; }
    std::unique_ptr<AttrValue> clone() const override { return std::make_unique<IppText>(*this); }
};

class IppUri final : public PrimitiveString {
public:
    static constexpr std::u16string_view syntaxName = u"uri";

    explicit IppUri(std::u16string_view text) : PrimitiveString(AVTE::uri, text) {}

    std::u16string_view getSyntaxName() const noexcept override { return syntaxName; }
    std::unique_ptr<AttrValue> clone() const override { return std::make_unique<IppUri>(*this); }
};

class IppMimeMediaType final : public PrimitiveString {
public:
    static constexpr std::u16string_view syntaxName = u"mimeMediaType";

    explicit IppMimeMediaType(std::u16string_view text) : PrimitiveString(AVTE::mimeMediaType, text) {}

    std::u16string_view getSyntaxName() const noexcept override { return syntaxName; }
    std::unique_ptr<AttrValue> clone() const override { return std::make_unique<IppMimeMediaType>(*this); }
};
