// What the families share: blocks of statements to take, sizes, stocks, and what the older ticket form lacks.
#pragma once

#include "resources/capabilities/tool/JsonFile.h"
#include "resources/capabilities/tool/SizeTable.h"

#include <map>
#include <string>
#include <vector>

// Capabilities that belong together, taken by name.
struct Block {
    std::string file;
    Json statements = Json::object();
};

// A stock as it is written, with what is ordinary filled in.
struct WrittenStock {
    std::string file;
    Json members = Json::object();
};

struct OlderForm {
    std::string file;
    std::vector<std::string> drop; // capabilities
    Json trim = Json::object();    // capability: values
    Json replace = Json::object(); // capability: statement
};

class SharedData {
public:
    // Reads every file of the folder.
    SharedData(const std::filesystem::path& folder, FaultList& faults);

    const SizeTable& sizes() const noexcept { return sizes_; }
    const OlderForm& olderForm() const noexcept { return olderForm_; }
    // Each null when there is none of that name.
    const Block* findBlock(const std::string& name) const;
    const WrittenStock* findStock(const std::string& name) const;
    const std::vector<std::string>* findStockSet(const std::string& name) const;

private:
    void readBlocks(const JsonFile& file, FaultList& faults);
    void readStocks(const JsonFile& file, FaultList& faults);
    void readStockSets(const JsonFile& file, FaultList& faults);
    void readOlderForm(const JsonFile& file, FaultList& faults);

    SizeTable sizes_;
    OlderForm olderForm_;
    std::map<std::string, Block> blocks_;
    std::map<std::string, WrittenStock> stocks_;
    std::map<std::string, std::vector<std::string>> stockSets_;
};
