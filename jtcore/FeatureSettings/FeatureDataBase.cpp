#include "jtcore/FeatureSettings/FeatureDataBase.h"

#include "jtcore/FeatureSettings/KeyIndex.h"
#include "jtcore/FeatureSettings/NestedAttrID.h"
#include "jtcore/FeatureSettings/buildNestedIds.h"
#include "jtcore/Services/KolmaException.h"
#include "resources/ids_features.h"

#include <array>

namespace {

constexpr auto makeRows() {
    using namespace syntax;
    using enum Feature;
    using enum UnspecifiedRule;
    using syntaxes = SyntaxList;
    using related = FixedList<Feature, 2>;
    return std::to_array<FeatureInfo>({
#define FEATURE(number, enumerator, abbreviation, path, syntaxList, unspecified, labelId, relatedList)                 \
    {enumerator,  u##abbreviation, parseAttrPath(u##path), syntaxes syntaxList,                                        \
     unspecified, labelId,         related relatedList},
#include "jtcore/FeatureSettings/Feature.def"
#undef FEATURE
    });
}

constexpr auto table = makeRows();

constexpr std::size_t indexOf(Feature number) noexcept { return static_cast<std::size_t>(number) - featureFirst; }

constexpr auto buildIdIndex() {
    KeyIndex<512> index;
    for (std::size_t i = 0; i < table.size(); ++i)
        index.insert(hashKey(0, table[i].uniqueId()), static_cast<RowNumber>(i + 1));
    return index;
}

constexpr auto buildAbbreviationIndex() {
    AbbreviationIndex index;
    for (std::size_t i = 0; i < table.size(); ++i)
        index.insert(table[i].abbreviation, static_cast<RowNumber>(i + 1));
    return index;
}

constexpr auto idIndex = buildIdIndex();
constexpr auto abbreviationIndex = buildAbbreviationIndex();

constexpr const FeatureInfo* rowOf(RowNumber row) noexcept { return row == 0 ? nullptr : &table[row - 1U]; }

constexpr RowNumber findId(std::u16string_view id) noexcept {
    return idIndex.find(hashKey(0, id), [id](RowNumber row) { return isSameText(table[row - 1U].uniqueId(), id); });
}

constexpr bool relationsAreSymmetric() {
    for (const FeatureInfo& row : table)
        for (const Feature other : row.related)
            if (other == row.number || !table[indexOf(other)].related.contains(row.number)) return false;
    return true;
}

constexpr bool rowsAreSound() {
    for (std::size_t i = 0; i < table.size(); ++i) {
        const FeatureInfo& row = table[i];
        if (indexOf(row.number) != i || findId(row.uniqueId()) != i + 1) return false;
        if (row.syntaxes.empty() || row.labelId == 0) return false;
    }
    return true;
}

static_assert(table.size() == 106 && indexOf(Feature{featureLast}) + 1 == table.size());
static_assert(rowsAreSound(), "a number, a unique id, a syntax or a label is wrong");
static_assert(relationsAreSymmetric());

} // namespace

const NestedAttrID& FeatureInfo::nestedId() const {
    static const auto ids = buildNestedIds(table, {.marked = StepKind::feature, .unmarked = StepKind::plain});
    return ids[indexOf(number)];
}

const FeatureInfo* FeatureDataBase::find(Feature number) noexcept {
    const std::size_t index = indexOf(number);
    return index < table.size() ? &table[index] : nullptr;
}

const FeatureInfo* FeatureDataBase::find(std::u16string_view uniqueId) noexcept { return rowOf(findId(uniqueId)); }

const FeatureInfo* FeatureDataBase::findByAbbreviation(std::u16string_view abbreviation) noexcept {
    return rowOf(abbreviationIndex.find(abbreviation));
}

const FeatureInfo& FeatureDataBase::getFeatureInfo(Feature number) {
    if (const FeatureInfo* row = find(number)) return *row;
    raise<UnknownFeatureRequestException>(
        u"FeatureDataBase::getFeatureInfo( FeatureEnum ) could not find requested FeatureEnum %ld\r\n", number);
}

const FeatureInfo& FeatureDataBase::getFeatureInfo(std::u16string_view uniqueId) {
    if (const FeatureInfo* row = find(uniqueId)) return *row;
    raise<UnknownFeatureRequestException>(
        u"FeatureDataBase::getFeatureInfo( UniqueID ) could not find requested ID '%s'\r\n", uniqueId);
}

const FeatureInfo& FeatureDataBase::getFeatureInfoByAbbreviation(std::u16string_view abbreviation) {
    if (const FeatureInfo* row = findByAbbreviation(abbreviation)) return *row;
    raise<UnknownFeatureRequestException>(
        u"FeatureDataBase::getFeatureInfoByAbbreviation() could not find requested ID '%s'\r\n", abbreviation);
}

std::u16string_view FeatureDataBase::describe(Feature number) noexcept {
    const FeatureInfo* row = find(number);
    return row ? row->uniqueId() : u"<unknown>!";
}

std::span<const FeatureInfo> FeatureDataBase::rows() noexcept { return table; }
