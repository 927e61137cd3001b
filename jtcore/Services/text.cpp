#include "jtcore/Services/text.h"

#include <cstdint>

namespace {

constexpr char32_t replacement = 0xFFFD;

// The code point at `at`, which moves behind it. Overlong forms, surrogates and values past U+10FFFF are refused, one
// byte at a time.
char32_t nextOfUtf8(std::string_view text, std::size_t& at) {
    auto lead = static_cast<std::uint8_t>(text[at++]);
    if (lead < 0x80) return lead;
    int length = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : 1;
    if (lead < 0xC2 || lead > 0xF4) return replacement;
    char32_t point = lead & (0x3FU >> length);
    std::size_t next = at;
    for (int i = 0; i < length; ++i, ++next) {
        if (next == text.size()) return replacement;
        auto trail = static_cast<std::uint8_t>(text[next]);
        if ((trail & 0xC0U) != 0x80U) return replacement;
        point = (point << 6U) | (trail & 0x3FU);
    }
    constexpr char32_t least[] = {0, 0x80, 0x800, 0x10000};
    if (point < least[length] || point > 0x10FFFF || (point >= 0xD800 && point <= 0xDFFF)) return replacement;
    at = next;
    return point;
}

void append(std::string& out, char32_t point) {
    auto trail = [point](unsigned shift) { return static_cast<char>(0x80U | ((point >> shift) & 0x3FU)); };
    if (point < 0x80) {
        out += static_cast<char>(point);
    } else if (point < 0x800) {
        out += static_cast<char>(0xC0U | (point >> 6U));
        out += trail(0);
    } else if (point < 0x10000) {
        out += static_cast<char>(0xE0U | (point >> 12U));
        out += trail(6);
        out += trail(0);
    } else {
        out += static_cast<char>(0xF0U | (point >> 18U));
        out += trail(12);
        out += trail(6);
        out += trail(0);
    }
}

} // namespace

std::u16string fromUtf8(std::string_view text) {
    std::u16string out;
    out.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        char32_t point = nextOfUtf8(text, at);
        if (point < 0x10000) {
            out += static_cast<char16_t>(point);
        } else {
            out += static_cast<char16_t>(0xD800U + ((point - 0x10000U) >> 10U));
            out += static_cast<char16_t>(0xDC00U + ((point - 0x10000U) & 0x3FFU));
        }
    }
    return out;
}

std::string toUtf8(std::u16string_view text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t at = 0; at < text.size(); ++at) {
        char32_t unit = text[at];
        bool high = unit >= 0xD800 && unit <= 0xDBFF;
        if (high && at + 1 < text.size() && text[at + 1] >= 0xDC00 && text[at + 1] <= 0xDFFF)
            unit = 0x10000U + ((unit - 0xD800U) << 10U) + (text[++at] - 0xDC00U);
        else if (unit >= 0xD800 && unit <= 0xDFFF)
            unit = replacement;
        append(out, unit);
    }
    return out;
}
