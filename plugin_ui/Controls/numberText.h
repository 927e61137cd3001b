// Numbers as a number box shows and reads them, the same in every locale: a point, and no grouping.
#pragma once

#include "plugin_ui/Controls/NumberBoxType.h"

#include <cstdint>
#include <string>
#include <string_view>

// What a number box holds: a number, or nothing at all, which is not the number 0.
struct NumberEntry {
    double value = 0;
    bool isEmpty = false;

    bool operator==(const NumberEntry&) const noexcept = default;
};

// The entry that a text stands for. What is no number, such as a sign alone, is 0, and the rest behind a number counts
// for nothing. Raises UnknownCaseException for a type that is none.
NumberEntry readNumberEntry(std::u16string_view text, NumberBoxType type);
// Raises UnknownCaseException for a type that is none. The precision is 1 or 2 places, for decimal numbers.
std::u16string formatNumber(double value, NumberBoxType type, std::int32_t precision);

// 0 for what is no number.
double parseDecimal(std::u16string_view text);
std::u16string formatDecimal(double value, std::int32_t precision);
// As it is shown and read back.
double roundToPrecision(double value, std::int32_t precision);

// Cut towards 0, and to the nearest bound where it does not fit.
std::int32_t toInteger(double value) noexcept;

// The characters of an integer, the sign included.
std::int32_t countDigits(std::int32_t value) noexcept;
