#include "WindowListener.h"
#include "platform/gdi.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QListView>

#include <functional>
#include <optional>

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using Lines = std::vector<std::string>;

constexpr const char16_t* listClass = u"SysListView32";
constexpr UINT chosen = LVIS_SELECTED | LVIS_FOCUSED;

class ListViewTest : public testing::Test {
protected:
    void open(DWORD style, int rows) {
        window_.emplace(listClass, style);
        for (int row = 0; row < rows; ++row)
            insert(row, (u"Row " + std::u16string(1, char16_t(u'A' + row))).c_str());
        window_->heard();
    }
    void openReport(DWORD style, int rows) {
        open(LVS_REPORT | style, 0);
        column(0, 80, u"Pages");
        column(1, 60, u"What");
        for (int row = 0; row < rows; ++row)
            insert(row, u"Row");
        window_->heard();
    }
    int insert(int row, const char16_t* text, LPARAM parameter = 0) {
        LVITEMW item{};
        item.mask = LVIF_TEXT | LVIF_PARAM;
        item.iItem = row;
        item.pszText = const_cast<WCHAR*>(text);
        item.lParam = parameter;
        return static_cast<int>(window_->send(LVM_INSERTITEMW, 0, &item));
    }
    int column(int index, int width, const char16_t* text) {
        LVCOLUMNW description{};
        description.mask = LVCF_FMT | LVCF_WIDTH | LVCF_TEXT | LVCF_SUBITEM;
        description.cx = width;
        description.pszText = const_cast<WCHAR*>(text);
        return static_cast<int>(window_->send(LVM_INSERTCOLUMNW, static_cast<WPARAM>(index), &description));
    }
    void setState(int row, UINT state, UINT mask) {
        LVITEMW item{};
        item.state = state;
        item.stateMask = mask;
        window_->send(LVM_SETITEMSTATE, static_cast<WPARAM>(row), &item);
    }
    void setText(int row, int column, const char16_t* text) {
        LVITEMW item{};
        item.iSubItem = column;
        item.pszText = const_cast<WCHAR*>(text);
        EXPECT_EQ(window_->send(LVM_SETITEMTEXTW, static_cast<WPARAM>(row), &item), TRUE);
    }
    UINT state(int row, UINT mask = chosen) {
        return static_cast<UINT>(window_->send(LVM_GETITEMSTATE, static_cast<WPARAM>(row), LPARAM{mask}));
    }
    std::vector<int> selectedRows() {
        std::vector<int> rows;
        for (LRESULT row = window_->send(LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LPARAM{LVNI_SELECTED}); row >= 0;
             row = window_->send(LVM_GETNEXTITEM, static_cast<WPARAM>(row), LPARAM{LVNI_SELECTED}))
            rows.push_back(static_cast<int>(row));
        return rows;
    }
    RECT rectangle(int row, int part = LVIR_BOUNDS) {
        RECT area{part, 0, 0, 0};
        EXPECT_EQ(window_->send(LVM_GETITEMRECT, static_cast<WPARAM>(row), &area), TRUE);
        return area;
    }
    POINT middle(int row, int part = LVIR_LABEL) {
        RECT area = rectangle(row, part);
        return {(area.left + area.right) / 2, (area.top + area.bottom) / 2};
    }
    int width(int column) { return static_cast<int>(window_->send(LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column))); }
    void setStyle(DWORD clear, DWORD set) {
        DWORD style = static_cast<DWORD>(GetWindowLongW(window_->control(), GWL_STYLE));
        SetWindowLongW(window_->control(), GWL_STYLE, static_cast<LONG>((style & ~clear) | set));
        runEvents();
    }

    std::optional<WindowListener> window_;
};

TEST_F(ListViewTest, tellsOfEveryChangeInThePublishedOrder) {
    struct Row {
        const char* name;
        DWORD style;
        std::function<void()> act;
        Lines heard;
    };
    const Row rows[] = {
        {"a click on nothing chosen yet",
         LVS_SINGLESEL,
         [&] { window_->click(middle(1)); },
         {"changing 0 1>0", "changed 0 1>0", "changing 1 0>3", "changed 1 0>3", "click 1"}},
        {"a click on another item",
         LVS_SINGLESEL,
         [&] {
             setState(0, chosen, chosen);
             window_->heard();
             window_->click(middle(2));
         },
         {"changing 0 1>0", "changed 0 1>0", "changing 0 2>0", "changed 0 2>0", "changing 2 0>3", "changed 2 0>3",
          "click 2"}},
        {"a click on the chosen item",
         LVS_SINGLESEL,
         [&] {
             setState(0, chosen, chosen);
             window_->heard();
             window_->click(middle(0));
         },
         {"click 0"}},
        {"a click on no item",
         LVS_SINGLESEL,
         [&] {
             setState(0, chosen, chosen);
             window_->heard();
             window_->click({150, 140});
         },
         {"changing 0 2>0", "changed 0 2>0", "click -1"}},
        {"selected and then focused by the program",
         LVS_SINGLESEL,
         [&] {
             setState(1, LVIS_SELECTED, LVIS_SELECTED);
             setState(1, LVIS_FOCUSED, LVIS_FOCUSED);
         },
         {"changing 1 0>2", "changed 1 0>2", "changing 0 1>0", "changed 0 1>0", "changing 1 0>1", "changed 1 0>1"}},
        {"the same state again", LVS_SINGLESEL, [&] { setState(0, LVIS_FOCUSED, LVIS_FOCUSED); }, {}},
        {"an arrow key",
         LVS_SINGLESEL,
         [&] {
             setState(0, chosen, chosen);
             window_->heard();
             window_->press(Qt::Key_Down);
         },
         {"changing 0 1>0", "changed 0 1>0", "changing 0 2>0", "changed 0 2>0", "changing 1 0>3", "changed 1 0>3"}},
        {"all deselected by the program",
         0,
         [&] {
             setState(0, LVIS_SELECTED, LVIS_SELECTED);
             setState(2, LVIS_SELECTED, LVIS_SELECTED);
             window_->heard();
             setState(-1, 0, LVIS_SELECTED);
         },
         {"changing 0 2>0", "changed 0 2>0", "changing 2 2>0", "changed 2 2>0"}},
        {"a double click",
         LVS_SINGLESEL,
         [&] {
             setState(1, chosen, chosen);
             window_->heard();
             window_->send(WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(middle(1).x, middle(1).y));
         },
         {"dblclick 1", "activate 1"}},
        {"a deletion", 0, [&] { window_->send(LVM_DELETEITEM, 1); }, {"delete 1"}},
        {"all deleted",
         0,
         [&] { window_->send(LVM_DELETEALLITEMS); },
         {"deleteall -1", "delete 2", "delete 1", "delete 0"}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        open(LVS_LIST | row.style, 3);
        SetFocus(window_->control());
        setState(0, LVIS_FOCUSED, LVIS_FOCUSED);
        window_->heard();
        row.act();
        EXPECT_THAT(window_->heard(), ElementsAreArray(row.heard));
    }
}

TEST_F(ListViewTest, doesTheSameForAHandAsForMessages) {
    open(LVS_LIST | LVS_SINGLESEL, 3);
    window_->clickByHand(middle(2));
    EXPECT_THAT(window_->heard(), testing::IsSupersetOf({"changing 2 0>3", "changed 2 0>3", "click 2"}));
    EXPECT_EQ(GetFocus(), window_->control());
    EXPECT_EQ(state(2), chosen);
}

TEST_F(ListViewTest, staysAsItIsWhereAChangeIsRefused) {
    open(LVS_LIST | LVS_SINGLESEL, 3);
    window_->refuses = [](const NMLISTVIEW& change) { return change.iItem == 2; };
    window_->click(middle(2));
    EXPECT_THAT(selectedRows(), IsEmpty());
    EXPECT_THAT(window_->heard(), testing::Not(testing::Contains("changed 2 0>3")));
    window_->refuses = nullptr;
    window_->click(middle(2));
    EXPECT_THAT(selectedRows(), ElementsAre(2));
}

TEST_F(ListViewTest, survivesAHandlerThatDeletesTheItem) {
    open(LVS_LIST | LVS_SINGLESEL, 3);
    window_->refuses = [&](const NMLISTVIEW& change) {
        if (change.iItem == 1) window_->send(LVM_DELETEALLITEMS);
        return false;
    };
    window_->click(middle(1));
    EXPECT_EQ(window_->send(LVM_GETITEMCOUNT), 0);
    EXPECT_EQ(window_->send(LVM_GETSELECTEDCOUNT), 0);
}

TEST_F(ListViewTest, selectsBySingleClicksRangesAndKeys) {
    struct Row {
        const char* name;
        DWORD style;
        std::function<void()> act;
        std::vector<int> selected;
    };
    auto shift = [&](int row) { window_->click(middle(row), MK_SHIFT); };
    auto control = [&](int row) { window_->click(middle(row), MK_CONTROL); };
    auto plain = [&](int row) { window_->click(middle(row)); };
    const Row rows[] = {
        {"one after the other", 0, [&] { plain(1), plain(3); }, {3}},
        {"with Ctrl", 0, [&] { plain(1), control(3), control(4); }, {1, 3, 4}},
        {"with Ctrl again", 0, [&] { plain(1), control(3), control(1); }, {3}},
        {"with Shift", 0, [&] { plain(1), shift(3); }, {1, 2, 3}},
        {"with Shift the other way round", 0, [&] { plain(3), shift(4), shift(1); }, {1, 2, 3}},
        {"one at a time, whatever is held", LVS_SINGLESEL, [&] { plain(1), shift(3), control(4); }, {4}},
        {"Down", 0, [&] { plain(1), window_->press(Qt::Key_Down); }, {2}},
        {"End and Home", 0, [&] { plain(1), window_->press(Qt::Key_End); }, {4}},
        {"the mark of the program",
         0,
         [&] {
             plain(0);
             window_->send(LVM_SETSELECTIONMARK, 0, 3);
             shift(4);
         },
         {3, 4}},
        {"a letter", 0, [&] { window_->press(Qt::Key_R, 0, u"r"), window_->press(Qt::Key_R, 0, u"r"); }, {1}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        open(LVS_LIST | row.style, 5);
        SetFocus(window_->control());
        row.act();
        EXPECT_THAT(selectedRows(), ElementsAreArray(row.selected));
    }
}

TEST_F(ListViewTest, namesTheChosenItemWhenTheFocusComes) {
    open(LVS_LIST, 3);
    SetFocus(window_->parent());
    SetFocus(window_->control());
    EXPECT_THAT(window_->heard(), ElementsAre("changing 0 0>1", "changed 0 0>1", "setfocus -1"));
    setState(2, chosen, chosen);
    SetFocus(window_->parent());
    window_->heard();
    SetFocus(window_->control());
    EXPECT_THAT(window_->heard(), ElementsAre("setfocus 2"));
}

TEST_F(ListViewTest, keepsEverythingWhenTheViewChanges) {
    openReport(LVS_SINGLESEL, 3);
    setState(1, chosen, chosen);
    RECT inReport = rectangle(0);
    EXPECT_GT(inReport.top, 10) << "under the header";
    HIMAGELIST images = ImageList_Create(32, 32, ILC_MASK, 1, 1);
    window_->send(LVM_SETIMAGELIST, LVSIL_NORMAL, reinterpret_cast<LPARAM>(images));
    EXPECT_EQ(QApplication::activeWindow()->findChild<QListView*>(), nullptr) << "a view takes time to make";
    for (DWORD view : {LVS_ICON, LVS_LIST, LVS_REPORT, LVS_ICON, LVS_LIST}) {
        SCOPED_TRACE(view);
        setStyle(LVS_TYPEMASK, view);
        EXPECT_EQ(static_cast<DWORD>(GetWindowLongW(window_->control(), GWL_STYLE)) & LVS_TYPEMASK, view);
        EXPECT_EQ(window_->send(LVM_GETITEMCOUNT), 3);
        EXPECT_THAT(selectedRows(), ElementsAre(1));
        EXPECT_EQ(state(1), chosen);
        EXPECT_GE(width(1), 60);
        RECT label = rectangle(1, LVIR_LABEL);
        LVHITTESTINFO test{{label.left + 5, label.top + 5}, 0, -1, -1, 0};
        EXPECT_EQ(window_->send(LVM_HITTEST, 0, &test), 1);
        EXPECT_EQ(test.flags, LVHT_ONITEMLABEL);
    }
}

TEST_F(ListViewTest, spacesIconsAsTheProgramWants) {
    open(LVS_ICON, 4);
    auto usual = static_cast<DWORD>(window_->send(LVM_GETITEMSPACING));
    EXPECT_GE(LOWORD(usual), 75);
    EXPECT_EQ(window_->send(LVM_SETICONSPACING, 0, MAKELPARAM(LOWORD(usual), 70)), LRESULT{usual});
    EXPECT_EQ(window_->send(LVM_GETITEMSPACING), LRESULT{MAKELPARAM(LOWORD(usual), 70)});
    int next = 1;
    while (next < 3 && rectangle(next).top == rectangle(0).top)
        ++next;
    EXPECT_EQ(rectangle(next).top - rectangle(0).top, 70);
    EXPECT_GE(rectangle(0).right - rectangle(0).left, LOWORD(usual));
    EXPECT_EQ(window_->send(LVM_SETICONSPACING, 0, MAKELPARAM(-1, -1)), LRESULT{MAKELPARAM(LOWORD(usual), 70)});
    EXPECT_EQ(window_->send(LVM_GETITEMSPACING), LRESULT{usual});
}

TEST_F(ListViewTest, checksRowsByMouseKeyAndProgram) {
    openReport(0, 2);
    constexpr UINT clearBox = INDEXTOSTATEIMAGEMASK(1);
    constexpr UINT setBox = INDEXTOSTATEIMAGEMASK(2);
    EXPECT_EQ(state(0, LVIS_STATEIMAGEMASK), 0U);
    window_->send(LVM_SETEXTENDEDLISTVIEWSTYLE, 0, LPARAM{LVS_EX_GRIDLINES | LVS_EX_CHECKBOXES | LVS_EX_FULLROWSELECT});
    EXPECT_EQ(window_->send(LVM_GETEXTENDEDLISTVIEWSTYLE), 37);
    EXPECT_EQ(state(1, LVIS_STATEIMAGEMASK), clearBox) << "rows that were there";
    EXPECT_EQ(state(insert(2, u"new"), LVIS_STATEIMAGEMASK), clearBox);
    window_->heard();

    RECT label = rectangle(1, LVIR_LABEL);
    window_->click({label.left - 10, (label.top + label.bottom) / 2});
    EXPECT_EQ(state(1, LVIS_STATEIMAGEMASK), setBox);
    EXPECT_THAT(selectedRows(), IsEmpty()) << "the box alone";
    EXPECT_THAT(window_->heard(), testing::IsSupersetOf({"changing 1 4096>8192", "changed 1 4096>8192", "click 1"}));

    window_->click(middle(2));
    window_->press(Qt::Key_Space, 0, u" ");
    EXPECT_EQ(state(2, LVIS_STATEIMAGEMASK), setBox);
    setState(2, clearBox, LVIS_STATEIMAGEMASK);
    EXPECT_EQ(state(2, LVIS_STATEIMAGEMASK), clearBox);
    EXPECT_EQ(state(2), chosen) << "not touched by it";
}

TEST_F(ListViewTest, givesColumnsTheWidthThatIsAskedFor) {
    openReport(0, 1);
    setText(0, 0, u"A text that needs a good deal of room");
    EXPECT_EQ(width(0), 80);
    EXPECT_EQ(window_->send(LVM_SETCOLUMNWIDTH, 0, MAKELPARAM(LVSCW_AUTOSIZE, 0)), TRUE);
    LRESULT text = window_->sendText(LVM_GETSTRINGWIDTHW, 0, u"A text that needs a good deal of room");
    EXPECT_GT(width(0), text);
    EXPECT_LT(width(0), text + 30);
    window_->send(LVM_SETCOLUMNWIDTH, 0, 90);
    window_->send(LVM_SETCOLUMNWIDTH, 1, MAKELPARAM(LVSCW_AUTOSIZE_USEHEADER, 0));
    EXPECT_NEAR(width(0) + width(1), 200, 4) << "the last one takes what is left";
    LRESULT label = window_->sendText(LVM_GETSTRINGWIDTHW, 0, u"Subset Finishing");
    EXPECT_EQ(column(2, static_cast<int>(label) + 3, u"Subset Finishing"), 2);
    EXPECT_GT(width(2), label + 3) << "a measured label can be read";
    EXPECT_EQ(window_->send(LVM_SETCOLUMNWIDTH, 9, 90), FALSE);
    EXPECT_EQ(window_->send(LVM_DELETECOLUMN, 2), TRUE);
    EXPECT_EQ(width(2), 0);
}

TEST_F(ListViewTest, keepsTextsAndParameters) {
    openReport(0, 0);
    int data = 0;
    EXPECT_EQ(insert(0, u"first", reinterpret_cast<LPARAM>(&data)), 0);
    EXPECT_EQ(insert(100, u"last", 7), 1) << "behind the last one";
    EXPECT_EQ(insert(1, u"between", 8), 1);
    EXPECT_EQ(insert(-1, u"nowhere"), -1);
    setText(2, 1, u"a long subitem");
    WCHAR buffer[8] = {};
    LVITEMW item{};
    item.mask = LVIF_TEXT | LVIF_PARAM | LVIF_STATE;
    item.iItem = 2;
    item.iSubItem = 1;
    item.pszText = buffer;
    item.cchTextMax = 8;
    EXPECT_EQ(window_->send(LVM_GETITEMW, 0, &item), TRUE);
    EXPECT_EQ(std::u16string(buffer), u"a long ");
    EXPECT_EQ(item.lParam, 7);
    item.iItem = 0;
    EXPECT_EQ(window_->send(LVM_GETITEMW, 0, &item), TRUE);
    EXPECT_EQ(item.lParam, reinterpret_cast<LPARAM>(&data)) << "as wide as a pointer";
    EXPECT_EQ(std::u16string(buffer), u"");
    for (auto [row, column] : {std::pair(3, 0), std::pair(-1, 0), std::pair(0, 2)}) {
        item.iItem = row;
        item.iSubItem = column;
        EXPECT_EQ(window_->send(LVM_GETITEMW, 0, &item), FALSE) << row << ',' << column;
    }
    EXPECT_EQ(window_->send(LVM_DELETEITEM, 3), FALSE);
    LVFINDINFOW sought{LVFI_STRING, u"LAST", 0, {}, 0};
    EXPECT_EQ(window_->send(LVM_FINDITEMW, static_cast<WPARAM>(-1), &sought), 2);
    sought.psz = u"las";
    EXPECT_EQ(window_->send(LVM_FINDITEMW, static_cast<WPARAM>(-1), &sought), -1);
    EXPECT_EQ(window_->send(LVM_ENSUREVISIBLE, 2, 0), TRUE);
    EXPECT_EQ(window_->send(LVM_ENSUREVISIBLE, 3, 0), FALSE);
}

TEST(ImageLists, countTheirPicturesAndRefuseStaleHandles) {
    HIMAGELIST images = ImageList_Create(16, 16, ILC_MASK, 1, 1);
    ASSERT_NE(images, nullptr);
    HDC screen = GetDC(nullptr);
    HBITMAP strip = CreateCompatibleBitmap(screen, 40, 16);
    EXPECT_EQ(ImageList_AddMasked(images, strip, RGB(0, 128, 0)), 0);
    EXPECT_EQ(ImageList_GetImageCount(images), 2) << "what is left of the strip is no picture";
    EXPECT_EQ(ImageList_Add(images, strip, nullptr), 2);
    EXPECT_EQ(ImageList_ReplaceIcon(images, -1, nullptr), -1);
    EXPECT_EQ(ImageList_Remove(images, 3), TRUE);
    EXPECT_EQ(ImageList_Remove(images, 3), FALSE);
    int width = 0;
    int height = 0;
    EXPECT_EQ(ImageList_GetIconSize(images, &width, &height), TRUE);
    EXPECT_EQ(width, 16);
    EXPECT_EQ(ImageList_Destroy(images), TRUE);
    EXPECT_EQ(ImageList_Destroy(images), FALSE);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
    EXPECT_EQ(ImageList_GetImageCount(images), 0);
    EXPECT_EQ(ImageList_Create(0, 16, ILC_MASK, 1, 1), nullptr);
    DeleteObject(strip);
    ReleaseDC(nullptr, screen);
}

TEST_F(ListViewTest, destroysItsImageListsUnlessTheyAreShared) {
    for (DWORD shared : {DWORD{0}, LVS_SHAREIMAGELISTS}) {
        open(LVS_LIST | shared, 1);
        HIMAGELIST images = ImageList_Create(16, 16, ILC_MASK, 1, 1);
        EXPECT_EQ(window_->send(LVM_SETIMAGELIST, LVSIL_SMALL, reinterpret_cast<LPARAM>(images)), 0);
        EXPECT_EQ(window_->send(LVM_GETIMAGELIST, LVSIL_SMALL), reinterpret_cast<LRESULT>(images));
        window_.reset();
        EXPECT_EQ(ImageList_Destroy(images), shared != 0 ? TRUE : FALSE);
    }
}

} // namespace
