#include "platform/posix/wideText.h"

#include "platform/posix/service.h"

#include <algorithm>
#include <clocale>
#include <cwctype>
#include <locale.h>

namespace {

constexpr char32_t notText = 0xFFFFFFFF;
constexpr char32_t replacement = 0xFFFD;

bool isSurrogate(char32_t unit) { return unit >= 0xD800 && unit <= 0xDFFF; }

// The code point at `at`, which moves behind it; notText for an unpaired surrogate.
char32_t nextOfUtf16(std::u16string_view text, std::size_t& at) {
    char32_t unit = text[at++];
    if (!isSurrogate(unit)) return unit;
    if (unit >= 0xDC00 || at == text.size()) return notText;
    char32_t low = text[at];
    if (low < 0xDC00 || low > 0xDFFF) return notText;
    ++at;
    return 0x10000U + ((unit - 0xD800U) << 10U) + (low - 0xDC00U);
}

void appendUtf8(std::string& out, char32_t point) {
    auto trail = [&](unsigned shift) { out += static_cast<char>(0x80U | ((point >> shift) & 0x3FU)); };
    if (point < 0x80) {
        out += static_cast<char>(point);
    } else if (point < 0x800) {
        out += static_cast<char>(0xC0U | (point >> 6U));
        trail(0);
    } else if (point < 0x10000) {
        out += static_cast<char>(0xE0U | (point >> 12U));
        trail(6);
        trail(0);
    } else {
        out += static_cast<char>(0xF0U | (point >> 18U));
        trail(12);
        trail(6);
        trail(0);
    }
}

// The code point at `at`, which moves behind it; notText for every form that UTF-8 does not allow.
char32_t nextOfUtf8(std::string_view text, std::size_t& at) {
    auto lead = static_cast<unsigned char>(text[at++]);
    if (lead < 0x80) return lead;
    if (lead < 0xC2 || lead > 0xF4) return notText;
    std::size_t trails = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : 1;
    if (text.size() - at < trails) return notText;
    char32_t point = lead & (0x3FU >> trails);
    for (; trails != 0; --trails) {
        auto trail = static_cast<unsigned char>(text[at++]);
        if ((trail & 0xC0U) != 0x80U) return notText;
        point = point << 6U | (trail & 0x3FU);
    }
    constexpr char32_t firstOfThree = 0x800;
    constexpr char32_t firstOfFour = 0x10000;
    bool overlong = (lead >= 0xE0 && point < firstOfThree) || (lead >= 0xF0 && point < firstOfFour);
    return overlong || isSurrogate(point) || point > 0x10FFFF ? notText : point;
}

// Upper case of all of Unicode without asking for, or changing, the locale of the process.
locale_t unicodeLocale() {
    static locale_t locale = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    return locale;
}

char16_t upperCase(char16_t unit, locale_t locale) {
    if (unit < 0x80 || locale == nullptr)
        return unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - u'a' + u'A') : unit;
    std::wint_t upper = towupper_l(unit, locale);
    return upper <= 0xFFFF ? static_cast<char16_t>(upper) : unit;
}

} // namespace

std::string narrowText(std::u16string_view text) {
    // Nearly all names are of plain characters alone.
    auto at = static_cast<std::size_t>(std::ranges::find_if(text, [](char16_t c) { return c >= 0x80; }) - text.begin());
    std::string out(text.begin(), text.begin() + at);
    while (at < text.size()) {
        char32_t point = nextOfUtf16(text, at);
        require(point != notText, ERROR_INVALID_NAME);
        appendUtf8(out, point);
    }
    return out;
}

std::string narrowText(LPCWSTR text) {
    require(text != nullptr, ERROR_INVALID_PARAMETER);
    return narrowText(std::u16string_view(text));
}

std::u16string wideText(std::string_view text) {
    std::u16string out;
    out.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        char32_t point = nextOfUtf8(text, at);
        require(point != notText, ERROR_NO_UNICODE_TRANSLATION);
        if (point < 0x10000) {
            out += static_cast<char16_t>(point);
        } else {
            out += static_cast<char16_t>(0xD800U + ((point - 0x10000U) >> 10U));
            out += static_cast<char16_t>(0xDC00U + ((point - 0x10000U) & 0x3FFU));
        }
    }
    return out;
}

std::string readableText(std::u16string_view text) {
    std::string out;
    for (std::size_t at = 0; at < text.size();) {
        char32_t point = nextOfUtf16(text, at);
        appendUtf8(out, point == notText ? replacement : point);
    }
    return out;
}

std::u16string foldCase(std::u16string_view text) {
    locale_t locale = unicodeLocale();
    std::u16string out(text);
    std::transform(out.begin(), out.end(), out.begin(), [locale](char16_t unit) { return upperCase(unit, locale); });
    return out;
}

CopiedText copyText(std::u16string_view text, LPWSTR buffer, std::size_t size) noexcept {
    bool fits = buffer != nullptr && size > text.size();
    if (fits) buffer[text.copy(buffer, text.size())] = u'\0';
    return {text.size() + 1, fits};
}
