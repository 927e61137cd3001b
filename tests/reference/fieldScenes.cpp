// Fields, buttons, the keys of a dialog, and what lies over it.
#include "tests/reference/sceneHands.h"

namespace reference {

namespace {

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

INT_PTR CALLBACK endOnCommand(HWND window, UINT message, WPARAM wParam, LPARAM /*lParam*/) {
    if (message == WM_COMMAND && HIWORD(wParam) == BN_CLICKED) EndDialog(window, LOWORD(wParam));
    return message == WM_INITDIALOG ? TRUE : FALSE;
}

// What lies over a dialog takes its keys and gives them back.
Scene boxes() {
    return {"boxes over a dialog",
            {edit, {u"EDIT", ES_AUTOHSCROLL | WS_TABSTOP, second, u"two"}, okItem},
            nullptr,
            [](auto& hands) {
                HWND focused = GetFocus();
                const bool isInside = focused != nullptr && GetParent(focused) == hands.window();
                return std::string(IsWindowEnabled(hands.window()) ? "free" : "covered") + " focus " +
                       (isInside ? std::to_string(GetDlgCtrlID(focused)) : "elsewhere");
            },
            {
                {"the program goes to the second field", [](auto& hands) { setFocus(hands, second); }},
                {"a message box",
                 [](auto& hands) { MessageBoxW(hands.window(), toWide(u"Text"), toWide(u"Box"), MB_OKCANCEL); }},
                {"Enter in it", [](auto&) { key(VK_RETURN); }},
                {"a dialog of its own",
                 [](auto& hands) {
                     const MemoryDialog over({edit, okItem});
                     DialogBoxIndirectParamW(nullptr, over.get(), hands.window(), &endOnCommand, 0);
                 }},
                {"a letter in it", [](auto&) { key('A'); }},
                {"Escape in it", [](auto&) { key(VK_ESCAPE); }},
                {"a letter below", [](auto&) { key('B'); }},
            }};
}

} // namespace

std::vector<Scene> fieldScenes() { return {field(), fieldsOfKinds(), buttons(), radios(), keysOfTheDialog(), boxes()}; }

} // namespace reference
