#include "jtcore/Attributes/AttrNode.h"

AttrNode::AttrNode(std::u16string_view id, const AttrValue& value, bool isPrivate)
    : id_(id), value_(value.clone()), isPrivate_(isPrivate) {}

AttrNode::AttrNode(AttrID&& id, std::unique_ptr<AttrValue> value, bool isPrivate) noexcept
    : id_(std::move(id)), value_(std::move(value)), isPrivate_(isPrivate) {}

AttrNode::AttrNode(const AttrNode& other)
    : id_(other.id_), value_(other.value_->clone()), isPrivate_(other.isPrivate_) {}

AttrNode& AttrNode::operator=(const AttrNode& other) {
    if (this != &other) *this = AttrNode(other);
    return *this;
}

bool AttrNode::equals(const AttrNode& other) const {
    return isPrivate_ == other.isPrivate_ && id_ == other.id_ && value_->equals(*other.value_);
}
