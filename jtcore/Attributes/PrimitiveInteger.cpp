#include "jtcore/Attributes/PrimitiveInteger.h"

#include <algorithm>
#include <charconv>
#include <limits>

std::u16string PrimitiveInteger::getIppValue() const {
    char digits[std::numeric_limits<std::int32_t>::digits10 + 2];
    char* end = std::to_chars(std::begin(digits), std::end(digits), value_).ptr;
    return {std::begin(digits), end};
}

bool PrimitiveInteger::equals(const AttrValue& other) const {
    return other.getValueType() == getValueType() && other.asPrimitiveInteger()->getValue() == value_;
}

std::int32_t PrimitiveInteger::parse(std::u16string_view text) noexcept {
    constexpr std::int64_t beyond = std::int64_t{1} << 32;
    text = text.substr(0, 20);
    bool negative = text.starts_with(u'-');
    if (negative || text.starts_with(u'+')) text.remove_prefix(1);
    std::int64_t number = 0;
    for (char16_t unit : text) {
        if (unit < u'0' || unit > u'9') break;
        number = std::min(number * 10 + (unit - u'0'), beyond);
    }
    using Limits = std::numeric_limits<std::int32_t>;
    return static_cast<std::int32_t>(
        std::clamp<std::int64_t>(negative ? -number : number, Limits::min(), Limits::max()));
}
