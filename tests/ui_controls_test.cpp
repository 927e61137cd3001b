// The controls on the real window layer: what the user does reaches observers once, what the program sets never does,
// and lock rules hold.
#include "jtcore/Services/text.h"
#include "plugin_ui/Controls/BitmapUIControl.h"
#include "plugin_ui/Controls/CheckBoxUIControl.h"
#include "plugin_ui/Controls/NumberBoxUIControl.h"
#include "plugin_ui/Controls/OwndrwPushButtonUIControl.h"
#include "plugin_ui/Controls/PushButtonUIControl.h"
#include "plugin_ui/Controls/RadioButtonUIControl.h"
#include "plugin_ui/Controls/SliderUIControl.h"
#include "plugin_ui/Controls/StaticUIControl.h"
#include "plugin_ui/Controls/paintBitmap.h"
#include "resources/ids.h"
#include "tests/controlStage.h"

#include <array>

namespace {

TEST_F(UiControls, itemsAreShownHiddenEnabledAndDisabledTogether) {
    auto& control = show<NumberBoxUIControl>(label, field, spinButton, unit, true);
    const std::array<std::uint16_t, 4> own{label, field, spinButton, unit};
    const auto expectAll = [&](bool shown, bool enabled, const char* why) {
        for (const std::uint16_t id : own) {
            EXPECT_EQ(hands.isShown(id), shown) << why << ": item " << id;
            EXPECT_EQ(hands.isEnabled(id), enabled) << why << ": item " << id;
        }
        EXPECT_TRUE(hands.isShown(box) && hands.isEnabled(box)) << why;
    };
    tell(UIM_HIDE);
    expectAll(false, true, "hidden");
    tell(UIM_SHOW);
    control.disableControl();
    expectAll(true, false, "disabled");
    control.enableControl();
    expectAll(true, true, "enabled");
}

TEST_F(UiControls, aLockBeatsEnableAndItsEndEnables) {
    auto& control = show<CheckBoxUIControl>(box);
    tell(UIM_LOCK);
    EXPECT_FALSE(hands.isEnabled(box));
    control.enableControl();
    EXPECT_FALSE(hands.isEnabled(box));
    control.disableControl();
    tell(UIM_UNLOCK);
    EXPECT_TRUE(hands.isEnabled(box));
}

TEST_F(UiControls, aLockHoldsInTheNextShowingAndButtonsStayPressable) {
    auto& control = show<CheckBoxUIControl>(box);
    show<PushButtonUIControl>(button);
    tell(UIM_LOCK);
    EXPECT_TRUE(hands.isEnabled(button));
    close();
    EXPECT_EQ(control.getWindow(), nullptr);
    open();
    EXPECT_FALSE(hands.isEnabled(box));
    EXPECT_TRUE(hands.isEnabled(button));
}

TEST_F(UiControls, aPushButtonTellsOfEachClick) {
    show<PushButtonUIControl>(button);
    hands.click(button);
    hands.click(button);
    EXPECT_EQ(counter.take(), 2);
    hands.click(box);
    EXPECT_EQ(counter.take(), 0);
}

// What is drawn into a small bitmap, as its colours.
class Canvas {
public:
    Canvas() : context_(CreateCompatibleDC(nullptr)), bitmap_(CreateCompatibleBitmap(context_, side, side)) {
        SelectObject(context_, bitmap_);
        Rectangle(context_, -1, -1, side + 1, side + 1);
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;
    ~Canvas() {
        DeleteDC(context_);
        DeleteObject(bitmap_);
    }
    HDC context() const { return context_; }
    std::vector<COLORREF> colours() const {
        std::vector<COLORREF> all;
        for (int place = 0; place < side * side; ++place)
            all.push_back(GetPixel(context_, place % side, place / side));
        return all;
    }
    static constexpr int side = 24;

private:
    HDC context_;
    HBITMAP bitmap_;
};

TEST_F(UiControls, aDrawnButtonShowsItsStateAndWhereTheKeyboardIs) {
    auto& button = show<OwndrwPushButtonUIControl>(drawnButton, IDB_LOAD_TICKET, IDB_LOAD_TICKET_PRESSED,
                                                   IDB_FINISHING_BUTTON_DISABLED);
    show<OwndrwPushButtonUIControl>(otherDrawnButton, IDB_DEFAULTS, IDB_DEFAULTS_PRESSED, IDB_DEFAULTS);
    const auto drawn = [&](std::uint16_t id, UINT action, UINT state) {
        const Canvas canvas;
        DRAWITEMSTRUCT request{};
        request.CtlType = ODT_BUTTON;
        request.CtlID = id;
        request.itemAction = action;
        request.itemState = state;
        request.hwndItem = hands.item(id);
        request.hDC = canvas.context();
        request.rcItem = {0, 0, Canvas::side, Canvas::side};
        SendMessageW(hands.window(), WM_DRAWITEM, id, reinterpret_cast<LPARAM>(&request));
        return canvas.colours();
    };
    const auto painted = [&](std::uint16_t bitmapId) {
        const Canvas canvas;
        if (bitmapId != 0) paintBitmap(canvas.context(), hands.item(drawnButton), bitmapId);
        return canvas.colours();
    };
    const struct {
        std::uint16_t id;
        UINT action;
        UINT state;
        std::uint16_t bitmapId;
    } rows[] = {
        {drawnButton, ODA_DRAWENTIRE, 0, IDB_LOAD_TICKET},
        {drawnButton, ODA_SELECT, ODS_SELECTED, IDB_LOAD_TICKET_PRESSED},
        {drawnButton, ODA_DRAWENTIRE, ODS_SELECTED | ODS_DISABLED, IDB_LOAD_TICKET_PRESSED},
        {drawnButton, ODA_DRAWENTIRE, ODS_DISABLED, IDB_FINISHING_BUTTON_DISABLED},
        {otherDrawnButton, ODA_DRAWENTIRE, 0, IDB_DEFAULTS},
        {otherDrawnButton, ODA_SELECT, ODS_SELECTED, IDB_DEFAULTS_PRESSED},
    };
    EXPECT_FALSE(painted(IDB_LOAD_TICKET) == painted(IDB_LOAD_TICKET_PRESSED));
    for (const auto& row : rows)
        EXPECT_TRUE(drawn(row.id, row.action, row.state) == painted(row.bitmapId)) << row.bitmapId;
    EXPECT_FALSE(drawn(drawnButton, ODA_DRAWENTIRE, ODS_FOCUS) == painted(IDB_LOAD_TICKET)) << "the keyboard is here";
    EXPECT_FALSE(drawn(drawnButton, ODA_FOCUS, 0) == painted(0)) << "the keyboard has left";
    tell(UIM_LOCK);
    hands.click(drawnButton);
    EXPECT_EQ(counter.take(), 1) << "pressable in a read-only session";
    const HWND item = hands.item(drawnButton);
    LRESULT result = 0;
    button.processMessage({hands.window(), WM_DESTROY, 0, 0}, result);
    for (const char16_t* name : {u"SC_ID", u"SC_DN_ID", u"SC_DSBL_ID"})
        EXPECT_EQ(GetPropW(item, toWide(name)), nullptr) << toUtf8(name);
}

TEST_F(UiControls, aCheckBoxTakesAnotherLabelAtOnceAndInTheNextShowing) {
    auto& control = show<CheckBoxUIControl>(box);
    EXPECT_EQ(hands.text(box), u"Box");
    control.setLabelId(IDS_UNIT_INCHES);
    const std::u16string label = hands.text(box);
    EXPECT_NE(label, u"Box");
    open();
    EXPECT_EQ(hands.text(box), label);
}

TEST_F(UiControls, aCheckBoxTellsOfChangesByTheUserAlone) {
    auto& control = show<CheckBoxUIControl>(box);
    control.setChecked(true);
    EXPECT_TRUE(hands.isTicked(box));
    EXPECT_EQ(counter.take(), 0);
    hands.click(box);
    EXPECT_FALSE(control.isChecked());
    EXPECT_EQ(counter.take(), 1);
    hands.command(box, BN_CLICKED); // nothing has changed
    EXPECT_EQ(counter.take(), 0);
}

TEST_F(UiControls, aRadioGroupHasOneButtonOrNone) {
    auto& control = show<RadioButtonUIControl>(std::uint16_t{0});
    control.addButton(firstRadio);
    control.addButton(secondRadio);
    control.setSelected(secondRadio);
    EXPECT_EQ(counter.take(), 0);
    hands.command(secondRadio, BN_CLICKED);
    EXPECT_EQ(counter.take(), 0) << "the same as before";
    hands.click(firstRadio);
    EXPECT_EQ(counter.take(), 1);
    EXPECT_EQ(control.getSelected(), firstRadio);
    EXPECT_FALSE(hands.isTicked(secondRadio));
    control.setSelected(foreignRadio);
    EXPECT_FALSE(hands.isTicked(firstRadio) || hands.isTicked(secondRadio) || hands.isTicked(foreignRadio));
}

TEST_F(UiControls, aSliderStaysInItsRangeAndTellsOfMoves) {
    auto& control = show<SliderUIControl>(label, track, std::initializer_list<std::uint16_t>{0, 0, unit, 0}, 0, 0, 10);
    control.setRange(-100, 100, 10);
    control.setPosition(500);
    EXPECT_EQ(control.getPosition(), 100);
    control.setPosition(-30);
    EXPECT_EQ(hands.send(track, TBM_GETPOS), -30);
    EXPECT_EQ(counter.take(), 0);
    hands.send(track, TBM_SETPOS, TRUE, 40);
    const auto move = [&](HWND sender) {
        SendMessageW(hands.window(), WM_HSCROLL, TB_ENDTRACK, reinterpret_cast<LPARAM>(sender));
    };
    move(hands.item(combo));
    EXPECT_EQ(counter.take(), 0) << "another's message";
    move(hands.item(track));
    move(hands.item(track));
    EXPECT_EQ(counter.take(), 1);
    EXPECT_EQ(control.getPosition(), 40);
}

// The dialog's own point for a mouse message.
LPARAM middleOf(HWND item, HWND dialog) {
    RECT area{};
    GetWindowRect(item, &area);
    POINT point{(area.left + area.right) / 2, (area.top + area.bottom) / 2};
    ScreenToClient(dialog, &point);
    return MAKELPARAM(point.x, point.y);
}

TEST_F(UiControls, aClickablePictureFollowsTheMouse) {
    auto& control = show<BitmapUIControl>(picture, std::uint16_t{IDB_PLEX});
    control.setHotState(HotState::raised);
    EXPECT_EQ(control.getHotState(), HotState::flat) << "not clickable yet";
    control.setClickable();
    RECT before{};
    GetWindowRect(hands.item(picture), &before);
    const struct {
        UINT message;
        HotState state;
        int notifications;
        LONG growth;
    } rows[] = {
        {WM_MOUSEMOVE, HotState::raised, 0, 3},   {WM_MOUSELEAVE, HotState::flat, 0, 0},
        {WM_LBUTTONDOWN, HotState::sunken, 0, 2}, {WM_LBUTTONUP, HotState::sunken, 1, 2},
        {WM_MOUSEMOVE, HotState::sunken, 0, 2},   {WM_MOUSELEAVE, HotState::sunken, 0, 2},
    };
    for (const auto& row : rows) {
        hands.send(picture, row.message);
        EXPECT_EQ(control.getHotState(), row.state) << row.message;
        EXPECT_EQ(counter.take(), row.notifications) << row.message;
        RECT now{};
        GetWindowRect(hands.item(picture), &now);
        EXPECT_EQ(before.left - now.left, row.growth) << row.message;
        EXPECT_EQ(now.bottom - before.bottom, row.growth) << row.message;
    }
}

TEST_F(UiControls, aPictureThatTheDialogHearsForIsClickedWhereItIsSeenAndEnabled) {
    auto& control = show<BitmapUIControl>(picture, std::uint16_t{IDB_PLEX});
    control.setClickable();
    ShowWindow(hands.window(), SW_SHOW);
    const LPARAM inside = middleOf(hands.item(picture), hands.window());
    const auto mouse = [&](UINT message, LPARAM point) { SendMessageW(hands.window(), message, 0, point); };
    mouse(WM_MOUSEMOVE, inside);
    EXPECT_EQ(control.getHotState(), HotState::raised);
    mouse(WM_MOUSEMOVE, MAKELPARAM(1, 1));
    EXPECT_EQ(control.getHotState(), HotState::flat);
    mouse(WM_LBUTTONDOWN, inside);
    EXPECT_EQ(control.getHotState(), HotState::sunken);
    mouse(WM_LBUTTONUP, inside);
    EXPECT_EQ(counter.take(), 1);
    mouse(WM_LBUTTONUP, MAKELPARAM(1, 1));
    tell(UIM_LOCK);
    mouse(WM_LBUTTONUP, inside);
    tell(UIM_UNLOCK);
    tell(UIM_HIDE);
    mouse(WM_LBUTTONUP, inside);
    EXPECT_EQ(counter.take(), 0);
}

TEST_F(UiControls, aPictureGivesItsItemBackAndMayBeTakenTwice) {
    auto& control = show<BitmapUIControl>(picture, std::uint16_t{0});
    const LONG_PTR own = GetWindowLongPtrW(hands.item(picture), GWLP_WNDPROC);
    EXPECT_TRUE(control.subclassItem(IDB_PLEX));
    EXPECT_TRUE(control.subclassItem(IDB_COLLATION));
    EXPECT_EQ(GetPropW(hands.item(picture), u"SC_ID"), reinterpret_cast<HANDLE>(IDB_COLLATION));
    EXPECT_NE(GetWindowLongPtrW(hands.item(picture), GWLP_WNDPROC), own);
    hands.send(picture, WM_PAINT);
    control.setBitmap(IDB_PLEX);
    tree_->removeChildObject(control);
    EXPECT_EQ(GetWindowLongPtrW(hands.item(picture), GWLP_WNDPROC), own);
    EXPECT_EQ(GetPropW(hands.item(picture), u"SC_THS"), nullptr);
}

TEST_F(UiControls, aToolTipNeedsATextAndAWindow) {
    auto& control = show<StaticUIControl>(label);
    const auto tips = [&] {
        int count = 0;
        const auto countTip = [](HWND window, LPARAM counted) -> BOOL {
            char16_t name[32] = {};
            GetClassNameW(window, toWide(name), 32);
            if (std::u16string_view(name) == u"tooltips_class32") ++*reinterpret_cast<int*>(counted);
            return TRUE;
        };
        EnumThreadWindows(GetCurrentThreadId(), countTip, reinterpret_cast<LPARAM>(&count));
        if (hands.window()) EnumChildWindows(hands.window(), countTip, reinterpret_cast<LPARAM>(&count));
        return count;
    };
    const int before = tips();
    control.setToolTip(u"");
    EXPECT_EQ(tips(), before);
    control.setToolTip(u"Help");
    EXPECT_EQ(tips(), before + 1);
    close();
    EXPECT_EQ(tips(), before);
    open();
    EXPECT_EQ(tips(), before + 1) << "the next showing has one of its own";
}

} // namespace
