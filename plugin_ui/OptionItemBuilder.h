// Makes the items that the plug-in adds to the host's own sheets. All of their memory is the host's heap, which frees
// it: nothing is given back here.
#pragma once

#include "platform/driver_host.h"

#include <cstddef>
#include <cstdint>
#include <new>
#include <type_traits>

struct OptionChoice {
    std::uint16_t textId;
    ULONG_PTR iconId;
};

// An item with two choices; the first is the one with Sel 0.
struct OptionRow {
    std::uint16_t nameId;
    BYTE type;
    WORD style;
    OptionChoice choices[2];
};

class OptionItemBuilder {
public:
    explicit OptionItemBuilder(HANDLE heap) noexcept : heap_(heap) {}

    // Fills the item, whose bytes were zero. Raises bad_alloc and what the resource module raises.
    void fill(OPTITEM& item, const OptionRow& row, LONG selection) const;

    // Zeroed. Raises bad_alloc.
    template <typename Record>
    Record* allocate(std::size_t count = 1) const {
        static_assert(std::is_trivially_destructible_v<Record>);
        return new (allocateBytes(sizeof(Record) * count)) Record[count]{};
    }

private:
    void* allocateBytes(std::size_t size) const;
    LPWSTR loadString(std::uint16_t id) const;

    HANDLE heap_;
};
