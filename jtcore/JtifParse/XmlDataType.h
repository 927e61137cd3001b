// The kinds of XML documents.
#pragma once

#include <cstdint>

enum class XmlDataType : std::int32_t {
    jobTicket = 1,
    capabilityFile = 2,
    stockPreferences = 3,
    compactTicket = 4,
    notSpecified = 5,
};
