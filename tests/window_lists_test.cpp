#include "WindowListener.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QWidget>

#include <optional>

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using Lines = std::vector<std::string>;

class ListTest : public testing::Test {
protected:
    void open(const char16_t* className, DWORD style, std::vector<const char16_t*> texts = {}) {
        window_.emplace(className, style);
        UINT add = std::u16string(className) == u"ComboBox" ? CB_ADDSTRING : LB_ADDSTRING;
        for (const char16_t* text : texts)
            window_->sendText(add, 0, text);
        window_->heard();
    }
    void openCombo(DWORD style) {
        open(u"ComboBox", style, {u"Alpha", u"Beta", u"Gamma"});
        SetFocus(window_->control());
        runEvents();
        window_->heard();
    }
    std::u16string text() {
        WCHAR buffer[100] = {};
        GetWindowTextW(window_->control(), buffer, 100);
        return buffer;
    }
    std::u16string entry(WPARAM row, UINT message = CB_GETLBTEXT) {
        WCHAR buffer[100] = {};
        LRESULT length = window_->send(message, row, buffer);
        return length < 0 ? std::u16string(u"none") : std::u16string(buffer, static_cast<std::size_t>(length));
    }

    std::optional<WindowListener> window_;
};

TEST_F(ListTest, aComboBoxTellsOfTheUsersChoicesOnly) {
    struct Row {
        const char* name;
        std::function<void()> act;
        Lines heard;
        LRESULT selected;
    };
    const Row rows[] = {
        {"the program selects", [&] { window_->send(CB_SETCURSEL, 2); }, {}, 2},
        {"the program fills and empties",
         [&] {
             window_->send(CB_RESETCONTENT);
             window_->sendText(CB_ADDSTRING, 0, u"x");
         },
         {},
         CB_ERR},
        {"the program deletes the selected entry",
         [&] {
             window_->send(CB_SETCURSEL, 1);
             window_->send(CB_DELETESTRING, 1);
         },
         {},
         CB_ERR},
        {"an arrow", [&] { window_->press(Qt::Key_Down); }, {"selendok", "selchange"}, 0},
        {"two arrows",
         [&] { window_->press(Qt::Key_Down), window_->press(Qt::Key_Down); },
         {"selendok", "selchange", "selendok", "selchange"},
         1},
        {"a program's key", [&] { window_->send(WM_KEYDOWN, VK_DOWN); }, {"selendok", "selchange"}, 0},
        {"a letter", [&] { window_->press(Qt::Key_G, 0, u"g"); }, {"selendok", "selchange"}, 2},
        {"opened and left",
         [&] {
             window_->press(Qt::Key_F4);
             EXPECT_EQ(window_->send(CB_GETDROPPEDSTATE), TRUE);
             window_->press(Qt::Key_Escape);
             EXPECT_EQ(window_->send(CB_GETDROPPEDSTATE), FALSE);
         },
         {"dropdown", "selendcancel", "closeup"},
         CB_ERR},
        {"opened and chosen by key",
         [&] {
             window_->send(CB_SETCURSEL, 0);
             window_->press(Qt::Key_Down, Qt::AltModifier);
             window_->press(Qt::Key_Down);
             window_->press(Qt::Key_Return);
         },
         {"dropdown", "selendok", "closeup", "selchange"},
         1},
        {"opened and chosen by mouse",
         [&] {
             window_->press(Qt::Key_F4);
             QWidget* list = QApplication::activePopupWidget();
             ASSERT_NE(list, nullptr);
             QPoint third(20, list->height() * 5 / 6);
             QWidget* rows = list->childAt(third);
             window_->clickWidget(*rows, list->mapToGlobal(third));
         },
         {"dropdown", "selendok", "closeup", "selchange"},
         2},
        {"the same entry once more",
         [&] {
             window_->send(CB_SETCURSEL, 1);
             window_->press(Qt::Key_F4);
             window_->press(Qt::Key_Return);
         },
         {"dropdown", "selendok", "closeup", "selchange"},
         1},
        {"opened and closed by the program",
         [&] {
             window_->send(CB_SHOWDROPDOWN, TRUE);
             window_->send(CB_SHOWDROPDOWN, FALSE);
         },
         {"dropdown", "selendcancel", "closeup"},
         CB_ERR},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        openCombo(CBS_DROPDOWNLIST);
        row.act();
        EXPECT_THAT(window_->heard(), ElementsAreArray(row.heard));
        EXPECT_EQ(window_->send(CB_GETCURSEL), row.selected);
    }
}

TEST_F(ListTest, aComboBoxKeepsTextsAndDataWords) {
    open(u"ComboBox", CBS_DROPDOWNLIST);
    EXPECT_EQ(window_->sendText(CB_INSERTSTRING, static_cast<WPARAM>(-1), u"one"), 0);
    EXPECT_EQ(window_->send(CB_GETCURSEL), CB_ERR) << "nothing is chosen by itself";
    EXPECT_EQ(window_->sendText(CB_INSERTSTRING, 0, u"zero"), 0);
    EXPECT_EQ(window_->sendText(CB_INSERTSTRING, 5, u"nowhere"), CB_ERR);
    EXPECT_EQ(window_->send(CB_GETITEMDATA, 1), 0);
    EXPECT_EQ(window_->send(CB_SETITEMDATA, 1, reinterpret_cast<LPARAM>(this)), CB_OKAY);
    EXPECT_EQ(window_->send(CB_GETITEMDATA, 1), reinterpret_cast<LRESULT>(this)) << "as wide as a pointer";
    EXPECT_EQ(entry(1), u"one");
    EXPECT_EQ(window_->send(CB_GETLBTEXTLEN, 0), 4);
    EXPECT_EQ(window_->send(CB_SETCURSEL, 1), 1);
    EXPECT_EQ(text(), u"one");
    EXPECT_EQ(window_->sendText(CB_INSERTSTRING, 0, u"before"), 0);
    EXPECT_EQ(window_->send(CB_GETCURSEL), 2) << "the entry stays selected, wherever it goes";
    EXPECT_EQ(window_->send(CB_SETCURSEL, static_cast<WPARAM>(-1)), CB_ERR);
    EXPECT_EQ(text(), u"");
    for (UINT message : {CB_GETITEMDATA, CB_SETITEMDATA, CB_GETLBTEXTLEN, CB_DELETESTRING, CB_SETCURSEL})
        EXPECT_EQ(window_->send(message, 3), CB_ERR) << message;
    EXPECT_EQ(window_->send(CB_DELETESTRING, 0), 2);
    window_->send(CB_RESETCONTENT);
    EXPECT_EQ(window_->send(CB_GETCOUNT), 0);
    EXPECT_EQ(window_->send(CB_SETCURSEL, 0), CB_ERR);
}

TEST_F(ListTest, textsAreFoundWithoutCaseAndRoundTheEnd) {
    struct Row {
        UINT message;
        int after;
        const char16_t* text;
        LRESULT found;
    };
    const Row rows[] = {
        {CB_FINDSTRING, -1, u"a", 0},
        {CB_FINDSTRING, 0, u"a", 2},
        {CB_FINDSTRING, 2, u"A", 0},
        {CB_FINDSTRING, -1, u"x", CB_ERR},
        {CB_FINDSTRINGEXACT, -1, u"a", CB_ERR},
        {CB_FINDSTRINGEXACT, 2, u"ALBUM", 2},
        {CB_SELECTSTRING, -1, u"be", 1},
    };
    open(u"ComboBox", CBS_DROPDOWNLIST, {u"Alpha", u"Beta", u"Album"});
    for (const Row& row : rows)
        EXPECT_EQ(window_->sendText(row.message, static_cast<WPARAM>(row.after), row.text), row.found)
            << row.message << ' ' << row.after;
    EXPECT_EQ(window_->send(CB_GETCURSEL), 1);
}

TEST_F(ListTest, sortedListsPutTextsWhereTheyBelong) {
    open(u"ComboBox", CBS_DROPDOWNLIST | CBS_SORT, {u"pear", u"Apple", u"orange"});
    EXPECT_EQ(entry(0), u"Apple");
    EXPECT_EQ(entry(2), u"pear");
    open(u"ListBox", LBS_SORT, {u"pear", u"Apple", u"orange"});
    EXPECT_EQ(entry(0, LB_GETTEXT), u"Apple");
    EXPECT_EQ(entry(2, LB_GETTEXT), u"pear");
}

TEST_F(ListTest, aClosedComboBoxIsAsHighAsItsFontWhateverTheTemplateSays) {
    openCombo(CBS_DROPDOWNLIST);
    RECT closed{};
    GetWindowRect(window_->control(), &closed);
    EXPECT_LT(closed.bottom - closed.top, 40);
    MoveWindow(window_->control(), 10, 10, 120, 300, FALSE);
    RECT moved{};
    GetWindowRect(window_->control(), &moved);
    EXPECT_EQ(moved.bottom - moved.top, closed.bottom - closed.top);
    EXPECT_EQ(window_->send(CB_GETDROPPEDWIDTH), 120);
    EXPECT_EQ(window_->send(CB_SETDROPPEDWIDTH, 333), 333);
    EXPECT_EQ(window_->send(CB_SETDROPPEDWIDTH, 50), 120) << "never narrower than the box";
    window_->send(CB_SETDROPPEDWIDTH, 333);
    window_->send(CB_SHOWDROPDOWN, TRUE);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    EXPECT_NEAR(QApplication::activePopupWidget()->width(), 333, 4);
    window_->send(CB_SHOWDROPDOWN, FALSE);
}

TEST_F(ListTest, aComboBoxWithAFieldTellsWhatIsTyped) {
    openCombo(CBS_DROPDOWN);
    HWND field = GetDlgItem(window_->control(), 1001);
    ASSERT_NE(field, nullptr);
    EXPECT_EQ(GetFocus(), field);
    SendMessageW(field, WM_CHAR, u'4', 1);
    EXPECT_THAT(window_->heard(), ElementsAre("editupdate", "editchange"));
    window_->press(Qt::Key_2, 0, u"2");
    EXPECT_THAT(window_->heard(), ElementsAre("editupdate", "editchange"));
    EXPECT_EQ(text(), u"42");
    EXPECT_EQ(window_->send(CB_GETCURSEL), CB_ERR);
    SetWindowTextW(window_->control(), u"set");
    EXPECT_THAT(window_->heard(), IsEmpty()) << "the program's text is no user's";
    EXPECT_EQ(text(), u"set");
    window_->send(CB_SETCURSEL, 1);
    EXPECT_EQ(text(), u"Beta");
    window_->press(Qt::Key_Down);
    EXPECT_EQ(window_->send(CB_GETCURSEL), 2);
    EXPECT_THAT(window_->heard(), ElementsAre("selendok", "selchange"));
    EXPECT_EQ(window_->send(CB_LIMITTEXT, 5), TRUE);
    window_->press(Qt::Key_9, 0, u"9");
    EXPECT_EQ(text(), u"Gamma") << "no longer than the limit";
}

TEST_F(ListTest, aListBoxSelectsAsItsStyleSays) {
    struct Row {
        const char* name;
        DWORD style;
        std::function<void()> act;
        std::vector<int> selected;
        Lines heard;
    };
    auto click = [&](int row, WPARAM keys = 0) {
        RECT area{};
        window_->send(LB_GETITEMRECT, static_cast<WPARAM>(row), &area);
        window_->click({area.left + 5, (area.top + area.bottom) / 2}, keys);
    };
    const Row rows[] = {
        {"one", 0, [&] { click(1), click(3); }, {3}, {"selchange", "selchange"}},
        {"by the program", 0, [&] { window_->send(LB_SETCURSEL, 2); }, {2}, {}},
        {"none by the program",
         0,
         [&] {
             click(1);
             EXPECT_EQ(window_->send(LB_SETCURSEL, static_cast<WPARAM>(-1)), LB_ERR);
         },
         {},
         {"selchange"}},
        {"by key", 0, [&] { click(1), window_->press(Qt::Key_Down); }, {2}, {"selchange", "selchange"}},
        {"each turned round",
         LBS_MULTIPLESEL,
         [&] { click(1), click(3), click(1); },
         {3},
         {"selchange", "selchange", "selchange"}},
        {"a range", LBS_EXTENDEDSEL, [&] { click(3), click(1, MK_SHIFT); }, {1, 2, 3}, {"selchange", "selchange"}},
        {"with Ctrl", LBS_EXTENDEDSEL, [&] { click(3), click(1, MK_CONTROL); }, {1, 3}, {"selchange", "selchange"}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        open(u"ListBox", LBS_NOTIFY | row.style, {u"a", u"b", u"c", u"d"});
        row.act();
        std::vector<int> selected;
        for (int i = 0; i < 4; ++i)
            if (window_->send(LB_GETSEL, static_cast<WPARAM>(i)) > 0) selected.push_back(i);
        EXPECT_THAT(selected, ElementsAreArray(row.selected));
        EXPECT_THAT(window_->heard(), ElementsAreArray(row.heard));
    }
}

TEST_F(ListTest, aListBoxKeepsTextsAndDataWords) {
    open(u"ListBox", LBS_NOTIFY, {u"a", u"b"});
    EXPECT_EQ(window_->send(LB_GETCURSEL), LB_ERR);
    EXPECT_EQ(window_->send(LB_SETITEMDATA, 1, reinterpret_cast<LPARAM>(this)), LB_OKAY);
    EXPECT_EQ(window_->send(LB_GETITEMDATA, 1), reinterpret_cast<LRESULT>(this));
    EXPECT_EQ(window_->send(LB_SETCURSEL, 1), 1);
    EXPECT_EQ(window_->send(LB_DELETESTRING, 1), 1);
    EXPECT_EQ(window_->sendText(LB_INSERTSTRING, 1, u"c"), 1);
    EXPECT_EQ(entry(1, LB_GETTEXT), u"c");
    for (UINT message : {LB_GETITEMDATA, LB_SETITEMDATA, LB_GETTEXTLEN, LB_DELETESTRING})
        EXPECT_EQ(window_->send(message, 2), LB_ERR) << message;
    window_->send(LB_RESETCONTENT);
    EXPECT_EQ(window_->send(LB_GETCOUNT), 0);
}

} // namespace
