// The words for features and their values, as a user reads them in the driver.
#pragma once

#include "jtcore/FeatureSettings/Feature.h"
#include "jtcore/Services/ResourceLibrary.h"

#include <optional>
#include <string>
#include <string_view>

class FeatureLabels {
public:
    // Without the resource module there are no labels, and that is no failure.
    FeatureLabels();

    // Empty when the attribute is no feature, or has no name.
    std::u16string ofFeature(std::u16string_view attribute) const;
    // Empty when the feature has no such value, or the value has no name but its text.
    std::u16string ofValue(std::u16string_view attribute, std::u16string_view value) const;

private:
    std::u16string load(std::uint16_t id) const;

    std::optional<ResourceLibrary> library_;
};
