// Finds by hash what a list of capabilities says at its top level, for those who ask once for each attribute of a job.
#pragma once

#include "jtcore/Attributes/AttrNodeList.h"
#include "jtcore/Capabilities/KeywordSet.h"
#include "jtcore/FeatureSettings/CapabilityDataBase.h"

#include <array>
#include <string_view>
#include <unordered_map>
#include <vector>

// What a set of keywords at the top level lists, and which features that names, in their order.
struct KeywordList {
    KeywordSet keywords;
    std::vector<Feature> features;
};

class CapabilityIndex {
public:
    // The list must stay as it is for the life of the index.
    explicit CapabilityIndex(const AttrNodeList& capabilities);

    // The first node of that id with "-supported" behind it; null when there is none.
    const AttrNode* findSupported(std::u16string_view attributeId) const noexcept;
    // The same for a feature's unique id, and the node that a row of the table stands in: without a hash.
    const AttrNode* findSupported(Feature feature) const noexcept;
    const AttrNode* findCapability(const CapabilityInfo& row) const noexcept;
    // The first node of exactly that id; null when there is none.
    const AttrNode* findNode(std::u16string_view id) const noexcept;
    // Null for a list that is no set of keywords at the top level.
    const KeywordList* findKeywords(const AttrNodeList& list) const noexcept;

private:
    void addKeywords(const AttrNodeList& list);
    void buildTables();

    std::unordered_map<std::u16string_view, const AttrNode*> supported_; // by the attribute's id
    std::unordered_map<std::u16string_view, const AttrNode*> others_;    // by their own
    std::unordered_map<const AttrNodeList*, KeywordList> keywords_;
    std::array<const AttrNode*, featureLast + 1> supportedFeatures_{}; // by their numbers
    std::vector<const AttrNode*> rows_;                                // as the rows of CapabilityDataBase
};

inline constexpr std::u16string_view supportedSuffix = u"-supported";

// A keyword "value" in a set, as member lists have them, or null for any other node.
const std::u16string* listedKeyword(const AttrNode& node) noexcept;
// The features that a list of keywords names, in its order.
std::vector<Feature> listedFeatures(const AttrNodeList& list);
