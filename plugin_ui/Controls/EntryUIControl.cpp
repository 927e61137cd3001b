#include "plugin_ui/Controls/EntryUIControl.h"

#include "jtcore/Services/KolmaException.h"
#include "jtcore/Services/quietly.h"
#include "plugin_ui/Controls/entryField.h"

EntryUIControl::EntryUIControl(std::uint16_t editId, std::int32_t maxChars)
    : UIControl(editId), editId_(editId), maxChars_(maxChars) {}

EntryUIControl::~EntryUIControl() {
    quietly([this] { unsubclassEntryField(editWindow_); });
}

bool EntryUIControl::handleControlMessage(const UIMessage& message, LRESULT&) {
    if (!isCommand(message, editId_, EN_CHANGE)) return false;
    if (editWindow_ && !isShowing_) takeEdit();
    return true;
}

bool EntryUIControl::onDestroy(const UIMessage& message, LRESULT& result) {
    unsubclassEntryField(editWindow_);
    editWindow_ = nullptr;
    return UIControl::onDestroy(message, result);
}

void EntryUIControl::showText(const std::u16string& text) {
    isShowing_ = true;
    SetDlgItemTextW(getWindow(), editId_, toWide(text));
    isShowing_ = false;
    shown_ = text;
}

void EntryUIControl::setControlCallBack(const char16_t* className) {
    editWindow_ = getItem(editId_);
    if (!editWindow_) raise<UnknownCaseException>(u"%s::setControlCallBack() Unknown Resource ID.\r\n", className);
    if (!subclassEntryField(editWindow_, keyFilter(), entryType(), maxChars_))
        raise<UnknownCaseException>(u"%s::setControlCallBack() Unknown ANL value for disposition.\r\n", className);
    shown_ = readWindowText(editWindow_);
}

void EntryUIControl::takeEdit() {
    std::u16string text = readWindowText(editWindow_);
    const FieldEdit edit = findEdit(shown_, text);
    const std::u16string admitted = admit(edit);
    if (admitted == edit.inserted)
        shown_ = text;
    else
        text = correct(edit, admitted);
    handleEdit(text);
}

// An edit of which nothing is taken takes nothing away either: the field is as it was, with its selection.
std::u16string EntryUIControl::correct(const FieldEdit& edit, const std::u16string& admitted) {
    EntryState field = edit.field;
    if (!admitted.empty()) {
        field.text.replace(field.selectionStart, field.selectionEnd - field.selectionStart, admitted);
        field.selectionEnd = field.selectionStart += admitted.size();
    }
    showText(field.text);
    sendToItem(editId_, EM_SETSEL, field.selectionStart, static_cast<LPARAM>(field.selectionEnd));
    return field.text;
}
