// Problems at places of a list that a test writes.
#pragma once

#include "tests/listBuilder.h"
#include "tests/problemText.h"

#include <algorithm>
#include <memory>
#include <string_view>

inline ListBuilder range(std::int32_t lower, std::int32_t upper) { return list().range(u"value", lower, upper); }

// What a job for the printer of these tests starts with.
inline AttrNodeList defaults() {
    return list()
        .keyword(u"sides", u"one-sided")
        .set(u"finishings", list().enumeration(u"value", 3))
        .collection(
            u"media-col",
            list()
                .keyword(u"media-type", u"stationery")
                .collection(u"media-size", list().integer(u"x-dimension", 21000).integer(u"y-dimension", 29700)));
}

// The location of the node that the ids lead to; those that end in '!' are required. An empty path is the root.
inline AttrLocation locate(AttrNodeList& root, std::u16string_view path) {
    AttrLocation location(&root);
    while (!path.empty()) {
        std::u16string_view id = path.substr(0, path.find(u'/'));
        path.remove_prefix(std::min(path.size(), id.size() + 1));
        const bool isRequired = id.ends_with(u'!');
        if (isRequired) id.remove_suffix(1);
        if (location.getNode()) location.descend();
        location.enter(*location.getList().getNode(id), isRequired);
    }
    return location;
}

enum class Kind { attribute, value, range, spaces };

inline std::unique_ptr<SettingsProblem> makeProblem(Kind kind, AttrLocation location) {
    const CapabilityId limit(Feature::jobAccountId, CapabilityType::intRange);
    switch (kind) {
    case Kind::attribute:
        return std::make_unique<UnsupportedAttribute>(std::move(location));
    case Kind::value:
        return std::make_unique<UnsupportedValue>(std::move(location));
    case Kind::range:
        return std::make_unique<FailedRangeCapability>(std::move(location), limit, 3, 12);
    default:
        return std::make_unique<FailedEmbeddedSpacesCapability>(std::move(location), limit);
    }
}
