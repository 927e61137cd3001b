#include "jtcore/JtifParse/compactSyntax.h"

#include <algorithm>
#include <array>

namespace {

struct Letter {
    std::u16string_view syntaxName;
    std::u16string_view letter;
};

constexpr auto letters = std::to_array<Letter>({
    {u"boolean", u"b"},
    {u"enum", u"e"},
    {u"integer", u"i"},
    {u"name", u"n"},
    {u"1setOf", u"s"},
    {u"text", u"t"},
    {u"collection", u"c"},
    {u"uri", u"u"},
    {u"keyword", u"k"},
    {u"mimeMediaType", u"m"},
    {u"rangeOfInteger", u"r"},
    {u"resolution", u"o"},
});

} // namespace

std::u16string_view toCompactSyntax(std::u16string_view syntaxName) noexcept {
    const auto* row = std::ranges::find(letters, syntaxName, &Letter::syntaxName);
    return row != letters.end() ? row->letter : syntaxName;
}

std::u16string_view fromCompactSyntax(std::u16string_view letter) noexcept {
    const auto* row = std::ranges::find(letters, letter, &Letter::letter);
    return row != letters.end() ? row->syntaxName : letter;
}
