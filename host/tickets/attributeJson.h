// An attribute list as JSON: {"id":…, "syntax":…, "value":…} for each node. Numbers are numbers, booleans booleans, all
// other single values text; a list of any syntax is an array of nodes.
#pragma once

#include "jtcore/Attributes/AttrNodeList.h"

#include <nlohmann/json_fwd.hpp>

nlohmann::ordered_json toJson(const AttrNodeList& list);
// What stands behind "value" for one attribute.
nlohmann::ordered_json toJson(const AttrValue& value);
