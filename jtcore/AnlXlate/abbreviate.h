// The abbreviations of the compact ticket.
//
// An id is abbreviated by the feature table, or as one of the few member names. A value is abbreviated by the value
// table, under the feature that was met last: lists are handled before the node that holds them, so the members of a
// list are seen under the feature before it. A "*" marks a value that only looks like an abbreviation.
#pragma once

#include "jtcore/Attributes/AttrNodeList.h"
#include "jtcore/JtifParse/compactText.h"

// Abbreviates what is written.
class Abbreviation final : public CompactSpelling {
public:
    Id spellId(std::u16string_view id) const override;
    std::u16string_view spellText(std::u16string_view text, int context, std::u16string& scratch) const override;
};

// Abbreviates every node, at any depth, in place.
void abbreviateList(AttrNodeList& list);

// The reverse.
void expandList(AttrNodeList& list);
