// What may be stated at all: the capabilities that the data hold, by name, and what their values look like.
#pragma once

#include "jtcore/FeatureSettings/CapabilityDataBase.h"

#include <string>
#include <string_view>
#include <vector>

// How a capability is written in the data.
enum class StatementKind {
    supported, // true
    range,     // {"range": [lower, upper]}
    rangeSet,  // a list of ranges
    valueSet,  // a list of values
    memberSet, // a list of attribute names
    userSet,   // the attributes that take values of the user's own; joined, and kept where supported
    sizeSet,   // the paper sizes
    derived,   // made from the rest of the data, never written
    byModel,   // a limit that the printer model states, never written
};

struct CapabilitySchema {
    std::string name; // "sides-supported"
    StatementKind kind{};
    Feature feature{};
    const CapabilityInfo* row = nullptr; // null for what the capability table has no row for

    bool isWritten() const noexcept { return kind != StatementKind::derived && kind != StatementKind::byModel; }
    bool isList() const noexcept { return kind != StatementKind::supported && kind != StatementKind::range; }

    // All of them, in the order in which a document has them. The pointers stay valid.
    static const std::vector<CapabilitySchema>& all();
    // Null for a name that nobody knows.
    static const CapabilitySchema* find(std::string_view name);
};
