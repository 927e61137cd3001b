// The operations of a list that go down into its inner lists.
#include "jtcore/Attributes/AttrNodeList.h"

#include "jtcore/Attributes/IppList.h"

namespace {

AttrNodeList* innerList(AttrNode& node) noexcept {
    IppList* list = node.getAttrValue().asList();
    return list ? &list->getList() : nullptr;
}

} // namespace

void AttrNodeList::pruneEmptyLists() {
    for (std::size_t i = 0; i < nodes_.size();) {
        AttrNodeList* inner = innerList(*nodes_[i]);
        if (inner) inner->pruneEmptyLists();
        if (inner && inner->isEmpty())
            removeAt(i);
        else
            ++i;
    }
}

void AttrNodeList::deleteMatchingNodes(const AttrNode& node) {
    // The given node may be one of those that go.
    const AttrNode pattern(node); // NOLINT(performance-unnecessary-copy-initialization)
    removeMatches(pattern);
}

void AttrNodeList::removeMatches(const AttrNode& pattern) {
    for (std::size_t i = nodes_.size(); i-- > 0;)
        if (nodes_[i]->equals(pattern)) removeAt(i);
    for (std::size_t i = 0; i < nodes_.size();) {
        AttrNodeList* inner = innerList(*nodes_[i]);
        if (inner) inner->removeMatches(pattern);
        if (inner && inner->isEmpty())
            removeAt(i);
        else
            ++i;
    }
}

AttrNode* AttrNodeList::findMergeTarget(const AttrNode& node, const AttrNodeList& other, bool inSet) noexcept {
    if (inSet && (nodes_.size() != 1 || other.nodes_.size() != 1)) return nullptr;
    return getNode(node.getAttrID());
}

bool AttrNodeList::lacks(const AttrNode& node, bool inSet) const {
    return !(inSet ? getMatchingNode(node) : getNode(node.getAttrID()));
}

void AttrNodeList::mergeList(const AttrNodeList& other, bool inSet) {
    if (&other == this) return;
    // The other list may lie inside this one and grow meanwhile: only the nodes that it has now count.
    const std::size_t count = other.nodes_.size();
    for (std::size_t i = 0; i < count; ++i) {
        const AttrNode& node = *other.nodes_[i];
        const IppList* list = node.getAttrValue().asList();
        if (AttrNode* target = list ? findMergeTarget(node, other, inSet) : nullptr) {
            if (AttrNodeList* inner = innerList(*target)) inner->mergeList(list->getList(), list->is1setOf());
        } else if (list || lacks(node, inSet)) {
            addNode(node);
        }
    }
}
