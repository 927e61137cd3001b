#include "resources/capabilities/tool/SizeTable.h"

namespace {

bool isEdge(const Json& value) { return value.is_number_integer() && value > 0 && value < 1000000; }

bool isSize(const Json& value) {
    return value.is_array() && value.size() == 2 && isEdge(value[0]) && isEdge(value[1]) && value[0] <= value[1];
}

} // namespace

SizeTable::SizeTable(const JsonFile& file, FaultList& faults) {
    for (const auto& [name, value] : file.content.items()) {
        if (isSize(value))
            sizes_[name] = {value[0], value[1]};
        else
            faults.add(file.at(name), "a size is two whole numbers, short edge first, not " + show(value));
    }
}

const PaperSize* SizeTable::find(const std::string& name) const {
    const auto found = sizes_.find(name);
    return found == sizes_.end() ? nullptr : &found->second;
}
