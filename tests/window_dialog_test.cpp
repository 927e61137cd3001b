// Dialogs of the window layer: what is told to their procedures, in which order, and what modal runs do.
#include "tests/dialogStage.h"

#include <QThread>

#include <gmock/gmock.h>

using testing::ElementsAre;

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
