// The root of the typed values of attributes.
//
// A value belongs to one owner; copies are made with clone(). Texts given to a value are copied, texts returned as
// views live as long as the value and until its next change.
#pragma once

#include "jtcore/Attributes/AttrSyntax.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

class PrimitiveInteger;
class PrimitiveString;
class IppBoolean;
class IppList;

class AttrValue {
public:
    virtual ~AttrValue() = default;

    // True when blanks at the ends of the text belong to the value: names and texts.
    virtual bool isPreservedText() const noexcept { return false; }
    // "integer", "keyword", "1setOf" and so on.
    virtual std::u16string_view getSyntaxName() const noexcept = 0;
    // The value as text; empty for lists and for values of no known syntax.
    virtual std::u16string getIppValue() const = 0;
    // Replaces the value from its text form, which may lie inside this value. Lists and values of no known syntax
    // ignore it. Raises UnknownCaseException when a boolean is given anything but "true" and "false".
    virtual void setIppValue(std::u16string_view text) = 0;
    // A deep copy of the same class.
    virtual std::unique_ptr<AttrValue> clone() const = 0;
    // True when the other value is of the same kind and holds the same.
    virtual bool equals(const AttrValue& other) const = 0;

    AVTE getValueType() const noexcept { return type_; }
    bool isList() const noexcept { return type_ == AVTE::list; }
    bool is1setOf() const noexcept { return isList() && getSyntaxName() == syntax1setOf; }
    bool isCollection() const noexcept { return isList() && getSyntaxName() == syntaxCollection; }
    bool isRangeOfInteger() const noexcept { return isList() && getSyntaxName() == syntaxRangeOfInteger; }
    bool isResolution() const noexcept { return isList() && getSyntaxName() == syntaxResolution; }
    bool isPrimitiveInteger() const noexcept { return type_ == AVTE::integer || type_ == AVTE::enumeration; }
    bool isPrimitiveString() const noexcept;

    // This value as its own class; null when it is of another.
    const PrimitiveInteger* asPrimitiveInteger() const noexcept;
    PrimitiveInteger* asPrimitiveInteger() noexcept;
    const PrimitiveString* asPrimitiveString() const noexcept;
    PrimitiveString* asPrimitiveString() noexcept;
    const IppBoolean* asBoolean() const noexcept;
    IppBoolean* asBoolean() noexcept;
    const IppList* asList() const noexcept;
    IppList* asList() noexcept;

    // Reads the members of a fixed collection. True when all of them are there; an output whose member is missing stays
    // as it was. Raises AttributeTypeMismatchException when this is no such list, or a member is no number.
    bool getRangeOfIntegerValues(std::int32_t& lower, std::int32_t& upper) const;
    bool getResolutionValues(std::int32_t& crossFeed, std::int32_t& feedDirection, std::int32_t& units) const;

    // True when both are resolutions and either both are incomplete, or all three members agree.
    bool isSameResolution(const AttrValue& other) const;

protected:
    explicit AttrValue(AVTE type) noexcept : type_(type) {}
    AttrValue(const AttrValue&) = default;
    AttrValue& operator=(const AttrValue&) = delete;

private:
    const AVTE type_;
};
