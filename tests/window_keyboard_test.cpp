// What the keys do in a dialog: Tab, arrows, letters, Enter, Escape, F1.
#include "tests/dialogStage.h"

#include <QWidget>

#include <gmock/gmock.h>

using testing::ElementsAre;

TEST_F(Dialogs, tabFollowsTheTemplateAndStopsAtOneRadioButtonOfAGroup) {
    HWND window = open({
        firstEdit,
        {u"Static", SS_LEFT, label, u"Not a stop"},
        {u"Button", BS_AUTORADIOBUTTON | WS_GROUP | WS_TABSTOP, radio1, u"1"},
        {u"Button", BS_AUTORADIOBUTTON, radio2, u"2"},
        {u"Button", BS_AUTORADIOBUTTON, radio3, u"3"},
        {u"ComboBox", CBS_DROPDOWN | WS_GROUP | WS_TABSTOP, editB, u""},
        okButton,
    });
    auto walk = [&](BYTE modifier) {
        std::vector<int> ids;
        for (int i = 0; i < 5; ++i) {
            key(VK_TAB, modifier);
            ids.push_back(focusedId());
        }
        return ids;
    };
    SetFocus(GetDlgItem(window, editA));
    EXPECT_THAT(walk(0), ElementsAre(radio1, editB, IDOK, editA, radio1));
    CheckRadioButton(window, radio1, radio3, radio2);
    SetFocus(GetDlgItem(window, editA));
    EXPECT_THAT(walk(0), ElementsAre(radio2, editB, IDOK, editA, radio2));
    EnableWindow(GetDlgItem(window, editB), FALSE);
    ShowWindow(GetDlgItem(window, IDOK), SW_HIDE);
    SetFocus(GetDlgItem(window, editA));
    EXPECT_THAT(walk(VK_SHIFT), ElementsAre(radio2, editA, radio2, editA, radio2));
}

TEST_F(Dialogs, arrowsMoveInsideAGroupAndSetTheRadioButton) {
    std::vector<int> clicked;
    onMessage = [&](HWND, UINT message, WPARAM wParam, LPARAM) -> INT_PTR {
        if (message == WM_COMMAND && HIWORD(wParam) == BN_CLICKED) clicked.push_back(LOWORD(wParam));
        return FALSE;
    };
    HWND window = open({
        {u"Button", BS_AUTORADIOBUTTON | WS_GROUP | WS_TABSTOP, radio1, u"1"},
        {u"Button", BS_AUTORADIOBUTTON, radio2, u"2"},
        {u"Edit", WS_TABSTOP, editB, u"of the choice above"},
        {u"Button", BS_AUTORADIOBUTTON, radio3, u"3"},
        {u"Edit", WS_GROUP | WS_TABSTOP, editA, u"text"},
    });
    SetFocus(GetDlgItem(window, radio1));
    for (int virtualKey : {VK_DOWN, VK_RIGHT, VK_DOWN, VK_UP})
        key(static_cast<BYTE>(virtualKey));
    EXPECT_THAT(clicked, ElementsAre(radio2, radio3, radio1, radio3));
    EXPECT_EQ(focusedId(), radio3);
    EXPECT_EQ(IsDlgButtonChecked(window, radio3), BST_CHECKED);
    EXPECT_EQ(IsDlgButtonChecked(window, radio1), BST_UNCHECKED);
    SetFocus(GetDlgItem(window, editA));
    key(VK_DOWN);
    EXPECT_EQ(focusedId(), editA) << "a field keeps its arrows";
}

TEST_F(Dialogs, enterEscapeAndLettersDoWhatAPersonExpects) {
    struct Row {
        const char* what;
        WORD focus;
        BYTE key;
        BYTE modifier;
        int command; // 0 for none
        int focusAfter;
    };
    const Row rows[] = {
        {"Enter in a field is the default button", editA, VK_RETURN, 0, IDOK, editA},
        {"Enter on a button is that button", help, VK_RETURN, 0, help, help},
        {"Escape is Cancel", editA, VK_ESCAPE, 0, IDCANCEL, editA},
        {"Space presses the button", help, VK_SPACE, 0, help, help},
        {"a button's letter presses it", editA, 'H', VK_MENU, help, help},
        {"a label's letter leads to the field behind it", editA, 'S', VK_MENU, 0, editB},
        {"in a field a letter alone is text", editA, 'H', 0, 0, editA},
        {"on a button a letter alone is enough", IDCANCEL, 'S', 0, 0, editB},
        {"a letter nobody has does nothing", editA, 'Q', VK_MENU, 0, editA},
    };
    std::vector<int> commands;
    onMessage = [&](HWND, UINT message, WPARAM wParam, LPARAM) -> INT_PTR {
        if (message == WM_COMMAND && HIWORD(wParam) == BN_CLICKED) commands.push_back(LOWORD(wParam));
        return FALSE;
    };
    HWND window = open({
        firstEdit,
        {u"Static", SS_LEFT, label, u"&Second"},
        secondEdit,
        {u"Button", BS_PUSHBUTTON | WS_TABSTOP, help, u"&Help"},
        okButton,
        cancelButton,
    });
    for (const Row& row : rows) {
        commands.clear();
        SetFocus(GetDlgItem(window, row.focus));
        runEvents();
        key(row.key, row.modifier);
        EXPECT_EQ(commands, row.command == 0 ? std::vector<int>() : std::vector<int>{row.command}) << row.what;
        EXPECT_EQ(focusedId(), row.focusAfter) << row.what;
    }
    EnableWindow(GetDlgItem(window, IDOK), FALSE);
    commands.clear();
    SetFocus(GetDlgItem(window, editA));
    key(VK_RETURN);
    EXPECT_TRUE(commands.empty()) << "a disabled default button is not pressed";
}

TEST_F(Dialogs, helpAndTheCrossReachTheDialog) {
    std::vector<std::string> seen;
    onMessage = [&](HWND, UINT message, WPARAM wParam, LPARAM lParam) -> INT_PTR {
        if (message == WM_HELP) seen.push_back("help " + std::to_string(reinterpret_cast<HELPINFO*>(lParam)->iCtrlId));
        if (message == WM_COMMAND && HIWORD(wParam) == BN_CLICKED)
            seen.push_back("command " + std::to_string(LOWORD(wParam)));
        return FALSE;
    };
    HWND window = open({firstEdit, cancelButton});
    SetFocus(GetDlgItem(window, editA));
    key(VK_F1);
    QApplication::topLevelWidgets().constFirst()->window()->close();
    runEvents();
    EXPECT_TRUE(IsWindowVisible(window)) << "whether it closes is the dialog's to say";
    EnableWindow(GetDlgItem(window, IDCANCEL), FALSE);
    SendMessageW(window, WM_SYSCOMMAND, SC_CLOSE, 0);
    runEvents();
    EXPECT_THAT(seen, ElementsAre("help 101", "command 2"));
}

TEST_F(Dialogs, theDefaultButtonIsShownWhereEnterGoes) {
    HWND window = open({firstEdit, {u"Button", WS_TABSTOP, help, u"Help"}, okButton});
    auto isDefault = [&](int id) {
        return (static_cast<DWORD>(GetWindowLongW(GetDlgItem(window, id), GWL_STYLE)) & BS_TYPEMASK) ==
               BS_DEFPUSHBUTTON;
    };
    EXPECT_EQ(SendMessageW(window, DM_GETDEFID, 0, 0), MAKELPARAM(IDOK, DC_HASDEFID));
    SetFocus(GetDlgItem(window, help));
    runEvents();
    EXPECT_TRUE(isDefault(help) && !isDefault(IDOK));
    SetFocus(GetDlgItem(window, editA));
    runEvents();
    EXPECT_TRUE(isDefault(IDOK) && !isDefault(help));
    SendMessageW(window, DM_SETDEFID, help, 0);
    EXPECT_TRUE(isDefault(help) && !isDefault(IDOK));
    EXPECT_EQ(LOWORD(SendMessageW(window, DM_GETDEFID, 0, 0)), help);
}
