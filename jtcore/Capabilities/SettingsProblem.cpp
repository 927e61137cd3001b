#include "jtcore/Capabilities/SettingsProblem.h"

#include "jtcore/Attributes/IppList.h"

namespace {

// The node and all nodes inside it, at any depth.
void collect(const AttrNode& node, std::vector<const AttrNode*>& nodes);

void collectInside(const AttrNode& node, std::vector<const AttrNode*>& nodes) {
    if (const IppList* list = node.getAttrValue().asList())
        for (const AttrNode& inner : list->getList())
            collect(inner, nodes);
}

void collect(const AttrNode& node, std::vector<const AttrNode*>& nodes) {
    nodes.push_back(&node);
    collectInside(node, nodes);
}

} // namespace

bool SettingsProblem::hasEqualPlace(const SettingsProblem& other) const {
    return location_ == other.location_ && removedNodes_ == other.removedNodes_;
}

void SettingsProblem::fix(const AttrNodeList& defaults) {
    const Fix fix = getFix(defaults);
    if (fix.replacement)
        replaceValue(*fix.replacement);
    else
        remove();
}

Fix SettingsProblem::makeRemoval() const {
    const FixKind kind = location_.isRequired() ? FixKind::removeEnclosing : FixKind::remove;
    return {kind, nullptr, location_.getNode()};
}

Fix SettingsProblem::makeReplacement(std::unique_ptr<AttrNode> replacement) const {
    return {FixKind::replace, std::move(replacement), location_.getNode()};
}

void SettingsProblem::replaceValue(const AttrNode& replacement) {
    AttrNode& node = *location_.getNode();
    collectInside(node, removedNodes_);
    node.setAttrValue(replacement.getAttrValue().clone());
}

void SettingsProblem::remove() {
    AttrNode& node = *location_.getNode();
    collect(node, removedNodes_);
    location_.getList().deleteNodeObject(&node);
    if (location_.isRequired()) removeEnclosing();
}

void SettingsProblem::removeEnclosing() {
    const std::vector<AttrNode*>& ancestors = location_.getAncestors();
    std::size_t depth = ancestors.size();
    while (depth > 0 && location_.getAncestorFlags()[depth - 1])
        --depth;
    if (depth == 0) return;
    AttrNode& gone = *ancestors[depth - 1];
    AttrNodeList& holder = depth == 1 ? location_.getRoot() : ancestors[depth - 2]->getAttrValue().asList()->getList();
    collectInside(gone, removedNodes_);
    removedNodes_.push_back(&gone);
    holder.deleteNodeObject(&gone);
}
