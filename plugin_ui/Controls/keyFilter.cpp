#include "plugin_ui/Controls/keyFilter.h"

#include "jtcore/Services/KolmaException.h"

#include <algorithm>

namespace {

constexpr bool isDigit(char16_t key) noexcept { return key >= u'0' && key <= u'9'; }

constexpr bool isLetter(char16_t key) noexcept { return (key >= u'A' && key <= u'Z') || (key >= u'a' && key <= u'z'); }

bool isTextKey(TextBoxType type, char16_t key) {
    switch (type) {
    case TextBoxType::any:
        return true;
    case TextBoxType::lettersAndDigits:
    case TextBoxType::customName:
        return isLetter(key) || isDigit(key);
    case TextBoxType::description:
        return isLetter(key) || isDigit(key) || key == u' ' || key == u'!' || key == u'_';
    }
    raise<UnknownCaseException>(u"TextBoxUIControl::TextBoxWindowProc : Unknown control value for save format.\r\n");
}

bool isNumberKey(NumberBoxType type, char16_t key) {
    switch (type) {
    case NumberBoxType::unsignedInteger:
        return isDigit(key);
    case NumberBoxType::decimal:
        return isDigit(key) || key == u'.' || key == u'-';
    case NumberBoxType::signedInteger:
        return isDigit(key) || key == u'-';
    }
    raise<UnknownCaseException>(
        u"NumberBoxUIControl::NumberBoxWindowProc : Unknown control value for save format.\r\n");
}

} // namespace

bool EntryState::keeps(char16_t character) const noexcept {
    const std::size_t start = std::min(selectionStart, text.size());
    const std::size_t end = std::clamp(selectionEnd, start, text.size());
    return text.find(character) < start || text.find(character, end) != std::u16string::npos;
}

bool isEditingKey(char16_t key) noexcept {
    constexpr char16_t selectAll = 1;
    constexpr char16_t copy = 3;
    constexpr char16_t backspace = 8;
    constexpr char16_t cut = 24;
    constexpr char16_t undo = 26;
    constexpr char16_t escape = 27;
    return key == backspace || key == escape || key == copy || key == cut || key == undo || key == selectAll;
}

bool hasRoomForKey(const EntryState& entry, std::int32_t maxChars) noexcept {
    return entry.hasSelection() || static_cast<std::int64_t>(entry.text.size()) < maxChars;
}

bool passesMinusTest(char16_t key, const EntryState& entry) noexcept {
    return key != u'-' || (entry.selectionStart == 0 && !entry.keeps(u'-'));
}

bool passesPointTest(char16_t key, const EntryState& entry) noexcept { return key != u'.' || !entry.keeps(u'.'); }

bool acceptsTextKey(TextBoxType type, char16_t key, const EntryState& entry, std::int32_t maxChars) {
    if (isEditingKey(key)) return true;
    return hasRoomForKey(entry, maxChars) && isTextKey(type, key);
}

bool acceptsNumberKey(NumberBoxType type, char16_t key, const EntryState& entry, std::int32_t maxChars) {
    if (isEditingKey(key)) return true;
    return hasRoomForKey(entry, maxChars) && isNumberKey(type, key) && passesMinusTest(key, entry) &&
           passesPointTest(key, entry);
}
