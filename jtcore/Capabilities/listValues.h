// The members of the short lists that stand for one value. Nothing is read from a list that lacks one, or has something
// else than a number there.
#pragma once

#include "jtcore/Attributes/IppList.h"
#include "jtcore/Attributes/PrimitiveInteger.h"

#include <cstdint>
#include <optional>
#include <string_view>

struct NumberPair {
    std::int32_t first;
    std::int32_t second;
};

inline const PrimitiveInteger* findNumber(const AttrNodeList& list, std::u16string_view id) {
    const AttrNode* node = list.getNode(id);
    return node ? node->getAttrValue().asPrimitiveInteger() : nullptr;
}

// Of a list of any syntax.
inline std::optional<NumberPair> readPair(const AttrValue& value, std::u16string_view first,
                                          std::u16string_view second) {
    const IppList* list = value.asList();
    const PrimitiveInteger* one = list ? findNumber(list->getList(), first) : nullptr;
    const PrimitiveInteger* other = list ? findNumber(list->getList(), second) : nullptr;
    if (!one || !other) return std::nullopt;
    return NumberPair{one->getValue(), other->getValue()};
}

inline std::optional<NumberPair> readBounds(const AttrValue& value) {
    return readPair(value, u"lower-bound", u"upper-bound");
}

inline std::optional<NumberPair> readDimensions(const AttrValue& value) {
    return readPair(value, u"x-dimension", u"y-dimension");
}
