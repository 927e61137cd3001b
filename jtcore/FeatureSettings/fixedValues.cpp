#include "jtcore/FeatureSettings/fixedValues.h"

#include "jtcore/FeatureSettings/KeyIndex.h"
#include "jtcore/FeatureSettings/RunTimeValues.h"
#include "resources/ids_values.h"

#include <algorithm>
#include <array>

namespace {

constexpr auto makeRows() {
    using namespace syntax;
    using enum Feature;
    return std::to_array<FeatureValueInfo>({
#define VALUE(number, enumerator, text, abbreviation, syntax, labelId, bitmapId, ...)                                  \
    {Value::enumerator, u##text, u##abbreviation, syntax, labelId, bitmapId, {__VA_ARGS__}},
#include "jtcore/FeatureSettings/FeatureValue.def"
#undef VALUE
    });
}

constexpr auto table = makeRows();

constexpr RowNumber rowNumber(std::size_t index) noexcept { return static_cast<RowNumber>(index + 1); }

constexpr std::uint64_t hashOf(Feature feature, std::u16string_view text) noexcept {
    return hashKey(static_cast<std::uint32_t>(feature), text);
}

constexpr auto buildNumberIndex() {
    std::array<RowNumber, fixedValueLast + 1> index{};
    for (std::size_t i = 0; i < table.size(); ++i) {
        RowNumber& slot = index[static_cast<std::size_t>(table[i].number)];
        if (slot != 0) throw "a number is given twice";
        slot = rowNumber(i);
    }
    return index;
}

constexpr auto buildTextIndex() {
    KeyIndex<4096> index;
    for (std::size_t i = 0; i < table.size(); ++i)
        for (const Feature feature : table[i].features)
            index.insert(hashOf(feature, table[i].text), rowNumber(i));
    return index;
}

constexpr auto buildAbbreviationIndex() {
    AbbreviationIndex index;
    for (std::size_t i = 0; i < table.size(); ++i)
        if (!table[i].abbreviation.empty()) index.insert(table[i].abbreviation, rowNumber(i));
    return index;
}

constexpr auto numberIndex = buildNumberIndex();
constexpr auto textIndex = buildTextIndex();
constexpr auto abbreviationIndex = buildAbbreviationIndex();

constexpr const FeatureValueInfo* rowOf(RowNumber row) noexcept { return row == 0 ? nullptr : &table[row - 1U]; }

constexpr RowNumber findText(Feature feature, std::u16string_view text) noexcept {
    return textIndex.find(hashOf(feature, text), [feature, text](RowNumber row) {
        const FeatureValueInfo& candidate = table[row - 1U];
        return isSameText(candidate.text, text) && candidate.features.contains(feature);
    });
}

constexpr auto count(bool (*isCounted)(const FeatureValueInfo&)) {
    return std::count_if(table.begin(), table.end(), isCounted);
}

// Of two rows with one key the second would not be found by it.
constexpr bool textsAreUnique() {
    for (std::size_t i = 0; i < table.size(); ++i)
        for (const Feature feature : table[i].features)
            if (findText(feature, table[i].text) != rowNumber(i)) return false;
    return true;
}

static_assert(table.size() == 515 && numberIndex[140] == 0);
static_assert(textsAreUnique(), "a feature has a text twice");
static_assert(count([](const auto& row) { return row.features.empty(); }) == 0);
static_assert(count([](const auto& row) { return row.labelId == 0; }) == 1, "only 'not set' goes without a label");
static_assert(count([](const auto& row) { return row.bitmapId != 0; }) == 29);
static_assert(count([](const auto& row) { return row.syntax.type == AVTE::keyword; }) == 491);
static_assert(count([](const auto& row) { return row.syntax.type == AVTE::enumeration; }) == 17);

} // namespace

const FeatureValueInfo* findFixedValue(ValueEnum number) noexcept {
    const auto index = static_cast<std::size_t>(number);
    return index < numberIndex.size() ? rowOf(numberIndex[index]) : nullptr;
}

const FeatureValueInfo* findFixedValue(Feature feature, std::u16string_view text) noexcept {
    return rowOf(findText(feature, text));
}

const FeatureValueInfo* findFixedAbbreviation(std::u16string_view abbreviation) noexcept {
    return rowOf(abbreviationIndex.find(abbreviation));
}

// The lookups stand beside the fixed rows, so that one of those is found in a single call.

const FeatureValueInfo* FeatureValueDataBase::find(ValueEnum number) {
    const FeatureValueInfo* row = findFixedValue(number);
    return row ? row : RunTimeValues::instance().find(number);
}

const FeatureValueInfo* FeatureValueDataBase::find(Feature feature, std::u16string_view text) {
    const FeatureValueInfo* row = findFixedValue(feature, text);
    return row ? row : RunTimeValues::instance().find(feature, text);
}

const FeatureValueInfo* FeatureValueDataBase::findByAbbreviation(std::u16string_view abbreviation) {
    const FeatureValueInfo* row = findFixedAbbreviation(abbreviation);
    return row ? row : RunTimeValues::instance().findByAbbreviation(abbreviation);
}

std::span<const FeatureValueInfo> FeatureValueDataBase::fixedRows() noexcept { return table; }
