// Composes the report of what a printer cannot do: by category, and in each by the parts of the job.
#pragma once

#include "jtcore/Capabilities/SettingsProblemList.h"

#include <string>

class LimitationsText {
public:
    // The defaults are those that repairs take values from, and must outlive the object.
    LimitationsText(const AttrNodeList& defaults, bool showsRepair) noexcept
        : defaults_(defaults), showsRepair_(showsRepair) {}

    // Raises what the resource module raises.
    std::u16string compose(const SettingsProblemList& problems) const;

private:
    struct Category;

    std::u16string makeHeading(const Category& category) const;
    // What stands behind the feature's name: the present value, and what becomes of it.
    std::u16string describe(const SettingsProblem& problem, bool isInContext) const;
    std::u16string describeRemoval(const SettingsProblem& problem, const Fix& fix, bool isInContext) const;

    const AttrNodeList& defaults_;
    bool showsRepair_;
};
