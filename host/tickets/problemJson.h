// What a printer cannot do of a ticket, as JSON: class, attribute, feature, context, present value and repair of each
// problem. Values are those of attributeJson.h, and null where there is none.
#pragma once

#include "jtcore/Capabilities/SettingsProblemList.h"

#include <nlohmann/json_fwd.hpp>

// The defaults are those that repairs take values from. Raises what the resource module raises.
nlohmann::ordered_json toJson(const SettingsProblemList& problems, const AttrNodeList& defaults);
