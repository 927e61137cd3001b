#include "plugin_ui/Controls/ListBoxUIControl.h"

ListBoxUIControl::ListBoxUIControl(std::uint16_t labelId, std::uint16_t listId) : UIControl(listId), listId_(listId) {
    addControlId(labelId);
    addControlId(listId);
}

void ListBoxUIControl::clear() { send(LB_RESETCONTENT); }

void ListBoxUIControl::addItem(const std::u16string& text, std::uint32_t data) { insertItem(-1, text, data); }

void ListBoxUIControl::replaceItem(int index, const std::u16string& text, std::uint32_t data) {
    send(LB_DELETESTRING, static_cast<WPARAM>(index));
    insertItem(index, text, data);
    send(LB_SETCURSEL, static_cast<WPARAM>(index));
}

int ListBoxUIControl::findData(std::uint32_t data) const {
    const auto count = static_cast<int>(send(LB_GETCOUNT));
    for (int index = 0; index < count; ++index)
        if (send(LB_GETITEMDATA, static_cast<WPARAM>(index)) == static_cast<LRESULT>(data)) return index;
    return -1;
}

void ListBoxUIControl::setSelectedData(std::uint32_t data) {
    selectedData_ = data;
    displayControl();
}

void ListBoxUIControl::displayControl() { send(LB_SETCURSEL, static_cast<WPARAM>(findData(selectedData_))); }

bool ListBoxUIControl::handleControlMessage(const UIMessage& message, LRESULT&) {
    if (!isCommand(message, listId_, LBN_SELCHANGE)) return false;
    const LRESULT index = send(LB_GETCURSEL);
    if (index < 0) return true;
    const auto data = static_cast<std::uint32_t>(send(LB_GETITEMDATA, static_cast<WPARAM>(index)));
    if (data == selectedData_) return true;
    selectedData_ = data;
    notifyObservers();
    return true;
}

LRESULT ListBoxUIControl::send(UINT message, WPARAM wParam, LPARAM lParam) const {
    return getItem(listId_) ? sendToItem(listId_, message, wParam, lParam) : LB_ERR;
}

void ListBoxUIControl::insertItem(int index, const std::u16string& text, std::uint32_t data) {
    const LRESULT inserted = send(LB_INSERTSTRING, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(toWide(text)));
    if (inserted >= 0) send(LB_SETITEMDATA, static_cast<WPARAM>(inserted), static_cast<LPARAM>(data));
}
