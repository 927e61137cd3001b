#include "host/conversation/controlActs.h"

#include "host/conversation/ControlReader.h"
#include "host/conversation/PlayFailure.h"
#include "host/conversation/windowTree.h"
#include "jtcore/Services/formatMessage.h"
#include "platform/controls.h"

#include <algorithm>

namespace {

constexpr int mostStates = 3; // of a button, which a click takes to the next

[[noreturn]] void refuse(HWND control, std::u16string_view act) {
    throw PlayFailure(formatMessage(u"%s, which cannot be %s", describeOne(kindOf(control)), act));
}

void requireUsable(HWND control) {
    if (!IsWindowVisible(control)) throw PlayFailure(u"the control is hidden");
    if (!IsWindowEnabled(control)) throw PlayFailure(u"the control is disabled");
}

void command(HWND control, WORD code) {
    const auto id = static_cast<WORD>(GetDlgCtrlID(control));
    SendMessageW(GetParent(control), WM_COMMAND, MAKEWPARAM(id, code), reinterpret_cast<LPARAM>(control));
}

std::u16string joined(const std::vector<std::u16string>& items) {
    std::u16string list;
    for (const std::u16string& item : items)
        list.append(list.empty() ? u"" : u", ").append(u"\"" + item + u"\"");
    return list.empty() ? std::u16string(u"nothing") : list;
}

void requireList(HWND control) {
    const ControlReader reader(control);
    if (!reader.hasItems() || reader.kind() == ControlKind::tabs) refuse(control, u"chosen from");
    requireUsable(control);
}

int rowOf(HWND control, const std::u16string& text) {
    const std::vector<std::u16string> items = ControlReader(control).items();
    const auto found = std::find(items.begin(), items.end(), text);
    if (found == items.end()) throw PlayFailure(u"there is to choose: " + joined(items));
    return static_cast<int>(found - items.begin());
}

void requireRow(HWND control, int row) {
    const std::size_t count = ControlReader(control).items().size();
    if (row >= static_cast<int>(count)) throw PlayFailure(formatMessage(u"there are %u rows", count));
}

// Where there is one choice it can be another, but not none and not two.
bool takesOneRow(HWND control) {
    return kindOf(control) == ControlKind::comboBox ||
           (kindOf(control) == ControlKind::listBox && !isMultiple(control));
}

bool takesAnyRows(HWND control) {
    const auto style = static_cast<DWORD>(GetWindowLongW(control, GWL_STYLE));
    return !takesOneRow(control) && (kindOf(control) != ControlKind::listView || (style & LVS_SINGLESEL) == 0);
}

void requireRows(HWND control, const std::vector<int>& rows) {
    for (const int row : rows)
        requireRow(control, row);
    if (takesOneRow(control) && rows.size() != 1)
        throw PlayFailure(u"one row can be chosen there, no more and no less");
    if (!takesAnyRows(control) && rows.size() > 1) throw PlayFailure(u"no more than one row can be chosen there");
}

// What a person's choice sends, which the message that sets it does not.
void selectInCombo(HWND control, int row) {
    SendMessageW(control, CB_SETCURSEL, static_cast<WPARAM>(row), 0);
    command(control, CBN_SELENDOK);
    command(control, CBN_SELCHANGE);
}

void selectInListBox(HWND control, const std::vector<int>& rows) {
    if (!isMultiple(control)) {
        SendMessageW(control, LB_SETCURSEL, static_cast<WPARAM>(rows[0]), 0);
    } else {
        SendMessageW(control, LB_SETSEL, FALSE, -1);
        for (const int row : rows)
            SendMessageW(control, LB_SETSEL, TRUE, row);
    }
    command(control, LBN_SELCHANGE);
}

void setRowState(HWND listView, int row, UINT state, UINT mask) {
    LVITEMW item{};
    item.stateMask = mask;
    item.state = state;
    SendMessageW(listView, LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
}

void selectInListView(HWND control, const std::vector<int>& rows) {
    for (const int row : ControlReader(control).selectedRows())
        if (std::find(rows.begin(), rows.end(), row) == rows.end()) setRowState(control, row, 0, LVIS_SELECTED);
    constexpr UINT chosen = LVIS_SELECTED | LVIS_FOCUSED;
    for (const int row : rows)
        setRowState(control, row, chosen, chosen);
}

bool pressesAndReleases(ControlKind kind) {
    return kind == ControlKind::pushButton || kind == ControlKind::checkBox || kind == ControlKind::radioButton;
}

void clickInMiddle(HWND control) {
    RECT area{};
    GetClientRect(control, &area);
    const LPARAM middle = MAKELPARAM((area.left + area.right) / 2, (area.top + area.bottom) / 2);
    SendMessageW(control, WM_LBUTTONDOWN, MK_LBUTTON, middle);
    SendMessageW(control, WM_LBUTTONUP, 0, middle);
}

void sendThumb(HWND slider, int position, WORD code) {
    const bool isVertical = (static_cast<DWORD>(GetWindowLongW(slider, GWL_STYLE)) & TBS_VERT) != 0;
    SendMessageW(GetParent(slider), isVertical ? WM_VSCROLL : WM_HSCROLL, MAKEWPARAM(code, static_cast<WORD>(position)),
                 reinterpret_cast<LPARAM>(slider));
}

// One press of an arrow, as the control tells it: the parent may count for itself.
void pressArrow(HWND upDown, bool isUp) {
    int lower = 0;
    int upper = 0;
    SendMessageW(upDown, UDM_GETRANGE32, reinterpret_cast<WPARAM>(&lower), reinterpret_cast<LPARAM>(&upper));
    NMUPDOWN change{};
    change.hdr = {upDown, static_cast<UINT_PTR>(GetDlgCtrlID(upDown)), static_cast<UINT>(UDN_DELTAPOS)};
    change.iPos = static_cast<int>(SendMessageW(upDown, UDM_GETPOS32, 0, 0));
    change.iDelta = isUp == (lower <= upper) ? 1 : -1;
    const LRESULT isForbidden =
        SendMessageW(GetParent(upDown), WM_NOTIFY, change.hdr.idFrom, reinterpret_cast<LPARAM>(&change));
    if (isForbidden == 0) SendMessageW(upDown, UDM_SETPOS32, 0, change.iPos + change.iDelta);
    const bool isLying = (static_cast<DWORD>(GetWindowLongW(upDown, GWL_STYLE)) & UDS_HORZ) != 0;
    for (const WORD code : {SB_THUMBPOSITION, SB_ENDSCROLL})
        SendMessageW(GetParent(upDown), isLying ? WM_HSCROLL : WM_VSCROLL, MAKEWPARAM(code, change.iPos),
                     reinterpret_cast<LPARAM>(upDown));
}

void stepTo(HWND upDown, int position) {
    const ControlReader reader(upDown);
    for (int before = reader.position(); before != position;) {
        pressArrow(upDown, position > before);
        const int now = reader.position();
        const bool isPast = position > before ? now > position : now < position;
        if (now == before || isPast) throw PlayFailure(formatMessage(u"it goes to %d and not there", now));
        before = now;
    }
}

void releaseModifiers(const KeyStroke& key) {
    if (key.alt) keybd_event(VK_MENU, 0, KEYEVENTF_KEYUP, 0);
    if (key.shift) keybd_event(VK_SHIFT, 0, KEYEVENTF_KEYUP, 0);
    if (key.control) keybd_event(VK_CONTROL, 0, KEYEVENTF_KEYUP, 0);
}

} // namespace

// As the Tab key does it: the text of a field is selected.
void focusControl(HWND control) {
    requireUsable(control);
    if (GetFocus() == control) return;
    SendMessageW(GetParent(control), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control), TRUE);
    if (GetFocus() != control) SetFocus(control);
}

void typeText(HWND control, const std::u16string& text) {
    HWND target = control;
    if (kindOf(control) == ControlKind::comboBox) target = GetWindow(control, GW_CHILD);
    if (!target || kindOf(target) != ControlKind::edit) refuse(control, u"typed into");
    focusControl(control);
    if ((static_cast<DWORD>(GetWindowLongW(target, GWL_STYLE)) & ES_READONLY) != 0)
        throw PlayFailure(u"the control is read-only");
    SendMessageW(target, EM_SETSEL, 0, -1);
    if (text.empty()) SendMessageW(target, WM_CHAR, u'\b', 0);
    for (const char16_t c : text)
        SendMessageW(target, WM_CHAR, c == u'\n' ? u'\r' : c, 0);
}

void chooseItem(HWND control, const std::u16string& text) {
    requireList(control);
    selectRows(control, {rowOf(control, text)});
}

void checkButton(HWND control, int state) {
    const ControlReader reader(control);
    if (reader.kind() != ControlKind::checkBox && reader.kind() != ControlKind::radioButton)
        refuse(control, u"checked");
    requireUsable(control);
    const auto wanted = static_cast<CheckState>(state);
    for (int clicks = 0; clicks < mostStates && reader.checkState() != wanted; ++clicks)
        clickControl(control);
    if (IsWindow(control) && reader.checkState() != wanted) throw PlayFailure(u"the control does not take that state");
}

void clickControl(HWND control) {
    requireUsable(control);
    if (pressesAndReleases(kindOf(control)))
        SendMessageW(control, BM_CLICK, 0, 0);
    else
        clickInMiddle(control);
}

void slideTo(HWND control, int position) {
    const ControlKind kind = kindOf(control);
    if (kind != ControlKind::slider && kind != ControlKind::upDown) refuse(control, u"slid");
    requireUsable(control);
    if (kind == ControlKind::upDown) return stepTo(control, position);
    SendMessageW(control, TBM_SETPOS, TRUE, position);
    sendThumb(control, position, TB_THUMBTRACK);
    sendThumb(control, position, TB_THUMBPOSITION);
    sendThumb(control, position, TB_ENDTRACK);
}

void selectRows(HWND control, const std::vector<int>& rows) {
    requireList(control);
    requireRows(control, rows);
    switch (kindOf(control)) {
    case ControlKind::listView:
        return selectInListView(control, rows);
    case ControlKind::listBox:
        return selectInListBox(control, rows);
    default:
        return selectInCombo(control, rows[0]);
    }
}

void doubleClickRow(HWND control, int row) {
    selectRows(control, {row});
    if (kindOf(control) == ControlKind::listBox) {
        command(control, LBN_DBLCLK);
        return;
    }
    if (kindOf(control) != ControlKind::listView) refuse(control, u"double-clicked");
    NMITEMACTIVATE click{};
    click.hdr = {control, static_cast<UINT_PTR>(GetDlgCtrlID(control)), NM_DBLCLK};
    click.iItem = row;
    SendMessageW(GetParent(control), WM_NOTIFY, click.hdr.idFrom, reinterpret_cast<LPARAM>(&click));
}

void pressKey(const KeyStroke& key) {
    if (key.control) keybd_event(VK_CONTROL, 0, 0, 0);
    if (key.shift) keybd_event(VK_SHIFT, 0, 0, 0);
    if (key.alt) keybd_event(VK_MENU, 0, 0, 0);
    keybd_event(key.key, 0, 0, 0);
    keybd_event(key.key, 0, KEYEVENTF_KEYUP, 0);
    releaseModifiers(key);
}
