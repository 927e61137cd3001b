// A value that is beyond a limit which the printer's own extensions set.
#pragma once

#include "jtcore/Capabilities/SettingsProblem.h"
#include "jtcore/FeatureSettings/CapabilityId.h"

class FailedCapability : public SettingsProblem {
public:
    const CapabilityId& getCapability() const noexcept { return capability_; }

protected:
    FailedCapability(AttrLocation location, const CapabilityId& capability)
        : SettingsProblem(std::move(location)), capability_(capability) {}

private:
    CapabilityId capability_;
};
