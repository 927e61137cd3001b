#include "jtcore/Attributes/AttrValue.h"

#include "jtcore/Attributes/IppBoolean.h"
#include "jtcore/Attributes/IppList.h"
#include "jtcore/Attributes/PrimitiveInteger.h"
#include "jtcore/Attributes/PrimitiveString.h"
#include "jtcore/Services/KolmaException.h"

#include <array>

bool AttrValue::isPrimitiveString() const noexcept {
    switch (type_) {
    case AVTE::name:
    case AVTE::keyword:
    case AVTE::text:
    case AVTE::mimeMediaType:
    case AVTE::uri:
        return true;
    default:
        return false;
    }
}

const PrimitiveInteger* AttrValue::asPrimitiveInteger() const noexcept {
    return isPrimitiveInteger() ? static_cast<const PrimitiveInteger*>(this) : nullptr;
}

PrimitiveInteger* AttrValue::asPrimitiveInteger() noexcept {
    return isPrimitiveInteger() ? static_cast<PrimitiveInteger*>(this) : nullptr;
}

const PrimitiveString* AttrValue::asPrimitiveString() const noexcept {
    return isPrimitiveString() ? static_cast<const PrimitiveString*>(this) : nullptr;
}

PrimitiveString* AttrValue::asPrimitiveString() noexcept {
    return isPrimitiveString() ? static_cast<PrimitiveString*>(this) : nullptr;
}

const IppBoolean* AttrValue::asBoolean() const noexcept {
    return type_ == AVTE::boolean ? static_cast<const IppBoolean*>(this) : nullptr;
}

IppBoolean* AttrValue::asBoolean() noexcept {
    return type_ == AVTE::boolean ? static_cast<IppBoolean*>(this) : nullptr;
}

const IppList* AttrValue::asList() const noexcept { return isList() ? static_cast<const IppList*>(this) : nullptr; }

IppList* AttrValue::asList() noexcept { return isList() ? static_cast<IppList*>(this) : nullptr; }

bool AttrValue::getRangeOfIntegerValues(std::int32_t& lower, std::int32_t& upper) const {
    if (!isRangeOfInteger())
        raise<AttributeTypeMismatchException>(
            u"AttrValue::getRangeOfIntegerValues: This AttrValue is not a rangeOfInteger list!!\r\n");
    const AttrNodeList& members = asList()->getList();
    bool hasLower = members.JtifAttrToLong(lower, u"lower-bound");
    bool hasUpper = members.JtifAttrToLong(upper, u"upper-bound");
    return hasLower && hasUpper;
}

bool AttrValue::getResolutionValues(std::int32_t& crossFeed, std::int32_t& feedDirection, std::int32_t& units) const {
    if (!isResolution())
        raise<AttributeTypeMismatchException>(
            u"AttrValue::getResolutionValues: This AttrValue is not a resolution list!!\r\n");
    const AttrNodeList& members = asList()->getList();
    bool hasCrossFeed = members.JtifAttrToLong(crossFeed, u"cross-feed");
    bool hasFeedDirection = members.JtifAttrToLong(feedDirection, u"feed-direction");
    bool hasUnits = members.JtifAttrToLong(units, u"units");
    return hasCrossFeed && hasFeedDirection && hasUnits;
}

bool AttrValue::isSameResolution(const AttrValue& other) const {
    if (!isResolution() || !other.isResolution()) return false;
    std::array<std::int32_t, 3> mine{};
    std::array<std::int32_t, 3> others{};
    bool isComplete = getResolutionValues(mine[0], mine[1], mine[2]);
    if (isComplete != other.getResolutionValues(others[0], others[1], others[2])) return false;
    return !isComplete || mine == others;
}
