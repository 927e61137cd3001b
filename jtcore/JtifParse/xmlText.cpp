#include "jtcore/JtifParse/xmlText.h"

namespace {

bool isSpace(char16_t c) noexcept { return c == u' ' || (c >= u'\t' && c <= u'\r'); }

bool isHighSurrogate(char16_t c) noexcept { return c >= 0xD800 && c <= 0xDBFF; }
bool isLowSurrogate(char16_t c) noexcept { return c >= 0xDC00 && c <= 0xDFFF; }

// Any but a surrogate.
bool isWritable(char16_t c) noexcept { return c >= 0x20 ? c < 0xFFFE : c == u'\t' || c == u'\n' || c == u'\r'; }

} // namespace

std::u16string_view trimSpace(std::u16string_view text) noexcept {
    std::size_t first = 0;
    std::size_t last = text.size();
    while (first < last && isSpace(text[first]))
        ++first;
    while (last > first && isSpace(text[last - 1]))
        --last;
    return text.substr(first, last - first);
}

std::size_t findUnwritableCharacter(std::u16string_view text) noexcept {
    for (std::size_t at = 0; at < text.size(); ++at) {
        char16_t unit = text[at];
        bool isPair = isHighSurrogate(unit) && at + 1 < text.size() && isLowSurrogate(text[at + 1]);
        if (isPair)
            ++at;
        else if (isHighSurrogate(unit) || isLowSurrogate(unit) || !isWritable(unit))
            return at;
    }
    return std::u16string_view::npos;
}
