// What a job of a printer starts with, as far as the printer's family decides it.
#pragma once

#include "jtcore/FeatureSettings/Feature.h"

#include <cstdint>
#include <string_view>
#include <vector>

struct StartValue {
    Feature feature{};
    std::u16string_view text;
};

// The size, which the user's region decides, and the names of the job and its owner are not among them.
std::vector<StartValue> jobStart(std::int32_t family);
