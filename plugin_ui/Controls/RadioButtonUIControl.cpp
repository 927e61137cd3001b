#include "plugin_ui/Controls/RadioButtonUIControl.h"

#include <algorithm>

RadioButtonUIControl::RadioButtonUIControl(std::uint16_t groupLabelId) : UIControl(groupLabelId) {
    addControlId(groupLabelId);
}

void RadioButtonUIControl::addButton(std::uint16_t id) {
    buttonIds_.push_back(id);
    addControlId(id);
}

void RadioButtonUIControl::setSelected(std::uint16_t id) {
    selectedId_ = id;
    displayControl();
}

void RadioButtonUIControl::enableButton(std::uint16_t id) { EnableWindow(getItem(id), TRUE); }

void RadioButtonUIControl::disableButton(std::uint16_t id) { EnableWindow(getItem(id), FALSE); }

void RadioButtonUIControl::displayControl() {
    for (const std::uint16_t id : buttonIds_)
        CheckDlgButton(getWindow(), id, BST_UNCHECKED);
    if (isButton(selectedId_)) CheckDlgButton(getWindow(), selectedId_, BST_CHECKED);
}

bool RadioButtonUIControl::handleControlMessage(const UIMessage& message, LRESULT&) {
    if (message.id != WM_COMMAND || !isButton(message.wParam)) return false;
    const std::uint16_t checked = findChecked();
    if (checked == selectedId_) return true;
    selectedId_ = checked;
    notifyObservers();
    return true;
}

bool RadioButtonUIControl::isButton(WPARAM id) const noexcept {
    return std::find(buttonIds_.begin(), buttonIds_.end(), id) != buttonIds_.end();
}

std::uint16_t RadioButtonUIControl::findChecked() const {
    for (const std::uint16_t id : buttonIds_)
        if (IsDlgButtonChecked(getWindow(), id) == BST_CHECKED) return id;
    return 0;
}
