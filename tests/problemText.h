// Problems as one line of text for tests: "UnsupportedValue page-overrides/value/sides; MissingFeature sides in
// copies". A required node ends in '!', limits stand in brackets.
#pragma once

#include "jtcore/Capabilities/FailedEmbeddedSpacesCapability.h"
#include "jtcore/Capabilities/FailedRangeCapability.h"
#include "jtcore/Capabilities/MissingFeatureProblem.h"
#include "jtcore/Capabilities/SettingsProblemList.h"
#include "jtcore/Capabilities/UnsupportedAttribute.h"
#include "jtcore/Capabilities/UnsupportedValue.h"
#include "jtcore/Services/text.h"

#include <string>

inline std::string placeOf(const SettingsProblem& problem) {
    const AttrLocation& location = problem.getLocation();
    std::string place;
    for (const AttrNode* ancestor : location.getAncestors())
        place += toUtf8(ancestor->getAttrID()) + '/';
    if (problem.getNode() && (location.getAncestors().empty() || problem.getNode() != location.getAncestors().back()))
        place += toUtf8(problem.getNode()->getAttrID());
    return place + (location.isRequired() ? "!" : "");
}

inline std::string show(const SettingsProblem& problem) {
    if (dynamic_cast<const UnsupportedAttribute*>(&problem)) return "UnsupportedAttribute " + placeOf(problem);
    if (dynamic_cast<const UnsupportedValue*>(&problem)) return "UnsupportedValue " + placeOf(problem);
    if (dynamic_cast<const FailedEmbeddedSpacesCapability*>(&problem)) return "EmbeddedSpaces " + placeOf(problem);
    if (const auto* range = dynamic_cast<const FailedRangeCapability*>(&problem))
        return "FailedRange " + placeOf(problem) + " [" + std::to_string(range->getLower()) + "," +
               std::to_string(range->getUpper()) + "]";
    return "MissingFeature " + toUtf8(problem.getProblemAttrName()) + " in " + placeOf(problem);
}

inline std::string show(const SettingsProblemList& problems) {
    std::string line;
    std::size_t position = 0;
    for (problems.resetIterator(position); problems.hasMoreSettingsProblems(position);)
        line += (line.empty() ? "" : "; ") + show(problems.getNextSettingsProblem(position));
    return line;
}
