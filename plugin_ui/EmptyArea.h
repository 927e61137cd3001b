// A private area in its initial state, with an empty user name and no preferences, laid out when the module is
// compiled. It needs no memory and no service, so it can be had when nothing else can.
//
// Its compressed block is one stored block of deflate: the record as it stands, between a zlib header and its checksum.
#pragma once

#include "jtcore/AnlXlate/PersistentLayout.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>

using AreaBytes = std::array<std::uint8_t, sizeof(KolmaDmType)>;

class EmptyAreaWriter {
public:
    template <typename Stored>
    constexpr void put(const Stored& stored) {
        const auto bytes = std::bit_cast<std::array<std::uint8_t, sizeof(Stored)>>(stored);
        std::copy(bytes.begin(), bytes.end(), bytes_.begin() + at_);
        at_ += static_cast<std::ptrdiff_t>(sizeof(Stored));
    }

    constexpr void putBig(std::uint32_t value) {
        for (int shift = 24; shift >= 0; shift -= 8)
            put(static_cast<std::uint8_t>(value >> shift & 0xFF));
    }

    constexpr const AreaBytes& bytes() const { return bytes_; }

private:
    AreaBytes bytes_{};
    std::ptrdiff_t at_ = 0;
};

template <std::size_t Size>
constexpr std::uint32_t adler32Of(const std::array<std::uint8_t, Size>& bytes) {
    std::uint32_t low = 1;
    std::uint32_t high = 0;
    for (const std::uint8_t byte : bytes) {
        low = (low + byte) % 65521;
        high = (high + low) % 65521;
    }
    return high << 16 | low;
}

constexpr AreaBytes makeEmptyArea() {
    using Front = std::array<std::uint8_t, 7>; // zlib header, "the last block, stored", its length and the complement
    constexpr std::uint32_t record = sizeof(PersistentData);
    constexpr std::uint32_t stateSize = sizeof(PersistentHeader) + sizeof(Front) + record + 4 + 12;
    EmptyAreaWriter area;
    KolmaDmFields fields;
    fields.dataSize = stateSize;
    area.put(fields);
    area.put(PersistentHeader());
    area.put(Front{0x78, 0x01, 1, record & 0xFF, record >> 8, ~record & 0xFF, ~record >> 8 & 0xFF});
    area.put(PersistentData());
    area.putBig(adler32Of(std::bit_cast<std::array<std::uint8_t, record>>(PersistentData())));
    area.putBig(0xFFFFFFFF); // compression level -1
    area.putBig(record);
    area.put(std::array<std::uint8_t, 4>{'C', 'O', 'M', '4'});
    return area.bytes();
}

inline constexpr AreaBytes emptyArea = makeEmptyArea();
