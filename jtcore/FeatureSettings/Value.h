// The numbers of the feature values. The fixed rows stand in FeatureValue.def; a value that comes up at run time, such
// as the name of a user's own stock, has a number from runTimeValueFirst on and no enumerator.
#pragma once

#include <cstdint>

enum class Value : std::uint32_t {
#define VALUE(number, enumerator, ...) enumerator = number,
#include "jtcore/FeatureSettings/FeatureValue.def"
#undef VALUE
};

using ValueEnum = Value;

inline constexpr std::uint32_t fixedValueLast = 516;
inline constexpr std::uint32_t runTimeValueFirst = 517;

constexpr bool isRunTimeValue(Value value) noexcept { return static_cast<std::uint32_t>(value) >= runTimeValueFirst; }
