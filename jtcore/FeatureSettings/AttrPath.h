// Where an attribute stands in nested lists, as a table row tells it.
//
// The notation, "media-col{}/media-size{}/x-dimension": the steps from the root list to the attribute, a step with []
// being a 1setOf and one with {} a collection. A * behind a step's id marks the step that names the attribute.
#pragma once

#include "jtcore/FeatureSettings/FixedList.h"

#include <string_view>

struct PathStep {
    std::u16string_view id;
    std::u16string_view syntax; // "1setOf" or "collection"
    bool isName = false;        // the attribute is known by this step's id
};

struct AttrPath {
    std::u16string_view leaf;
    FixedList<PathStep, 3> steps; // outermost first

    // The id of the marked step, or the leaf where none is.
    constexpr std::u16string_view name() const noexcept {
        for (const PathStep& step : steps)
            if (step.isName) return step.id;
        return leaf;
    }
};

constexpr PathStep parsePathStep(std::u16string_view text) {
    PathStep step;
    step.syntax = text.ends_with(u"[]") ? u"1setOf" : text.ends_with(u"{}") ? u"collection" : throw "not a list";
    text.remove_suffix(2);
    step.isName = text.ends_with(u'*');
    if (step.isName) text.remove_suffix(1);
    step.id = text;
    return step;
}

// REQUIRES: the notation is well formed and outlives the result. Meant for constant expressions, where a bad one does
// not compile.
constexpr AttrPath parseAttrPath(std::u16string_view notation) {
    AttrPath path;
    for (auto slash = notation.find(u'/'); slash != notation.npos; slash = notation.find(u'/')) {
        path.steps.push_back(parsePathStep(notation.substr(0, slash)));
        notation.remove_prefix(slash + 1);
    }
    if (notation.empty() || notation.find_first_of(u"*[]{}") != notation.npos) throw "the attribute needs a plain id";
    path.leaf = notation;
    return path;
}
