// A number, or the length of a text, outside its limits. Numbers are brought to the nearer limit, long texts are cut,
// and a text that is too short goes.
#pragma once

#include "jtcore/Capabilities/FailedCapability.h"

class FailedRangeCapability final : public ClonedProblem<FailedRangeCapability, FailedCapability> {
public:
    // Both limits are allowed themselves.
    FailedRangeCapability(AttrLocation location, const CapabilityId& capability, std::int32_t lower, std::int32_t upper)
        : ClonedProblem(std::move(location), capability), lower_(lower), upper_(upper) {}

    Fix getFix(const AttrNodeList& defaults) const override;

    std::int32_t getLower() const noexcept { return lower_; }
    std::int32_t getUpper() const noexcept { return upper_; }
    bool hasEqualFields(const FailedRangeCapability& other) const {
        return getCapability() == other.getCapability() && lower_ == other.lower_ && upper_ == other.upper_;
    }

private:
    std::int32_t clamp(std::int32_t value) const noexcept;
    Fix fixRange(const AttrNode& node) const;
    Fix fixInteger(const AttrNode& node) const;
    Fix fixText(const AttrNode& node) const;

    std::int32_t lower_;
    std::int32_t upper_;
};
