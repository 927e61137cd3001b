#include "plugin_ui/Controls/numberText.h"

#include "jtcore/Services/KolmaException.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>

namespace {

// The number that the text begins with, in plain characters; what is no digit, sign or point ends it.
std::string numberPart(std::u16string_view text) {
    std::string part;
    for (const char16_t character : text.substr(std::min(text.find_first_not_of(u' '), text.size()))) {
        const bool isPart = (character >= u'0' && character <= u'9') || character == u'.' || character == u'-';
        if (!isPart) break;
        part.push_back(static_cast<char>(character));
    }
    return part;
}

// To the nearest bound where the digits are too many.
double parseWhole(std::u16string_view text, bool isSigned) {
    const std::string part = numberPart(text);
    std::int64_t number = 0;
    const auto [end, error] = std::from_chars(part.data(), part.data() + part.size(), number);
    if (error == std::errc::result_out_of_range)
        number =
            part.front() == '-' ? std::numeric_limits<std::int64_t>::min() : std::numeric_limits<std::int64_t>::max();
    return isSigned || number > 0 ? static_cast<double>(number) : 0;
}

template <typename... Format>
std::u16string toText(double value, Format... format) {
    std::array<char, 400> buffer{};
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, format...);
    return {buffer.data(), result.ptr};
}

} // namespace

NumberEntry readNumberEntry(std::u16string_view text, NumberBoxType type) {
    if (text.empty()) return {0, true};
    switch (type) {
    case NumberBoxType::unsignedInteger:
        return {parseWhole(text, false), false};
    case NumberBoxType::decimal:
        return {parseDecimal(text), false};
    case NumberBoxType::signedInteger:
        return {parseWhole(text, true), false};
    }
    raise<UnknownCaseException>(u"NumberBoxUIControl::displayControl() Unknown ANL value for disposition.\r\n");
}

std::u16string formatNumber(double value, NumberBoxType type, std::int32_t precision) {
    switch (type) {
    case NumberBoxType::decimal:
        return formatDecimal(value, precision);
    case NumberBoxType::unsignedInteger:
    case NumberBoxType::signedInteger:
        return toText(std::trunc(value), std::chars_format::fixed, 0);
    }
    raise<UnknownCaseException>(u"NumberBoxUIControl::displayControl() Unknown NumberBoxType.\r\n");
}

double parseDecimal(std::u16string_view text) {
    const std::string part = numberPart(text);
    double number = 0;
    const auto [end, error] = std::from_chars(part.data(), part.data() + part.size(), number, std::chars_format::fixed);
    return error == std::errc() ? number : 0;
}

std::u16string formatDecimal(double value, std::int32_t precision) {
    const std::u16string text = toText(value, std::chars_format::fixed, precision == 2 ? 2 : 1);
    const bool isMinusZero = text.front() == u'-' && text.find_first_not_of(u"-0.") == std::u16string::npos;
    return isMinusZero ? text.substr(1) : text;
}

double roundToPrecision(double value, std::int32_t precision) { return parseDecimal(formatDecimal(value, precision)); }

std::int32_t toInteger(double value) noexcept {
    using Limits = std::numeric_limits<std::int32_t>;
    if (value >= Limits::max()) return Limits::max();
    if (value <= Limits::min()) return Limits::min();
    return static_cast<std::int32_t>(value);
}

std::int32_t countDigits(std::int32_t value) noexcept {
    std::int32_t digits = value < 0 ? 2 : 1;
    for (; value > 9 || value < -9; value /= 10)
        ++digits;
    return digits;
}
