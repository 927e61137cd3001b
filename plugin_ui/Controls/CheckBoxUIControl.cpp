#include "plugin_ui/Controls/CheckBoxUIControl.h"

#include "jtcore/Services/ResourceLibrary.h"

CheckBoxUIControl::CheckBoxUIControl(std::uint16_t itemId) : UIControl(itemId), itemId_(itemId) {
    addControlId(itemId);
}

void CheckBoxUIControl::setChecked(bool checked) {
    checked_ = checked;
    displayControl();
}

void CheckBoxUIControl::displayControl() {
    CheckDlgButton(getWindow(), itemId_, static_cast<UINT>(checked_ ? BST_CHECKED : BST_UNCHECKED));
}

void CheckBoxUIControl::setLabelId(std::uint16_t stringId) {
    labelId_ = stringId;
    if (getWindow()) initializeControl();
}

void CheckBoxUIControl::initializeControl() {
    if (labelId_ != 0) SetDlgItemTextW(getWindow(), itemId_, toWide(ResourceLibrary().getString(labelId_)));
}

bool CheckBoxUIControl::handleControlMessage(const UIMessage& message, LRESULT&) {
    if (!isCommand(message, itemId_, BN_CLICKED)) return false;
    const bool checked = IsDlgButtonChecked(getWindow(), itemId_) == BST_CHECKED;
    if (checked == checked_) return true;
    checked_ = checked;
    notifyObservers();
    return true;
}
