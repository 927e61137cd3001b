#include "tests/reference/Recorder.h"

#include "platform/list_view.h"

#include <utility>

namespace reference {

namespace {

enum Id : std::uint16_t { first = 101, second, third, fourth, fifth, sixth, okId = IDOK, cancelId = IDCANCEL };

constexpr POINT inside{6, 6};
constexpr POINT outside{600, 600};
constexpr POINT secondRow{20, 30};

std::string plain(const std::u16string& text) {
    std::string ascii;
    for (const char16_t letter : text)
        ascii += letter >= 32 && letter < 128 ? static_cast<char>(letter) : letter == u'\n' ? '/' : '?';
    return "'" + ascii + "'";
}

std::string focusOf(const DialogHands& hands) {
    HWND focused = GetFocus();
    while (focused != nullptr && GetParent(focused) != hands.window() && GetParent(focused) != nullptr)
        focused = GetParent(focused);
    return "focus " +
           (focused == nullptr || focused == hands.window() ? "none" : std::to_string(GetDlgCtrlID(focused)));
}

std::string ticks(const DialogHands& hands, std::uint16_t from, std::uint16_t to) {
    std::string text;
    for (std::uint16_t id = from; id <= to; ++id)
        text += std::to_string(IsDlgButtonChecked(hands.window(), id));
    return text;
}

// What is selected in a field that has the focus; others may keep it or not, nobody sees it.
std::string selection(const DialogHands& hands, std::uint16_t id) {
    if (GetFocus() != hands.item(id)) return "";
    const auto ends = static_cast<DWORD>(hands.send(id, EM_GETSEL));
    return std::to_string(LOWORD(ends)) + "-" + std::to_string(HIWORD(ends)) + " ";
}

void setText(const DialogHands& hands, std::uint16_t id, const std::u16string& text) { hands.paste(id, text); }
void setFocus(const DialogHands& hands, std::uint16_t id) { SetFocus(hands.item(id)); }
void add(const DialogHands& hands, std::uint16_t id, UINT message, const std::u16string& text) {
    hands.send(id, message, 0, reinterpret_cast<LPARAM>(toWide(text)));
}
void size(const DialogHands& hands, std::uint16_t id, int height) {
    MoveWindow(hands.item(id), 10, 10, 200, height, TRUE);
}
void click(const DialogHands& hands, std::uint16_t id, POINT at) {
    press(hands.item(id), at);
    release(hands.item(id), at);
}
// As the mouse does it: press, release, the second press told as a double click, release.
void clickTwice(const DialogHands& hands, std::uint16_t id, POINT at) {
    click(hands, id, at);
    doubleClick(hands.item(id), at);
    release(hands.item(id), at);
}

const DialogItem okItem{u"BUTTON", BS_DEFPUSHBUTTON | WS_TABSTOP, okId, u"OK"};
const DialogItem edit{u"EDIT", ES_AUTOHSCROLL | WS_TABSTOP, first, u"one"};

Scene field() {
    return {"field",
            {edit, {u"EDIT", ES_AUTOHSCROLL | WS_TABSTOP, second, u"two"}, okItem},
            nullptr,
            [](const DialogHands& hands) {
                return plain(hands.text(first)) + " " + selection(hands, first) + plain(hands.text(second)) + " " +
                       focusOf(hands);
            },
            {
                {"the program sets the text", [](auto& hands) { setText(hands, first, u"new"); }},
                {"the program sets the same text", [](auto& hands) { setText(hands, first, u"new"); }},
                {"the program sets a number", [](auto& hands) { SetDlgItemInt(hands.window(), first, 42, FALSE); }},
                {"the program selects", [](auto& hands) { hands.select(first, 1, 2); }},
                {"the program replaces the selection", [](auto& hands) { hands.insert(first, u"xyz"); }},
                {"the program sends a character", [](auto& hands) { hands.press(first, u'q'); }},
                {"a letter", [](auto&) { key('A'); }},
                {"Home", [](auto&) { key(VK_HOME); }},
                {"Backspace at the front", [](auto&) { key(VK_BACK); }},
                {"Delete", [](auto&) { key(VK_DELETE); }},
                {"End", [](auto&) { key(VK_END); }},
                {"Delete at the end", [](auto&) { key(VK_DELETE); }},
                {"Backspace", [](auto&) { key(VK_BACK); }},
                {"Shift and Left", [](auto&) { key(VK_LEFT, VK_SHIFT); }},
                {"Down in one line", [](auto&) { key(VK_DOWN); }},
                {"Tab", [](auto&) { key(VK_TAB); }},
                {"Shift and Tab", [](auto&) { key(VK_TAB, VK_SHIFT); }},
                {"the program moves the focus", [](auto& hands) { setFocus(hands, second); }},
                {"the program sets the text without focus", [](auto& hands) { setText(hands, first, u"again"); }},
                {"the program bounds the length", [](auto& hands) { hands.send(second, EM_LIMITTEXT, 4); }},
                {"End", [](auto&) { key(VK_END); }},
                {"a letter that fits", [](auto&) { key('B'); }},
                {"a letter too many", [](auto&) { key('C'); }},
                {"the program sets a longer text", [](auto& hands) { setText(hands, second, u"longer"); }},
                {"the program inserts too much",
                 [](auto& hands) { hands.select(second, 0, 1), hands.insert(second, u"abcd"); }},
                {"the program takes back", [](auto& hands) { hands.send(second, EM_UNDO); }},
                {"Enter", [](auto&) { key(VK_RETURN); }},
                {"Escape", [](auto&) { key(VK_ESCAPE); }},
                {"the field with the focus is disabled", [](auto& hands) { EnableWindow(hands.item(second), FALSE); }},
            }};
}

Scene fieldsOfKinds() {
    return {"fields of kinds",
            {{u"EDIT", ES_NUMBER | WS_TABSTOP, first, u"12"},
             {u"EDIT", ES_READONLY | WS_TABSTOP, second, u"fixed"},
             {u"EDIT", ES_MULTILINE | ES_WANTRETURN | ES_AUTOVSCROLL | WS_TABSTOP, third, u"lines"},
             {u"EDIT", ES_MULTILINE | ES_AUTOVSCROLL | WS_TABSTOP, fourth, u"no return"},
             okItem},
            [](auto& hands) {
                size(hands, third, 80);
                size(hands, fourth, 80);
            },
            [](auto& hands) {
                std::string text;
                for (const std::uint16_t id : {first, second, third, fourth})
                    text += plain(hands.text(id)) + " ";
                return text + focusOf(hands);
            },
            {
                {"a digit", [](auto&) { key('7'); }},
                {"a letter among digits", [](auto&) { key('A'); }},
                {"the program sets letters", [](auto& hands) { setText(hands, first, u"ab"); }},
                {"Tab to the fixed one", [](auto&) { key(VK_TAB); }},
                {"a letter into the fixed one", [](auto&) { key('A'); }},
                {"the program sets the fixed one", [](auto& hands) { setText(hands, second, u"set"); }},
                {"the program frees the fixed one", [](auto& hands) { hands.send(second, EM_SETREADONLY, FALSE); }},
                {"a letter into the freed one", [](auto&) { key('A'); }},
                {"the program sets several lines", [](auto& hands) { setText(hands, third, u"a\r\nb"); }},
                {"the program adds to several lines", [](auto& hands) { hands.insert(third, u"c"); }},
                {"the program goes to several lines", [](auto& hands) { setFocus(hands, third); }},
                {"Enter that is wanted", [](auto&) { key(VK_RETURN); }},
                {"the program goes to the last", [](auto& hands) { setFocus(hands, fourth); }},
                {"Enter that is not wanted", [](auto&) { key(VK_RETURN); }},
            }};
}

Scene buttons() {
    return {"buttons",
            {{u"BUTTON", BS_PUSHBUTTON | WS_TABSTOP, first, u"&Push"},
             {u"BUTTON", BS_AUTOCHECKBOX | WS_TABSTOP, second, u"&Tick"},
             {u"BUTTON", BS_AUTO3STATE | WS_TABSTOP, third, u"Th&ree"},
             {u"BUTTON", BS_CHECKBOX | WS_TABSTOP, fourth, u"&Hand"},
             {u"BUTTON", BS_PUSHBUTTON | BS_NOTIFY | WS_TABSTOP, fifth, u"&Notify"},
             {u"BUTTON", BS_OWNERDRAW | WS_TABSTOP, sixth, u"&Drawn"},
             okItem},
            nullptr,
            [](auto& hands) { return ticks(hands, second, fourth) + " " + focusOf(hands); },
            {
                {"the program clicks the push button", [](auto& hands) { hands.click(first); }},
                {"the program clicks the box", [](auto& hands) { hands.click(second); }},
                {"the program clicks the box of three", [](auto& hands) { hands.click(third); }},
                {"and again", [](auto& hands) { hands.click(third); }},
                {"the program clicks the box by hand", [](auto& hands) { hands.click(fourth); }},
                {"the program ticks", [](auto& hands) { hands.send(second, BM_SETCHECK, BST_UNCHECKED); }},
                {"the program ticks by id", [](auto& hands) { CheckDlgButton(hands.window(), second, BST_CHECKED); }},
                {"the program sets the text", [](auto& hands) { setText(hands, first, u"Other"); }},
                {"the program goes to the box", [](auto& hands) { setFocus(hands, second); }},
                {"Space on the box", [](auto&) { key(VK_SPACE); }},
                {"the letter of the push button", [](auto&) { key('T', VK_MENU); }},
                {"the letter of the box by hand", [](auto&) { key('H', VK_MENU); }},
                {"the program goes to the one that notifies", [](auto& hands) { setFocus(hands, fifth); }},
                {"Space on it", [](auto&) { key(VK_SPACE); }},
                {"Enter on it", [](auto&) { key(VK_RETURN); }},
                {"Tab to the drawn one", [](auto&) { key(VK_TAB); }},
                {"Space on the drawn one", [](auto&) { key(VK_SPACE); }},
                {"Enter on the drawn one", [](auto&) { key(VK_RETURN); }},
                {"a double click on the drawn one", [](auto& hands) { clickTwice(hands, sixth, inside); }},
                {"a double click on the one that notifies", [](auto& hands) { clickTwice(hands, fifth, inside); }},
                {"a double click on the push button", [](auto& hands) { clickTwice(hands, first, inside); }},
                {"a click on the box", [](auto& hands) { click(hands, second, inside); }},
                {"the mouse is released outside",
                 [](auto& hands) { press(hands.item(second), inside), release(hands.item(second), outside); }},
                {"the box is disabled", [](auto& hands) { EnableWindow(hands.item(second), FALSE); }},
                {"the program clicks the disabled box", [](auto& hands) { hands.click(second); }},
                {"the letter of the disabled box", [](auto&) { key('T', VK_MENU); }},
            }};
}

Scene radios() {
    return {
        "radio buttons",
        {{u"BUTTON", BS_AUTORADIOBUTTON | WS_GROUP | WS_TABSTOP, first, u"&One"},
         {u"BUTTON", BS_AUTORADIOBUTTON, second, u"&Two"},
         {u"BUTTON", BS_AUTORADIOBUTTON, third, u"Th&ree"},
         {u"BUTTON", BS_RADIOBUTTON | WS_GROUP | WS_TABSTOP, fourth, u"&Four"},
         {u"BUTTON", BS_RADIOBUTTON, fifth, u"F&ive"},
         {okItem.className, okItem.style | WS_GROUP, okItem.id, okItem.text}},
        [](auto& hands) { CheckRadioButton(hands.window(), first, third, second); },
        [](auto& hands) {
            return ticks(hands, first, third) + " " + ticks(hands, fourth, fifth) + " " + focusOf(hands);
        },
        {
            {"the program chooses by id", [](auto& hands) { CheckRadioButton(hands.window(), first, third, first); }},
            {"the program ticks one more", [](auto& hands) { hands.send(third, BM_SETCHECK, BST_CHECKED); }},
            {"the program clicks the second", [](auto& hands) { hands.click(second); }},
            {"the program clicks the second again", [](auto& hands) { hands.click(second); }},
            {"the program goes to the second", [](auto& hands) { setFocus(hands, second); }},
            {"Down", [](auto&) { key(VK_DOWN); }},
            {"Down past the last", [](auto&) { key(VK_DOWN); }},
            {"Up past the first", [](auto&) { key(VK_UP); }},
            {"the letter of the second", [](auto&) { key('T', VK_MENU); }},
            {"Tab to the next group", [](auto&) { key(VK_TAB); }},
            {"Space on one by hand", [](auto&) { key(VK_SPACE); }},
            {"Down among those by hand", [](auto&) { key(VK_DOWN); }},
            {"Tab to OK", [](auto&) { key(VK_TAB); }},
            {"Tab back to the start", [](auto&) { key(VK_TAB); }},
            {"the program unticks", [](auto& hands) { hands.send(second, BM_SETCHECK, BST_UNCHECKED); }},
            {"the program goes to one not ticked", [](auto& hands) { setFocus(hands, third); }},
            {"a click on the first", [](auto& hands) { click(hands, first, inside); }},
        }};
}

Scene keysOfTheDialog() {
    return {
        "keys of the dialog",
        {{u"STATIC", SS_LEFT, first, u"&Name"},
         {u"EDIT", ES_AUTOHSCROLL | WS_TABSTOP, second, u"text"},
         {u"BUTTON", BS_PUSHBUTTON | WS_TABSTOP, third, u"&Other"},
         {u"STATIC", SS_NOTIFY, fourth, u"&Clicked"},
         okItem,
         {u"BUTTON", BS_PUSHBUTTON | WS_TABSTOP, cancelId, u"Cancel"}},
        nullptr,
        [](auto& hands) { return selection(hands, second) + focusOf(hands); },
        {
            {"Tab", [](auto&) { key(VK_TAB); }},
            {"Enter on a button that is not the default", [](auto&) { key(VK_RETURN); }},
            {"the letter of the label", [](auto&) { key('N', VK_MENU); }},
            {"Enter in the field", [](auto&) { key(VK_RETURN); }},
            {"F1 in the field", [](auto&) { key(VK_F1); }},
            {"the program sets the default", [](auto& hands) { SendMessageW(hands.window(), DM_SETDEFID, third, 0); }},
            {"Enter for the new default", [](auto&) { key(VK_RETURN); }},
            {"the default is disabled", [](auto& hands) { EnableWindow(hands.item(third), FALSE); }},
            {"Enter for a disabled default", [](auto&) { key(VK_RETURN); }},
            {"the program asks for the next",
             [](auto& hands) { SendMessageW(hands.window(), WM_NEXTDLGCTL, 0, FALSE); }},
            {"the program asks for the one before",
             [](auto& hands) { SendMessageW(hands.window(), WM_NEXTDLGCTL, 1, FALSE); }},
            {"the program asks for one",
             [](auto& hands) {
                 SendMessageW(hands.window(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(hands.item(cancelId)), TRUE);
             }},
            {"the program asks for the field",
             [](auto& hands) {
                 SendMessageW(hands.window(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(hands.item(second)), TRUE);
             }},
            {"Escape", [](auto&) { key(VK_ESCAPE); }},
            {"the window is closed", [](auto& hands) { SendMessageW(hands.window(), WM_CLOSE, 0, 0); }},
            {"a click on the text", [](auto& hands) { click(hands, fourth, inside); }},
            {"a double click on the text", [](auto& hands) { clickTwice(hands, fourth, inside); }},
            {"the one with the focus is hidden",
             [](auto& hands) { setFocus(hands, second), ShowWindow(hands.item(second), SW_HIDE); }},
        }};
}

Scene dropDownList() {
    return {"drop-down list",
            {{u"COMBOBOX", CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP, first}, okItem},
            [](auto& hands) {
                size(hands, first, 200);
                for (const char16_t* text : {u"apple", u"banana", u"cherry", u"citron"})
                    add(hands, first, CB_ADDSTRING, text);
            },
            [](auto& hands) {
                return plain(hands.chosen(first)) +
                       (hands.send(first, CB_GETDROPPEDSTATE) != 0 ? " open " : " closed ") + focusOf(hands);
            },
            {
                {"the program chooses", [](auto& hands) { hands.send(first, CB_SETCURSEL, 1); }},
                {"the program chooses by text", [](auto& hands) { add(hands, first, CB_SELECTSTRING, u"app"); }},
                {"Down", [](auto&) { key(VK_DOWN); }},
                {"a letter", [](auto&) { key('C'); }},
                {"the letter again", [](auto&) { key('C'); }},
                {"End where it is", [](auto&) { key(VK_END); }},
                {"Home", [](auto&) { key(VK_HOME); }},
                {"Up at the top", [](auto&) { key(VK_UP); }},
                {"F4 opens", [](auto&) { key(VK_F4); }},
                {"Down while open", [](auto&) { key(VK_DOWN); }},
                {"Escape while open", [](auto&) { key(VK_ESCAPE); }},
                {"Alt and Down opens", [](auto&) { key(VK_DOWN, VK_MENU); }},
                {"End while open", [](auto&) { key(VK_END); }},
                {"Enter while open", [](auto&) { key(VK_RETURN); }},
                {"F4 opens again", [](auto&) { key(VK_F4); }},
                {"Tab while open", [](auto&) { key(VK_TAB); }},
                {"the program opens",
                 [](auto& hands) { setFocus(hands, first), hands.send(first, CB_SHOWDROPDOWN, TRUE); }},
                {"the program closes", [](auto& hands) { hands.send(first, CB_SHOWDROPDOWN, FALSE); }},
                {"the program removes the chosen one", [](auto& hands) { hands.send(first, CB_DELETESTRING, 3); }},
                {"Down from nothing", [](auto&) { key(VK_DOWN); }},
                {"the program empties it", [](auto& hands) { hands.send(first, CB_RESETCONTENT); }},
                {"Down in an empty one", [](auto&) { key(VK_DOWN); }},
                {"Enter while closed", [](auto&) { key(VK_RETURN); }},
            }};
}

Scene dropDownField() {
    return {"drop-down field",
            {{u"COMBOBOX", CBS_DROPDOWN | CBS_AUTOHSCROLL | WS_VSCROLL | WS_TABSTOP, first}, okItem},
            [](auto& hands) {
                size(hands, first, 200);
                for (const char16_t* text : {u"apple", u"banana", u"cherry"})
                    add(hands, first, CB_ADDSTRING, text);
            },
            [](auto& hands) {
                return plain(hands.text(first)) + " chosen " + std::to_string(hands.send(first, CB_GETCURSEL)) +
                       (hands.send(first, CB_GETDROPPEDSTATE) != 0 ? " open " : " closed ") + focusOf(hands);
            },
            {
                {"the program chooses", [](auto& hands) { hands.send(first, CB_SETCURSEL, 1); }},
                {"the program sets the text", [](auto& hands) { setText(hands, first, u"own"); }},
                {"a letter", [](auto&) { key('A'); }},
                {"Backspace", [](auto&) { key(VK_BACK); }},
                {"Down", [](auto&) { key(VK_DOWN); }},
                {"Down again", [](auto&) { key(VK_DOWN); }},
                {"F4 opens", [](auto&) { key(VK_F4); }},
                {"Down while open", [](auto&) { key(VK_DOWN); }},
                {"Enter while open", [](auto&) { key(VK_RETURN); }},
                {"F4 opens again", [](auto&) { key(VK_F4); }},
                {"Up while open", [](auto&) { key(VK_UP); }},
                {"Escape while open", [](auto&) { key(VK_ESCAPE); }},
                {"Tab leaves", [](auto&) { key(VK_TAB); }},
                {"Shift and Tab comes back", [](auto&) { key(VK_TAB, VK_SHIFT); }},
            }};
}

Scene listBox() {
    return {"list box",
            {{u"LISTBOX", LBS_NOTIFY | WS_TABSTOP, first},
             {u"LISTBOX", LBS_NOTIFY | LBS_EXTENDEDSEL | WS_TABSTOP, second},
             okItem},
            [](auto& hands) {
                for (const std::uint16_t id : {first, second}) {
                    size(hands, id, 120);
                    for (const char16_t* text : {u"apple", u"banana", u"cherry"})
                        add(hands, id, LB_ADDSTRING, text);
                }
            },
            [](auto& hands) {
                std::string marked;
                for (WPARAM row = 0; row < 3; ++row)
                    marked += hands.send(second, LB_GETSEL, row) > 0 ? "1" : "0";
                return std::to_string(hands.send(first, LB_GETCURSEL)) + " " + marked + " " + focusOf(hands);
            },
            {
                {"the program chooses", [](auto& hands) { hands.send(first, LB_SETCURSEL, 1); }},
                {"Down", [](auto&) { key(VK_DOWN); }},
                {"Down at the end", [](auto&) { key(VK_DOWN); }},
                {"a letter", [](auto&) { key('A'); }},
                {"a click", [](auto& hands) { click(hands, first, secondRow); }},
                {"a click on the same row", [](auto& hands) { click(hands, first, secondRow); }},
                {"a double click", [](auto& hands) { clickTwice(hands, first, secondRow); }},
                {"Tab", [](auto&) { key(VK_TAB); }},
                {"the program moves the caret", [](auto& hands) { hands.send(second, LB_SETCARETINDEX, 0); }},
                {"Down in the one of many", [](auto&) { key(VK_DOWN); }},
                {"Shift and Down", [](auto&) { key(VK_DOWN, VK_SHIFT); }},
                {"the program marks", [](auto& hands) { hands.send(second, LB_SETSEL, TRUE, 2); }},
                {"the program empties it", [](auto& hands) { hands.send(first, LB_RESETCONTENT); }},
            }};
}

void addRows(const DialogHands& hands, std::uint16_t id) {
    std::u16string heading = u"Name";
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT | LVCF_WIDTH;
    column.cx = 120;
    column.pszText = toWide(heading.data());
    hands.send(id, LVM_INSERTCOLUMNW, 0, reinterpret_cast<LPARAM>(&column));
    for (int row = 0; row < 4; ++row) {
        std::u16string text(1, static_cast<char16_t>(u'a' + row));
        LVITEMW item{};
        item.mask = LVIF_TEXT;
        item.iItem = row;
        item.pszText = toWide(text.data());
        hands.send(id, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
    }
}

void setState(const DialogHands& hands, std::uint16_t id, WPARAM row, UINT state, UINT mask) {
    LVITEMW item{};
    item.state = state;
    item.stateMask = mask;
    hands.send(id, LVM_SETITEMSTATE, row, reinterpret_cast<LPARAM>(&item));
}

POINT placeOf(const DialogHands& hands, std::uint16_t id, WPARAM row, int part = LVIR_LABEL) {
    RECT rect{part, 0, 0, 0};
    hands.send(id, LVM_GETITEMRECT, row, reinterpret_cast<LPARAM>(&rect));
    return {rect.left + 4, (rect.top + rect.bottom) / 2};
}

std::string rows(const DialogHands& hands, std::uint16_t id) {
    std::string text;
    for (WPARAM row = 0; row < static_cast<WPARAM>(hands.send(id, LVM_GETITEMCOUNT)); ++row) {
        const auto state = static_cast<UINT>(hands.send(id, LVM_GETITEMSTATE, row, static_cast<LPARAM>(~0U)));
        text += (state & LVIS_FOCUSED) != 0 ? "F" : "-";
        text += (state & LVIS_SELECTED) != 0 ? "S" : "-";
        text += std::to_string((state & LVIS_STATEIMAGEMASK) >> 12U) + " ";
    }
    return text;
}

constexpr UINT selected = LVIS_FOCUSED | LVIS_SELECTED;

// Where the rows of a list of icons lie is up to the platform; they are reached by keys alone.
std::vector<Step> stepsOfIcons() {
    return {
        {"the program selects", [](auto& hands) { setState(hands, first, 1, selected, selected); }},
        {"the program selects another", [](auto& hands) { setState(hands, first, 2, selected, selected); }},
        {"a letter", [](auto&) { key('D'); }},
        {"Space", [](auto&) { key(VK_SPACE); }},
        {"the program takes out the selected row", [](auto& hands) { hands.send(first, LVM_DELETEITEM, 3); }},
    };
}

std::vector<Step> stepsOfTables() {
    return {
        {"the program selects", [](auto& hands) { setState(hands, first, 1, selected, selected); }},
        {"the program selects another", [](auto& hands) { setState(hands, first, 2, selected, selected); }},
        {"the program selects the same", [](auto& hands) { setState(hands, first, 2, selected, selected); }},
        {"the program deselects all",
         [](auto& hands) { setState(hands, first, static_cast<WPARAM>(-1), 0, LVIS_SELECTED); }},
        {"the program goes to it", [](auto& hands) { setFocus(hands, first); }},
        {"Down", [](auto&) { key(VK_DOWN); }},
        {"Up", [](auto&) { key(VK_UP); }},
        {"Home", [](auto&) { key(VK_HOME); }},
        {"Up at the top", [](auto&) { key(VK_UP); }},
        {"Shift and Down", [](auto&) { key(VK_DOWN, VK_SHIFT); }},
        {"Ctrl and Down", [](auto&) { key(VK_DOWN, VK_CONTROL); }},
        {"Space", [](auto&) { key(VK_SPACE); }},
        {"a letter", [](auto&) { key('D'); }},
        {"Delete", [](auto&) { key(VK_DELETE); }},
        {"a click on the second row", [](auto& hands) { click(hands, first, placeOf(hands, first, 1)); }},
        {"the same click again", [](auto& hands) { click(hands, first, placeOf(hands, first, 1)); }},
        {"a click on the third row", [](auto& hands) { click(hands, first, placeOf(hands, first, 2)); }},
        {"a click below the rows",
         [](auto& hands) {
             click(hands, first, POINT{20, 140});
         }},
        {"a double click on the first row", [](auto& hands) { clickTwice(hands, first, placeOf(hands, first, 0)); }},
        {"the program takes out a row", [](auto& hands) { hands.send(first, LVM_DELETEITEM, 3); }},
        {"the program takes out the selected row", [](auto& hands) { hands.send(first, LVM_DELETEITEM, 0); }},
        {"Tab", [](auto&) { key(VK_TAB); }},
        {"Tab back", [](auto&) { key(VK_TAB, VK_SHIFT); }},
        {"Enter", [](auto&) { key(VK_RETURN); }},
        {"the program takes out all", [](auto& hands) { hands.send(first, LVM_DELETEALLITEMS); }},
        {"Down in an empty one", [](auto&) { key(VK_DOWN); }},
    };
}

Scene table(const char* title, DWORD style, std::vector<Step> steps) {
    return {title,
            {{u"SysListView32", style | WS_TABSTOP, first}, okItem},
            [](auto& hands) { size(hands, first, 160), addRows(hands, first); },
            [](auto& hands) { return rows(hands, first) + focusOf(hands); },
            std::move(steps)};
}

Scene tableWithBoxes() {
    return {"table with boxes",
            {{u"SysListView32", LVS_REPORT | LVS_SINGLESEL | WS_TABSTOP, first}, okItem},
            [](auto& hands) {
                size(hands, first, 160);
                hands.send(first, LVM_SETEXTENDEDLISTVIEWSTYLE, 0, LVS_EX_CHECKBOXES | LVS_EX_FULLROWSELECT);
                addRows(hands, first);
            },
            [](auto& hands) { return rows(hands, first) + focusOf(hands); },
            {
                {"the program selects", [](auto& hands) { setState(hands, first, 0, selected, selected); }},
                {"the program ticks",
                 [](auto& hands) { setState(hands, first, 1, INDEXTOSTATEIMAGEMASK(2), LVIS_STATEIMAGEMASK); }},
                {"the program unticks",
                 [](auto& hands) { setState(hands, first, 1, INDEXTOSTATEIMAGEMASK(1), LVIS_STATEIMAGEMASK); }},
                {"Down", [](auto&) { key(VK_DOWN); }},
                {"Space", [](auto&) { key(VK_SPACE); }},
                {"Space again", [](auto&) { key(VK_SPACE); }},
                {"a click on the box of another row",
                 [](auto& hands) {
                     click(hands, first, POINT{8, placeOf(hands, first, 2, LVIR_BOUNDS).y});
                 }},
                {"a click on its text", [](auto& hands) { click(hands, first, placeOf(hands, first, 2)); }},
            }};
}

Scene trackbar() {
    return {"trackbar",
            {{u"msctls_trackbar32", TBS_HORZ | TBS_AUTOTICKS | WS_TABSTOP, first}, okItem},
            [](auto& hands) {
                hands.send(first, TBM_SETRANGE, TRUE, MAKELPARAM(0, 100));
                hands.send(first, TBM_SETPAGESIZE, 0, 20);
                hands.send(first, TBM_SETLINESIZE, 0, 5);
            },
            [](auto& hands) { return std::to_string(hands.send(first, TBM_GETPOS)) + " " + focusOf(hands); },
            {
                {"the program sets the place", [](auto& hands) { hands.send(first, TBM_SETPOS, TRUE, 50); }},
                {"Right", [](auto&) { key(VK_RIGHT); }},
                {"Left", [](auto&) { key(VK_LEFT); }},
                {"Up", [](auto&) { key(VK_UP); }},
                {"Down", [](auto&) { key(VK_DOWN); }},
                {"Page Up", [](auto&) { key(VK_PRIOR); }},
                {"Page Down", [](auto&) { key(VK_NEXT); }},
                {"Home", [](auto&) { key(VK_HOME); }},
                {"Left at the start", [](auto&) { key(VK_LEFT); }},
                {"End", [](auto&) { key(VK_END); }},
                {"the program narrows the range",
                 [](auto& hands) { hands.send(first, TBM_SETRANGE, TRUE, MAKELPARAM(0, 40)); }},
                {"the program sets a place outside", [](auto& hands) { hands.send(first, TBM_SETPOS, TRUE, 400); }},
            }};
}

Scene spinButton() {
    return {"spin button",
            {{u"EDIT", ES_AUTOHSCROLL | WS_TABSTOP, first, u""},
             {u"msctls_updown32", UDS_AUTOBUDDY | UDS_SETBUDDYINT | UDS_ARROWKEYS | UDS_ALIGNRIGHT | UDS_NOTHOUSANDS,
              second},
             {u"EDIT", ES_AUTOHSCROLL | WS_TABSTOP, third, u"7"},
             {u"msctls_updown32", UDS_ARROWKEYS, fourth},
             okItem},
            [](auto& hands) {
                hands.send(second, UDM_SETRANGE32, 1, 5);
                hands.send(second, UDM_SETPOS32, 0, 3);
                hands.send(fourth, UDM_SETRANGE32, 0, 99);
                hands.send(fourth, UDM_SETBUDDY, reinterpret_cast<WPARAM>(hands.item(third)));
            },
            [](auto& hands) {
                return plain(hands.text(first)) + " at " + std::to_string(hands.send(second, UDM_GETPOS32)) + " " +
                       plain(hands.text(third)) + " at " + std::to_string(hands.send(fourth, UDM_GETPOS32)) + " " +
                       focusOf(hands);
            },
            {
                {"the program sets the place", [](auto& hands) { hands.send(second, UDM_SETPOS32, 0, 4); }},
                {"the program sets the same place", [](auto& hands) { hands.send(second, UDM_SETPOS32, 0, 4); }},
                {"the program sets a place outside", [](auto& hands) { hands.send(second, UDM_SETPOS32, 0, 9); }},
                {"the program sets the field", [](auto& hands) { setText(hands, first, u"2"); }},
                {"Up in the field", [](auto& hands) { setFocus(hands, first), key(VK_UP); }},
                {"Down in the field", [](auto&) { key(VK_DOWN); }},
                {"the mouse on the upper half", [](auto& hands) { click(hands, second, inside); }},
                {"the mouse on the lower half",
                 [](auto& hands) {
                     RECT rect{};
                     GetClientRect(hands.item(second), &rect);
                     click(hands, second, POINT{6, rect.bottom - 3});
                 }},
                {"Up in the field of a button that writes nothing",
                 [](auto& hands) { setFocus(hands, third), key(VK_UP); }},
            }};
}

std::vector<Scene> scenes() {
    return {field(),
            fieldsOfKinds(),
            buttons(),
            radios(),
            keysOfTheDialog(),
            dropDownList(),
            dropDownField(),
            listBox(),
            table("table", LVS_REPORT | LVS_SHOWSELALWAYS, stepsOfTables()),
            table("table of one choice", LVS_REPORT | LVS_SINGLESEL, stepsOfTables()),
            table("list of icons", LVS_ICON | LVS_SINGLESEL | LVS_AUTOARRANGE, stepsOfIcons()),
            tableWithBoxes(),
            trackbar(),
            spinButton()};
}

} // namespace

std::vector<Recording> controlRecordings() {
    std::vector<Recording> all;
    for (const Scene& scene : scenes())
        all.push_back({scene.title, [scene](UINT settleTime) { return record(scene, settleTime); }});
    return all;
}

std::vector<Recording> recordings() {
    std::vector<Recording> all = controlRecordings();
    for (Recording& sheet : sheetRecordings())
        all.push_back(std::move(sheet));
    return all;
}

} // namespace reference
