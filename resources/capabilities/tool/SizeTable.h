// The paper sizes by their short names.
#pragma once

#include "resources/capabilities/tool/JsonFile.h"

#include <cstdint>
#include <map>
#include <string>

// Hundredths of a millimetre, short edge first.
struct PaperSize {
    std::int32_t x = 0;
    std::int32_t y = 0;
};

class SizeTable {
public:
    SizeTable() = default;
    SizeTable(const JsonFile& file, FaultList& faults);

    // Null when there is no such size.
    const PaperSize* find(const std::string& name) const;

private:
    std::map<std::string, PaperSize> sizes_;
};
