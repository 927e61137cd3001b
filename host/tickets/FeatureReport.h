// What a printer can do with one feature, gathered for showing.
#pragma once

#include "host/tickets/FeatureLabels.h"
#include "jtcore/Capabilities/Capabilities.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

struct FeatureReport {
    // The words fall back to the text that stands in a ticket.
    struct Choice {
        std::u16string text;
        std::u16string words;
    };

    std::u16string id;
    std::u16string words;
    std::vector<Choice> choices;
    std::vector<Resolution> resolutions;
    std::optional<StockSizeRange> customSizes;
    std::vector<std::u16string> sizes; // the words for the named paper sizes
    std::vector<Choice> members;       // features, the text being the id
    // Of the value, or of the number of characters of a text.
    std::optional<std::pair<std::int32_t, std::int32_t>> range;
    std::optional<std::int32_t> characterLimit;
    std::optional<std::int32_t> precision;
    std::optional<std::int32_t> characterSet;
    bool isText = false;
    bool takesOwnValues = false;
    bool refusesBlanks = false;
    bool mayBeUnset = false;
};

// Whether the job may have the feature, or one of the collections that it may have: an exception, a cover, an insert.
bool isOffered(const Capabilities& capabilities, const FeatureId& feature);

FeatureReport reportFeature(const Capabilities& capabilities, const FeatureId& feature, const FeatureLabels& labels);

// The capabilities that the driver will ask for, since the printer has their feature, and that are not there. Raises
// AttributeTypeMismatchException when one is there in another shape.
std::vector<std::u16string> findMissingCapabilities(const Capabilities& capabilities);
