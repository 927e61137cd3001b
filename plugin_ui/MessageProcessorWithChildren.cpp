#include "plugin_ui/MessageProcessorWithChildren.h"

#include <algorithm>

namespace {

constexpr std::size_t usualChildren = 10;

} // namespace

MessageProcessorWithChildren::MessageProcessorWithChildren() { children_.reserve(usualChildren); }

MessageProcessorWithChildren::~MessageProcessorWithChildren() {
    for (auto& child : children_)
        child.reset();
}

bool MessageProcessorWithChildren::sendToChildren(const UIMessage& message, LRESULT& result) {
    for (std::size_t i = 0; i < children_.size(); ++i)
        if (children_[i]->processMessage(message, result)) return true;
    return false;
}

void MessageProcessorWithChildren::addChild(std::unique_ptr<MessageProcessor> child) {
    children_.push_back(std::move(child));
    addComponent(*children_.back());
}

MessageProcessorWithChildren::Position MessageProcessorWithChildren::removeChild(Position position) {
    removeComponent(**position);
    return children_.erase(position);
}

bool MessageProcessorWithChildren::removeChildObject(const MessageProcessor& child) {
    const Position position = find(child);
    if (position == endOfChildren()) return false;
    removeChild(position);
    return true;
}

bool MessageProcessorWithChildren::hasChild(const MessageProcessor& child) const noexcept {
    return find(child) != endOfChildren();
}

MessageProcessorWithChildren::Position
MessageProcessorWithChildren::find(const MessageProcessor& child) const noexcept {
    return std::find_if(children_.begin(), children_.end(), [&](const auto& owned) { return owned.get() == &child; });
}
