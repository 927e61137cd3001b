// The table of features: where each lives in a list of attributes, what it may hold, its short name and its label.
#pragma once

#include "jtcore/FeatureSettings/AttrPath.h"
#include "jtcore/FeatureSettings/Feature.h"
#include "jtcore/FeatureSettings/Syntax.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

class NestedAttrID;

// Whether a job may leave a feature unset.
enum class UnspecifiedRule : std::uint32_t {
    always = 1,
    never = 2,
    byPrinter = 3, // as the printer model says
};

// One row. Rows are constants: a reference to one stays valid for the life of the process.
struct FeatureInfo {
    Feature number{};
    std::u16string_view abbreviation;
    AttrPath path;
    SyntaxList syntaxes;
    UnspecifiedRule unspecifiedRule{};
    std::uint16_t labelId = 0;
    FixedList<Feature, 2> related; // the other features that share this one's vocabulary

    constexpr std::u16string_view uniqueId() const noexcept { return path.name(); }
    // The path as an identifier. All of them are built at the first call, once in the process.
    const NestedAttrID& nestedId() const;
};

// A stateless handle. No lookup takes a lock or allocates; every one may be called from any thread.
class FeatureDataBase {
public:
    // Null for a feature without a row, such as Feature::any.
    static const FeatureInfo* find(Feature number) noexcept;
    static const FeatureInfo* find(std::u16string_view uniqueId) noexcept;
    static const FeatureInfo* findByAbbreviation(std::u16string_view abbreviation) noexcept;

    // A failed lookup raises UnknownFeatureRequestException.
    static const FeatureInfo& getFeatureInfo(Feature number);
    static const FeatureInfo& getFeatureInfo(std::u16string_view uniqueId);
    static const FeatureInfo& getFeatureInfoByAbbreviation(std::u16string_view abbreviation);

    static bool isFeature(Feature number) noexcept { return find(number) != nullptr; }
    static bool isFeature(std::u16string_view uniqueId) noexcept { return find(uniqueId) != nullptr; }
    static bool isFeatureAbbreviation(std::u16string_view abbreviation) noexcept {
        return findByAbbreviation(abbreviation) != nullptr;
    }

    // The unique id for a message; "<unknown>!" for a feature without a row.
    static std::u16string_view describe(Feature number) noexcept;

    // All rows, in the order of their numbers.
    static std::span<const FeatureInfo> rows() noexcept;
};
