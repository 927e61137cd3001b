#include "plugin_ui/Controls/ComboBoxUIControl.h"

#include "plugin_ui/Controls/entryField.h"
#include "plugin_ui/Controls/textWidth.h"

#include <algorithm>

namespace {

constexpr int edgeOfScreen = 12;

LPARAM textParameter(const std::u16string& text) { return reinterpret_cast<LPARAM>(toWide(text)); }

} // namespace

ComboBoxUIControl::ComboBoxUIControl(std::uint16_t labelId, std::uint16_t comboId)
    : UIControl(comboId), comboId_(comboId) {
    addControlId(labelId);
    addControlId(comboId);
}

void ComboBoxUIControl::clear() {
    send(CB_RESETCONTENT);
    widestText_ = 0;
    fitDropWidth();
}

void ComboBoxUIControl::addItem(const std::u16string& text, std::uint32_t data) {
    insertItem(-1, text, data);
    widestText_ = std::max(widestText_, measureText(getItem(comboId_), text));
    fitDropWidth();
}

void ComboBoxUIControl::replaceItem(int index, const std::u16string& text, std::uint32_t data) {
    send(CB_DELETESTRING, static_cast<WPARAM>(index));
    insertItem(index, text, data);
    setCurrentIndex(index);
    measureAgain();
}

void ComboBoxUIControl::deleteItem(int index) {
    send(CB_DELETESTRING, static_cast<WPARAM>(index));
    measureAgain();
}

int ComboBoxUIControl::findData(std::uint32_t data) const {
    const auto count = static_cast<int>(send(CB_GETCOUNT));
    for (int index = 0; index < count; ++index)
        if (send(CB_GETITEMDATA, static_cast<WPARAM>(index)) == static_cast<LRESULT>(data)) return index;
    return -1;
}

void ComboBoxUIControl::setSelectedData(std::uint32_t data) {
    selectedData_ = data;
    displayControl();
}

int ComboBoxUIControl::getCurrentIndex() const { return static_cast<int>(send(CB_GETCURSEL)); }

void ComboBoxUIControl::setCurrentIndex(int index) { send(CB_SETCURSEL, static_cast<WPARAM>(index)); }

bool ComboBoxUIControl::selectFirstIfNone() {
    if (getCurrentIndex() != CB_ERR || send(CB_SETCURSEL, 0) == CB_ERR) return false;
    const LRESULT data = send(CB_GETITEMDATA, 0);
    if (data == CB_ERR) return false;
    selectedData_ = static_cast<std::uint32_t>(data);
    notifyObservers();
    return true;
}

void ComboBoxUIControl::setTextLimit(std::uint32_t limit) {
    textLimit_ = limit;
    send(CB_LIMITTEXT, limit);
}

void ComboBoxUIControl::displayControl() { setCurrentIndex(findData(selectedData_)); }

void ComboBoxUIControl::initializeControl() {
    widestText_ = 0;
    if (textLimit_ != 0) send(CB_LIMITTEXT, textLimit_);
}

bool ComboBoxUIControl::handleControlMessage(const UIMessage& message, LRESULT&) {
    if (isCommand(message, comboId_, CBN_SELCHANGE)) {
        handleSelection();
        return true;
    }
    if (!isCommand(message, comboId_, CBN_EDITCHANGE)) return false;
    handleTyping();
    return true;
}

LRESULT ComboBoxUIControl::send(UINT message, WPARAM wParam, LPARAM lParam) const {
    return getItem(comboId_) ? sendToItem(comboId_, message, wParam, lParam) : CB_ERR;
}

std::u16string ComboBoxUIControl::entryText(int index) const {
    const LRESULT length = send(CB_GETLBTEXTLEN, static_cast<WPARAM>(index));
    if (length <= 0) return {};
    std::u16string text(static_cast<std::size_t>(length) + 1, u'\0');
    const LRESULT copied =
        send(CB_GETLBTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(toWide(text.data())));
    text.resize(static_cast<std::size_t>(std::clamp<LRESULT>(copied, 0, length)));
    return text;
}

void ComboBoxUIControl::insertItem(int index, const std::u16string& text, std::uint32_t data) {
    const LRESULT inserted = send(CB_INSERTSTRING, static_cast<WPARAM>(index), textParameter(text));
    if (inserted >= 0) send(CB_SETITEMDATA, static_cast<WPARAM>(inserted), static_cast<LPARAM>(data));
}

void ComboBoxUIControl::handleSelection() {
    const int index = getCurrentIndex();
    if (index < 0) return;
    selectedData_ = static_cast<std::uint32_t>(send(CB_GETITEMDATA, static_cast<WPARAM>(index)));
    text_ = entryText(index);
    notifyObservers();
}

void ComboBoxUIControl::handleTyping() {
    text_ = readWindowText(getItem(comboId_));
    if (textLimit_ != 0 && text_.size() > textLimit_) text_.resize(textLimit_);
    notifyObservers();
}

void ComboBoxUIControl::measureAgain() {
    const HWND combo = getItem(comboId_);
    const auto count = static_cast<int>(send(CB_GETCOUNT));
    widestText_ = 0;
    for (int index = 0; index < count; ++index)
        widestText_ = std::max(widestText_, measureText(combo, entryText(index)));
    fitDropWidth();
}

void ComboBoxUIControl::fitDropWidth() {
    RECT combo{};
    RECT desktop{};
    if (!GetWindowRect(getItem(comboId_), &combo) || !GetWindowRect(GetDesktopWindow(), &desktop)) return;
    const LONG wanted = widestText_ + GetSystemMetrics(SM_CXVSCROLL) + 2 * GetSystemMetrics(SM_CXEDGE);
    const LONG room = desktop.right - combo.left;
    const LONG width = wanted < room ? wanted : room - edgeOfScreen;
    send(CB_SETDROPPEDWIDTH, static_cast<WPARAM>(std::max<LONG>(width, 0)));
}
