// A text with blanks where the printer takes none. Each becomes an underscore.
#pragma once

#include "jtcore/Capabilities/FailedCapability.h"

class FailedEmbeddedSpacesCapability final : public ClonedProblem<FailedEmbeddedSpacesCapability, FailedCapability> {
public:
    FailedEmbeddedSpacesCapability(AttrLocation location, const CapabilityId& capability)
        : ClonedProblem(std::move(location), capability) {}

    Fix getFix(const AttrNodeList& defaults) const override;
    bool hasEqualFields(const FailedEmbeddedSpacesCapability& other) const {
        return getCapability() == other.getCapability();
    }
};
