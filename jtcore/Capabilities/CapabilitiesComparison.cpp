// Whether a value is one of those that a capability names.
#include "jtcore/Capabilities/Capabilities.h"

#include "jtcore/Attributes/IppBoolean.h"
#include "jtcore/Attributes/PrimitiveString.h"
#include "jtcore/Capabilities/listValues.h"
#include "jtcore/Services/formatMessage.h"
#include "jtcore/Services/trace.h"

#include <algorithm>

namespace {

bool isName(const AttrValue& value) {
    return value.getValueType() == AVTE::name || value.getValueType() == AVTE::keyword;
}

const std::u16string& textOf(const AttrValue& value) { return value.asPrimitiveString()->getValue(); }

// A list of values, and not one value that is written as a list.
bool isListOfValues(const AttrValue& value) {
    return value.isList() && !value.isRangeOfInteger() && !value.isResolution();
}

// One value against all that a capability names.
class Comparison {
public:
    Comparison(const Capabilities& capabilities, std::u16string_view attributeId, const AttrValue& tested,
               const AttrNodeList* userDefined) noexcept
        : capabilities_(capabilities), attributeId_(attributeId), tested_(tested), userDefined_(userDefined) {}

    bool matches(const AttrValue& supported) {
        return isListOfValues(supported) ? matchesOne(supported.asList()->getList()) : matchesValue(supported);
    }

private:
    bool matchesOne(const AttrNodeList& list) {
        if (isName(tested_) && capabilities_.hasKeyword(&list, textOf(tested_))) return true;
        return std::any_of(list.begin(), list.end(),
                           [this](const AttrNode& node) { return !node.isPrivate() && matches(node.getAttrValue()); });
    }

    bool matchesValue(const AttrValue& supported) {
        if (tested_.getValueType() == AVTE::null) return false;
        if (supported.getValueType() == AVTE::null || isUserDefined()) return true;
        if (tested_.isRangeOfInteger() && supported.isRangeOfInteger()) return isRangeWithin(supported);
        if (tested_.isResolution() && supported.isResolution()) return isSameResolution(supported);
        if (tested_.getValueType() == supported.getValueType()) return tested_.equals(supported);
        if (isName(tested_) && isName(supported)) return textOf(tested_) == textOf(supported);
        if (tested_.getValueType() == AVTE::integer && supported.isRangeOfInteger()) return isWithin(supported);
        const IppBoolean* answer = supported.asBoolean();
        return !answer || answer->getValue();
    }

    // Only what a user can write himself.
    bool isUserDefined() {
        const AVTE type = tested_.getValueType();
        if (type != AVTE::integer && type != AVTE::name && type != AVTE::uri) return false;
        if (!isUserDefinedKnown_) {
            isUserDefined_ = capabilities_.hasKeyword(userDefined_, attributeId_);
            isUserDefinedKnown_ = true;
        }
        return isUserDefined_;
    }

    bool isRangeWithin(const AttrValue& supported) const {
        const auto range = readBounds(tested_);
        const auto limits = readBounds(supported);
        if (!range || !limits) return passUnread(supported);
        return limits->first <= std::min(range->first, range->second) &&
               std::max(range->first, range->second) <= limits->second;
    }

    bool isWithin(const AttrValue& supported) const {
        const auto limits = readBounds(supported);
        if (!limits) return passUnread(supported);
        const std::int32_t number = tested_.asPrimitiveInteger()->getValue();
        return limits->first <= number && number <= limits->second;
    }

    bool isSameResolution(const AttrValue& supported) const {
        for (const AttrValue* value : {&tested_, &supported})
            for (const AttrNode& member : value->asList()->getList())
                if (!member.getAttrValue().isPrimitiveInteger()) return passUnread(supported);
        return tested_.isSameResolution(supported);
    }

    bool passUnread(const AttrValue& supported) const {
        traceText(formatMessage(u"Capabilities::compareAttrValues(%s)", attributeId_),
                  formatMessage(u"Exception thrown while recursing. Assume the value (with syntax '%s') being tested "
                                u"is supported. Continuing to check supported values.",
                                supported.getSyntaxName()));
        return true;
    }

    const Capabilities& capabilities_;
    std::u16string_view attributeId_;
    const AttrValue& tested_;
    const AttrNodeList* userDefined_;
    bool isUserDefinedKnown_ = false;
    bool isUserDefined_ = false;
};

} // namespace

bool Capabilities::compareAttrValues(std::u16string_view attributeId, const AttrValue& tested,
                                     const AttrValue& supported, const AttrNodeList* userDefined) const {
    return Comparison(*this, attributeId, tested, userDefined).matches(supported);
}
