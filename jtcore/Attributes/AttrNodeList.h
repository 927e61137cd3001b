// The ordered list of attribute nodes that carries all settings: a job ticket, the capabilities of a printer, a stock.
//
// Several nodes may have the same id; occurrence n of an id is its n-th node in list order, counted from 0. A node
// keeps its address for as long as it is in the list, whatever is added or removed elsewhere. A list is used by one
// thread at a time. Lists nest; readers of foreign data refuse nesting past 64 lists, and nothing here is made for
// more.
//
// Two ways to walk: begin() and end() for readers, who leave the list as it is, and the list's own cursor
// (resetIterator, getNextNode), which stays right while nodes are deleted under it.
#pragma once

#include "jtcore/Attributes/AttrNode.h"

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

class AttrNodeList {
    using Nodes = std::vector<std::unique_ptr<AttrNode>>;

public:
    // Steps over the nodes themselves. Adding or removing a node ends its validity.
    template <typename Node>
    class Iterator {
    public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = std::remove_const_t<Node>;
        using difference_type = std::ptrdiff_t;
        using pointer = Node*;
        using reference = Node&;

        Iterator() = default;
        explicit Iterator(Nodes::const_iterator at) noexcept : at_(at) {}
        reference operator*() const noexcept { return **at_; }
        pointer operator->() const noexcept { return at_->get(); }
        Iterator& operator++() noexcept {
            ++at_;
            return *this;
        }
        Iterator operator++(int) noexcept { return Iterator(at_++); }
        bool operator==(const Iterator&) const noexcept = default;

    private:
        Nodes::const_iterator at_;
    };
    using iterator = Iterator<AttrNode>;
    using const_iterator = Iterator<const AttrNode>;

    AttrNodeList() = default;
    // Deep copies; the cursor of the copy stands at the start.
    AttrNodeList(const AttrNodeList& other);
    AttrNodeList& operator=(const AttrNodeList& other);
    // The source is left empty.
    AttrNodeList(AttrNodeList&& other) noexcept;
    AttrNodeList& operator=(AttrNodeList&& other) noexcept;
    ~AttrNodeList() = default;

    iterator begin() noexcept { return iterator(nodes_.begin()); }
    iterator end() noexcept { return iterator(nodes_.end()); }
    const_iterator begin() const noexcept { return const_iterator(nodes_.begin()); }
    const_iterator end() const noexcept { return const_iterator(nodes_.end()); }

    std::size_t getNumNodes() const noexcept { return nodes_.size(); }
    bool isEmpty() const noexcept { return nodes_.empty(); }

    // Same number of nodes, and each equals the node at its position.
    bool equals(const AttrNodeList& other) const;

    // Lookups: null when there is no such node. Nodes remain the list's.
    const AttrNode* getNode(std::u16string_view id, std::size_t occurrence = 0) const noexcept;
    AttrNode* getNode(std::u16string_view id, std::size_t occurrence = 0) noexcept;
    // Counts only the nodes that equal the given one.
    const AttrNode* getMatchingNode(const AttrNode& node, std::size_t occurrence = 0) const;
    AttrNode* getMatchingNode(const AttrNode& node, std::size_t occurrence = 0);
    // True when the node at that position has that id. Position -1 is the last node.
    bool isNodeAt(std::u16string_view id, std::ptrdiff_t position) const noexcept;
    // The index of that very object. False, and the index untouched, when it is not in this list.
    bool getNodePosition(const AttrNode& node, std::size_t& index) const noexcept;

    // Appends a deep copy, or the node itself, and returns the node of the list.
    AttrNode& addNode(const AttrNode& node);
    AttrNode& addNode(AttrNode&& node);
    // Appends a node that is not private. Raises InvalidAttributeIdException on an empty id. REQUIRES: value is not
    // null.
    AttrNode& addNode(std::u16string_view id, std::unique_ptr<AttrValue> value);
    // Overwrites that occurrence with a copy of the value, not private; appends such a node when there is none.
    AttrNode& setNode(std::u16string_view id, const AttrValue& value, std::size_t occurrence = 0);
    // Appends a node that holds a new empty list of that syntax, and returns that list. Its node owns it.
    AttrNodeList& addListNode(std::u16string_view id, std::u16string_view syntaxName);
    AttrNodeList& add1setOf(std::u16string_view id) { return addListNode(id, syntax1setOf); }
    AttrNodeList& addCollection(std::u16string_view id) { return addListNode(id, syntaxCollection); }
    // Makes room for that many nodes in all.
    void reserve(std::size_t count) { nodes_.reserve(count); }

    // Removal of what is not there does nothing. A node removed from before the cursor takes the cursor one step back:
    // a walk neither skips nor repeats a node.
    void deleteNode(std::u16string_view id, std::size_t occurrence = 0);
    // Removes that very object. Null does nothing.
    void deleteNodeObject(const AttrNode* node);
    // Removes every node that equals the given one, at any depth, and the lists that this empties. The given node may
    // be one of this list.
    void deleteMatchingNodes(const AttrNode& node);
    // Removes every list that is empty, or that this empties, at any depth.
    void pruneEmptyLists();
    void clear() noexcept;

    // Keeps the order of the others, and the cursor's position. False when there is no such node or it is the first.
    bool moveNodeToFront(std::u16string_view id, std::size_t occurrence = 0);

    // Brings in the nodes of the other list, where a node that is here wins. Single values: in a set (inSet) those that
    // have no equal here, else those whose id is not here. Lists: merged into the one here of the same id; in a set
    // only when each side has one node. A single value here of that id stands against a list. The other list is left as
    // it is.
    void mergeList(const AttrNodeList& other, bool inSet = false);

    // The cursor. Nested walks over one list share it.
    void resetIterator() noexcept { cursor_ = 0; }
    bool hasMoreNodes() const noexcept { return cursor_ < nodes_.size(); }
    bool hasMoreNonPrivateNodes() const noexcept;
    // The node at the cursor, or the first one from there that is not private; the cursor moves behind it.
    // Each raises NodeAccessOutOfBoundsException when there is none.
    AttrNode& getNextNode();
    AttrNode& getNextNonPrivateNode();

    // Conversions: false, and the outputs untouched, when there is no such node. Each raises
    // AttributeTypeMismatchException when the node has a value of another class, and InvalidAttributeIdException on an
    // empty id.
    bool JtifAttrToLong(std::int32_t& value, std::u16string_view id, std::size_t occurrence = 0) const;
    bool JtifAttrToString(std::u16string& value, std::u16string_view id, std::size_t occurrence = 0) const;
    bool JtifAttrToBool(bool& value, std::u16string_view id, std::size_t occurrence = 0) const;
    // The list inside the node, not a copy.
    bool JtifAttrToList(const AttrNodeList*& list, std::u16string_view id, std::size_t occurrence = 0) const;
    bool JtifAttrToList(AttrNodeList*& list, std::u16string_view id, std::size_t occurrence = 0);
    // "lower-bound" and "upper-bound" of a list. True when the list and both members are there; the output of a missing
    // member is untouched.
    bool JtifRangeToLongs(std::int32_t& lower, std::int32_t& upper, std::u16string_view id,
                          std::size_t occurrence = 0) const;

private:
    // The index past the end when there is none.
    std::size_t find(std::u16string_view id, std::size_t occurrence) const noexcept;
    AttrNode& append(std::unique_ptr<AttrNode> node);
    void removeAt(std::size_t index) noexcept;
    std::size_t nextNonPrivate() const noexcept;
    void removeMatches(const AttrNode& pattern);
    bool lacks(const AttrNode& node, bool inSet) const;
    // The node here that a list of the other side is merged into, or null.
    AttrNode* findMergeTarget(const AttrNode& node, const AttrNodeList& other, bool inSet) noexcept;

    Nodes nodes_;
    std::size_t cursor_ = 0;
};
