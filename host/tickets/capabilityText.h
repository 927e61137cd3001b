// What a printer can do, as people read it and as JSON.
#pragma once

#include "jtcore/Capabilities/Capabilities.h"

#include <nlohmann/json_fwd.hpp>

#include <string>

// The features that the printer has, in groups; lines of UTF-8, each ended.
std::string toText(const Capabilities& capabilities);

// One entry for each feature that the printer has, in the order of the features' table.
nlohmann::ordered_json featuresToJson(const Capabilities& capabilities);
