// The place of a node in settings that are being checked: the node, and everything on the way to it from the root.
//
// All nodes are those of the settings, which own them: a location is good until the settings change in any other way
// than by the repairs that know of it.
#pragma once

#include "jtcore/Attributes/AttrNodeList.h"
#include "jtcore/FeatureSettings/Feature.h"
#include "jtcore/FeatureSettings/NestedAttrID.h"

#include <cstddef>
#include <string>
#include <vector>

class AttrLocation {
public:
    // At the root itself. REQUIRES: root is not null.
    explicit AttrLocation(AttrNodeList* root) : root_(root) {}

    AttrNodeList& getRoot() const noexcept { return *root_; }
    // Null at the root.
    AttrNode* getNode() const noexcept { return node_; }
    // Whether the level where the node stands needs it.
    bool isRequired() const noexcept { return isRequired_; }
    // The set that the node is an element of, else the nearest enclosing attribute that is no set; null at the root.
    AttrNode* getOwner() const noexcept { return owner_; }
    // The nearest enclosing collection whose members count as features of their own, such as one page exception: its
    // node (null when the settings themselves are its members) and its feature, noParentFeature where there is none.
    AttrNode* getNestedNode() const noexcept { return nestedNode_; }
    Feature getNestedFeature() const noexcept { return nestedFeature_; }
    // From the root down to the parent, and whether each is required where it stands.
    const std::vector<AttrNode*>& getAncestors() const noexcept { return ancestors_; }
    const std::vector<bool>& getAncestorFlags() const noexcept { return ancestorFlags_; }
    // The ids on the way from the root list, as they were when the location was made.
    const NestedAttrID& getPath() const noexcept { return path_; }
    // The node's id, or that of the outermost of the sets that directly hold it: the name by which a user knows it.
    const std::u16string& getAttrName() const noexcept { return attrName_; }

    // True when these ids and lists lead here.
    bool isAt(const NestedAttrID& path) const;

    // The list that the node stands in: that of the last ancestor, or the root.
    AttrNodeList& getList() const;
    // The node's index when it is an element of a set, else 0.
    std::size_t getPosition() const;
    // Whether the node is an element of a set of that id.
    bool isElementOf(std::u16string_view setId) const;

    // Moves.
    void setNestedFeature(AttrNode* node, Feature feature) noexcept;
    // To a node of the list of the present node, or of the root.
    void enter(AttrNode& node, bool isRequired);
    // Into the list of the present node: it becomes the last ancestor.
    void descend();
    // To the attribute of a feature that lies inside the present node. Stays where it is when that is not to be found.
    void retarget(const NestedAttrID& featurePath);

    bool operator==(const AttrLocation&) const = default;

private:
    AttrNodeList* root_;
    AttrNode* node_ = nullptr;
    bool isRequired_ = false;
    AttrNode* owner_ = nullptr;
    AttrNode* nestedNode_ = nullptr;
    Feature nestedFeature_ = noParentFeature;
    std::vector<AttrNode*> ancestors_;
    std::vector<bool> ancestorFlags_;
    NestedAttrID path_;
    std::u16string attrName_;
};
