#pragma once

#include <cstdint>

// What a number box takes.
enum class NumberBoxType : std::int32_t {
    unsignedInteger = 1,
    decimal = 2,
    signedInteger = 3,
};
