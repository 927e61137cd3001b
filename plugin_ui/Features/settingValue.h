// A setting as features read it to show it.
#pragma once

#include "jtcore/FeatureSettings/FeatureSettings.h"

// No value of the table, and no "not set".
inline constexpr FeatureValue unknownValue{ValueEnum{}};

// The setting; unknownValue where it holds something that the tables cannot make sense of: a document may bring such a
// thing along, and the page shows the rest all the same.
FeatureValue readSetting(const FeatureSettings& settings, const FeatureId& feature, std::size_t occurrence = 0);
