#include "resources/capabilities/tool/CapabilitySchema.h"

#include "jtcore/Services/text.h"

#include <algorithm>
#include <array>

namespace {

// Known by name only: validation looks them up so, and the table of capabilities has no rows for them.
struct Extra {
    const char* name;
    StatementKind kind;
    Feature feature;
};
constexpr auto extras = std::to_array<Extra>({
    {"input-documents-supported", StatementKind::supported, Feature::inputDocuments},
    {"pages-supported", StatementKind::supported, Feature::pages},
    {"media-col-database", StatementKind::derived, Feature::mediaCol},
});

// Collections whose members belong to them alone: their lists follow from what is stated about the members.
constexpr auto derivedLists = std::to_array<Feature>({
    Feature::any,
    Feature::jobSaveDisposition,
    Feature::saveInfo,
    Feature::trc,
    Feature::separatorSheets,
    Feature::finishingsCol,
    Feature::mediaCol,
});

bool isDerived(const CapabilityInfo& row) {
    if (row.feature == Feature::mediaKey) return true;
    return row.type == CapabilityType::memberList && std::ranges::find(derivedLists, row.feature) != derivedLists.end();
}

StatementKind kindOf(const CapabilityInfo& row) {
    if (row.category == CapabilityCategory::extension) return StatementKind::byModel;
    if (isDerived(row)) return StatementKind::derived;
    const bool isSet = !row.path.steps.empty();
    switch (row.type) {
    case CapabilityType::isSupported:
        return StatementKind::supported;
    case CapabilityType::memberList:
        return StatementKind::memberSet;
    case CapabilityType::userDefinedList:
        return StatementKind::userSet;
    case CapabilityType::valueList:
        return StatementKind::valueSet;
    case CapabilityType::intRange:
        if (row.feature == Feature::xDimension) return StatementKind::sizeSet;
        return isSet ? StatementKind::rangeSet : StatementKind::range;
    default:
        return StatementKind::byModel;
    }
}

CapabilitySchema schemaOf(const CapabilityInfo& row) {
    const auto name = row.path.steps.empty() ? row.path.leaf : row.path.steps[0].id;
    return {toUtf8(name), kindOf(row), row.feature, &row};
}

std::vector<CapabilitySchema> makeAll() {
    std::vector<CapabilitySchema> all;
    for (const CapabilityInfo& row : CapabilityDataBase::rows()) {
        // The two dimensions share one statement.
        if (row.feature != Feature::yDimension) all.push_back(schemaOf(row));
    }
    for (const Extra& extra : extras)
        all.push_back({extra.name, extra.kind, extra.feature, nullptr});
    return all;
}

} // namespace

const std::vector<CapabilitySchema>& CapabilitySchema::all() {
    static const std::vector<CapabilitySchema> all = makeAll();
    return all;
}

const CapabilitySchema* CapabilitySchema::find(std::string_view name) {
    const auto found = std::ranges::find(all(), name, &CapabilitySchema::name);
    return found == all().end() ? nullptr : &*found;
}
