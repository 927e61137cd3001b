// Lists of all kinds.
#include "platform/list_view.h"
#include "tests/reference/sceneHands.h"

#include <utility>

namespace reference {

namespace {

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

} // namespace

std::vector<Scene> listScenes() {
    return {dropDownList(),
            dropDownField(),
            listBox(),
            table("table", LVS_REPORT | LVS_SHOWSELALWAYS, stepsOfTables()),
            table("table of one choice", LVS_REPORT | LVS_SINGLESEL, stepsOfTables()),
            table("list of icons", LVS_ICON | LVS_SINGLESEL | LVS_AUTOARRANGE, stepsOfIcons()),
            tableWithBoxes()};
}

} // namespace reference
