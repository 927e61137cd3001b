#include "jtcore/FeatureSettings/NestedAttrID.h"

#include "jtcore/Attributes/AttrNodeList.h"
#include "jtcore/Attributes/IppList.h"
#include "jtcore/Services/KolmaException.h"

#include <algorithm>

NestedAttrID::NestedAttrID() : NestedAttrID(u"NAID_TEMPORARY") {}

NestedAttrID::NestedAttrID(std::u16string_view id) : AttrID(id), uniqueId_(id) {}

void NestedAttrID::addPathEntry(std::u16string_view id, std::u16string_view syntax, StepKind kind) {
    path_.push_back({std::u16string(id), std::u16string(syntax), kind});
    if (kind != StepKind::plain) uniqueId_ = id;
}

const AttrNodeList* NestedAttrID::findList(const AttrNodeList& root, std::size_t occurrence) const {
    const AttrNodeList* list = &root;
    for (std::size_t step = 0; step < path_.size(); ++step) {
        const bool isLast = step + 1 == path_.size();
        if (!list->JtifAttrToList(list, path_[step].id, isLast ? occurrence : 0)) return nullptr;
    }
    return list;
}

AttrNodeList* NestedAttrID::findList(AttrNodeList& root, std::size_t occurrence) const {
    return const_cast<AttrNodeList*>(findList(static_cast<const AttrNodeList&>(root), occurrence));
}

AttrNodeList& NestedAttrID::makeList(AttrNodeList& root, std::size_t occurrence) const {
    AttrNodeList* list = &root;
    for (std::size_t step = 0; step < path_.size(); ++step) {
        const PathEntry& entry = path_[step];
        const bool isLast = step + 1 == path_.size();
        if (!list->JtifAttrToList(list, entry.id, isLast ? occurrence : 0))
            list = &list->addListNode(entry.id, entry.syntax);
    }
    return *list;
}

void NestedAttrID::removeEmptyLists(AttrNodeList& root) const {
    for (std::size_t depth = path_.size(); depth-- > 0;) {
        AttrNodeList* const holder = listAt(root, depth);
        AttrNodeList* inner = nullptr;
        if (!holder || !holder->JtifAttrToList(inner, path_[depth].id)) return;
        if (inner->isEmpty()) holder->deleteNode(path_[depth].id);
    }
}

AttrNodeList* NestedAttrID::listAt(AttrNodeList& root, std::size_t depth) const {
    AttrNodeList* list = &root;
    for (std::size_t step = 0; step < depth; ++step)
        if (!list->JtifAttrToList(list, path_[step].id)) return nullptr;
    return list;
}

const std::u16string& NestedAttrID::getOutermostId() const noexcept {
    return path_.empty() ? getName() : path_.front().id;
}

bool NestedAttrID::hasPathEntry(std::u16string_view id) const noexcept {
    return std::any_of(path_.begin(), path_.end(), [id](const PathEntry& entry) { return entry.id == id; });
}

const NestedAttrID::PathEntry& NestedAttrID::entry(std::size_t index) const {
    if (index < path_.size()) return path_[path_.size() - 1 - index];
    raise<IndexOutOfBoundsException>(u"NestedAttrID::getPathEntry(): the path of '%s' has no entry %d.\r\n", uniqueId_,
                                     index);
}
