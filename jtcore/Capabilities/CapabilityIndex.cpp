#include "jtcore/Capabilities/CapabilityIndex.h"

#include "jtcore/Attributes/IppList.h"
#include "jtcore/Attributes/PrimitiveString.h"
#include "jtcore/FeatureSettings/FeatureDataBase.h"

const std::u16string* listedKeyword(const AttrNode& node) noexcept {
    const AttrValue& value = node.getAttrValue();
    if (value.getValueType() != AVTE::keyword || node.isPrivate() || node.getAttrID().getName() != u"value")
        return nullptr;
    return &value.asPrimitiveString()->getValue();
}

std::vector<Feature> listedFeatures(const AttrNodeList& list) {
    std::vector<Feature> features;
    for (const AttrNode& node : list) {
        const std::u16string* keyword = listedKeyword(node);
        const FeatureInfo* feature = keyword ? FeatureDataBase::find(*keyword) : nullptr;
        if (feature) features.push_back(feature->number);
    }
    return features;
}

CapabilityIndex::CapabilityIndex(const AttrNodeList& capabilities) {
    supported_.reserve(capabilities.getNumNodes());
    for (const AttrNode& node : capabilities) {
        std::u16string_view id = node.getAttrID();
        if (id.ends_with(supportedSuffix)) {
            id.remove_suffix(supportedSuffix.size());
            supported_.emplace(id, &node); // of several nodes the first stands
        } else {
            others_.emplace(id, &node);
        }
        if (node.getAttrValue().is1setOf()) addKeywords(node.getAttrValue().asList()->getList());
    }
    buildTables();
}

void CapabilityIndex::buildTables() {
    for (const FeatureInfo& feature : FeatureDataBase::rows())
        supportedFeatures_[static_cast<std::size_t>(feature.number)] = findSupported(feature.uniqueId());
    for (const CapabilityInfo& row : CapabilityDataBase::rows())
        rows_.push_back(findNode(row.path.steps.empty() ? row.path.leaf : row.path.steps[0].id));
}

void CapabilityIndex::addKeywords(const AttrNodeList& list) {
    if (list.isEmpty() || !listedKeyword(*list.begin())) return;
    std::vector<std::u16string_view> keywords;
    for (const AttrNode& node : list)
        if (const std::u16string* keyword = listedKeyword(node)) keywords.push_back(*keyword);
    keywords_.try_emplace(&list, KeywordList{KeywordSet(keywords), listedFeatures(list)});
}

const AttrNode* CapabilityIndex::findSupported(std::u16string_view attributeId) const noexcept {
    const auto found = supported_.find(attributeId);
    return found == supported_.end() ? nullptr : found->second;
}

const AttrNode* CapabilityIndex::findSupported(Feature feature) const noexcept {
    const auto number = static_cast<std::size_t>(feature);
    return number < supportedFeatures_.size() ? supportedFeatures_[number] : nullptr;
}

const AttrNode* CapabilityIndex::findCapability(const CapabilityInfo& row) const noexcept {
    return rows_[static_cast<std::size_t>(&row - CapabilityDataBase::rows().data())];
}

const AttrNode* CapabilityIndex::findNode(std::u16string_view id) const noexcept {
    if (id.ends_with(supportedSuffix)) return findSupported(id.substr(0, id.size() - supportedSuffix.size()));
    const auto found = others_.find(id);
    return found == others_.end() ? nullptr : found->second;
}

const KeywordList* CapabilityIndex::findKeywords(const AttrNodeList& list) const noexcept {
    const auto found = keywords_.find(&list);
    return found == keywords_.end() ? nullptr : &found->second;
}
