// Turns what the data say into attribute values, and refuses what the tables do not know.
#pragma once

#include "resources/capabilities/tool/CapabilitySchema.h"
#include "resources/capabilities/tool/JsonFile.h"
#include "resources/capabilities/tool/SizeTable.h"

#include "jtcore/Attributes/AttrNodeList.h"

#include <memory>
#include <optional>

struct IntRange {
    std::int32_t lower = 0;
    std::int32_t upper = 0;
    bool contains(std::int32_t value) const noexcept { return lower <= value && value <= upper; }
};

std::unique_ptr<AttrValue> makeRange(const IntRange& range);
// Nothing for a value that is no range.
std::optional<IntRange> rangeOf(const AttrValue& value);
// A size with both members.
std::unique_ptr<AttrValue> makeSize(const PaperSize& size);

// One value of a feature: a keyword or number that the value table knows, or {"name": "..."} where the feature takes
// names. Null, and a fault told, for anything else.
std::unique_ptr<AttrValue> readFeatureValue(const Json& json, Feature feature, const SyntaxList& syntaxes,
                                            const Place& place, FaultList& faults);

class ValueReader {
public:
    ValueReader(const SizeTable& sizes, FaultList& faults) : sizes_(&sizes), faults_(&faults) {}

    // One value of a capability; of a list, one element. Null when a fault was told.
    std::unique_ptr<AttrValue> read(const CapabilitySchema& schema, const Json& json, const Place& place) const;

private:
    std::unique_ptr<AttrValue> readMember(const Json& json, const Place& place) const;
    std::unique_ptr<AttrValue> readPaperSize(const Json& json, const Place& place) const;
    std::unique_ptr<AttrValue> readCustomSize(const Json& json, const Place& place) const;

    const SizeTable* sizes_;
    FaultList* faults_;
};
