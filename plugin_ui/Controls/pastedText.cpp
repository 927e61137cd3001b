#include "plugin_ui/Controls/pastedText.h"

#include <algorithm>

namespace {

bool isControlCharacter(char16_t character) noexcept { return character < u' ' || character == 0x7F; }

bool isLayout(char16_t character) noexcept { return character == u'\t' || character == u'\r' || character == u'\n'; }

void put(EntryState& field, char16_t character) {
    field.text.replace(field.selectionStart, field.selectionEnd - field.selectionStart, 1, character);
    field.selectionEnd = ++field.selectionStart;
}

std::u16string_view trimmed(std::u16string_view text) {
    constexpr std::u16string_view blanks = u" \t\r\n\u00A0";
    const std::size_t first = std::min(text.find_first_not_of(blanks), text.size());
    return text.substr(first, text.find_last_not_of(blanks) + 1 - first);
}

} // namespace

FieldEdit findEdit(const std::u16string& before, const std::u16string& after) {
    const auto [changed, change] = std::mismatch(before.begin(), before.end(), after.begin(), after.end());
    const auto start = static_cast<std::size_t>(changed - before.begin());
    const std::size_t rest = std::min(before.size(), after.size()) - start;
    std::size_t same = 0; // at the end
    while (same < rest && before[before.size() - 1 - same] == after[after.size() - 1 - same])
        ++same;
    return {{before, start, before.size() - same}, after.substr(start, after.size() - same - start)};
}

std::u16string admitText(TextBoxType type, const FieldEdit& edit, std::int32_t maxChars, bool hasLines) {
    EntryState field = edit.field;
    std::u16string admitted;
    for (const char16_t character : edit.inserted) {
        const bool isText = !isControlCharacter(character) || (hasLines && isLayout(character));
        if (!isText || !acceptsTextKey(type, character, field, maxChars)) continue;
        put(field, character);
        admitted.push_back(character);
    }
    return admitted;
}

std::u16string admitNumber(NumberBoxType type, const FieldEdit& edit, std::int32_t maxChars) {
    EntryState field = edit.field;
    const std::u16string_view number = trimmed(edit.inserted);
    for (const char16_t character : number) {
        if (isControlCharacter(character) || !acceptsNumberKey(type, character, field, maxChars)) return {};
        put(field, character);
    }
    return std::u16string(number);
}
