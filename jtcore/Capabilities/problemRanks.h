// The orders in which problems are repaired and reported, by their classes.
#pragma once

#include "jtcore/Capabilities/FailedCapability.h"
#include "jtcore/Capabilities/MissingFeatureProblem.h"
#include "jtcore/Capabilities/UnsupportedAttribute.h"
#include "jtcore/Capabilities/UnsupportedValue.h"

// Attributes go first, so that values inside them are not repaired in vain, and missing features come last, so that a
// default is added only where nothing else has been touched.
enum class RepairRank {
    unsupportedAttribute = 1,
    unsupportedValue = 2,
    failedCapability = 3,
    missingFeature = 4,
    other
};
enum class ReportRank { unsupportedFeatures = 1, unsupportedValues = 2, missingFeatures = 3, other };

inline RepairRank repairRankOf(const SettingsProblem& problem) {
    if (dynamic_cast<const UnsupportedAttribute*>(&problem)) return RepairRank::unsupportedAttribute;
    if (dynamic_cast<const UnsupportedValue*>(&problem)) return RepairRank::unsupportedValue;
    if (dynamic_cast<const FailedCapability*>(&problem)) return RepairRank::failedCapability;
    if (dynamic_cast<const MissingFeatureProblem*>(&problem)) return RepairRank::missingFeature;
    return RepairRank::other;
}

inline ReportRank reportRankOf(const SettingsProblem& problem) {
    switch (repairRankOf(problem)) {
    case RepairRank::unsupportedAttribute:
        return ReportRank::unsupportedFeatures;
    case RepairRank::unsupportedValue:
    case RepairRank::failedCapability:
        return ReportRank::unsupportedValues;
    case RepairRank::missingFeature:
        return ReportRank::missingFeatures;
    default:
        return ReportRank::other;
    }
}
