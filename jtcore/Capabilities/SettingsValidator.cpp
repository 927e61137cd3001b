#include "jtcore/Capabilities/SettingsValidator.h"

#include "jtcore/Attributes/IppList.h"
#include "jtcore/Capabilities/MissingFeatureProblem.h"
#include "jtcore/Capabilities/UnsupportedAttribute.h"
#include "jtcore/Capabilities/UnsupportedValue.h"
#include "jtcore/Capabilities/compareMediaSize.h"

#include <algorithm>

namespace {

constexpr std::u16string_view mediaSizeId = u"media-size";

bool contains(const std::vector<Feature>& features, Feature feature) {
    return std::find(features.begin(), features.end(), feature) != features.end();
}

const AttrNodeList* listOf(const AttrNode* node) {
    const IppList* list = node ? node->getAttrValue().asList() : nullptr;
    return list ? &list->getList() : nullptr;
}

// A list with attributes in it, and no value that is merely written as a list.
bool isLevel(const AttrNode& node) {
    const AttrValue& value = node.getAttrValue();
    return value.isList() && !value.isRangeOfInteger() && !value.isResolution() &&
           node.getAttrID().getName() != mediaSizeId;
}

// Stocks come by their name or by their description; the choice is not the check's to make.
constexpr bool isNeverRequired(Feature feature) noexcept {
    return feature == Feature::media || feature == Feature::mediaKey;
}

} // namespace

SettingsValidator::SettingsValidator(const Capabilities& capabilities, SettingsProblemList& problems)
    : capabilities_(capabilities),
      problems_(problems),
      topLevelAttributes_(capabilities.getCapabilityList({Feature::any, CapabilityType::memberList})),
      userDefined_(capabilities.getCapabilityList({Feature::any, CapabilityType::userDefinedList})) {}

std::vector<Feature> SettingsValidator::findRequiredFeatures(const AttrNodeList* members, Feature parent) const {
    if (!members) return {};
    std::vector<Feature> required = capabilities_.getListedFeatures(*members);
    std::erase_if(required, [&](Feature feature) {
        return isNeverRequired(feature) || capabilities_.isUnspecifiedAllowed(feature, parent);
    });
    return required;
}

const std::vector<Feature>& SettingsValidator::requiredMembers(const Place& place, Feature parent) {
    static const std::vector<Feature> none;
    const AttrNodeList* members =
        place.feature ? capabilities_.getCapabilityList({place.feature->number, CapabilityType::memberList}) : nullptr;
    if (!members) return none;
    for (const RequiredMembers& known : requiredMembers_)
        if (known.members == members && known.parent == parent) return known.features;
    requiredMembers_.push_back({members, parent, findRequiredFeatures(members, parent)});
    return requiredMembers_.back().features;
}

bool SettingsValidator::validate(AttrNodeList& root, const std::vector<Feature>& required, Feature feature) {
    Level level;
    level.list = &root;
    level.base = &root;
    level.nestedFeature = feature;
    level.required = &required;
    return validateLevel(level);
}

bool SettingsValidator::validateLevel(const Level& level) {
    bool isValid = level.isSet || validateRequired(level);
    for (AttrNode& node : *level.list) {
        if (node.isPrivate()) continue;
        const FeatureInfo* feature = FeatureDataBase::find(node.getAttrID());
        const bool isRequired = feature && contains(*level.required, feature->number);
        if (!validateNode({level, node, feature, isRequired})) isValid = false;
    }
    return isValid;
}

bool SettingsValidator::validateRequired(const Level& level) {
    bool isValid = true;
    for (const Feature feature : *level.required) {
        const FeatureId id(feature);
        const AttrNodeList* holder = id.getNestedId().findList(*level.base);
        if (!holder || !holder->getNode(id.getAttrName()))
            isValid = report(std::make_unique<MissingFeatureProblem>(locate(level), id));
    }
    return isValid;
}

bool SettingsValidator::validateNode(const Place& place) {
    const bool isWithinExtensions = validateExtensions(place);
    const AttrValue& value = place.node.getAttrValue();
    if (value.isCollection() && place.id() != mediaSizeId && capabilities_.hasKeyword(userDefined_, place.id()))
        return isWithinExtensions;
    if (value.isList() && !place.level.isSet && !isAttributeAllowed(place.level, place.id()))
        return report(std::make_unique<UnsupportedAttribute>(locate(place)));
    const bool isValid = isLevel(place.node) ? descend(place) : validateLeaf(place);
    return isValid && isWithinExtensions;
}

// The entries of page-overrides and their like are small tickets of their own: paths of features begin there.
bool SettingsValidator::descend(const Place& place) {
    const Level& outer = place.level;
    AttrNode& node = place.node;
    Level inner = outer;
    inner.outer = &outer;
    inner.node = &node;
    inner.nodeFeature = place.feature;
    inner.isNodeRequired = place.isRequired;
    inner.isSet = node.getAttrValue().is1setOf();
    inner.list = &node.getAttrValue().asList()->getList();
    const FeatureInfo* named = outer.isSet ? outer.nodeFeature : place.feature;
    if (named && named->path.leaf == place.id() && capabilities_.isNestedFeature(named->uniqueId())) {
        inner.base = inner.list;
        inner.nestedNode = &node;
        inner.nestedFeature = named->number;
    }
    if (!outer.isSet) inner.required = &requiredMembers(place, inner.nestedFeature);
    if (!outer.allowed && (inner.allowed = listOf(findSupported(node, place.feature)))) inner.allowing = &node;
    return validateLevel(inner);
}

const AttrNode* SettingsValidator::findSupported(const AttrNode& node, const FeatureInfo* feature) const {
    return feature ? capabilities_.findSupported(feature->number) : capabilities_.findSupported(node.getAttrID());
}

// The nearest level from the root that says what may stand inside it decides; the job's own list where none does. A
// level says nothing of an attribute of its own name.
bool SettingsValidator::isAttributeAllowed(const Level& level, std::u16string_view name) const {
    if (!level.allowed) return capabilities_.hasKeyword(topLevelAttributes_, name);
    if (level.allowing->getAttrID().getName() != name) return capabilities_.hasKeyword(level.allowed, name);
    const AttrNodeList* deciding = topLevelAttributes_;
    for (const Level* at = &level; at->node; at = at->outer)
        if (at->node->getAttrID().getName() != name)
            if (const AttrNodeList* list = listOf(findSupported(*at->node, at->nodeFeature))) deciding = list;
    return capabilities_.hasKeyword(deciding, name);
}

// An element of a set is judged by the name of the set.
bool SettingsValidator::validateLeaf(const Place& place) {
    const AttrNode& named = place.level.isSet ? *place.level.node : place.node;
    const FeatureInfo* feature = place.level.isSet ? place.level.nodeFeature : place.feature;
    const std::u16string_view name = named.getAttrID();
    const AttrValue& value = place.node.getAttrValue();
    if (const AttrNode* supported = findSupported(named, feature)) {
        const AttrValue& allowed = supported->getAttrValue();
        const bool matches = name == mediaSizeId ? compareMediaSize(capabilities_, value, allowed, userDefined_)
                                                 : capabilities_.compareAttrValues(name, value, allowed, userDefined_);
        return matches || report(std::make_unique<UnsupportedValue>(locate(place)));
    }
    if (!isAttributeAllowed(place.level, name)) return report(std::make_unique<UnsupportedAttribute>(locate(place)));
    if (!feature || !CapabilityDataBase::isCapability(feature->number, CapabilityType::valueList) ||
        capabilities_.hasKeyword(userDefined_, name))
        return true;
    // The values are those of a list, and the printer has not said which it takes.
    return report(std::make_unique<UnsupportedValue>(locate(place)));
}

AttrLocation SettingsValidator::locate(const Level& level) const {
    if (!level.node) {
        AttrLocation location(level.list);
        location.setNestedFeature(nullptr, level.nestedFeature);
        return location;
    }
    AttrLocation location = locate(*level.outer);
    location.enter(*level.node, level.isNodeRequired);
    location.descend();
    location.setNestedFeature(level.nestedNode, level.nestedFeature);
    return location;
}

AttrLocation SettingsValidator::locate(const Place& place) const {
    AttrLocation location = locate(place.level);
    location.enter(place.node, place.isRequired);
    return location;
}

bool SettingsValidator::report(std::unique_ptr<SettingsProblem> problem) {
    problems_.add(std::move(problem));
    return false;
}
