// What the repair of each kind of problem is.
#include "jtcore/Capabilities/FailedEmbeddedSpacesCapability.h"
#include "jtcore/Capabilities/FailedRangeCapability.h"
#include "jtcore/Capabilities/MissingFeatureProblem.h"
#include "jtcore/Capabilities/UnsupportedAttribute.h"
#include "jtcore/Capabilities/UnsupportedValue.h"

#include "jtcore/Attributes/PrimitiveString.h"
#include "jtcore/Capabilities/listValues.h"
#include "jtcore/FeatureSettings/FeatureSettings.h"

#include <algorithm>

namespace {

std::unique_ptr<AttrNode> copyDefault(const AttrNodeList& defaults, const FeatureId& feature) {
    const AttrNodeList* holder = feature.getNestedId().findList(defaults);
    const AttrNode* node = holder ? holder->getNode(feature.getAttrName()) : nullptr;
    return node ? std::make_unique<AttrNode>(*node) : nullptr;
}

bool describesStock(const FeatureId& feature) {
    return feature.getNumber() == Feature::media || feature.getNumber() == Feature::mediaCol ||
           feature.getNestedId().hasPathEntry(u"media-col");
}

constexpr bool isLeadingSurrogate(char16_t c) noexcept { return c >= 0xD800 && c < 0xDC00; }

// A character of two units at the cut goes whole.
std::u16string cut(const std::u16string& text, std::int32_t limit) {
    std::u16string start = text.substr(0, static_cast<std::size_t>(std::max(limit, 0)));
    if (!start.empty() && start.size() < text.size() && isLeadingSurrogate(start.back())) start.pop_back();
    return start;
}

std::unique_ptr<AttrNode> withText(const AttrNode& node, std::u16string text) {
    auto copy = std::make_unique<AttrNode>(node);
    copy->getAttrValue().asPrimitiveString()->setValue(std::move(text));
    return copy;
}

} // namespace

Fix UnsupportedAttribute::getFix(const AttrNodeList&) const { return makeRemoval(); }

Fix UnsupportedValue::getFix(const AttrNodeList& defaults) const {
    const FeatureInfo* info = FeatureDataBase::find(getProblemAttrName());
    if (!info) return makeRemoval();
    const FeatureId feature(info->number);
    const AttrLocation& location = getLocation();
    if (!location.isRequired() && !describesStock(feature) && !location.isAt(feature.getNestedId()))
        return makeRemoval();
    auto replacement = copyDefault(defaults, feature);
    return replacement ? makeReplacement(std::move(replacement)) : makeRemoval();
}

Fix FailedRangeCapability::getFix(const AttrNodeList&) const {
    const AttrNode& node = *getNode();
    const AttrValue& value = node.getAttrValue();
    if (value.isRangeOfInteger()) return fixRange(node);
    if (value.isPrimitiveInteger()) return fixInteger(node);
    return value.isPrimitiveString() ? fixText(node) : makeRemoval();
}

// The upper limit wins where the limits cross.
std::int32_t FailedRangeCapability::clamp(std::int32_t value) const noexcept {
    return std::min(std::max(value, lower_), upper_);
}

Fix FailedRangeCapability::fixRange(const AttrNode& node) const {
    const auto bounds = readBounds(node.getAttrValue());
    if (!bounds) return makeRemoval();
    auto copy = std::make_unique<AttrNode>(node);
    AttrNodeList& members = copy->getAttrValue().asList()->getList();
    members.setNode(u"lower-bound", IppInteger(clamp(bounds->first)));
    members.setNode(u"upper-bound", IppInteger(clamp(bounds->second)));
    return makeReplacement(std::move(copy));
}

Fix FailedRangeCapability::fixInteger(const AttrNode& node) const {
    auto copy = std::make_unique<AttrNode>(node);
    PrimitiveInteger& number = *copy->getAttrValue().asPrimitiveInteger();
    number.setValue(clamp(number.getValue()));
    return makeReplacement(std::move(copy));
}

Fix FailedRangeCapability::fixText(const AttrNode& node) const {
    const std::u16string& text = node.getAttrValue().asPrimitiveString()->getValue();
    const bool isTooLong = upper_ < 0 || text.size() > static_cast<std::size_t>(upper_);
    return isTooLong ? makeReplacement(withText(node, cut(text, upper_))) : makeRemoval();
}

Fix FailedEmbeddedSpacesCapability::getFix(const AttrNodeList&) const {
    const AttrNode& node = *getNode();
    const PrimitiveString* value = node.getAttrValue().asPrimitiveString();
    if (!value) return makeRemoval();
    std::u16string text = value->getValue();
    std::replace(text.begin(), text.end(), u' ', u'_');
    return makeReplacement(withText(node, std::move(text)));
}

Fix MissingFeatureProblem::getFix(const AttrNodeList& defaults) const {
    auto replacement = copyDefault(defaults, feature_);
    const FixKind kind = replacement ? FixKind::add : FixKind::removeEnclosing;
    return {kind, std::move(replacement), nullptr};
}

void MissingFeatureProblem::fix(const AttrNodeList& defaults) {
    const Fix fix = getFix(defaults);
    if (fix.kind != FixKind::add) {
        removeEnclosing();
        return;
    }
    AttrNode* entry = getLocation().getNestedNode();
    AttrNodeList& level = entry ? entry->getAttrValue().asList()->getList() : getLocation().getRoot();
    FeatureSettings::view(&level).setNodeValue(feature_, *fix.replacement);
}
