// A component that window messages are delivered to. processMessage() looks at the id, once for the whole system, and
// calls one handler; subclasses override handlers, never the dispatch.
//
// A handler returns true when the message is handled and goes no further. What it throws passes through the tree and is
// caught in the dialog procedure.
#pragma once

#include "plugin_ui/UIComponent.h"
#include "plugin_ui/UIMessage.h"

class MessageProcessor : public UIComponent {
public:
    virtual bool processMessage(const UIMessage& message, LRESULT& result);
    // There are no children here: false.
    virtual bool sendToChildren(const UIMessage& message, LRESULT& result);

    // Unless overridden each handler only asks the children.
    virtual bool onInitDialog(const UIMessage& message, LRESULT& result);
    virtual bool onCommand(const UIMessage& message, LRESULT& result);
    virtual bool onNotify(const UIMessage& message, LRESULT& result);
    virtual bool onShow(const UIMessage& message, LRESULT& result);
    virtual bool onHide(const UIMessage& message, LRESULT& result);
    virtual bool onEnable(const UIMessage& message, LRESULT& result);
    virtual bool onDisable(const UIMessage& message, LRESULT& result);
    // The children first, then isEntryValid(): the first that fails ends the walk with entriesInvalid.
    virtual bool onValidateEntry(const UIMessage& message, LRESULT& result);
    // The same with isSaveValid().
    virtual bool onValidateSave(const UIMessage& message, LRESULT& result);
    virtual bool onRefresh(const UIMessage& message, LRESULT& result);
    virtual bool onOtherMessage(const UIMessage& message, LRESULT& result);
    virtual bool onDestroy(const UIMessage& message, LRESULT& result);
    // An override always forwards to the children too: several may listen to one announcement.
    virtual bool onIntroduce(const UIMessage& message, LRESULT& result);
    virtual bool onLock(const UIMessage& message, LRESULT& result);
    virtual bool onUnlock(const UIMessage& message, LRESULT& result);

    // Whoever returns false has told the user why.
    virtual bool isEntryValid(HWND window);
    virtual bool isSaveValid(HWND window);

protected:
    MessageProcessor() = default;

private:
    bool validate(const UIMessage& message, LRESULT& result, bool (MessageProcessor::*isValid)(HWND));
};
