// A 32-bit number of a stored structure: four bytes, low byte first, at any address.
#pragma once

#include <cstdint>

class LittleLong {
public:
    LittleLong() = default;
    constexpr LittleLong(std::uint32_t value) noexcept
        : bytes_{static_cast<std::uint8_t>(value), static_cast<std::uint8_t>(value >> 8U),
                 static_cast<std::uint8_t>(value >> 16U), static_cast<std::uint8_t>(value >> 24U)} {}

    constexpr operator std::uint32_t() const noexcept {
        return bytes_[0] | static_cast<std::uint32_t>(bytes_[1]) << 8U | static_cast<std::uint32_t>(bytes_[2]) << 16U |
               static_cast<std::uint32_t>(bytes_[3]) << 24U;
    }

private:
    std::uint8_t bytes_[4] = {};
};

static_assert(sizeof(LittleLong) == 4 && alignof(LittleLong) == 1);
