// One family as it is written.
#pragma once

#include "resources/capabilities/tool/JsonFile.h"

#include <cstdint>
#include <string>
#include <vector>

// What a family changes about the blocks that it takes, or about the older form.
struct Changes {
    std::vector<std::string> keep; // of what the older form would take away; nothing else has it
    Json set = Json::object();     // capability: statement
    Json add = Json::object();     // capability: more values
    Json remove = Json::object();  // capability: values, or "all"
};

struct FamilyFile {
    // Every section that is not known is a fault.
    FamilyFile(const std::filesystem::path& path, FaultList& faults);

    std::string file;
    std::int32_t number = 0;
    std::vector<std::string> takes;
    Changes changes;
    std::vector<std::string> stockSets;
    std::vector<std::string> stocks;
    Changes older;

private:
    bool readSection(const JsonFile& json, const std::string& section, const Json& content, FaultList& faults);
};
