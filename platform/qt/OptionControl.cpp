#include "platform/qt/OptionControl.h"

#include "platform/controls.h"

#include <algorithm>
#include <string>

namespace {

// Dialog units.
constexpr int margin = 7;
constexpr int indent = 8;
constexpr int letterWidth = 5; // a wide letter; the average is four units
constexpr int gap = 6;
constexpr int rowHeight = 17;
constexpr int lineHeight = 12;
constexpr int labelDrop = 2; // brings the name's text to the height of the choice's
constexpr int listRows = 5;
constexpr int listRowHeight = 9;
constexpr int dropHeight = 120;
constexpr int arrowsWidth = 10;

constexpr LONG noChoice = -1;

WORD nameId(WORD id) { return static_cast<WORD>(id + 1); }
WORD arrowsId(WORD id) { return static_cast<WORD>(id + 2); }

std::u16string_view textOf(LPCWSTR text) { return text ? fromWide(text) : u""; }

UINT forType(BYTE type, UINT ofCombo, UINT ofList) { return type == TVOT_LISTBOX ? ofList : ofCombo; }

} // namespace

int OptionControl::height() const noexcept {
    if (isHidden()) return 0;
    return type() == TVOT_LISTBOX ? listRows * listRowHeight + rowHeight - lineHeight : rowHeight;
}

std::u16string OptionControl::name() const {
    std::u16string name(textOf(item_.pName));
    if (!isHeading() && !name.ends_with(u':')) name += u':';
    return name;
}

int OptionControl::left() const noexcept { return margin + indent * std::max(item_.Level - 1, 0); }

int OptionControl::nameWidth() const { return left() + static_cast<int>(name().size()) * letterWidth + gap; }

void OptionControl::addTo(DialogTemplateWriter& page, int y, int column) const {
    if (isHidden()) return;
    const int nameEnd = isHeading() ? column + choiceWidth : column - gap;
    page.add(WC_STATICW, name(), SS_LEFT | SS_NOPREFIX, nameId(id_),
             {left(), y + labelDrop, nameEnd - left(), lineHeight - labelDrop});
    const DialogTemplateWriter::Area area{column, y, choiceWidth, lineHeight};
    switch (type()) {
    case TVOT_LISTBOX:
        return page.add(WC_LISTBOXW, {}, LBS_NOTIFY | WS_VSCROLL | WS_BORDER | WS_TABSTOP, id_,
                        {column, y, choiceWidth, listRows * listRowHeight});
    case TVOT_EDITBOX:
        return page.add(WC_EDITW, {}, ES_AUTOHSCROLL | WS_BORDER | WS_TABSTOP, id_, area);
    case TVOT_UDARROW:
    case TVOT_TRACKBAR:
    case TVOT_SCROLLBAR:
        page.add(WC_EDITW, {}, ES_AUTOHSCROLL | WS_BORDER | WS_TABSTOP, id_, {column, y, 50, lineHeight});
        return page.add(UPDOWN_CLASSW, {},
                        UDS_AUTOBUDDY | UDS_SETBUDDYINT | UDS_ALIGNRIGHT | UDS_ARROWKEYS | UDS_NOTHOUSANDS,
                        arrowsId(id_), {column + 50, y, arrowsWidth, lineHeight});
    case TVOT_PUSHBUTTON:
        return page.add(WC_BUTTONW, param(0) ? textOf(param(0)->pData) : u"", BS_PUSHBUTTON | WS_TABSTOP, id_, area);
    case TVOT_CHKBOX:
        return page.add(WC_BUTTONW, param(0) ? textOf(param(0)->pData) : u"", BS_AUTOCHECKBOX | WS_TABSTOP, id_, area);
    case TVOT_NONE:
        return;
    default:
        return page.add(WC_COMBOBOXW, {}, CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP, id_,
                        {column, y, choiceWidth, dropHeight});
    }
}

bool OptionControl::isOneOfMany() const noexcept {
    return type() == TVOT_2STATES || type() == TVOT_3STATES || type() == TVOT_COMBOBOX || type() == TVOT_LISTBOX;
}

bool OptionControl::isNumber() const noexcept {
    return type() == TVOT_UDARROW || type() == TVOT_TRACKBAR || type() == TVOT_SCROLLBAR;
}

const OPTPARAM* OptionControl::param(unsigned index) const noexcept {
    const OPTTYPE* kind = item_.pOptType;
    return kind && kind->pOptParam && index < kind->Count ? kind->pOptParam + index : nullptr;
}

bool OptionControl::isDisabled() const noexcept {
    return (item_.Flags & OPTIF_DISABLED) != 0 || (!isHeading() && (item_.pOptType->Flags & OPTTF_TYPE_DISABLED) != 0);
}

void OptionControl::fill(HWND page) const {
    const HWND control = GetDlgItem(page, id_);
    if (!control) return;
    if (isOneOfMany()) return fillChoices(control);
    // The second parameter has the room of a text with its terminator, or the lowest and the highest number.
    const OPTPARAM* limits = param(1);
    if (!limits) return;
    if (type() == TVOT_EDITBOX && limits->IconID > 1) SendMessageW(control, EM_LIMITTEXT, limits->IconID - 1, 0);
    if (isNumber())
        SendDlgItemMessageW(page, arrowsId(id_), UDM_SETRANGE32, static_cast<WPARAM>(limits->IconID), limits->lParam);
}

// An entry knows the number of its parameter, since hidden ones have none.
void OptionControl::fillChoices(HWND control) const {
    const auto add = [&](LPCWSTR text, LONG number) {
        const LRESULT row = SendMessageW(control, forType(type(), CB_ADDSTRING, LB_ADDSTRING), 0,
                                         reinterpret_cast<LPARAM>(text ? text : u""));
        SendMessageW(control, forType(type(), CB_SETITEMDATA, LB_SETITEMDATA), static_cast<WPARAM>(row), number);
    };
    if ((item_.pOptType->Style & OTS_LBCB_INCL_ITEM_NONE) != 0) add(u"(None)", noChoice);
    for (unsigned i = 0; const OPTPARAM* choice = param(i); ++i)
        if ((choice->Flags & (OPTPF_HIDE | OPTPF_DISABLED)) == 0) add(choice->pData, static_cast<LONG>(i));
}

void OptionControl::show(HWND page) const {
    const HWND control = GetDlgItem(page, id_);
    if (!control) return;
    if (isOneOfMany()) selectChoice(control);
    if (type() == TVOT_CHKBOX) SendMessageW(control, BM_SETCHECK, item_.Sel != 0 ? BST_CHECKED : BST_UNCHECKED, 0);
    if (type() == TVOT_EDITBOX) SetWindowTextW(control, item_.pSel ? item_.pSel : u"");
    if (isNumber()) SendDlgItemMessageW(page, arrowsId(id_), UDM_SETPOS32, 0, item_.Sel);
    for (const WORD id : {id_, nameId(id_), arrowsId(id_)})
        if (const HWND part = GetDlgItem(page, id)) EnableWindow(part, !isDisabled());
}

void OptionControl::selectChoice(HWND control) const {
    const auto count = SendMessageW(control, forType(type(), CB_GETCOUNT, LB_GETCOUNT), 0, 0);
    LRESULT row = 0;
    while (row < count && SendMessageW(control, forType(type(), CB_GETITEMDATA, LB_GETITEMDATA),
                                       static_cast<WPARAM>(row), 0) != item_.Sel)
        ++row;
    SendMessageW(control, forType(type(), CB_SETCURSEL, LB_SETCURSEL),
                 row < count ? static_cast<WPARAM>(row) : static_cast<WPARAM>(-1), 0);
}

bool OptionControl::isMessageOfChange(WORD code) const noexcept {
    switch (type()) {
    case TVOT_LISTBOX:
        return code == LBN_SELCHANGE;
    case TVOT_CHKBOX:
        return code == BN_CLICKED;
    case TVOT_EDITBOX:
    case TVOT_UDARROW:
    case TVOT_TRACKBAR:
    case TVOT_SCROLLBAR:
        return code == EN_CHANGE;
    default:
        return isOneOfMany() && code == CBN_SELCHANGE;
    }
}

bool OptionControl::take(HWND page, WORD code, LONG& oldSel) const {
    const HWND control = GetDlgItem(page, id_);
    if (!control || !isMessageOfChange(code)) return false;
    if (type() == TVOT_EDITBOX) return takeText(control);
    const LONG choice = chosen(control);
    if (choice == item_.Sel) return false;
    oldSel = item_.Sel;
    item_.Sel = choice;
    return true;
}

LONG OptionControl::chosen(HWND control) const {
    if (type() == TVOT_CHKBOX) return SendMessageW(control, BM_GETCHECK, 0, 0) == BST_CHECKED ? 1 : 0;
    if (isNumber()) {
        BOOL failed = FALSE;
        const LRESULT position =
            SendDlgItemMessageW(GetParent(control), arrowsId(id_), UDM_GETPOS32, 0, reinterpret_cast<LPARAM>(&failed));
        return failed ? item_.Sel : static_cast<LONG>(position);
    }
    const LRESULT row = SendMessageW(control, forType(type(), CB_GETCURSEL, LB_GETCURSEL), 0, 0);
    if (row < 0) return item_.Sel;
    return static_cast<LONG>(
        SendMessageW(control, forType(type(), CB_GETITEMDATA, LB_GETITEMDATA), static_cast<WPARAM>(row), 0));
}

// Into the program's own room, as much as there is.
bool OptionControl::takeText(HWND control) const {
    const OPTPARAM* room = param(1);
    if (!item_.pSel || !room || room->IconID == 0) return false;
    const std::u16string before = fromWide(item_.pSel);
    GetWindowTextW(control, item_.pSel, static_cast<int>(room->IconID));
    return before != fromWide(item_.pSel);
}

bool OptionControl::isPushed(WORD code) const noexcept { return type() == TVOT_PUSHBUTTON && code == BN_CLICKED; }
