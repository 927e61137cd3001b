// The walk over settings that finds what a printer cannot do.
//
// One object serves one walk. On the way it keeps one small record for each list that it is in; where a node stands is
// written down only for a problem.
#pragma once

#include "jtcore/Capabilities/Capabilities.h"
#include "jtcore/Capabilities/SettingsProblemList.h"
#include "jtcore/FeatureSettings/CapabilityDataBase.h"

#include <deque>
#include <vector>

class SettingsValidator {
public:
    // Both are borrowed. Problems are appended.
    SettingsValidator(const Capabilities& capabilities, SettingsProblemList& problems);

    // The features that a level needs whose allowed members the list names; none for a null list. `parent` is the
    // collection that the level is the inside of, as for a feature that may stay unset.
    std::vector<Feature> findRequiredFeatures(const AttrNodeList* members, Feature parent) const;

    // True when nothing was found. `feature` is the collection that the list holds the members of, or noParentFeature.
    bool validate(AttrNodeList& root, const std::vector<Feature>& required, Feature feature);

private:
    // A list that the walk is in.
    struct Level {
        const Level* outer = nullptr;
        AttrNodeList* list = nullptr;
        AttrNode* node = nullptr;                 // whose list it is; null for the root
        const FeatureInfo* nodeFeature = nullptr; // named by the node's id; null where that is none
        bool isNodeRequired = false;              // where the node stands
        bool isSet = false;                       // the node is a 1setOf
        AttrNodeList* base = nullptr;             // where the paths of features begin
        AttrNode* nestedNode = nullptr;           // the collection whose list the base is, and its feature
        Feature nestedFeature = noParentFeature;
        const std::vector<Feature>* required = nullptr;
        const AttrNode* allowing = nullptr;    // the outermost enclosing node with a list of what may stand inside it
        const AttrNodeList* allowed = nullptr; // that list
    };
    // A node that the walk is at.
    struct Place {
        const Level& level;
        AttrNode& node;
        const FeatureInfo* feature; // named by the node's id; null where that is none
        bool isRequired;
        std::u16string_view id() const { return node.getAttrID(); }
    };
    struct RequiredMembers {
        const AttrNodeList* members;
        Feature parent;
        std::vector<Feature> features;
    };

    bool validateLevel(const Level& level);
    bool validateRequired(const Level& level);
    bool validateNode(const Place& place);
    bool descend(const Place& place);
    bool validateLeaf(const Place& place);
    const AttrNode* findSupported(const AttrNode& node, const FeatureInfo* feature) const;
    const std::vector<Feature>& requiredMembers(const Place& place, Feature parent);
    bool isAttributeAllowed(const Level& level, std::u16string_view name) const;

    // The printer's own extensions.
    bool validateExtensions(const Place& place);
    std::unique_ptr<SettingsProblem> findExtensionProblem(const Place& place, const CapabilityInfo& row) const;
    bool isWithinExtension(const Place& place, const CapabilityInfo& row, const AttrValue& limit) const;

    AttrLocation locate(const Level& level) const;
    AttrLocation locate(const Place& place) const;
    bool report(std::unique_ptr<SettingsProblem> problem);

    const Capabilities& capabilities_;
    SettingsProblemList& problems_;
    const AttrNodeList* topLevelAttributes_;
    const AttrNodeList* userDefined_;
    std::deque<RequiredMembers> requiredMembers_; // found so far
};
