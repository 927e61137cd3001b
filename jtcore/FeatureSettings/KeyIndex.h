// Indexes of table rows that the compiler builds: looked up without a lock, an allocation, or any work at load.
// A row is known by its position in the table plus one; 0 stands for none.
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <type_traits>

using RowNumber = std::uint16_t;

// Four characters a step. The seed keeps equal texts of different kinds apart.
constexpr std::uint64_t hashKey(std::uint32_t seed, std::u16string_view text) noexcept {
    constexpr std::uint64_t factor = 0x9E3779B97F4A7C15U;
    std::uint64_t hash = (seed + text.size() * 0x10000U + 1) * factor;
    const char16_t* at = text.data();
    std::size_t left = text.size();
    for (; left >= 4; at += 4, left -= 4) {
        const std::uint64_t four =
            at[0] | std::uint64_t{at[1]} << 16 | std::uint64_t{at[2]} << 32 | std::uint64_t{at[3]} << 48;
        hash = (hash ^ four) * factor;
        hash ^= hash >> 32;
    }
    for (; left > 0; ++at, --left)
        hash = (hash ^ *at) * factor;
    return hash ^ hash >> 32;
}

// As ==, which the library compares character by character.
constexpr bool isSameText(std::u16string_view one, std::u16string_view other) noexcept {
    if (std::is_constant_evaluated()) return one == other;
    return one.size() == other.size() && std::memcmp(one.data(), other.data(), one.size() * sizeof(char16_t)) == 0;
}

// Open addressing with linear steps, at most half full.
template <std::size_t slotCount>
class KeyIndex {
    static_assert(std::has_single_bit(slotCount));

public:
    // Throws when the index is half full; in a constant expression that does not compile.
    constexpr void insert(std::uint64_t hash, RowNumber row) {
        if (++count_ > slotCount / 2) throw "too many keys";
        std::size_t slot = hash % slotCount;
        while (slots_[slot] != 0)
            slot = (slot + 1) % slotCount;
        slots_[slot] = row;
    }

    // The row whose key hashes so and which `isMatch` accepts, or 0.
    template <typename Match>
    constexpr RowNumber find(std::uint64_t hash, const Match& isMatch) const {
        for (std::size_t slot = hash % slotCount; slots_[slot] != 0; slot = (slot + 1) % slotCount)
            if (isMatch(slots_[slot])) return slots_[slot];
        return 0;
    }

private:
    std::array<RowNumber, slotCount> slots_{};
    std::size_t count_ = 0;
};

// Keys of one or two letters, each with a slot of its own.
class AbbreviationIndex {
public:
    // Throws when the text is no abbreviation or is taken; in a constant expression that does not compile.
    constexpr void insert(std::u16string_view text, RowNumber row) {
        const std::size_t slot = slotOf(text);
        if (slot == 0 || slots_[slot] != 0) throw "no abbreviation, or one that is taken";
        slots_[slot] = row;
    }

    constexpr RowNumber find(std::u16string_view text) const noexcept { return slots_[slotOf(text)]; }

private:
    static constexpr std::size_t letterCount = 52;

    // 1 to 52, or 0 for what is no letter.
    static constexpr std::size_t letter(char16_t c) noexcept {
        if (c >= u'A' && c <= u'Z') return c - std::size_t{u'A'} + 1;
        if (c >= u'a' && c <= u'z') return c - std::size_t{u'a'} + 27;
        return 0;
    }

    // Slot 0 stays free, for what is no abbreviation.
    static constexpr std::size_t slotOf(std::u16string_view text) noexcept {
        if (text.empty() || text.size() > 2) return 0;
        const std::size_t first = letter(text[0]);
        const std::size_t second = text.size() == 2 ? letter(text[1]) : 0;
        return first == 0 || (text.size() == 2 && second == 0) ? 0 : first * (letterCount + 1) + second;
    }

    std::array<RowNumber, (letterCount + 1) * (letterCount + 1)> slots_{};
};
