// An attribute that the printer does not have where it stands. It goes.
#pragma once

#include "jtcore/Capabilities/SettingsProblem.h"

class UnsupportedAttribute final : public ClonedProblem<UnsupportedAttribute, SettingsProblem> {
public:
    explicit UnsupportedAttribute(AttrLocation location) : ClonedProblem(std::move(location)) {}

    Fix getFix(const AttrNodeList& defaults) const override;
    bool hasEqualFields(const UnsupportedAttribute&) const noexcept { return true; }
};
