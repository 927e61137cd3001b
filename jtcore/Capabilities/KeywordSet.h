// Texts that are asked for often, kept so that a question costs one hash and nearly always one comparison.
#pragma once

#include "jtcore/FeatureSettings/KeyIndex.h"

#include <bit>
#include <cstddef>
#include <string_view>
#include <vector>

// The texts are borrowed.
class KeywordSet {
public:
    explicit KeywordSet(const std::vector<std::u16string_view>& texts) : slots_(slotsFor(texts.size())) {
        for (const std::u16string_view text : texts)
            slots_[findSlot(text)] = text;
    }

    bool contains(std::u16string_view text) const noexcept { return !text.empty() && !slots_[findSlot(text)].empty(); }

private:
    // At most half full, so that there is always a free slot to end at.
    static std::size_t slotsFor(std::size_t count) noexcept { return std::bit_ceil(2 * count + 1); }

    // Where the text stands, or the free slot that it would take. A free slot is an empty text.
    std::size_t findSlot(std::u16string_view text) const noexcept {
        std::size_t at = hashKey(0, text) & (slots_.size() - 1);
        while (!slots_[at].empty() && !isSameText(slots_[at], text))
            at = (at + 1) & (slots_.size() - 1);
        return at;
    }

    std::vector<std::u16string_view> slots_;
};
