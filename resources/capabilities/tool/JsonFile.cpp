#include "resources/capabilities/tool/JsonFile.h"

#include <fstream>
#include <set>

namespace {

// Tells of every key that an object has twice: the parser itself would take the last one without a word.
class DuplicateFinder {
public:
    DuplicateFinder(const std::string& file, FaultList& faults) : file_(file), faults_(&faults) {}

    bool operator()(int, Json::parse_event_t event, Json& parsed) {
        if (event == Json::parse_event_t::object_start) keys_.emplace_back();
        if (event == Json::parse_event_t::object_end) keys_.pop_back();
        if (event == Json::parse_event_t::key && !keys_.back().insert(parsed.get<std::string>()).second)
            faults_->add({file_, parsed.get<std::string>()}, "stands twice");
        return true;
    }

private:
    std::string file_;
    FaultList* faults_;
    std::vector<std::set<std::string>> keys_;
};

} // namespace

JsonFile readJsonFile(const std::filesystem::path& path, FaultList& faults) {
    JsonFile file;
    file.name = path.filename().string();
    std::ifstream stream(path, std::ios::binary);
    if (!stream) {
        faults.add(file.at(""), "cannot be read");
        return file;
    }
    try {
        constexpr bool throwOnFault = true;
        constexpr bool ignoreComments = true;
        Json content = Json::parse(stream, DuplicateFinder(file.name, faults), throwOnFault, ignoreComments);
        if (content.is_object())
            file.content = std::move(content);
        else
            faults.add(file.at(""), "is no object");
    } catch (const Json::parse_error& fault) {
        faults.add(file.at(""), fault.what());
    }
    return file;
}

std::string show(const Json& value) { return value.dump(); }

void forEachMember(const Json& object, const Place& place, FaultList& faults,
                   const std::function<void(const std::string&, const Json&)>& use) {
    if (!object.is_object()) return faults.add(place, "should be an object, not " + show(object));
    for (const auto& [key, value] : object.items())
        use(key, value);
}

void forEachText(const Json& array, const Place& place, FaultList& faults,
                 const std::function<void(const std::string&)>& use) {
    if (!array.is_array()) return faults.add(place, "should be a list, not " + show(array));
    for (const Json& item : array) {
        if (item.is_string())
            use(item.get<std::string>());
        else
            faults.add(place, "should hold texts, not " + show(item));
    }
}
