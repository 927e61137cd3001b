// One authored file: JSON with comments, in which a key stands once.
#pragma once

#include "resources/capabilities/tool/FaultList.h"

#include <nlohmann/json.hpp>

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

// Keeps the order of the file.
using Json = nlohmann::ordered_json;

struct JsonFile {
    std::string name; // of the file alone, for faults
    Json content = Json::object();

    Place at(const std::string& key) const { return {name, key}; }
};

// A file that cannot be read, is no JSON object or says a key twice is a fault; its content is then empty.
JsonFile readJsonFile(const std::filesystem::path& path, FaultList& faults);

// The text of a value, as it stands in a file.
std::string show(const Json& value);

// Calls back for each member of an object, or each element of an array. Another kind is a fault.
void forEachMember(const Json& object, const Place& place, FaultList& faults,
                   const std::function<void(const std::string&, const Json&)>& use);
void forEachText(const Json& array, const Place& place, FaultList& faults,
                 const std::function<void(const std::string&)>& use);
