// What one press of a spin button makes of a number. The button tells a position change, whose sign is the opposite of
// the number's; its own position plays no part.
#pragma once

#include <cstdint>

// A step is one unit of the last place: of 1 or 2 places.
double spinDecimal(double value, std::int32_t delta, std::int32_t precision, double lower, double upper) noexcept;
std::int32_t spinInteger(double value, std::int32_t delta, std::int32_t lower, std::int32_t upper) noexcept;
