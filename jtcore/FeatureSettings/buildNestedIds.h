// The identifiers of a table's rows, in the order of the rows.
#pragma once

#include "jtcore/FeatureSettings/AttrPath.h"
#include "jtcore/FeatureSettings/NestedAttrID.h"

#include <vector>

// The kind of a step that is marked as the attribute's name, and of the others.
struct StepKinds {
    StepKind marked;
    StepKind unmarked;
};

inline NestedAttrID makeNestedId(const AttrPath& path, StepKinds kinds) {
    NestedAttrID id(path.leaf);
    for (const PathStep& step : path.steps)
        id.addPathEntry(step.id, step.syntax, step.isName ? kinds.marked : kinds.unmarked);
    return id;
}

template <typename Rows>
std::vector<NestedAttrID> buildNestedIds(const Rows& rows, StepKinds kinds) {
    std::vector<NestedAttrID> ids;
    ids.reserve(rows.size());
    for (const auto& row : rows)
        ids.push_back(makeNestedId(row.path, kinds));
    return ids;
}
