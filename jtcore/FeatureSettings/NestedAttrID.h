// The address of an attribute inside nested lists: its own id and the lists that lead to it from the root list.
#pragma once

#include "jtcore/Attributes/AttrID.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

class AttrNodeList;

// What a step of a path is besides a list to walk through. Any kind but a plain one makes the id of the step the
// unique id of the address.
enum class StepKind : std::uint32_t {
    feature = 1,
    capability = 2,
    plain = 3,
};

class NestedAttrID : public AttrID {
public:
    struct PathEntry {
        std::u16string id;
        std::u16string syntax; // "1setOf" or "collection"
        StepKind kind = StepKind::plain;
        bool operator==(const PathEntry&) const = default;
    };

    // A slot to be filled later: the id "NAID_TEMPORARY" at top level.
    NestedAttrID();
    // At top level, known by its own id. Raises InvalidAttributeIdException when the id is empty.
    explicit NestedAttrID(std::u16string_view id);

    // Appends the innermost list so far.
    void addPathEntry(std::u16string_view id, std::u16string_view syntax, StepKind kind);

    // The name under which the feature or capability is known.
    const std::u16string& getUniqueId() const noexcept { return uniqueId_; }
    bool isTopLevel() const noexcept { return path_.empty(); }

    // The list that holds the attribute, or null when a list on the way is missing. The occurrence selects among the
    // innermost lists of the path; on the way there the first of each id is taken. Raises
    // AttributeTypeMismatchException when something else than a list stands on the way.
    AttrNodeList* findList(AttrNodeList& root, std::size_t occurrence = 0) const;
    const AttrNodeList* findList(const AttrNodeList& root, std::size_t occurrence = 0) const;
    // The same, and makes every list that is missing.
    AttrNodeList& makeList(AttrNodeList& root, std::size_t occurrence = 0) const;
    // From the innermost list outward, takes away each list that is empty, up to the first that is not there.
    void removeEmptyLists(AttrNodeList& root) const;

    // The id to look for in the root list.
    const std::u16string& getOutermostId() const noexcept;
    // Index 0 is the innermost list. An index past the path raises IndexOutOfBoundsException.
    std::size_t getPathLength() const noexcept { return path_.size(); }
    const std::u16string& getPathEntryId(std::size_t index) const { return entry(index).id; }
    const std::u16string& getPathEntrySyntax(std::size_t index) const { return entry(index).syntax; }
    bool hasPathEntry(std::u16string_view id) const noexcept;

    bool operator==(const NestedAttrID&) const = default;

private:
    const PathEntry& entry(std::size_t index) const;
    // The list that holds the node of the path's entry number `depth`, counted from the outermost; null when missing.
    AttrNodeList* listAt(AttrNodeList& root, std::size_t depth) const;

    std::u16string uniqueId_;
    std::vector<PathEntry> path_; // outermost first
};
