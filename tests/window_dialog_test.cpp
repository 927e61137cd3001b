// Dialogs of the window layer: what is told to their procedures, in which order, and what keys and modal runs do.
#include "platform/controls.h"
#include "platform/gdi.h"
#include "platform/windows.h"
#include "tests/Process.h"
#include "tests/memoryDialog.h"

#include <QAccessible>
#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QKeyEvent>
#include <QThread>
#include <QTimer>
#include <QWidget>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <dlfcn.h>
#include <functional>
#include <map>

using testing::ElementsAre;
using testing::HasSubstr;

namespace {

constexpr WORD editA = 101;
constexpr WORD editB = 102;
constexpr WORD label = 103;
constexpr WORD radio1 = 111;
constexpr WORD radio2 = 112;
constexpr WORD radio3 = 113;
constexpr WORD help = 120;

// What the dialog under test does with messages; by default nothing.
std::function<INT_PTR(HWND, UINT, WPARAM, LPARAM)> onMessage;

INT_PTR CALLBACK dialogProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return onMessage ? onMessage(window, message, wParam, lParam) : FALSE;
}

class Dialogs : public testing::Test {
protected:
    void TearDown() override {
        onMessage = nullptr;
        for (HWND window : opened_)
            DestroyWindow(window);
        runEvents();
    }

    static void runEvents() {
        for (int turn = 0; turn < 5; ++turn)
            QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    // A dialog that is shown beside the test, with a button of every answer at its end.
    HWND open(std::vector<DialogItem> items, DWORD style = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_VISIBLE) {
        MemoryDialog memory(items, style);
        HWND window = CreateDialogIndirectParamW(nullptr, memory.get(), nullptr, &dialogProcedure, 0);
        EXPECT_NE(window, nullptr) << GetLastError();
        opened_.push_back(window);
        runEvents();
        return window;
    }

    // Presses a key as a person does.
    static void key(BYTE virtualKey, BYTE modifier = 0) {
        if (modifier != 0) keybd_event(modifier, 0, 0, 0);
        keybd_event(virtualKey, 0, 0, 0);
        keybd_event(virtualKey, 0, KEYEVENTF_KEYUP, 0);
        if (modifier != 0) keybd_event(modifier, 0, KEYEVENTF_KEYUP, 0);
        runEvents();
    }

    // Of the control; the field of a combo box is a part of it.
    static int focusedId() {
        HWND focused = GetFocus();
        if (focused != nullptr && GetDlgCtrlID(focused) == 1001) focused = GetParent(focused);
        return focused == nullptr ? 0 : GetDlgCtrlID(focused);
    }

    static std::u16string textOf(HWND window) {
        char16_t text[256] = {};
        GetWindowTextW(window, toWide(text), 256);
        return text;
    }

    // Runs once the modal dialog is up.
    static void inside(std::function<void(HWND)> act) {
        QTimer::singleShot(0, qApp, [act = std::move(act)] { act(GetActiveWindow()); });
    }

    static INT_PTR runModal(const std::vector<DialogItem>& items, HWND owner = nullptr, LPARAM parameter = 0) {
        MemoryDialog memory(items);
        return DialogBoxIndirectParamW(nullptr, memory.get(), owner, &dialogProcedure, parameter);
    }

private:
    std::vector<HWND> opened_;
};

const DialogItem okButton{u"BUTTON", BS_DEFPUSHBUTTON | WS_TABSTOP, IDOK, u"OK"};
const DialogItem cancelButton{u"Button", BS_PUSHBUTTON | WS_TABSTOP, IDCANCEL, u"Cancel"};
const DialogItem firstEdit{u"Edit", ES_AUTOHSCROLL | WS_TABSTOP, editA, u"one"};
const DialogItem secondEdit{u"eDiT", ES_AUTOHSCROLL | WS_TABSTOP, editB, u"two"};

// This program again, for one of its tests.
ProcessResult runDisabled(const std::string& test, std::vector<std::string> command = {}) {
    command.insert(command.end(), {std::filesystem::read_symlink("/proc/self/exe").string(),
                                   "--gtest_also_run_disabled_tests", "--gtest_filter=" + test});
    return runProcess(command);
}

INT_PTR endOnCommand(HWND window, UINT message, WPARAM wParam, LPARAM /*lParam*/) {
    if (message != WM_COMMAND || HIWORD(wParam) != BN_CLICKED) return FALSE;
    EndDialog(window, LOWORD(wParam));
    return TRUE;
}

} // namespace

TEST_F(Dialogs, aDialogIsFilledBeforeItIsInitializedAndShownAfterwards) {
    std::vector<std::string> seen;
    onMessage = [&](HWND window, UINT message, WPARAM wParam, LPARAM lParam) -> INT_PTR {
        if (message != WM_INITDIALOG) return endOnCommand(window, message, wParam, lParam);
        seen.push_back(GetDlgItem(window, IDCANCEL) != nullptr ? "filled" : "empty");
        seen.push_back(IsWindowVisible(window) != FALSE ? "visible" : "hidden");
        EXPECT_EQ(lParam, 4711);
        EXPECT_EQ(GetDlgCtrlID(reinterpret_cast<HWND>(wParam)), editA);
        return TRUE;
    };
    inside([&](HWND window) {
        seen.push_back(IsWindowVisible(window) != FALSE ? "visible" : "hidden");
        EXPECT_EQ(focusedId(), editA);
        SendDlgItemMessageW(window, IDCANCEL, BM_CLICK, 0, 0);
    });
    EXPECT_EQ(runModal({firstEdit, okButton, cancelButton}, nullptr, 4711), IDCANCEL);
    EXPECT_THAT(seen, ElementsAre("filled", "hidden", "visible"));
}

TEST_F(Dialogs, theFocusGoesToTheFirstStopThatTheProgramLeaves) {
    onMessage = [&](HWND window, UINT message, WPARAM, LPARAM) -> INT_PTR {
        if (message == WM_INITDIALOG) ShowWindow(GetDlgItem(window, editA), SW_HIDE);
        return message == WM_INITDIALOG;
    };
    open({firstEdit, secondEdit});
    EXPECT_EQ(focusedId(), editB);
}

TEST_F(Dialogs, modalDialogsNestAndTheOwnerTakesNoInputMeanwhile) {
    HWND owner = open({firstEdit, okButton});
    onMessage = endOnCommand;
    std::vector<INT_PTR> results;
    inside([&](HWND outer) {
        EXPECT_FALSE(IsWindowEnabled(owner));
        EXPECT_EQ(GetParent(outer), owner);
        inside([&](HWND inner) {
            EXPECT_NE(inner, outer);
            EXPECT_EQ(GetLastActivePopup(owner), inner);
            EXPECT_FALSE(IsWindowEnabled(outer));
            EXPECT_TRUE(IsWindowEnabled(GetDlgItem(owner, editA))) << "controls do not grey with their dialog";
            EndDialog(inner, 22);
        });
        results.push_back(runModal({okButton}, outer));
        EXPECT_TRUE(IsWindowEnabled(outer));
        EXPECT_EQ(GetActiveWindow(), outer);
        SendMessageW(outer, WM_CLOSE, 0, 0);
    });
    results.push_back(runModal({okButton, cancelButton}, owner));
    EXPECT_THAT(results, ElementsAre(22, IDCANCEL));
    EXPECT_TRUE(IsWindowEnabled(owner));
}

TEST_F(Dialogs, aDialogThatEndsDuringInitializationIsNeverShown) {
    bool wasShown = false;
    onMessage = [&](HWND window, UINT message, WPARAM, LPARAM) -> INT_PTR {
        wasShown = wasShown || message == WM_SHOWWINDOW;
        if (message == WM_INITDIALOG) EndDialog(window, 9);
        return TRUE;
    };
    EXPECT_EQ(runModal({okButton}), 9);
    EXPECT_FALSE(wasShown);
}

TEST_F(Dialogs, aModalDialogThatIsDestroyedUnderItsLoopEndsIt) {
    inside([](HWND window) { DestroyWindow(window); });
    EXPECT_EQ(runModal({okButton}), -1);
    onMessage = [](HWND window, UINT message, WPARAM, LPARAM) -> INT_PTR {
        if (message == WM_COMMAND) DestroyWindow(window);
        return FALSE;
    };
    inside([](HWND window) { SendDlgItemMessageW(window, IDOK, BM_CLICK, 0, 0); });
    EXPECT_EQ(runModal({okButton}), -1);
}

TEST_F(Dialogs, aWindowGoesOnceWhateverIsDestroyedWhileItGoes) {
    std::vector<std::string> seen;
    onMessage = [&](HWND window, UINT message, WPARAM, LPARAM) -> INT_PTR {
        if (message == WM_NCDESTROY) seen.push_back("last");
        if (message != WM_DESTROY) return FALSE;
        seen.push_back("first");
        DestroyWindow(GetDlgItem(window, editA));
        DestroyWindow(window);
        return FALSE;
    };
    HWND window = open({firstEdit, okButton});
    EXPECT_TRUE(DestroyWindow(window));
    EXPECT_FALSE(IsWindow(window));
    EXPECT_THAT(seen, ElementsAre("first", "last"));
}

TEST_F(Dialogs, aDialogAnswersWithWhatItsProcedureStored) {
    constexpr UINT stored = WM_APP + 1;
    constexpr UINT refused = WM_APP + 2;
    onMessage = [&](HWND window, UINT message, WPARAM wParam, LPARAM) -> INT_PTR {
        if (message == stored) SetWindowLongPtrW(window, DWLP_MSGRESULT, static_cast<LONG_PTR>(wParam) * 2);
        if (message == WM_CTLCOLORSTATIC) return 77;
        return message == stored;
    };
    HWND window = open({okButton});
    EXPECT_EQ(SendMessageW(window, stored, 21, 0), 42);
    EXPECT_EQ(GetWindowLongPtrW(window, DWLP_MSGRESULT), 42) << "still there for who sent the message";
    EXPECT_EQ(SendMessageW(window, refused, 21, 0), 0);
    EXPECT_EQ(SendMessageW(window, WM_CTLCOLORSTATIC, 0, 0), 77) << "colours are answered directly";
}

TEST_F(Dialogs, wordsAndPropertiesStayOnTheWindow) {
    HWND window = open({firstEdit});
    HWND edit = GetDlgItem(window, editA);
    int data = 0;
    EXPECT_EQ(SetWindowLongPtrW(edit, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&data)), 0);
    EXPECT_EQ(GetWindowLongPtrW(edit, GWLP_USERDATA), reinterpret_cast<LONG_PTR>(&data));
    EXPECT_TRUE(SetPropW(edit, u"SC_ID", &data));
    EXPECT_EQ(GetPropW(edit, u"sc_id"), &data);
    EXPECT_TRUE(SetPropW(edit, u"Sc_Id", edit));
    EXPECT_EQ(RemovePropW(edit, u"SC_ID"), edit);
    EXPECT_EQ(GetPropW(edit, u"SC_ID"), nullptr);
    SetLastError(0);
    EXPECT_EQ(GetWindowLongPtrW(edit, DWLP_USER), 0);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_INDEX) << "a control has no words of a dialog";
    EXPECT_NE(static_cast<DWORD>(GetWindowLongW(edit, GWL_STYLE)) & WS_VISIBLE, 0U);
    ShowWindow(edit, SW_HIDE);
    EnableWindow(edit, FALSE);
    EXPECT_EQ(static_cast<DWORD>(GetWindowLongW(edit, GWL_STYLE)) & (WS_VISIBLE | WS_DISABLED), WS_DISABLED);
}

namespace {

// A procedure in front of the control's: "SC_WND" holds the one behind it.
std::vector<std::u16string> typedIntoControl;

LRESULT CALLBACK onlyDigits(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* before = reinterpret_cast<WNDPROC>(GetPropW(window, u"SC_WND"));
    bool isDigit = wParam >= u'0' && wParam <= u'9';
    if (message == WM_CHAR && !isDigit && wParam != VK_BACK) return 0;
    LRESULT result = CallWindowProcW(before, window, message, wParam, lParam);
    if (message == WM_CHAR) {
        char16_t text[16] = {};
        GetWindowTextW(window, toWide(text), 16);
        typedIntoControl.emplace_back(text);
    }
    return result;
}

void putInFront(HWND window, WNDPROC procedure) {
    SetPropW(window, u"SC_WND",
             reinterpret_cast<HANDLE>(SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure))));
}

} // namespace

TEST_F(Dialogs, aProcedureInFrontOfAControlDecidesWhichKeysReachIt) {
    struct Row {
        const char* how;
        std::function<void(HWND, char16_t)> type;
    };
    const Row rows[] = {
        {"by message", [](HWND edit, char16_t unit) { SendMessageW(edit, WM_CHAR, unit, 1); }},
        {"by keyboard", [](HWND, char16_t unit) { key(static_cast<BYTE>(unit == u'\b' ? VK_BACK : unit)); }},
    };
    for (const Row& row : rows) {
        HWND window = open({firstEdit});
        HWND edit = GetDlgItem(window, editA);
        SetWindowTextW(edit, u"");
        SetFocus(edit);
        putInFront(edit, &onlyDigits);
        typedIntoControl.clear();
        for (char16_t unit : {u'1', u'X', u'2', u'\b', u'3'})
            row.type(edit, unit);
        EXPECT_EQ(textOf(edit), u"13") << row.how;
        EXPECT_THAT(typedIntoControl, ElementsAre(u"1", u"12", u"1", u"13"))
            << row.how << ": behind the old procedure the control has acted";
    }
}

TEST_F(Dialogs, aHandleOfAWindowThatIsGoneIsRefused) {
    HWND window = open({firstEdit, okButton});
    HWND edit = GetDlgItem(window, editA);
    EXPECT_TRUE(DestroyWindow(edit));
    RECT rect;
    const std::pair<const char*, std::function<bool(HWND)>> calls[] = {
        {"IsWindow", [](HWND handle) { return IsWindow(handle) != FALSE; }},
        {"SendMessageW", [](HWND handle) { return SendMessageW(handle, WM_GETTEXTLENGTH, 0, 0) != 0; }},
        {"GetWindowRect", [&](HWND handle) { return GetWindowRect(handle, &rect) != FALSE; }},
        {"SetWindowTextW", [](HWND handle) { return SetWindowTextW(handle, u"x") != FALSE; }},
        {"SetPropW", [](HWND handle) { return SetPropW(handle, u"x", handle) != FALSE; }},
        {"DestroyWindow", [](HWND handle) { return DestroyWindow(handle) != FALSE; }},
        {"PostMessageW", [](HWND handle) { return PostMessageW(handle, WM_NULL, 0, 0) != FALSE; }},
        {"EndDialog", [](HWND handle) { return EndDialog(handle, 1) != FALSE; }},
    };
    for (HWND handle : {edit, HWND{nullptr}, reinterpret_cast<HWND>(&rect)})
        for (const auto& [name, call] : calls) {
            SetLastError(0);
            EXPECT_FALSE(call(handle)) << name << " " << handle;
            EXPECT_EQ(GetLastError(), ERROR_INVALID_WINDOW_HANDLE) << name << " " << handle;
        }
    EXPECT_EQ(GetDlgItem(window, editA), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_CONTROL_ID_NOT_FOUND);
    HWND ok = GetDlgItem(window, IDOK);
    DestroyWindow(window);
    EXPECT_FALSE(IsWindow(ok)) << "controls go with their dialog";
}

TEST_F(Dialogs, postedMessagesComeInTheirOrderAndNotToTheDead) {
    std::vector<WPARAM> seen;
    onMessage = [&](HWND, UINT message, WPARAM wParam, LPARAM) -> INT_PTR {
        if (message == WM_APP) seen.push_back(wParam);
        return FALSE;
    };
    HWND window = open({okButton});
    HWND other = open({okButton});
    PostMessageW(window, WM_APP, 1, 0);
    PostMessageW(other, WM_APP, 2, 0);
    PostMessageW(window, WM_APP, 3, 0);
    EXPECT_TRUE(seen.empty());
    DestroyWindow(other);
    runEvents();
    EXPECT_THAT(seen, ElementsAre(1U, 3U));
}

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

TEST_F(Dialogs, activationIsToldToTheWindowsOnTheDesktop) {
    std::vector<std::pair<HWND, int>> seen;
    onMessage = [&](HWND window, UINT message, WPARAM wParam, LPARAM) -> INT_PTR {
        if (message == WM_ACTIVATE) seen.emplace_back(window, LOWORD(wParam));
        return FALSE;
    };
    HWND first = open({firstEdit});
    HWND second = open({secondEdit});
    EXPECT_THAT(seen, ElementsAre(std::pair(first, 1), std::pair(first, 0), std::pair(second, 1)));
    EXPECT_EQ(GetActiveWindow(), second);
    SetForegroundWindow(first);
    runEvents();
    EXPECT_EQ(GetActiveWindow(), first);
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

TEST_F(Dialogs, unitsFollowTheFontAndSizesComeBackAsTheyWereSet) {
    HWND window = open({firstEdit});
    RECT units{4, 8, 40, 80};
    ASSERT_TRUE(MapDialogRect(window, &units));
    EXPECT_EQ(units.right, 10 * units.left);
    EXPECT_EQ(units.bottom, 10 * units.top);
    EXPECT_GE(units.left, 5);
    EXPECT_GE(units.top, 10);
    EXPECT_TRUE(MoveWindow(window, 30, 40, 310, 170, TRUE));
    RECT rect;
    ASSERT_TRUE(GetWindowRect(window, &rect));
    EXPECT_THAT((std::vector<LONG>{rect.left, rect.top, rect.right, rect.bottom}), ElementsAre(30, 40, 340, 210));
    HWND edit = GetDlgItem(window, editA);
    EXPECT_TRUE(SetWindowPos(edit, nullptr, 5, 6, 0, 0, SWP_NOSIZE | SWP_NOZORDER));
    POINT corner{0, 0};
    ASSERT_TRUE(ClientToScreen(edit, &corner));
    ASSERT_TRUE(ScreenToClient(window, &corner));
    EXPECT_TRUE(corner.x == 5 && corner.y == 6);
    EXPECT_EQ(MapWindowPoints(edit, window, &corner, 1), MAKELONG(5, 6));
    RECT screen;
    ASSERT_TRUE(GetWindowRect(GetDesktopWindow(), &screen));
    EXPECT_EQ(screen.right, GetSystemMetrics(SM_CXSCREEN));
}

TEST_F(Dialogs, aScreenReaderHearsWhatEachControlIs) {
    struct Row {
        const char16_t* className;
        DWORD style;
        const char16_t* text;
        const char* name;
        QAccessible::Role role;
    };
    // Each stands behind a label "Copies:".
    const Row rows[] = {
        {u"Edit", 0, u"7", "Copies:", QAccessible::EditableText},
        {u"Edit", ES_MULTILINE, u"7", "Copies:", QAccessible::EditableText},
        {u"ComboBox", CBS_DROPDOWNLIST, u"", "Copies:", QAccessible::ComboBox},
        {u"ComboBox", CBS_DROPDOWN, u"", "Copies:", QAccessible::EditableText},
        {u"ListBox", 0, u"", "Copies:", QAccessible::List},
        {u"SysListView32", LVS_REPORT, u"", "Copies:", QAccessible::Tree},
        {u"SysListView32", LVS_ICON, u"", "Copies:", QAccessible::List},
        {u"msctls_trackbar32", 0, u"", "Copies:", QAccessible::Slider},
        {u"Button", BS_PUSHBUTTON, u"&More", "More", QAccessible::Button},
        {u"Button", BS_OWNERDRAW, u"&Load", "Load", QAccessible::Button},
        {u"Button", BS_AUTOCHECKBOX, u"&Collate", "Collate", QAccessible::CheckBox},
        {u"Button", BS_AUTORADIOBUTTON, u"&All", "All", QAccessible::RadioButton},
    };
    for (const Row& row : rows) {
        open({{u"Static", SS_LEFT, label, u"&Copies:"}, {row.className, row.style | WS_TABSTOP, editA, row.text}});
        key(VK_TAB);
        ASSERT_EQ(focusedId(), editA) << row.name;
        QAccessibleInterface* heard = QAccessible::queryAccessibleInterface(QApplication::focusWidget());
        ASSERT_NE(heard, nullptr);
        EXPECT_EQ(heard->text(QAccessible::Name).toStdString(), row.name)
            << QString::fromUtf16(row.className).toStdString();
        EXPECT_EQ(heard->role(), row.role) << QString::fromUtf16(row.className).toStdString() << " " << row.style;
    }
}

TEST_F(Dialogs, theKeysShowWhereTheyGo) {
    const std::vector<DialogItem> items = {
        {u"Button", BS_PUSHBUTTON | WS_TABSTOP, 201, u"Push"},
        {u"Button", BS_OWNERDRAW | WS_TABSTOP, 202, u"Drawn"},
        {u"Button", BS_AUTOCHECKBOX | WS_TABSTOP, 203, u"Tick"},
        {u"Button", BS_AUTORADIOBUTTON | WS_TABSTOP, 204, u"One"},
        {u"Edit", WS_TABSTOP | WS_BORDER, 205, u""},
        {u"ComboBox", CBS_DROPDOWNLIST | WS_TABSTOP, 206, u""},
        {u"msctls_trackbar32", WS_TABSTOP, 207, u""},
    };
    open(items);
    for (const DialogItem& item : items) {
        QWidget* focused = QApplication::focusWidget();
        ASSERT_EQ(focusedId(), item.id);
        const QImage with = focused->grab().toImage();
        key(VK_TAB);
        EXPECT_NE(with, focused->grab().toImage()) << item.id;
    }
}

// Runs in a process of its own, on a bus of its own, where it is the desktop, too.
TEST_F(Dialogs, DISABLED_theDesktopChangesItsColours) {
    int told = 0;
    onMessage = [&](HWND, UINT message, WPARAM, LPARAM) -> INT_PTR {
        told += message == WM_SYSCOLORCHANGE ? 1 : 0;
        return message == WM_INITDIALOG;
    };
    open({firstEdit, okButton});
    QDBusConnection desktop = QDBusConnection::connectToBus(QDBusConnection::SessionBus, "desktop");
    ASSERT_TRUE(desktop.registerService("org.freedesktop.portal.Desktop"));
    struct Row {
        const char* setting;
        uint preference;
        bool isDark;
        int told;
    };
    const Row rows[] = {
        {"color-scheme", 1, true, 1}, {"accent-color", 0, true, 0},  {"color-scheme", 2, false, 1},
        {"color-scheme", 1, true, 1}, {"color-scheme", 0, false, 1},
    };
    for (const Row& row : rows) {
        told = 0;
        QDBusMessage change = QDBusMessage::createSignal("/org/freedesktop/portal/desktop",
                                                         "org.freedesktop.portal.Settings", "SettingChanged");
        change << "org.freedesktop.appearance" << row.setting
               << QVariant::fromValue(QDBusVariant(QVariant(row.preference)));
        ASSERT_TRUE(desktop.send(change));
        for (int wait = 0; wait < 100 && told < row.told; ++wait) {
            QThread::msleep(10);
            runEvents();
        }
        EXPECT_EQ(told, row.told) << row.setting << " " << row.preference;
        EXPECT_EQ(GetRValue(GetSysColor(COLOR_WINDOW)) < 128, row.isDark) << row.preference;
        QImage seen = QApplication::activeWindow()->grab().toImage();
        EXPECT_EQ(seen.pixelColor(2, seen.height() - 3).lightness() < 128, row.isDark) << row.preference;
        QImage field = QApplication::focusWidget()->grab().toImage();
        EXPECT_EQ(field.pixelColor(field.width() - 4, 4).lightness() < 128, row.isDark) << row.preference;
    }
}

TEST_F(Dialogs, everythingFollowsTheDesktopFromLightToDark) {
    if (std::system("command -v dbus-run-session > /dev/null") != 0) GTEST_SKIP() << "there is no bus to ask";
    ProcessResult result = runDisabled("Dialogs.DISABLED_theDesktopChangesItsColours",
                                       {"/usr/bin/env", "KOLMA_COLOR_SCHEME=desktop", "dbus-run-session", "--"});
    EXPECT_EQ(result.exitCode, 0) << result.out << result.error;
}

TEST_F(Dialogs, numbersOfControlsAreReadUpToWhatIsNone) {
    struct Row {
        const char16_t* text;
        BOOL isSigned;
        bool isNumber;
        UINT value;
    };
    const Row rows[] = {
        {u"12", FALSE, true, 12},         {u" 12", TRUE, true, 12}, {u"-3", TRUE, true, static_cast<UINT>(-3)},
        {u"-3", FALSE, false, 0},         {u"", TRUE, false, 0},    {u"1x", FALSE, true, 1},
        {u"12 mm", TRUE, true, 12},       {u"x1", TRUE, false, 0},  {u"4294967295", FALSE, true, 4294967295U},
        {u"4294967296", FALSE, false, 0},
    };
    HWND window = open({firstEdit});
    for (const Row& row : rows) {
        SetDlgItemTextW(window, editA, row.text);
        BOOL isNumber = FALSE;
        EXPECT_EQ(GetDlgItemInt(window, editA, &isNumber, row.isSigned), row.value) << testing::PrintToString(row.text);
        EXPECT_EQ(isNumber != FALSE, row.isNumber) << testing::PrintToString(row.text);
    }
    SetDlgItemInt(window, editA, static_cast<UINT>(-7), TRUE);
    EXPECT_EQ(textOf(GetDlgItem(window, editA)), u"-7");
}

TEST_F(Dialogs, aMessageBoxIsFoundAndAnsweredLikeAnyWindow) {
    struct Row {
        UINT type;
        std::vector<int> buttons;
        int escape; // 0: the box stays
        int byDefault;
    };
    const Row rows[] = {
        {MB_OK, {IDOK}, IDOK, IDOK},
        {MB_OKCANCEL | MB_ICONWARNING, {IDOK, IDCANCEL}, IDCANCEL, IDOK},
        {MB_YESNO | MB_DEFBUTTON2 | MB_ICONQUESTION, {IDYES, IDNO}, 0, IDNO},
        {MB_YESNOCANCEL | MB_DEFBUTTON3, {IDYES, IDNO, IDCANCEL}, IDCANCEL, IDCANCEL},
        {MB_ABORTRETRYIGNORE | MB_ICONERROR, {IDABORT, IDRETRY, IDIGNORE}, 0, IDABORT},
        {MB_RETRYCANCEL, {IDRETRY, IDCANCEL}, IDCANCEL, IDRETRY},
    };
    HWND owner = open({firstEdit});
    for (const Row& row : rows) {
        auto show = [&] { return MessageBoxW(owner, u"The text.\r\n", u"The title", row.type); };
        inside([&](HWND box) {
            EXPECT_EQ(textOf(box), u"The title");
            EXPECT_EQ(textOf(GetDlgItem(box, IDC_STATIC)), u"The text.");
            EXPECT_EQ(GetParent(box), owner);
            EXPECT_EQ(focusedId(), row.byDefault) << row.type;
            for (int id = IDOK; id <= IDNO; ++id) {
                bool isWanted = std::ranges::find(row.buttons, id) != row.buttons.end();
                EXPECT_EQ(GetDlgItem(box, id) != nullptr, isWanted) << row.type << " button " << id;
            }
            key(VK_ESCAPE);
            if (row.escape == 0) SendDlgItemMessageW(box, row.buttons.back(), BM_CLICK, 0, 0);
        });
        EXPECT_EQ(show(), row.escape == 0 ? row.buttons.back() : row.escape) << row.type;
        inside([](HWND) { key(VK_RETURN); });
        EXPECT_EQ(show(), row.byDefault) << row.type;
    }
}

TEST_F(Dialogs, aMessageBoxStaysOnTheScreenWhateverItSays) {
    const std::u16string word(400, u'w');
    std::u16string lines;
    for (int i = 0; i < 500; ++i)
        lines += u"One more line of many.\n";
    const std::pair<std::u16string, std::u16string> boxes[] = {
        {u"Short", u"Load /a/ticket.jtif " + word}, {u"Load " + word, u"Short"}, {u"Long", word}, {u"Long", lines}};
    for (const auto& [caption, text] : boxes) {
        inside([](HWND box) {
            RECT screen;
            RECT button;
            SystemParametersInfoW(SPI_GETWORKAREA, 0, &screen, 0);
            GetWindowRect(GetDlgItem(box, IDOK), &button);
            EXPECT_TRUE(button.right <= screen.right && button.bottom <= screen.bottom)
                << button.right << ", " << button.bottom;
            EndDialog(box, IDOK);
        });
        MessageBoxW(nullptr, text.c_str(), caption.c_str(), MB_OK | MB_ICONERROR);
    }
}

TEST_F(Dialogs, timersTellTheWindowUntilTheyAreKilledOrItGoes) {
    int ticks = 0;
    onMessage = [&](HWND window, UINT message, WPARAM wParam, LPARAM) -> INT_PTR {
        if (message == WM_TIMER && wParam == 5 && ++ticks == 3) KillTimer(window, 5);
        return FALSE;
    };
    HWND window = open({okButton});
    EXPECT_EQ(SetTimer(window, 5, 10, nullptr), 5U);
    for (int i = 0; i < 20; ++i)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 10), QThread::msleep(5);
    EXPECT_EQ(ticks, 3);
    EXPECT_FALSE(KillTimer(window, 5));
    SetTimer(window, 6, 10, nullptr);
    DestroyWindow(window);
    runEvents();
    EXPECT_FALSE(KillTimer(window, 6));
}

TEST_F(Dialogs, whatAProcedureThrowsEndsAtTheMessage) {
    int thrown = 0;
    onMessage = [&](HWND, UINT message, WPARAM wParam, LPARAM) -> INT_PTR {
        bool isPress = message == WM_COMMAND && LOWORD(wParam) == IDOK;
        if (message != WM_APP && message != WM_INITDIALOG && !isPress) return FALSE;
        ++thrown;
        throw std::runtime_error("out");
    };
    HWND window = open({firstEdit, okButton});
    EXPECT_EQ(thrown, 1) << "the dialog is there all the same";
    EXPECT_EQ(SendMessageW(window, WM_APP, 0, 0), 0);
    EXPECT_EQ(GetLastError(), ERROR_GEN_FAILURE);
    PostMessageW(window, WM_APP, 0, 0);
    runEvents();
    for (int press = 1; press <= 2; ++press) {
        thrown = 0;
        SetFocus(GetDlgItem(window, IDOK));
        key(VK_SPACE);
        EXPECT_EQ(thrown, 1) << "press " << press << " of the button";
        EXPECT_EQ(static_cast<WPARAM>(SendDlgItemMessageW(window, IDOK, BM_GETSTATE, 0, 0)) & BST_PUSHED, 0U);
    }
    auto throws = [](HWND, LPARAM) -> BOOL { throw std::runtime_error("out"); };
    EXPECT_FALSE(EnumChildWindows(window, throws, 0));
}

TEST_F(Dialogs, anUnknownClassOpensNothing) {
    MemoryDialog memory({firstEdit, {u"NoSuchClass", 0, 5, u""}});
    EXPECT_EQ(DialogBoxIndirectParamW(nullptr, memory.get(), nullptr, &dialogProcedure, 0), -1);
    EXPECT_EQ(GetLastError(), ERROR_CANNOT_FIND_WND_CLASS);
    runEvents();
    std::vector<HWND> left;
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND window, LPARAM list) -> BOOL {
            reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&left));
    EXPECT_TRUE(left.empty());
}

// Runs in a process of its own: with the application of a program that goes, and comes again.
TEST(Applications, DISABLED_twoInTurn) {
    int argumentCount = 1;
    char name[] = "program";
    char* arguments[] = {name, nullptr};
    MemoryDialog memory({firstEdit, secondEdit, okButton});
    int commands = 0;
    onMessage = [&](HWND, UINT message, WPARAM wParam, LPARAM) -> INT_PTR {
        if (message == WM_COMMAND && LOWORD(wParam) == IDCANCEL) ++commands;
        return FALSE;
    };
    for (int turn = 0; turn < 3; ++turn) {
        std::optional<QApplication> ofTheProgram;
        if (turn != 1) ofTheProgram.emplace(argumentCount, arguments);
        HWND window = CreateDialogIndirectParamW(nullptr, memory.get(), nullptr, &dialogProcedure, 0);
        ASSERT_NE(window, nullptr) << turn << ": " << GetLastError();
        ShowWindow(window, SW_SHOW);
        keybd_event(VK_ESCAPE, 0, 0, 0); // what it means is the layer's work in each of them
        for (int i = 0; i < 5; ++i)
            QCoreApplication::processEvents();
        EXPECT_EQ(commands, turn + 1);
        DestroyWindow(window);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        if (turn == 1) delete qApp;
    }
}

TEST(Applications, aSecondOneIsTakenWhenTheFirstHasGone) {
    ProcessResult result = runDisabled("Applications.DISABLED_twoInTurn");
    EXPECT_EQ(result.exitCode, 0) << result.out << result.error;
}
