// The numbers of the features. A feature is one user-settable property of a job; the rows stand in Feature.def.
#pragma once

#include "jtcore/FeatureSettings/FixedList.h"

#include <cstdint>

enum class Feature : std::uint32_t {
    // No feature in particular (KJTF_ANY): what belongs to every feature, or to the job as a whole.
    any = 1,
#define FEATURE(number, enumerator, ...) enumerator = number,
#include "jtcore/FeatureSettings/Feature.def"
#undef FEATURE
};

// Where a feature is told with the collection it stands in: at the top of the job.
inline constexpr Feature noParentFeature{};

inline constexpr std::uint32_t featureFirst = 2;
inline constexpr std::uint32_t featureLast = 107;

using FeatureList = FixedList<Feature, 3>;
