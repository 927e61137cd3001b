// The table of capabilities: where each kind of statement about each feature stands in a printer's capabilities.
#pragma once

#include "jtcore/FeatureSettings/AttrPath.h"
#include "jtcore/FeatureSettings/Feature.h"
#include "jtcore/FeatureSettings/Syntax.h"

#include <cstdint>
#include <span>
#include <string_view>

// What a statement tells about its feature.
enum class CapabilityType : std::uint32_t {
    intRange = 1,        // the allowed range
    isSupported = 2,     // whether the feature exists
    memberList = 3,      // the allowed member names of a collection or of the job
    valueList = 4,       // the allowed values
    intUpperLimit = 5,   // an upper limit
    precision = 6,       // the step of a value
    userDefinedList = 7, // the features that accept the user's own values
    embeddedSpaces = 8,  // whether a text may hold blanks
    charRestriction = 9, // which characters are allowed
    separateCovers = 10, // whether front and back cover may differ
    multipleMedia = 11,  // whether one insert may hold several media
};
inline constexpr std::uint32_t capabilityTypeLast = 11;
using CapabilityTypeList = FixedList<CapabilityType, capabilityTypeLast>;

// Validation of a job applies the extensions one by one; the standard statements it reads as value lists and ranges.
enum class CapabilityCategory : std::uint32_t {
    standard = 1,
    extension = 2, // what the printing standard has no attribute for
};

// For diagnostics: "SEMA", "PRIVATE", or "[UNKNOWN!]" for any other number.
std::u16string_view describe(CapabilityCategory category) noexcept;

class NestedAttrID;

// One row. Rows are constants: a reference to one stays valid for the life of the process.
struct CapabilityInfo {
    Feature feature{};
    CapabilityType type{};
    CapabilityCategory category{};
    AttrPath path;
    SyntaxList syntaxes;

    // The path as an identifier. All of them are built at the first call, once in the process.
    const NestedAttrID& nestedId() const;
};

// A stateless handle. No lookup takes a lock or allocates; every one may be called from any thread.
class CapabilityDataBase {
public:
    // Null where the table has no such row.
    static const CapabilityInfo* find(Feature feature, CapabilityType type) noexcept;
    // A failed lookup raises UnknownFeatureRequestException.
    static const CapabilityInfo& getCapabilityInfo(Feature feature, CapabilityType type);
    static bool isCapability(Feature feature, CapabilityType type) noexcept { return find(feature, type) != nullptr; }

    // The rows of a feature in the order of their types; none for a feature that the table does not know.
    static std::span<const CapabilityInfo> getCapabilities(Feature feature) noexcept;
    // All rows, in the order of feature and type.
    static std::span<const CapabilityInfo> rows() noexcept;
};
