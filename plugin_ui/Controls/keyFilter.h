// Which keys an entry field takes: pure decisions, made for each key before the field sees it.
#pragma once

#include "plugin_ui/Controls/NumberBoxType.h"
#include "plugin_ui/Controls/TextBoxType.h"

#include <cstddef>
#include <cstdint>
#include <string>

// A field as it stands when a key comes; the selection is the characters from start up to end, which the key replaces.
struct EntryState {
    std::u16string text;
    std::size_t selectionStart = 0;
    std::size_t selectionEnd = 0;

    bool hasSelection() const noexcept { return selectionEnd > selectionStart; }
    // Whether the character would still be there after the key.
    bool keeps(char16_t character) const noexcept;
};

// Keys that add no text: backspace, escape, and copy, cut, undo and select all.
bool isEditingKey(char16_t key) noexcept;

bool hasRoomForKey(const EntryState& entry, std::int32_t maxChars) noexcept;

// A minus sign goes to the front, and once. All other keys pass.
bool passesMinusTest(char16_t key, const EntryState& entry) noexcept;
// A decimal point goes in once. All other keys pass.
bool passesPointTest(char16_t key, const EntryState& entry) noexcept;

// Whether a field that holds at most maxChars characters takes the key. Raise UnknownCaseException for a type that is
// none.
bool acceptsTextKey(TextBoxType type, char16_t key, const EntryState& entry, std::int32_t maxChars);
bool acceptsNumberKey(NumberBoxType type, char16_t key, const EntryState& entry, std::int32_t maxChars);
