// Dialogs on the real window layer, opened from templates in memory, and the keys of a person.
#pragma once

#include "platform/controls.h"
#include "platform/windows.h"
#include "tests/Process.h"
#include "tests/memoryDialog.h"

#include <QApplication>
#include <QTimer>

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <string>
#include <utility>
#include <vector>

inline constexpr WORD editA = 101;
inline constexpr WORD editB = 102;
inline constexpr WORD label = 103;
inline constexpr WORD radio1 = 111;
inline constexpr WORD radio2 = 112;
inline constexpr WORD radio3 = 113;
inline constexpr WORD help = 120;

// What the dialog under test does with messages; by default nothing.
inline std::function<INT_PTR(HWND, UINT, WPARAM, LPARAM)> onMessage;

inline INT_PTR CALLBACK dialogProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
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

inline const DialogItem okButton{u"BUTTON", BS_DEFPUSHBUTTON | WS_TABSTOP, IDOK, u"OK"};
inline const DialogItem cancelButton{u"Button", BS_PUSHBUTTON | WS_TABSTOP, IDCANCEL, u"Cancel"};
inline const DialogItem firstEdit{u"Edit", ES_AUTOHSCROLL | WS_TABSTOP, editA, u"one"};
inline const DialogItem secondEdit{u"eDiT", ES_AUTOHSCROLL | WS_TABSTOP, editB, u"two"};

// This program again, for one of its tests.
inline ProcessResult runDisabled(const std::string& test, std::vector<std::string> command = {}) {
    command.insert(command.end(), {std::filesystem::read_symlink("/proc/self/exe").string(),
                                   "--gtest_also_run_disabled_tests", "--gtest_filter=" + test});
    return runProcess(command);
}

inline INT_PTR endOnCommand(HWND window, UINT message, WPARAM wParam, LPARAM /*lParam*/) {
    if (message != WM_COMMAND || HIWORD(wParam) != BN_CLICKED) return FALSE;
    EndDialog(window, LOWORD(wParam));
    return TRUE;
}
