// Text that comes into an entry field at once: pasted, dropped or given back by an undo. No key filter has seen it, so
// the field is put right after the edit: it holds nothing that could not have been typed.
#pragma once

#include "plugin_ui/Controls/keyFilter.h"

#include <string>
#include <string_view>

struct FieldEdit {
    EntryState field; // as it was, with what the edit took away selected
    std::u16string inserted;
};

// The smallest edit that makes the one text of the other.
FieldEdit findEdit(const std::u16string& before, const std::u16string& after);

// The part of the inserted text that the field takes, key by key and as far as there is room. Line ends and tabs are
// text in a field of several lines alone.
std::u16string admitText(TextBoxType type, const FieldEdit& edit, std::int32_t maxChars, bool hasLines);
// The whole of it without the blanks round it, or nothing: a number with something left out would be another number.
std::u16string admitNumber(NumberBoxType type, const FieldEdit& edit, std::int32_t maxChars);
