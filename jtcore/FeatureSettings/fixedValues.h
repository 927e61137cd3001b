// Lookups among the fixed feature values alone: no lock, no allocation. For the table's own code; others ask
// FeatureValueDataBase.
#pragma once

#include "jtcore/FeatureSettings/FeatureValueDataBase.h"

// Null where there is no such row.
const FeatureValueInfo* findFixedValue(ValueEnum number) noexcept;
const FeatureValueInfo* findFixedValue(Feature feature, std::u16string_view text) noexcept;
const FeatureValueInfo* findFixedAbbreviation(std::u16string_view abbreviation) noexcept;

// The failure of a lookup by feature and text.
[[noreturn]] void raiseUnknownValue(Feature feature, std::u16string_view text);
