// Fields on the real window layer: what they tell their parent of a user's changes and of the program's, which keys
// reach them, how long their texts get, and how their lines end.
#include "tests/windowStage.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QInputMethodEvent>

namespace {

struct EditRow {
    const char* what;
    std::function<void(HWND)> act;
    // Of one line and of several.
    const char* told;
    const char* toldOfLines;
    const char* text;
};

TEST(EditWindow, tellsOfChangesInOrder) {
    const EditRow rows[] = {
        {"typed", [](HWND) { WindowStage::type("x"); }, "101 update, 101 change", "101 update, 101 change", "abcdx"},
        {"erased", [](HWND) { WindowStage::press(Qt::Key_Backspace); }, "101 update, 101 change",
         "101 update, 101 change", "abc"},
        {"moved", [](HWND) { WindowStage::press(Qt::Key_Left); }, "", "", "abcd"},
        {"selected", [](HWND edit) { send(edit, EM_SETSEL, 1, 3); }, "", "", "abcd"},
        {"selected and typed",
         [](HWND edit) {
             send(edit, EM_SETSEL, 1, 3);
             WindowStage::type("-");
         },
         "101 update, 101 change", "101 update, 101 change", "a-d"},
        {"set", [](HWND edit) { sendText(edit, WM_SETTEXT, u"new"); }, "101 update, 101 change", "", "new"},
        {"set to the same", [](HWND edit) { sendText(edit, WM_SETTEXT, u"abcd"); }, "101 update, 101 change", "",
         "abcd"},
        {"replaced", [](HWND edit) { sendText(edit, EM_REPLACESEL, u"12"); }, "101 update, 101 change",
         "101 update, 101 change", "abcd12"},
        {"limit alone", [](HWND edit) { send(edit, EM_LIMITTEXT, 2); }, "", "", "abcd"},
        {"full",
         [](HWND edit) {
             send(edit, EM_LIMITTEXT, 4);
             WindowStage::type("x");
         },
         "101 full", "101 full", "abcd"},
        {"character without a key", [](HWND edit) { send(edit, WM_CHAR, u'y', 1); }, "101 update, 101 change",
         "101 update, 101 change", "abcdy"},
        {"backspace without a key", [](HWND edit) { send(edit, WM_CHAR, VK_BACK, 1); }, "101 update, 101 change",
         "101 update, 101 change", "abc"},
        {"read only",
         [](HWND edit) {
             send(edit, EM_SETREADONLY, TRUE);
             WindowStage::type("x");
             send(edit, WM_CHAR, u'y', 1);
         },
         "", "", "abcd"},
        {"undone",
         [](HWND edit) {
             WindowStage::type("x");
             send(edit, EM_UNDO);
         },
         "101 update, 101 change, 101 update, 101 change", "101 update, 101 change, 101 update, 101 change", "abcd"},
        {"cleared",
         [](HWND edit) {
             send(edit, EM_SETSEL, 0, -1);
             send(edit, WM_CLEAR);
         },
         "101 update, 101 change", "101 update, 101 change", ""},
        {"left and entered",
         [](HWND edit) {
             SetFocus(GetDlgItem(GetParent(edit), second));
             SetFocus(edit);
         },
         "101 left, 101 entered", "101 left, 101 entered", "abcd"},
    };
    for (const EditRow& row : rows) {
        for (DWORD style : {DWORD{0}, ES_MULTILINE}) {
            WindowStage stage;
            HWND edit = stage.add(WC_EDITW, style | WS_BORDER, first, u"abcd", 60);
            stage.add(WC_BUTTONW, BS_PUSHBUTTON, second);
            stage.show();
            SetFocus(edit);
            send(edit, EM_SETSEL, 4, 4);
            stage.told();
            row.act(edit);
            EXPECT_EQ(stage.told(), style == 0 ? row.told : row.toldOfLines) << row.what << " " << style;
            EXPECT_EQ(show(edit), row.text) << row.what << " " << style;
        }
    }
}

WNDPROC replacedProcedure = nullptr;

// Lets digits and backspace through.
LRESULT CALLBACK digitsOnly(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_CHAR && wParam != VK_BACK && (wParam < u'0' || wParam > u'9')) return 0;
    return CallWindowProcW(replacedProcedure, window, message, wParam, lParam);
}

TEST(EditWindow, aFilterOfCharactersKeepsKeysFromTheField) {
    for (DWORD style : {DWORD{0}, ES_MULTILINE}) {
        WindowStage stage;
        HWND edit = stage.add(WC_EDITW, style, first, u"", 60);
        stage.show();
        SetFocus(edit);
        replacedProcedure = reinterpret_cast<WNDPROC>( // NOLINT
            SetWindowLongPtrW(edit, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&digitsOnly)));
        stage.told();

        WindowStage::type("1a-");
        EXPECT_EQ(show(edit), "1") << "keys";
        EXPECT_EQ(stage.told(), "101 update, 101 change");
        send(edit, WM_CHAR, u'b', 1);
        send(edit, WM_CHAR, u'2', 1);
        EXPECT_EQ(show(edit), "12") << "characters of the program";
        QInputMethodEvent composed;
        composed.setCommitString("x3");
        QCoreApplication::sendEvent(QApplication::focusWidget(), &composed);
        EXPECT_EQ(show(edit), "123") << "an input method";
        WindowStage::press(Qt::Key_Backspace);
        EXPECT_EQ(show(edit), "12");
        QApplication::clipboard()->setText("pasted");
        WindowStage::press(Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(show(edit), "12pasted") << "the clipboard goes past the filter";
        SetWindowLongPtrW(edit, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(replacedProcedure));
        WindowStage::type("z");
        EXPECT_EQ(show(edit), "12pastedz") << "the filter is off";
    }
}

TEST(EditWindow, aLimitIsForTheUserAlone) {
    for (DWORD style : {DWORD{0}, ES_MULTILINE}) {
        WindowStage stage;
        HWND edit = stage.add(WC_EDITW, style, first, u"", 60);
        stage.show();
        SetFocus(edit);
        send(edit, EM_LIMITTEXT, 3);
        WindowStage::type("1234");
        EXPECT_EQ(show(edit), "123");
        send(edit, EM_SETSEL, 1, 2);
        WindowStage::type("x");
        EXPECT_EQ(show(edit), "1x3") << "the key takes the selection's place";
        sendText(edit, WM_SETTEXT, u"longer");
        EXPECT_EQ(show(edit), "longer") << "the program may";
        send(edit, EM_SETSEL, 6, 6);
        WindowStage::type("y");
        WindowStage::press(Qt::Key_Backspace);
        EXPECT_EQ(show(edit), "longe") << "what is too long can get shorter";
        WindowStage::type("y");
        EXPECT_EQ(show(edit), "longe");
        sendText(edit, WM_SETTEXT, u"");
        QApplication::clipboard()->setText("pasted");
        send(edit, WM_PASTE);
        EXPECT_EQ(show(edit), "pas");
        EXPECT_EQ(send(edit, EM_GETLIMITTEXT), 3);
    }
}

TEST(EditWindow, takesDigitsAloneWhereItsStyleSaysSo) {
    WindowStage stage;
    HWND edit = stage.add(WC_EDITW, ES_NUMBER, first);
    stage.show();
    SetFocus(edit);
    WindowStage::type("1a2.3");
    EXPECT_EQ(show(edit), "123");
}

TEST(EditWindow, linesEndAsProgramsSeeThem) {
    WindowStage stage;
    HWND edit = stage.add(WC_EDITW, ES_MULTILINE | ES_WANTRETURN, first, u"one\r\ntwo\r\n\r\nfour", 80);
    stage.show();
    EXPECT_EQ(show(edit), "one\r\ntwo\r\n\r\nfour");
    EXPECT_EQ(send(edit, EM_GETLINECOUNT), 4);
    struct SelectionRow {
        int begin, end;
        int wantedBegin, wantedEnd;
        const char* after;
    };
    const SelectionRow rows[] = {
        {0, 3, 0, 3, "*\r\ntwo\r\n\r\nfour"},
        {3, 5, 3, 5, "one*two\r\n\r\nfour"},
        {5, 8, 5, 8, "one\r\n*\r\n\r\nfour"},
        {8, 12, 8, 12, "one\r\ntwo*four"},
        {10, 12, 10, 12, "one\r\ntwo\r\n*four"},
        {12, 16, 12, 16, "one\r\ntwo\r\n\r\n*"},
        {0, -1, 0, 16, "*"},
        {99, 120, 16, 16, "one\r\ntwo\r\n\r\nfour*"},
        {4, 4, 3, 3, "one*\r\ntwo\r\n\r\nfour"},
    };
    for (const SelectionRow& row : rows) {
        sendText(edit, WM_SETTEXT, u"one\r\ntwo\r\n\r\nfour");
        send(edit, EM_SETSEL, static_cast<WPARAM>(row.begin), row.end);
        DWORD begin = 99;
        DWORD end = 99;
        LRESULT packed = send(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&begin), reinterpret_cast<LPARAM>(&end));
        EXPECT_EQ(static_cast<int>(begin), row.wantedBegin) << row.begin << " " << row.end;
        EXPECT_EQ(static_cast<int>(end), row.wantedEnd) << row.begin << " " << row.end;
        EXPECT_EQ(packed, LRESULT{MAKELONG(row.wantedBegin, row.wantedEnd)});
        sendText(edit, EM_REPLACESEL, u"*");
        EXPECT_EQ(show(edit), row.after) << row.begin << " " << row.end;
    }
    sendText(edit, WM_SETTEXT, u"a");
    SetFocus(edit);
    send(edit, EM_SETSEL, 1, 1);
    WindowStage::press(Qt::Key_Return);
    EXPECT_EQ(show(edit), "a\r\n");
    char16_t cut[3] = {u'#', u'#', u'#'};
    EXPECT_EQ(GetWindowTextW(edit, toWide(cut), 3), 2);
    EXPECT_EQ(std::u16string(cut), u"a\r");
}

TEST(EditWindow, isColouredAsItsParentSays) {
    struct ColourRow {
        const char* what;
        DWORD style;
        UINT message;
    };
    const ColourRow rows[] = {
        {"field", 0, WM_CTLCOLOREDIT},
        {"read only", ES_READONLY, WM_CTLCOLORSTATIC},
        {"disabled", WS_DISABLED, WM_CTLCOLORSTATIC},
    };
    for (const ColourRow& row : rows) {
        WindowStage stage;
        HBRUSH brush = CreateSolidBrush(RGB(40, 10, 90));
        HWND edit = stage.add(WC_EDITW, row.style, first, u"");
        int asked = 0;
        stage.answer = [&](UINT message, WPARAM wParam, LPARAM lParam) -> std::optional<LRESULT> {
            if (message != row.message || lParam != reinterpret_cast<LPARAM>(edit)) return std::nullopt;
            ++asked;
            SetBkColor(reinterpret_cast<HDC>(wParam), RGB(255, 255, 255));
            return reinterpret_cast<LRESULT>(brush);
        };
        stage.show();
        UpdateWindow(edit);
        QWidget* widget = WindowStage::widgetOf(edit);
        EXPECT_GT(asked, 0) << row.what;
        EXPECT_EQ(widget->palette().color(QPalette::Base), QColor(40, 10, 90)) << row.what;
        EXPECT_EQ(widget->palette().color(QPalette::Active, QPalette::Text), QColor(Qt::white)) << "can be read";
        // A program that takes the white brush wants what fields look like, in the dark, too.
        DeleteObject(brush);
        brush = static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH));
        InvalidateRect(edit, nullptr, TRUE);
        UpdateWindow(edit);
        EXPECT_EQ(widget->palette().color(QPalette::Base), QApplication::palette().color(QPalette::Base)) << row.what;
    }
}

TEST(EditWindow, blackOnWhiteCanBeReadOnADarkDesktopToo) {
    WindowStage stage;
    const QPalette before = QApplication::palette();
    QPalette dark = before;
    dark.setColor(QPalette::Base, QColor(30, 30, 30));
    dark.setColor(QPalette::Text, QColor(240, 240, 240));
    QApplication::setPalette(dark);
    HWND edit = stage.add(WC_EDITW, ES_READONLY, first, u"text");
    stage.answer = [](UINT message, WPARAM wParam, LPARAM) -> std::optional<LRESULT> {
        if (message != WM_CTLCOLORSTATIC) return std::nullopt;
        SetTextColor(reinterpret_cast<HDC>(wParam), RGB(0, 0, 0));
        return reinterpret_cast<LRESULT>(GetStockObject(WHITE_BRUSH));
    };
    stage.show();
    UpdateWindow(edit);
    const QPalette shown = WindowStage::widgetOf(edit)->palette();
    QApplication::setPalette(before);
    EXPECT_EQ(shown.color(QPalette::Base), QColor(30, 30, 30));
    EXPECT_EQ(shown.color(QPalette::Active, QPalette::Text), QColor(240, 240, 240));
}

} // namespace
