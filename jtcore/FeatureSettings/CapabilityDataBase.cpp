#include "jtcore/FeatureSettings/CapabilityDataBase.h"

#include "jtcore/FeatureSettings/FeatureDataBase.h"
#include "jtcore/FeatureSettings/KeyIndex.h"
#include "jtcore/FeatureSettings/buildNestedIds.h"
#include "jtcore/Services/KolmaException.h"

#include <algorithm>
#include <array>
#include <tuple>

namespace {

constexpr bool isBefore(const CapabilityInfo& one, const CapabilityInfo& other) noexcept {
    return std::tie(one.feature, one.type) < std::tie(other.feature, other.type);
}

// Sorted, so that the rows of one feature stand together.
constexpr auto makeRows() {
    using namespace syntax;
    using enum CapabilityCategory;
    using syntaxes = SyntaxList;
    auto rows = std::to_array<CapabilityInfo>({
#define CAPABILITY(feature, type, category, path, syntaxList)                                                          \
    {Feature::feature, CapabilityType::type, category, parseAttrPath(u##path), syntaxes syntaxList},
#include "jtcore/FeatureSettings/Capability.def"
#undef CAPABILITY
    });
    std::sort(rows.begin(), rows.end(), isBefore);
    return rows;
}

constexpr auto table = makeRows();

// For each feature, by its number, the first of its rows; one more entry ends the last.
constexpr auto buildStarts() {
    std::array<RowNumber, featureLast + 2> starts{};
    for (const CapabilityInfo& row : table)
        ++starts[static_cast<std::size_t>(row.feature) + 1];
    for (std::size_t i = 1; i < starts.size(); ++i)
        starts[i] = static_cast<RowNumber>(starts[i] + starts[i - 1]);
    return starts;
}

constexpr auto starts = buildStarts();

constexpr std::span<const CapabilityInfo> rowsOf(Feature feature) noexcept {
    const auto number = static_cast<std::size_t>(feature);
    if (number > featureLast) return {};
    return std::span(table).subspan(starts[number], starts[number + 1U] - std::size_t{starts[number]});
}

constexpr bool pairsAreUnique() {
    return std::adjacent_find(table.begin(), table.end(),
                              [](const auto& one, const auto& next) { return !isBefore(one, next); }) == table.end();
}

constexpr auto countOf(CapabilityType type) {
    return std::count_if(table.begin(), table.end(), [type](const auto& row) { return row.type == type; });
}

static_assert(table.size() == 146);
static_assert(pairsAreUnique(), "a feature has two statements of one type");
static_assert(countOf(CapabilityType::intRange) == 28 && countOf(CapabilityType::isSupported) == 11 &&
              countOf(CapabilityType::memberList) == 11 && countOf(CapabilityType::valueList) == 57 &&
              countOf(CapabilityType::intUpperLimit) == 26 && countOf(CapabilityType::precision) == 4);

} // namespace

const NestedAttrID& CapabilityInfo::nestedId() const {
    static const auto ids = buildNestedIds(table, {.marked = StepKind::capability, .unmarked = StepKind::capability});
    return ids[static_cast<std::size_t>(CapabilityDataBase::find(feature, type) - table.data())];
}

const CapabilityInfo* CapabilityDataBase::find(Feature feature, CapabilityType type) noexcept {
    for (const CapabilityInfo& row : rowsOf(feature))
        if (row.type == type) return &row;
    return nullptr;
}

const CapabilityInfo& CapabilityDataBase::getCapabilityInfo(Feature feature, CapabilityType type) {
    if (const CapabilityInfo* row = find(feature, type)) return *row;
    raise<UnknownFeatureRequestException>(
        u"CapabilityDataBase::getCapabilityInfo( Feature, Capability type ) could not find requested capability type "
        u"'%d' for feature '%d' (%s).\r\n",
        type, feature, FeatureDataBase::describe(feature));
}

std::span<const CapabilityInfo> CapabilityDataBase::getCapabilities(Feature feature) noexcept {
    return rowsOf(feature);
}

std::span<const CapabilityInfo> CapabilityDataBase::rows() noexcept { return table; }

std::u16string_view describe(CapabilityCategory category) noexcept {
    switch (category) {
    case CapabilityCategory::standard:
        return u"SEMA";
    case CapabilityCategory::extension:
        return u"PRIVATE";
    }
    return u"[UNKNOWN!]";
}
