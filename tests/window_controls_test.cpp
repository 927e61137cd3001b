// Buttons, labels, sliders and arrows on the real window layer: what they tell their parent when a user does
// something and when the program does, in which order, and what state that leaves.
#include "tests/windowStage.h"

#include <gtest/gtest.h>

#include <array>

namespace {

struct ButtonRow {
    const char* what;
    DWORD style;
    std::function<void(HWND)> act;
    const char* told;
    LRESULT checked;
};

TEST(ButtonWindow, tellsOfClicksAndOfNothingElse) {
    auto mouse = [](HWND button) { WindowStage::click(button); };
    auto space = [](HWND button) {
        SetFocus(button);
        WindowStage::press(Qt::Key_Space);
    };
    auto program = [](HWND button) { send(button, BM_CLICK); };
    auto twice = [](HWND button) {
        send(button, BM_CLICK);
        send(button, BM_CLICK);
    };
    auto check = [](HWND button) { send(button, BM_SETCHECK, BST_CHECKED); };
    auto half = [](HWND button) { send(button, BM_SETCHECK, BST_INDETERMINATE); };
    auto disabled = [](HWND button) {
        EnableWindow(button, FALSE);
        send(button, BM_CLICK);
        WindowStage::click(button);
    };
    const ButtonRow rows[] = {
        {"push, mouse", BS_PUSHBUTTON, mouse, "101 clicked", 0},
        {"push, space", BS_PUSHBUTTON, space, "101 clicked", 0},
        {"push, program", BS_DEFPUSHBUTTON, program, "101 clicked", 0},
        {"push, disabled", BS_PUSHBUTTON, disabled, "", 0},
        {"push has no check", BS_PUSHBUTTON, check, "", 0},
        {"box, mouse", BS_AUTOCHECKBOX, mouse, "101 clicked", 1},
        {"box, space", BS_AUTOCHECKBOX, space, "101 clicked", 1},
        {"box, twice", BS_AUTOCHECKBOX, twice, "101 clicked, 101 clicked", 0},
        {"box, set", BS_AUTOCHECKBOX, check, "", 1},
        {"box has no third state", BS_AUTOCHECKBOX, half, "", 1},
        {"box that the program sets", BS_CHECKBOX, mouse, "101 clicked", 0},
        {"three states", BS_AUTO3STATE, twice, "101 clicked, 101 clicked", 2},
        {"third state set", BS_3STATE, half, "", 2},
        {"radio", BS_AUTORADIOBUTTON, twice, "101 clicked, 101 clicked", 1},
        {"radio that the program sets", BS_RADIOBUTTON, mouse, "101 clicked", 0},
        {"with its focus told", BS_PUSHBUTTON | BS_NOTIFY, program, "101 entered, 101 clicked", 0},
        {"drawn by the program", BS_OWNERDRAW, mouse, "101 clicked", 0},
        {"frame", BS_GROUPBOX, program, "", 0},
    };
    for (const ButtonRow& row : rows) {
        WindowStage stage;
        // The focus rests elsewhere at first.
        HWND other = stage.add(WC_EDITW, 0, third);
        HWND button = stage.add(WC_BUTTONW, row.style, first, u"&Text");
        stage.show();
        SetFocus(other);
        stage.told();
        row.act(button);
        std::string told = stage.told();
        // The field tells of the focus, too.
        if (auto left = told.find("103 left"); left == 0) told.erase(0, told.size() == 8 ? 8 : 10);
        EXPECT_EQ(told, row.told) << row.what;
        EXPECT_EQ(send(button, BM_GETCHECK), row.checked) << row.what;
        EXPECT_EQ(show(button), "&Text") << row.what;
    }
}

TEST(ButtonWindow, aRadioButtonIsTheOnlyOneOfItsGroup) {
    WindowStage stage;
    std::array<HWND, 5> radios{};
    for (std::size_t i = 0; i < radios.size(); ++i) {
        DWORD group = i == 0 || i == 3 ? WS_GROUP : 0;
        radios[i] = stage.add(WC_BUTTONW, BS_AUTORADIOBUTTON | group, static_cast<WORD>(first + i));
    }
    auto checked = [&] {
        std::string all;
        for (HWND radio : radios)
            all += send(radio, BM_GETCHECK) == LRESULT{BST_CHECKED} ? '*' : '.';
        return all;
    };
    stage.show();
    WindowStage::click(radios[1]);
    WindowStage::click(radios[4]);
    EXPECT_EQ(checked(), ".*..*");
    WindowStage::click(radios[2]);
    EXPECT_EQ(checked(), "..*.*");
    EXPECT_EQ(stage.told(), "102 clicked, 105 clicked, 103 clicked");
    CheckRadioButton(stage.window(), first, first + 2, first);
    EXPECT_EQ(checked(), "*...*");
    EXPECT_EQ(IsDlgButtonChecked(stage.window(), first), UINT{BST_CHECKED});
    EXPECT_EQ(stage.told(), "");
}

TEST(ButtonWindow, theProgramDrawsItsButtonInEveryState) {
    WindowStage stage;
    HWND other = stage.add(WC_EDITW, 0, second);
    HWND button = stage.add(WC_BUTTONW, BS_OWNERDRAW, first, u"", 30);
    std::optional<DRAWITEMSTRUCT> drawn;
    COLORREF painted = RGB(10, 200, 30);
    stage.answer = [&](UINT message, WPARAM wParam, LPARAM lParam) -> std::optional<LRESULT> {
        if (message != WM_DRAWITEM) return std::nullopt;
        drawn = *reinterpret_cast<DRAWITEMSTRUCT*>(lParam);
        EXPECT_EQ(wParam, first);
        // Both contexts draw on the button: the one that came, and one of its own.
        HBRUSH brush = CreateSolidBrush(painted);
        RECT left{0, 0, drawn->rcItem.right / 2, drawn->rcItem.bottom};
        RECT right{drawn->rcItem.right / 2, 0, drawn->rcItem.right, drawn->rcItem.bottom};
        FillRect(drawn->hDC, &left, brush);
        HDC own = GetDC(drawn->hwndItem);
        FillRect(own, &right, brush);
        ReleaseDC(drawn->hwndItem, own);
        DeleteObject(brush);
        return TRUE;
    };
    stage.show();
    SetFocus(other);
    auto stateAfter = [&](const std::function<void()>& act) {
        act();
        drawn.reset();
        UpdateWindow(button);
        return drawn ? drawn->itemState : 0xFFFF;
    };
    EXPECT_EQ(stateAfter([&] { InvalidateRect(button, nullptr, TRUE); }), 0U);
    ASSERT_TRUE(drawn);
    EXPECT_EQ(drawn->CtlType, ODT_BUTTON);
    EXPECT_EQ(drawn->CtlID, first);
    EXPECT_EQ(drawn->itemAction, ODA_DRAWENTIRE);
    EXPECT_EQ(drawn->hwndItem, button);
    EXPECT_EQ(drawn->rcItem.right, 200);
    EXPECT_EQ(drawn->rcItem.bottom, 30);
    EXPECT_EQ(stateAfter([&] { send(button, BM_SETSTATE, TRUE); }), ODS_SELECTED);
    EXPECT_EQ(stateAfter([&] {
                  send(button, BM_SETSTATE, FALSE);
                  SetFocus(button);
              }),
              ODS_FOCUS);
    EXPECT_EQ(stateAfter([&] { EnableWindow(button, FALSE); }), ODS_DISABLED);
    QImage seen = WindowStage::widgetOf(button)->grab().toImage();
    for (QPoint place : {QPoint(3, 3), QPoint(seen.width() - 4, seen.height() - 4)})
        EXPECT_EQ(seen.pixelColor(place), QColor(10, 200, 30)) << place.x();
}

TEST(TrackbarWindow, tellsWhatTheUserDoesAndNotWhatTheProgramDoes) {
    WindowStage stage;
    HWND track = stage.add(TRACKBAR_CLASSW, TBS_AUTOTICKS, first, u"", 30);
    stage.show();
    send(track, TBM_SETRANGE, TRUE, MAKELPARAM(-100, 100));
    send(track, TBM_SETTICFREQ, 10);
    EXPECT_EQ(send(track, TBM_GETRANGEMIN), -100);
    EXPECT_EQ(send(track, TBM_GETRANGEMAX), 100);
    EXPECT_EQ(send(track, TBM_GETPAGESIZE), 40);
    struct SetRow {
        int wanted, got;
    };
    for (SetRow row : {SetRow{30, 30}, SetRow{-100, -100}, SetRow{101, 100}, SetRow{-5000, -100}, SetRow{0, 0}}) {
        send(track, TBM_SETPOS, TRUE, row.wanted);
        EXPECT_EQ(send(track, TBM_GETPOS), row.got) << row.wanted;
    }
    EXPECT_EQ(stage.told(), "");

    struct KeyRow {
        Qt::Key key;
        const char* told;
        int position;
    };
    const KeyRow rows[] = {
        {Qt::Key_Right, "across 1, across 8", 1},    {Qt::Key_Left, "across 0, across 8", -1},
        {Qt::Key_Down, "across 1, across 8", 1},     {Qt::Key_Up, "across 0, across 8", -1},
        {Qt::Key_PageUp, "across 2, across 8", -40}, {Qt::Key_PageDown, "across 3, across 8", 40},
        {Qt::Key_Home, "across 6, across 8", -100},  {Qt::Key_End, "across 7, across 8", 100},
    };
    LRESULT seen = -1;
    stage.answer = [&](UINT message, WPARAM, LPARAM lParam) -> std::optional<LRESULT> {
        if (message == WM_HSCROLL) seen = send(reinterpret_cast<HWND>(lParam), TBM_GETPOS);
        return std::nullopt;
    };
    SetFocus(track);
    for (const KeyRow& row : rows) {
        send(track, TBM_SETPOS, TRUE, 0);
        WindowStage::press(row.key);
        EXPECT_EQ(stage.told(), row.told) << row.key;
        EXPECT_EQ(send(track, TBM_GETPOS), row.position) << row.key;
        EXPECT_EQ(seen, row.position) << "already there when it is told";
    }
    send(track, TBM_SETPOS, TRUE, 100);
    send(track, TBM_SETRANGEMAX, TRUE, 50);
    EXPECT_EQ(send(track, TBM_GETPOS), 50);
    EXPECT_EQ(stage.told(), "");
}

struct UpDownRow {
    const char* what;
    DWORD style;
    // Nothing for the range that nobody has set.
    std::optional<std::pair<int, int>> range;
    int position;
    bool isUp;
    const char* told;
    int after;
};

TEST(UpDownWindow, tellsOfAChangeBeforeItIsMade) {
    using Range = std::pair<int, int>;
    const UpDownRow rows[] = {
        {"the range of nobody runs downwards", 0, {}, 10, true, "delta 10 by -1, down 4 at 9, down 8 at 9", 9},
        {"and stops at its end", 0, {}, 0, true, "delta 0 by -1, down 4, down 8", 0},
        {"up", 0, Range{1, 100}, 10, true, "delta 10 by 1, down 4 at 11, down 8 at 11", 11},
        {"down", 0, Range{1, 100}, 10, false, "delta 10 by -1, down 4 at 9, down 8 at 9", 9},
        {"up at the top", 0, Range{1, 100}, 100, true, "delta 100 by 1, down 4 at 100, down 8 at 100", 100},
        {"over the top", UDS_WRAP, Range{1, 100}, 100, true, "delta 100 by 1, down 4 at 1, down 8 at 1", 1},
        {"below the bottom", UDS_WRAP, Range{-5, 5}, -5, false, "delta -5 by -1, down 4 at 5, down 8 at 5", 5},
    };
    for (const UpDownRow& row : rows) {
        WindowStage stage;
        HWND arrows = stage.add(UPDOWN_CLASSW, row.style, first, u"", 40);
        stage.show();
        if (row.range) send(arrows, UDM_SETRANGE, 0, MAKELPARAM(row.range->second, row.range->first));
        send(arrows, UDM_SETPOS, 0, MAKELPARAM(row.position, 0));
        EXPECT_EQ(stage.told(), "") << row.what;
        WindowStage::click(arrows, QPoint(100, row.isUp ? 5 : 35));
        EXPECT_EQ(stage.told(), row.told) << row.what;
        EXPECT_EQ(static_cast<SHORT>(LOWORD(send(arrows, UDM_GETPOS))), row.after) << row.what;
    }
}

TEST(UpDownWindow, theParentMayForbidAndAlterAChange) {
    WindowStage stage;
    HWND arrows = stage.add(UPDOWN_CLASSW, 0, first, u"", 40);
    send(arrows, UDM_SETRANGE32, static_cast<WPARAM>(-100000), 100000);
    send(arrows, UDM_SETPOS32, 0, 50000);
    bool isForbidden = true;
    stage.answer = [&](UINT message, WPARAM, LPARAM lParam) -> std::optional<LRESULT> {
        if (message != WM_NOTIFY) return std::nullopt;
        if (!isForbidden) reinterpret_cast<NMUPDOWN*>(lParam)->iDelta = -70000;
        return isForbidden ? 1 : 0;
    };
    stage.show();
    WindowStage::click(arrows, QPoint(100, 5));
    EXPECT_EQ(send(arrows, UDM_GETPOS32), 50000);
    isForbidden = false;
    WindowStage::click(arrows, QPoint(100, 5));
    EXPECT_EQ(send(arrows, UDM_GETPOS32), -20000);
}

TEST(UpDownWindow, itsBuddyShowsTheNumberAndHasTheKeys) {
    WindowStage stage;
    HWND edit = stage.add(WC_EDITW, WS_BORDER, second, u"7");
    HWND arrows = stage.add(UPDOWN_CLASSW, UDS_AUTOBUDDY | UDS_SETBUDDYINT | UDS_ARROWKEYS | UDS_ALIGNRIGHT, first);
    send(arrows, UDM_SETRANGE, 0, MAKELPARAM(20, 1));
    stage.show();
    EXPECT_EQ(reinterpret_cast<HWND>(send(arrows, UDM_GETBUDDY)), edit);
    RECT field{};
    RECT beside{};
    GetWindowRect(edit, &field);
    GetWindowRect(arrows, &beside);
    EXPECT_EQ(field.right, beside.left);
    EXPECT_EQ(beside.right - field.left, 200) << "they share the field's place";
    EXPECT_EQ(beside.bottom - beside.top, field.bottom - field.top);
    SetFocus(edit);
    stage.told();
    WindowStage::press(Qt::Key_Up);
    EXPECT_EQ(show(edit), "8");
    EXPECT_EQ(stage.told(), "delta 7 by 1, 102 update, 102 change, down 4 at 8");
    sendText(edit, WM_SETTEXT, u"20");
    WindowStage::press(Qt::Key_Up);
    EXPECT_EQ(show(edit), "20");
    WindowStage::press(Qt::Key_Down);
    EXPECT_EQ(show(edit), "19");
    sendText(edit, WM_SETTEXT, u"text");
    WindowStage::press(Qt::Key_Down);
    EXPECT_EQ(show(edit), "18") << "what is no number counts as the one before";
    DestroyWindow(edit);
    EXPECT_NE(HIWORD(send(arrows, UDM_GETPOS)), 0) << "a buddy that is gone";
}

TEST(StaticWindow, tellsOfTheMouseWhereItsStyleSaysSo) {
    for (DWORD style : {SS_NOTIFY, DWORD{0}}) {
        WindowStage stage;
        HWND label = stage.add(WC_STATICW, SS_LEFT | style, first, u"A && B");
        int pressedBelow = 0;
        stage.answer = [&](UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
            pressedBelow += message == WM_LBUTTONDOWN ? 1 : 0;
            return std::nullopt;
        };
        stage.show();
        RECT area{};
        GetWindowRect(label, &area);
        QWidget* window = QApplication::activeWindow();
        QPoint place = window->mapFromGlobal(QPoint(area.left + 5, area.top + 5));
        QWidget* at = window->childAt(place) == nullptr ? window : window->childAt(place);
        QTest::mouseClick(at, Qt::LeftButton, {}, at->mapFrom(window, place));
        EXPECT_EQ(stage.told(), style != 0 ? "101 clicked" : "");
        EXPECT_EQ(pressedBelow, style != 0 ? 0 : 1);
        EXPECT_EQ(show(label), "A && B");
    }
}

TEST(StaticWindow, aFrameTakesItsPlaceFromTheClientArea) {
    WindowStage stage;
    HWND label = stage.add(WC_STATICW, SS_LEFT, first, u"", 40);
    stage.show();
    struct FrameRow {
        DWORD style;
        int width;
    };
    for (FrameRow row : {FrameRow{WS_EX_CLIENTEDGE, 2}, FrameRow{WS_EX_DLGMODALFRAME, 3}, FrameRow{0, 0}}) {
        SetWindowLongW(label, GWL_EXSTYLE, static_cast<LONG>(row.style));
        RECT client{};
        GetClientRect(label, &client);
        EXPECT_EQ(client.left, 0);
        EXPECT_EQ(client.right, 200 - 2 * row.width) << row.style;
        EXPECT_EQ(client.bottom, 40 - 2 * row.width) << row.style;
    }
}

TEST(ToolTipWindow, keepsTheTextsOfItsTools) {
    WindowStage stage;
    HWND button = stage.add(WC_BUTTONW, BS_PUSHBUTTON, first);
    stage.show();
    HWND tips =
        CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_NOPREFIX | TTS_ALWAYSTIP, CW_USEDEFAULT,
                        CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, button, nullptr, nullptr, nullptr);
    ASSERT_NE(tips, nullptr);
    EXPECT_FALSE(IsWindowVisible(tips));
    EXPECT_TRUE(GetParent(tips) == button && !IsChild(button, tips)) << "it stands on the desktop";
    std::u16string text = u"<b>not bold</b> & so on";
    TTTOOLINFOW tool{};
    tool.cbSize = sizeof tool;
    tool.uFlags = TTF_SUBCLASS;
    tool.hwnd = button;
    tool.uId = 5;
    tool.lpszText = toWide(text.data());
    auto say = [&](UINT message, WPARAM wParam = 0) {
        return send(tips, message, wParam, reinterpret_cast<LPARAM>(&tool));
    };
    QWidget* widget = WindowStage::widgetOf(button);
    EXPECT_EQ(say(TTM_ADDTOOLW), TRUE);
    EXPECT_EQ(send(tips, TTM_GETTOOLCOUNT), 1);
    EXPECT_TRUE(widget->toolTip().contains("&lt;b&gt;not bold")) << "never taken for markup";
    send(tips, TTM_SETDELAYTIME, TTDT_INITIAL, MAKELPARAM(250, 0));
    EXPECT_EQ(send(tips, TTM_GETDELAYTIME, TTDT_INITIAL), 250);
    send(tips, TTM_SETMAXTIPWIDTH, 0, 1000);
    char16_t kept[64] = {};
    tool.lpszText = toWide(kept);
    say(TTM_GETTEXTW, 64);
    EXPECT_EQ(std::u16string(kept), text);
    say(TTM_DELTOOLW);
    EXPECT_EQ(send(tips, TTM_GETTOOLCOUNT), 0);
    EXPECT_TRUE(widget->toolTip().isEmpty());
    tool.cbSize = 8;
    EXPECT_EQ(say(TTM_ADDTOOLW), FALSE) << "no such structure";
    DestroyWindow(button);
    EXPECT_FALSE(IsWindow(tips)) << "it goes with its owner";
}

} // namespace
