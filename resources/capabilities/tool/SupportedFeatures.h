// Which features a printer supports, as it follows from what is stated about them.
#pragma once

#include "resources/capabilities/tool/Composition.h"

#include <string_view>
#include <vector>

class SupportedFeatures {
public:
    // REQUIRES: the composition outlives this object.
    SupportedFeatures(const Composition& composition, bool hasStocks) noexcept
        : composition_(&composition), hasStocks_(hasStocks) {}

    bool has(Feature feature) const;
    // By the feature's name. A name that is no feature is not supported.
    bool has(std::u16string_view name) const;

    // The supported members of a collection, Feature::any being the job itself, in the order of their numbers.
    std::vector<Feature> members(Feature collection) const;

    // True for what stands only inside the entry of a cover, an insert or an exception, and is told by whoever makes
    // the entry.
    static bool isToldByEntry(Feature feature) noexcept;

private:
    bool isStated(Feature feature) const;

    const Composition* composition_;
    bool hasStocks_;
};

// The collection that a feature is a member of: Feature::any for one that stands at the top of a job.
Feature collectionOf(Feature feature);
