#include "resources/capabilities/tool/FamilyFile.h"

namespace {

std::vector<std::string> texts(const Json& array, const Place& place, FaultList& faults) {
    std::vector<std::string> result;
    forEachText(array, place, faults, [&](const std::string& text) { result.push_back(text); });
    return result;
}

void readObject(Json& target, const Json& content, const Place& place, FaultList& faults) {
    if (content.is_object())
        target = content;
    else
        faults.add(place, "should be an object, not " + show(content));
}

// False for a section that is none of a change.
bool readChange(Changes& changes, const std::string& section, const Json& content, const Place& place,
                FaultList& faults) {
    if (section == "set")
        readObject(changes.set, content, place, faults);
    else if (section == "add")
        readObject(changes.add, content, place, faults);
    else if (section == "remove")
        readObject(changes.remove, content, place, faults);
    else
        return false;
    return true;
}

Changes readOlder(const JsonFile& file, const Json& content, FaultList& faults) {
    Changes older;
    forEachMember(content, file.at("older"), faults, [&](const std::string& section, const Json& part) {
        const Place place = file.at("older/" + section);
        if (section == "keep")
            older.keep = texts(part, place, faults);
        else if (!readChange(older, section, part, place, faults))
            faults.add(place, "is no section of the older form");
    });
    return older;
}

} // namespace

FamilyFile::FamilyFile(const std::filesystem::path& path, FaultList& faults) {
    const JsonFile json = readJsonFile(path, faults);
    file = json.name;
    for (const auto& [section, content] : json.content.items()) {
        if (!readSection(json, section, content, faults)) faults.add(json.at(section), "is no section of a family");
    }
}

bool FamilyFile::readSection(const JsonFile& json, const std::string& section, const Json& content, FaultList& faults) {
    const Place place = json.at(section);
    if (section == "family" && content.is_number_integer())
        number = content;
    else if (section == "takes")
        takes = texts(content, place, faults);
    else if (section == "stock-sets")
        stockSets = texts(content, place, faults);
    else if (section == "stocks")
        stocks = texts(content, place, faults);
    else if (section == "older")
        older = readOlder(json, content, faults);
    else
        return readChange(changes, section, content, place, faults);
    return true;
}
