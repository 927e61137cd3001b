// The quick way through our own compact tickets.
//
// A state is read each time a document is opened, and nearly always holds text that this system has written. These two
// read and write exactly that text, in one pass and without the XML library. Whatever is not in the plain form that our
// writer gives, or would fail, they leave to the library: a caller who goes there on `false` never sees a difference.
#pragma once

#include "jtcore/Attributes/AttrNodeList.h"
#include "jtcore/Services/ByteBuffer.h"

#include <optional>
#include <string>
#include <string_view>

// Appends the attributes to the list. False, and the list as it was, when the text is not in our writer's form.
bool readCompactText(const ByteBuffer& text, AttrNodeList& list);

// How ids and texts stand in the text that is written: here as they are. A text may be spelled by the id that was met
// last before it, where a list counts as met behind what is in it, and private nodes count like all others.
class CompactSpelling {
public:
    static constexpr int noContext = -1;
    struct Id {
        std::u16string_view text;
        std::optional<int> context; // of the texts that follow; nothing when the id leaves it as it is
    };

    virtual ~CompactSpelling() = default;
    // The result must outlive the writing.
    virtual Id spellId(std::u16string_view id) const { return {id, std::nullopt}; }
    // May put the text together in `scratch`.
    virtual std::u16string_view spellText(std::u16string_view text, int /*context*/,
                                          std::u16string& /*scratch*/) const {
        return text;
    }
};

// Appends the text to the bytes. False, and the bytes as they were, when the list holds what XML cannot carry.
bool writeCompactText(const AttrNodeList& list, ByteBuffer& text, const CompactSpelling& spelling = CompactSpelling());
