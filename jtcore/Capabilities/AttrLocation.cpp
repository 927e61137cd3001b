#include "jtcore/Capabilities/AttrLocation.h"

#include "jtcore/Attributes/IppList.h"

namespace {

bool isSet(const AttrNode* node) { return node && node->getAttrValue().is1setOf(); }

// Where the id stands in the path, counted from the root list; the number of steps for the attribute itself.
std::size_t findStep(const NestedAttrID& path, std::u16string_view id) {
    const std::size_t length = path.getPathLength();
    std::size_t step = 0;
    while (step < length && path.getPathEntryId(length - 1 - step) != id)
        ++step;
    return step;
}

std::u16string_view idAfter(const NestedAttrID& path, std::size_t step) {
    const std::size_t length = path.getPathLength();
    return step + 1 < length ? path.getPathEntryId(length - 2 - step) : path.getName();
}

} // namespace

bool AttrLocation::isAt(const NestedAttrID& path) const {
    if (path.getName() != path_.getName() || path.getPathLength() != path_.getPathLength()) return false;
    for (std::size_t i = 0; i < path.getPathLength(); ++i)
        if (path.getPathEntryId(i) != path_.getPathEntryId(i) ||
            path.getPathEntrySyntax(i) != path_.getPathEntrySyntax(i))
            return false;
    return true;
}

AttrNodeList& AttrLocation::getList() const {
    return ancestors_.empty() ? *root_ : ancestors_.back()->getAttrValue().asList()->getList();
}

std::size_t AttrLocation::getPosition() const {
    std::size_t position = 0;
    if (node_ && !ancestors_.empty() && isSet(ancestors_.back())) getList().getNodePosition(*node_, position);
    return position;
}

bool AttrLocation::isElementOf(std::u16string_view setId) const {
    return !ancestors_.empty() && node_ != ancestors_.back() && isSet(ancestors_.back()) && attrName_ == setId;
}

void AttrLocation::setNestedFeature(AttrNode* node, Feature feature) noexcept {
    nestedNode_ = node;
    nestedFeature_ = feature;
}

void AttrLocation::enter(AttrNode& node, bool isRequired) {
    node_ = &node;
    isRequired_ = isRequired;
    const AttrNode* named = &node;
    owner_ = nullptr;
    std::size_t depth = ancestors_.size();
    if (depth > 0 && isSet(ancestors_.back())) owner_ = ancestors_.back();
    for (; depth > 0 && isSet(ancestors_[depth - 1]); --depth)
        named = ancestors_[depth - 1];
    if (!owner_ && depth > 0) owner_ = ancestors_[depth - 1];
    attrName_ = named->getAttrID().getName();
    NestedAttrID path(node.getAttrID().getName());
    for (const AttrNode* ancestor : ancestors_)
        path.addPathEntry(ancestor->getAttrID(), ancestor->getAttrValue().getSyntaxName(), StepKind::plain);
    path_ = std::move(path);
}

void AttrLocation::descend() {
    ancestors_.push_back(node_);
    ancestorFlags_.push_back(isRequired_);
}

// What is required of a set is required of the value in it.
void AttrLocation::retarget(const NestedAttrID& featurePath) {
    if (!node_ || featurePath.isTopLevel() || isAt(featurePath)) return;
    AttrLocation target = *this;
    for (std::size_t step = findStep(featurePath, node_->getAttrID()); step < featurePath.getPathLength(); ++step) {
        IppList* list = target.node_->getAttrValue().asList();
        AttrNode* next = list ? list->getList().getNode(idAfter(featurePath, step)) : nullptr;
        if (!next) return;
        target.descend();
        target.enter(*next, isRequired_);
    }
    *this = std::move(target);
}
