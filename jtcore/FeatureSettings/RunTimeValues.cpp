#include "jtcore/FeatureSettings/RunTimeValues.h"

#include "jtcore/FeatureSettings/FeatureDataBase.h"
#include "jtcore/FeatureSettings/fixedValues.h"
#include "jtcore/Services/KolmaException.h"

#include <mutex>

namespace {

constinit std::atomic<std::uint32_t> nextNumber = runTimeValueFirst;

template <typename Map, typename Key>
const FeatureValueInfo* valueOrNull(const Map& map, const Key& key) {
    const auto found = map.find(key);
    return found == map.end() ? nullptr : found->second;
}

[[noreturn]] void raiseDuplicateText(Feature feature, std::u16string_view text) {
    raise<DuplicateFeatureValueDBEntryException>(
        u"FeatureValue::createNewValueEnum(): duplicate FVDB entry for feature %d and value '%s'.\r\n", feature, text);
}

[[noreturn]] void raiseDuplicateNumber(ValueEnum number) {
    raise<DuplicateFeatureValueDBEntryException>(
        u"FeatureValue::createNewValueEnum(): duplicate FVDB entry for value %d.\r\n", number);
}

} // namespace

RunTimeValues& RunTimeValues::instance() {
    static RunTimeValues values;
    return values;
}

RunTimeValues::Entry::Entry(const FeatureValueInfo& row)
    : text(row.text), abbreviation(row.abbreviation), syntaxName(row.syntax.name), info(row) {
    info.text = text;
    info.abbreviation = abbreviation;
    info.syntax.name = syntaxName;
}

const FeatureValueInfo* RunTimeValues::find(ValueEnum number) const {
    if (isEmpty()) return nullptr;
    const std::shared_lock reading(lock_);
    return valueOrNull(byNumber_, number);
}

const FeatureValueInfo* RunTimeValues::find(Feature feature, std::u16string_view text) const {
    if (isEmpty()) return nullptr;
    const std::shared_lock reading(lock_);
    return valueOrNull(byText_, std::pair(feature, text));
}

const FeatureValueInfo* RunTimeValues::findByAbbreviation(std::u16string_view abbreviation) const {
    if (isEmpty()) return nullptr;
    const std::shared_lock reading(lock_);
    return valueOrNull(byAbbreviation_, abbreviation);
}

const FeatureValueInfo& RunTimeValues::add(const FeatureValueInfo& row) {
    const std::unique_lock writing(lock_);
    refuseKnownText(row);
    refuseKnownNumber(row);
    refuseBeyondBounds(row);
    return commit(row);
}

const FeatureValueInfo& RunTimeValues::addNew(FeatureValueInfo row) {
    const std::unique_lock writing(lock_);
    return addNewLocked(row);
}

const FeatureValueInfo& RunTimeValues::findOrAddNew(const FeatureValueInfo& row) {
    const std::unique_lock writing(lock_);
    // Another thread may have been first.
    const FeatureValueInfo* found = valueOrNull(byText_, std::pair(row.features[0], row.text));
    return found ? *found : addNewLocked(row);
}

const FeatureValueInfo& RunTimeValues::addNewLocked(FeatureValueInfo row) {
    refuseKnownText(row);
    refuseBeyondBounds(row);
    row.number = ValueEnum{nextNumber.fetch_add(1)};
    refuseKnownNumber(row);
    return commit(row);
}

void RunTimeValues::refuseKnownText(const FeatureValueInfo& row) const {
    for (const Feature feature : row.features)
        if (findFixedValue(feature, row.text) || byText_.contains({feature, row.text}))
            raiseDuplicateText(feature, row.text);
}

void RunTimeValues::refuseKnownNumber(const FeatureValueInfo& row) const {
    if (findFixedValue(row.number) || byNumber_.contains(row.number)) raiseDuplicateNumber(row.number);
    if (findFixedAbbreviation(row.abbreviation) || byAbbreviation_.contains(row.abbreviation))
        raiseDuplicateNumber(row.number);
}

void RunTimeValues::refuseBeyondBounds(const FeatureValueInfo& row) const {
    if (row.text.size() > FeatureValueDataBase::maximumTextLength ||
        rows_.size() >= FeatureValueDataBase::maximumRunTimeRows)
        raiseUnknownValue(row.features[0], row.text);
}

// Everything that can fail is done before the first change to the table.
const FeatureValueInfo& RunTimeValues::commit(const FeatureValueInfo& row) {
    Rows rows;
    const FeatureValueInfo& added = rows.emplace_back(row).info;
    ByNumber byNumber{{added.number, &added}};
    ByText byText;
    for (const Feature feature : added.features)
        byText.emplace(std::pair(feature, added.text), &added);
    ByAbbreviation byAbbreviation;
    if (!added.abbreviation.empty()) byAbbreviation.emplace(added.abbreviation, &added);

    rows_.splice(rows_.end(), rows);
    byNumber_.merge(byNumber);
    byText_.merge(byText);
    byAbbreviation_.merge(byAbbreviation);
    hasRows_.store(true, std::memory_order_release);
    return added;
}
