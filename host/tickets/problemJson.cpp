#include "host/tickets/problemJson.h"

#include "host/tickets/attributeJson.h"
#include "jtcore/Capabilities/FailedEmbeddedSpacesCapability.h"
#include "jtcore/Capabilities/FailedRangeCapability.h"
#include "jtcore/Capabilities/MissingFeatureProblem.h"
#include "jtcore/Capabilities/UnsupportedAttribute.h"
#include "jtcore/Capabilities/UnsupportedValue.h"
#include "jtcore/Services/text.h"

#include <nlohmann/json.hpp>

namespace {

using nlohmann::ordered_json;

std::string_view className(const SettingsProblem& problem) {
    if (dynamic_cast<const UnsupportedAttribute*>(&problem)) return "UnsupportedAttribute";
    if (dynamic_cast<const UnsupportedValue*>(&problem)) return "UnsupportedValue";
    if (dynamic_cast<const FailedRangeCapability*>(&problem)) return "FailedRangeCapability";
    if (dynamic_cast<const FailedEmbeddedSpacesCapability*>(&problem)) return "FailedEmbeddedSpacesCapability";
    return "MissingFeatureProblem";
}

std::string_view kindName(FixKind kind) {
    switch (kind) {
    case FixKind::remove:
        return "remove";
    case FixKind::removeEnclosing:
        return "remove-enclosing";
    case FixKind::replace:
        return "replace";
    case FixKind::add:
        break;
    }
    return "add";
}

ordered_json valueOf(const AttrNode* node) { return node ? toJson(node->getAttrValue()) : ordered_json(nullptr); }

ordered_json contextOf(const SettingsProblem& problem) {
    std::int32_t first = 0;
    std::int32_t last = 0;
    problem.getContext(first, last);
    std::u16string heading = problem.getContextHeading();
    heading.pop_back(); // the colon of a heading in a text
    return {{"heading", toUtf8(heading)}, {"first", first}, {"last", last}};
}

ordered_json toJson(const SettingsProblem& problem, const AttrNodeList& defaults) {
    const Fix fix = problem.getFix(defaults);
    return {{"class", className(problem)},
            {"attribute", toUtf8(problem.getProblemAttrName())},
            {"feature", toUtf8(problem.getProblemFeatureName())},
            {"context", contextOf(problem)},
            {"current", valueOf(fix.node)},
            {"fix", {{"kind", kindName(fix.kind)}, {"replacement", valueOf(fix.replacement.get())}}}};
}

} // namespace

ordered_json toJson(const SettingsProblemList& problems, const AttrNodeList& defaults) {
    auto json = ordered_json::array();
    std::size_t position = 0;
    for (problems.resetIterator(position); problems.hasMoreSettingsProblems(position);)
        json.push_back(toJson(problems.getNextSettingsProblem(position), defaults));
    return json;
}
