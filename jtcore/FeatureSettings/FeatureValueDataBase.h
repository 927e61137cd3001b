// The table of feature values: the vocabulary of each feature, fixed rows and those that come up at run time.
//
// The fixed rows are constants, found without a lock and without an allocation. Rows made at run time stand behind a
// shared lock of their own, which a lookup takes only when the fixed rows do not know the key and there is such a row
// at all. Rows are never taken away: a reference to one stays valid until the module is unloaded.
//
// Run-time rows are made from the user's documents, so their growth is bounded: see maximumTextLength and
// maximumRunTimeRows.
#pragma once

#include "jtcore/FeatureSettings/Feature.h"
#include "jtcore/FeatureSettings/Syntax.h"
#include "jtcore/FeatureSettings/Value.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

struct FeatureValueInfo {
    ValueEnum number{};
    std::u16string_view text;         // as it stands in a ticket
    std::u16string_view abbreviation; // one or two letters, unique, or empty
    Syntax syntax;
    std::uint16_t labelId = 0;  // string id; 0 shows the text
    std::uint16_t bitmapId = 0; // picture id; 0 for none
    FeatureList features;
};

// A stateless handle. Every operation may be called from any thread.
class FeatureValueDataBase {
public:
    // The longest text, in characters, of a row made at run time, and the greatest number of such rows.
    static constexpr std::size_t maximumTextLength = 1023;
    static constexpr std::size_t maximumRunTimeRows = 16384;

    // Null where there is no such row.
    static const FeatureValueInfo* find(ValueEnum number);
    static const FeatureValueInfo* find(Feature feature, std::u16string_view text);
    static const FeatureValueInfo* findByAbbreviation(std::u16string_view abbreviation);

    // A failed lookup raises UnknownFeatureRequestException.
    static const FeatureValueInfo& getFeatureValueInfo(ValueEnum number);
    static const FeatureValueInfo& getFeatureValueInfo(Feature feature, std::u16string_view text);
    static const FeatureValueInfo& getFeatureValueInfoByAbbreviation(std::u16string_view abbreviation);

    static bool isValue(ValueEnum number) { return find(number) != nullptr; }
    static bool isValue(Feature feature, std::u16string_view text) { return find(feature, text) != nullptr; }
    static bool isAbbreviation(std::u16string_view abbreviation) { return findByAbbreviation(abbreviation) != nullptr; }

    // Adds a row; the texts are copied. Raises DuplicateFeatureValueDBEntryException when one of its keys is taken, and
    // UnknownFeatureRequestException, as a lookup of the text would, when it goes beyond the bounds. Then the table is
    // as it was.
    static const FeatureValueInfo& addValue(const FeatureValueInfo& row);

    // Adds a row with the next run-time number (row.number is not looked at) and these features, tested and added in
    // one step. Raises as addValue does.
    static const FeatureValueInfo& addNewValue(const FeatureValueInfo& row);
    // The row of (row's first feature, row's text); where there is none, it is added as by addNewValue. Two threads
    // that read the same new text get the same row.
    static const FeatureValueInfo& findOrAddNewValue(const FeatureValueInfo& row);

    // The fixed rows, in the order of FeatureValue.def.
    static std::span<const FeatureValueInfo> fixedRows() noexcept;
};
