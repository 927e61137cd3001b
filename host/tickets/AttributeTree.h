// An attribute list as an indented tree for a terminal: attribute, syntax, value, and beside known features the words
// for feature and value.
#pragma once

#include "host/tickets/FeatureLabels.h"
#include "jtcore/Attributes/AttrNodeList.h"

#include <string>
#include <string_view>
#include <vector>

class AttributeTree {
public:
    explicit AttributeTree(const AttrNodeList& list);

    // Lines of UTF-8, each ended. The columns are as wide as this list needs.
    std::string toText() const;

private:
    struct Row {
        std::string attribute; // indented
        std::string syntax;
        std::string value;
        std::string label;
    };

    void addList(const AttrNodeList& list, std::size_t depth, std::u16string_view owner);
    void addNode(const AttrNode& node, std::size_t depth, std::u16string_view owner, const std::string& name);
    void addSetElements(const AttrNodeList& list, std::size_t depth, std::u16string_view owner);
    std::string labelOf(std::u16string_view feature, bool isElement, const AttrValue& value) const;

    FeatureLabels labels_;
    std::vector<Row> rows_;
};

// All nodes of the list and of the lists in it.
std::size_t countNodes(const AttrNodeList& list);
