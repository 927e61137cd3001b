#include "jtcore/Attributes/AttrNodeList.h"

#include "jtcore/Attributes/IppList.h"
#include "jtcore/Services/KolmaException.h"

#include <algorithm>
#include <cstring>
#include <utility>

AttrNodeList::AttrNodeList(const AttrNodeList& other) {
    nodes_.reserve(other.nodes_.size());
    for (const AttrNode& node : other)
        nodes_.push_back(std::make_unique<AttrNode>(node));
}

AttrNodeList& AttrNodeList::operator=(const AttrNodeList& other) {
    if (this != &other) *this = AttrNodeList(other);
    return *this;
}

AttrNodeList::AttrNodeList(AttrNodeList&& other) noexcept : nodes_(std::move(other.nodes_)) { other.clear(); }

AttrNodeList& AttrNodeList::operator=(AttrNodeList&& other) noexcept {
    // The other list may lie inside this one: what was here dies last.
    Nodes former = std::exchange(nodes_, std::exchange(other.nodes_, {}));
    other.cursor_ = 0;
    cursor_ = 0;
    return *this;
}

bool AttrNodeList::equals(const AttrNodeList& other) const {
    return std::equal(begin(), end(), other.begin(), other.end(),
                      [](const AttrNode& a, const AttrNode& b) { return a.equals(b); });
}

std::size_t AttrNodeList::find(std::u16string_view id, std::size_t occurrence) const noexcept {
    // The library's comparison goes character by character.
    const auto isThis = [id](std::u16string_view name) {
        return name.size() == id.size() && std::memcmp(name.data(), id.data(), id.size() * sizeof(char16_t)) == 0;
    };
    for (std::size_t i = 0; i < nodes_.size(); ++i)
        if (isThis(nodes_[i]->getAttrID()) && occurrence-- == 0) return i;
    return nodes_.size();
}

const AttrNode* AttrNodeList::getNode(std::u16string_view id, std::size_t occurrence) const noexcept {
    std::size_t index = find(id, occurrence);
    return index < nodes_.size() ? nodes_[index].get() : nullptr;
}

AttrNode* AttrNodeList::getNode(std::u16string_view id, std::size_t occurrence) noexcept {
    return const_cast<AttrNode*>(std::as_const(*this).getNode(id, occurrence));
}

const AttrNode* AttrNodeList::getMatchingNode(const AttrNode& node, std::size_t occurrence) const {
    for (const AttrNode& candidate : *this)
        if (candidate.equals(node) && occurrence-- == 0) return &candidate;
    return nullptr;
}

AttrNode* AttrNodeList::getMatchingNode(const AttrNode& node, std::size_t occurrence) {
    return const_cast<AttrNode*>(std::as_const(*this).getMatchingNode(node, occurrence));
}

bool AttrNodeList::isNodeAt(std::u16string_view id, std::ptrdiff_t position) const noexcept {
    auto count = static_cast<std::ptrdiff_t>(nodes_.size());
    if (position == -1) position = count - 1;
    if (position < 0 || position >= count) return false;
    return nodes_[static_cast<std::size_t>(position)]->getAttrID().getName() == id;
}

bool AttrNodeList::getNodePosition(const AttrNode& node, std::size_t& index) const noexcept {
    auto found = std::find_if(nodes_.begin(), nodes_.end(), [&](const auto& own) { return own.get() == &node; });
    if (found == nodes_.end()) return false;
    index = static_cast<std::size_t>(found - nodes_.begin());
    return true;
}

AttrNode& AttrNodeList::append(std::unique_ptr<AttrNode> node) {
    nodes_.push_back(std::move(node));
    return *nodes_.back();
}

AttrNode& AttrNodeList::addNode(const AttrNode& node) { return append(std::make_unique<AttrNode>(node)); }

AttrNode& AttrNodeList::addNode(AttrNode&& node) { return append(std::make_unique<AttrNode>(std::move(node))); }

AttrNode& AttrNodeList::addNode(std::u16string_view id, std::unique_ptr<AttrValue> value) {
    return append(std::make_unique<AttrNode>(AttrID(id), std::move(value)));
}

AttrNode& AttrNodeList::setNode(std::u16string_view id, const AttrValue& value, std::size_t occurrence) {
    AttrNode fresh(id, value);
    AttrNode* node = getNode(id, occurrence);
    if (!node) return addNode(std::move(fresh));
    *node = std::move(fresh);
    return *node;
}

AttrNodeList& AttrNodeList::addListNode(std::u16string_view id, std::u16string_view syntaxName) {
    auto value = std::make_unique<IppList>(syntaxName);
    AttrNodeList& inner = value->getList();
    addNode(id, std::move(value));
    return inner;
}

void AttrNodeList::removeAt(std::size_t index) noexcept {
    nodes_.erase(nodes_.begin() + static_cast<std::ptrdiff_t>(index));
    if (index < cursor_) --cursor_;
}

void AttrNodeList::deleteNode(std::u16string_view id, std::size_t occurrence) {
    std::size_t index = find(id, occurrence);
    if (index < nodes_.size()) removeAt(index);
}

void AttrNodeList::deleteNodeObject(const AttrNode* node) {
    std::size_t index = 0;
    if (node && getNodePosition(*node, index)) removeAt(index);
}

void AttrNodeList::clear() noexcept {
    nodes_.clear();
    cursor_ = 0;
}

bool AttrNodeList::moveNodeToFront(std::u16string_view id, std::size_t occurrence) {
    std::size_t index = find(id, occurrence);
    if (index == 0 || index == nodes_.size()) return false;
    auto node = nodes_.begin() + static_cast<std::ptrdiff_t>(index);
    std::rotate(nodes_.begin(), node, node + 1);
    return true;
}

std::size_t AttrNodeList::nextNonPrivate() const noexcept {
    std::size_t index = cursor_;
    while (index < nodes_.size() && nodes_[index]->isPrivate())
        ++index;
    return index;
}

bool AttrNodeList::hasMoreNonPrivateNodes() const noexcept { return nextNonPrivate() < nodes_.size(); }

AttrNode& AttrNodeList::getNextNode() {
    if (!hasMoreNodes())
        raise<NodeAccessOutOfBoundsException>(
            u"AttrNodeList::getNextNode(): No more nodes to get. Caller failed to test "
            u"with hasMoreNodes() first!\r\n");
    return *nodes_[cursor_++];
}

AttrNode& AttrNodeList::getNextNonPrivateNode() {
    std::size_t index = nextNonPrivate();
    if (index == nodes_.size())
        raise<NodeAccessOutOfBoundsException>(
            u"AttrNodeList::getNextNonPrivateNode(): No more non-private nodes to get. "
            u"Caller failed to test with hasMoreNonPrivateNodes() first!\r\n");
    cursor_ = index + 1;
    return *nodes_[index];
}
