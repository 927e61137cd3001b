// A value that the printer does not have. Where the feature must be set, or the value stands at the feature's own place
// in the job, or it describes a stock, the default takes its place; elsewhere, as inside an exception, it goes, and the
// setting of the level above applies.
#pragma once

#include "jtcore/Capabilities/SettingsProblem.h"

class UnsupportedValue final : public ClonedProblem<UnsupportedValue, SettingsProblem> {
public:
    explicit UnsupportedValue(AttrLocation location) : ClonedProblem(std::move(location)) {}

    Fix getFix(const AttrNodeList& defaults) const override;
    bool hasEqualFields(const UnsupportedValue&) const noexcept { return true; }
};
