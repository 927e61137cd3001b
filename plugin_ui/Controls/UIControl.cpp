#include "plugin_ui/Controls/UIControl.h"

#include "jtcore/Services/ResourceLibrary.h"

#include <utility>

UIControl::UIControl(std::uint16_t tipControlId) : tipControlId_(tipControlId) {}

UIControl::~UIControl() = default;

void UIControl::setLabelId(std::uint16_t) {}

void UIControl::displayControl() {}

bool UIControl::handleControlMessage(const UIMessage&, LRESULT&) { return false; }

void UIControl::initializeControl() {}

bool UIControl::onInitDialog(const UIMessage& message, LRESULT& result) {
    window_ = message.window;
    enabled_ = IsWindowEnabled(window_) != FALSE;
    initializeControl();
    if (locked_) enableItems(false);
    if (!toolTip_) makeToolTip();
    return sendToChildren(message, result);
}

bool UIControl::onCommand(const UIMessage& message, LRESULT& result) {
    const bool handled = handleControlMessage(message, result);
    return (handled && !passCommands_) || sendToChildren(message, result);
}

bool UIControl::onNotify(const UIMessage& message, LRESULT& result) {
    return handleControlMessage(message, result) || sendToChildren(message, result);
}

bool UIControl::onOtherMessage(const UIMessage& message, LRESULT& result) {
    return handleControlMessage(message, result) || sendToChildren(message, result);
}

bool UIControl::onShow(const UIMessage& message, LRESULT& result) {
    showItems(SW_SHOW);
    return sendToChildren(message, result);
}

bool UIControl::onHide(const UIMessage& message, LRESULT& result) {
    showItems(SW_HIDE);
    return sendToChildren(message, result);
}

bool UIControl::onEnable(const UIMessage& message, LRESULT& result) {
    if (!locked_) enableItems(true);
    return sendToChildren(message, result);
}

bool UIControl::onDisable(const UIMessage& message, LRESULT& result) {
    enableItems(false);
    return sendToChildren(message, result);
}

// The tip's window goes with the dialog: the next showing makes another one.
bool UIControl::onDestroy(const UIMessage& message, LRESULT& result) {
    const bool handled = sendToChildren(message, result);
    toolTip_.reset();
    window_ = nullptr;
    return handled;
}

bool UIControl::onLock(const UIMessage&, LRESULT&) {
    locked_ = true;
    if (window_) enableItems(false);
    return false;
}

bool UIControl::onUnlock(const UIMessage&, LRESULT&) {
    locked_ = false;
    if (window_) enableItems(true);
    return false;
}

void UIControl::addControlId(std::uint16_t id) {
    if (id != 0) itemIds_.push_back(id);
}

void UIControl::enableControl() {
    LRESULT result = 0;
    processMessage({window_, UIM_ENABLE, 0, 0}, result);
}

void UIControl::disableControl() {
    LRESULT result = 0;
    processMessage({window_, UIM_DISABLE, 0, 0}, result);
}

void UIControl::setToolTip(std::u16string text) {
    tipText_ = std::move(text);
    toolTip_.reset();
    makeToolTip();
}

void UIControl::setToolTipId(std::uint16_t stringId) { setToolTip(ResourceLibrary().getString(stringId)); }

void UIControl::changeToolTip(std::u16string text) {
    tipText_ = std::move(text);
    if (toolTip_) toolTip_->setText(tipText_);
}

HWND UIControl::getItem(std::uint16_t id) const { return window_ ? GetDlgItem(window_, id) : nullptr; }

LRESULT UIControl::sendToItem(std::uint16_t id, UINT message, WPARAM wParam, LPARAM lParam) const {
    return SendDlgItemMessageW(window_, id, message, wParam, lParam);
}

bool UIControl::isCommand(const UIMessage& message, std::uint16_t id, WORD code) noexcept {
    return message.id == WM_COMMAND && LOWORD(message.wParam) == id && HIWORD(message.wParam) == code;
}

void UIControl::showItems(int how) const {
    for (const std::uint16_t id : itemIds_)
        ShowWindow(getItem(id), how);
}

void UIControl::enableItems(bool enable) {
    if (enabled_ == enable) return;
    enabled_ = enable;
    for (const std::uint16_t id : itemIds_)
        EnableWindow(getItem(id), enable);
}

void UIControl::makeToolTip() {
    if (window_ && !tipText_.empty()) toolTip_ = std::make_unique<ToolTip>(window_, tipControlId_, tipText_);
}
