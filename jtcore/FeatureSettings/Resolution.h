// A printer resolution: dots in the two directions and what they are counted per (3 inch, 4 centimetre).
#pragma once

#include <cstdint>

struct Resolution {
    std::int32_t crossFeed = 0;
    std::int32_t feedDirection = 0;
    std::int32_t units = 0;

    bool isEmpty() const noexcept { return *this == Resolution{}; }
    bool operator==(const Resolution&) const = default;
};
