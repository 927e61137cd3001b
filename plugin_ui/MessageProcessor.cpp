#include "plugin_ui/MessageProcessor.h"

#include "platform/windows.h"

bool MessageProcessor::processMessage(const UIMessage& message, LRESULT& result) {
    switch (message.id) {
    case WM_INITDIALOG:
        return onInitDialog(message, result);
    case WM_COMMAND:
        return onCommand(message, result);
    case WM_NOTIFY:
        return onNotify(message, result);
    case WM_DESTROY:
        return onDestroy(message, result);
    case UIM_SHOW:
        return onShow(message, result);
    case UIM_HIDE:
        return onHide(message, result);
    case UIM_ENABLE:
        return onEnable(message, result);
    case UIM_DISABLE:
        return onDisable(message, result);
    case UIM_VALIDATE_ENTRY:
        return onValidateEntry(message, result);
    case UIM_VALIDATE_SAVE:
        return onValidateSave(message, result);
    case UIM_REFRESH:
        return onRefresh(message, result);
    case UIM_INTRODUCE:
        return onIntroduce(message, result);
    case UIM_LOCK:
        return onLock(message, result);
    case UIM_UNLOCK:
        return onUnlock(message, result);
    default:
        return onOtherMessage(message, result);
    }
}

bool MessageProcessor::sendToChildren(const UIMessage&, LRESULT&) { return false; }

bool MessageProcessor::onInitDialog(const UIMessage& message, LRESULT& result) {
    return sendToChildren(message, result);
}

bool MessageProcessor::onCommand(const UIMessage& message, LRESULT& result) { return sendToChildren(message, result); }

bool MessageProcessor::onNotify(const UIMessage& message, LRESULT& result) { return sendToChildren(message, result); }

bool MessageProcessor::onShow(const UIMessage& message, LRESULT& result) { return sendToChildren(message, result); }

bool MessageProcessor::onHide(const UIMessage& message, LRESULT& result) { return sendToChildren(message, result); }

bool MessageProcessor::onEnable(const UIMessage& message, LRESULT& result) { return sendToChildren(message, result); }

bool MessageProcessor::onDisable(const UIMessage& message, LRESULT& result) { return sendToChildren(message, result); }

bool MessageProcessor::onValidateEntry(const UIMessage& message, LRESULT& result) {
    return validate(message, result, &MessageProcessor::isEntryValid);
}

bool MessageProcessor::onValidateSave(const UIMessage& message, LRESULT& result) {
    return validate(message, result, &MessageProcessor::isSaveValid);
}

bool MessageProcessor::onRefresh(const UIMessage& message, LRESULT& result) { return sendToChildren(message, result); }

bool MessageProcessor::onOtherMessage(const UIMessage& message, LRESULT& result) {
    return sendToChildren(message, result);
}

bool MessageProcessor::onDestroy(const UIMessage& message, LRESULT& result) { return sendToChildren(message, result); }

bool MessageProcessor::onIntroduce(const UIMessage& message, LRESULT& result) {
    return sendToChildren(message, result);
}

bool MessageProcessor::onLock(const UIMessage& message, LRESULT& result) { return sendToChildren(message, result); }

bool MessageProcessor::onUnlock(const UIMessage& message, LRESULT& result) { return sendToChildren(message, result); }

bool MessageProcessor::isEntryValid(HWND) { return true; }

bool MessageProcessor::isSaveValid(HWND window) { return isEntryValid(window); }

bool MessageProcessor::validate(const UIMessage& message, LRESULT& result, bool (MessageProcessor::*isValid)(HWND)) {
    if (sendToChildren(message, result)) return true;
    const bool valid = (this->*isValid)(message.window);
    result = valid ? entriesValid : entriesInvalid;
    return !valid;
}
