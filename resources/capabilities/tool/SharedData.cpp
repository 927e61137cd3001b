#include "resources/capabilities/tool/SharedData.h"

#include <set>

namespace {

// In the order of their names, whatever the file system says.
std::set<std::filesystem::path> filesOf(const std::filesystem::path& folder) {
    std::set<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() == ".json") files.insert(entry.path());
    }
    return files;
}

template <typename Value>
const Value* findIn(const std::map<std::string, Value>& map, const std::string& name) {
    const auto found = map.find(name);
    return found == map.end() ? nullptr : &found->second;
}

} // namespace

SharedData::SharedData(const std::filesystem::path& folder, FaultList& faults) {
    for (const auto& path : filesOf(folder)) {
        const JsonFile file = readJsonFile(path, faults);
        if (file.name == "sizes.json")
            sizes_ = SizeTable(file, faults);
        else if (file.name == "stocks.json")
            readStocks(file, faults);
        else if (file.name == "older-form.json")
            readOlderForm(file, faults);
        else
            readBlocks(file, faults);
    }
}

const Block* SharedData::findBlock(const std::string& name) const { return findIn(blocks_, name); }
const WrittenStock* SharedData::findStock(const std::string& name) const { return findIn(stocks_, name); }
const std::vector<std::string>* SharedData::findStockSet(const std::string& name) const {
    return findIn(stockSets_, name);
}

void SharedData::readBlocks(const JsonFile& file, FaultList& faults) {
    for (const auto& [name, statements] : file.content.items()) {
        if (const Block* other = findBlock(name))
            faults.add(file.at(name), "is a block of " + other->file + " already");
        else if (!statements.is_object())
            faults.add(file.at(name), "should be an object, not " + show(statements));
        else
            blocks_[name] = {file.name, statements};
    }
}

void SharedData::readStocks(const JsonFile& file, FaultList& faults) {
    Json ordinary = Json::object();
    for (const auto& [section, content] : file.content.items()) {
        if (section != "ordinary" && section != "stocks" && section != "sets")
            faults.add(file.at(section), "is no section of the stocks");
        else if (!content.is_object())
            faults.add(file.at(section), "should be an object, not " + show(content));
    }
    if (file.content.contains("ordinary") && file.content["ordinary"].is_object()) ordinary = file.content["ordinary"];
    forEachMember(file.content.value("stocks", Json::object()), file.at("stocks"), faults,
                  [&](const std::string& name, const Json& members) {
                      if (!members.is_object()) return faults.add(file.at(name), "should be an object");
                      stocks_[name] = {file.name, ordinary};
                      stocks_[name].members.update(members);
                  });
    readStockSets(file, faults);
}

void SharedData::readStockSets(const JsonFile& file, FaultList& faults) {
    forEachMember(file.content.value("sets", Json::object()), file.at("sets"), faults,
                  [&](const std::string& name, const Json& stocks) {
                      forEachText(stocks, file.at(name), faults,
                                  [&](const std::string& stock) { stockSets_[name].push_back(stock); });
                  });
}

void SharedData::readOlderForm(const JsonFile& file, FaultList& faults) {
    olderForm_.file = file.name;
    for (const auto& [section, content] : file.content.items()) {
        if (section == "drop")
            forEachText(content, file.at(section), faults,
                        [&](const std::string& name) { olderForm_.drop.push_back(name); });
        else if (section == "trim" || section == "replace")
            (section == "trim" ? olderForm_.trim : olderForm_.replace) = content;
        else
            faults.add(file.at(section), "is no section of the older form");
    }
}
