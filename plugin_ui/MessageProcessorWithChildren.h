// A component with children, which it owns and hands each message to in the order in which they were added.
#pragma once

#include "plugin_ui/MessageProcessor.h"

#include <memory>
#include <utility>
#include <vector>

class MessageProcessorWithChildren : public MessageProcessor {
public:
    using Children = std::vector<std::unique_ptr<MessageProcessor>>;
    using Position = Children::const_iterator;

    ~MessageProcessorWithChildren() override;

    // Stops at the first child that returns true. A child may be added while a message is on its way; one that removes
    // itself, or an earlier one, while it handles a message is a fault of its owner.
    bool sendToChildren(const UIMessage& message, LRESULT& result) override;

    // Takes the child over and registers it as a component. REQUIRES: child is not null.
    virtual void addChild(std::unique_ptr<MessageProcessor> child);

    // Makes a child; the reference holds as long as the child is one.
    template <typename Child, typename... Arguments>
    Child& addNew(Arguments&&... arguments) {
        auto child = std::make_unique<Child>(std::forward<Arguments>(arguments)...);
        Child& made = *child;
        addChild(std::move(child));
        return made;
    }

    Position firstChild() const noexcept { return children_.begin(); }
    Position endOfChildren() const noexcept { return children_.end(); }
    // Deletes the child and returns the position of the one behind it.
    Position removeChild(Position position);
    // False when it is no child of this one.
    bool removeChildObject(const MessageProcessor& child);
    bool hasChild(const MessageProcessor& child) const noexcept;

protected:
    MessageProcessorWithChildren();

private:
    Position find(const MessageProcessor& child) const noexcept;

    Children children_;
};
