// The controls on the real window layer: what the user does reaches observers once, what the program sets never does,
// and lock rules hold.
#include "jtcore/Services/KolmaException.h"
#include "jtcore/Services/text.h"
#include "platform/list_view.h"
#include "plugin_ui/Controls/BitmapUIControl.h"
#include "plugin_ui/Controls/CheckBoxUIControl.h"
#include "plugin_ui/Controls/ComboBoxUIControl.h"
#include "plugin_ui/Controls/ListBoxUIControl.h"
#include "plugin_ui/Controls/ListViewUIControl.h"
#include "plugin_ui/Controls/NumberBoxUIControl.h"
#include "plugin_ui/Controls/OwndrwPushButtonUIControl.h"
#include "plugin_ui/Controls/PushButtonUIControl.h"
#include "plugin_ui/Controls/RadioButtonUIControl.h"
#include "plugin_ui/Controls/SliderUIControl.h"
#include "plugin_ui/Controls/StaticUIControl.h"
#include "plugin_ui/Controls/TextBoxUIControl.h"
#include "plugin_ui/Controls/paintBitmap.h"
#include "plugin_ui/Observer.h"
#include "resources/ids.h"
#include "tests/memoryDialog.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <stdexcept>
#include <utility>

namespace {

enum Id : std::uint16_t {
    label = 100,
    field,
    spinButton,
    unit,
    box,
    button,
    firstRadio,
    secondRadio,
    foreignRadio,
    picture,
    track,
    combo,
    list,
    table,
    drawnButton,
    otherDrawnButton
};

const std::vector<DialogItem>& items() {
    static const std::vector<DialogItem> all{
        {u"STATIC", SS_LEFT, label, u"Label"},
        {u"EDIT", ES_AUTOHSCROLL | WS_TABSTOP, field},
        {u"msctls_updown32", 0, spinButton},
        {u"STATIC", SS_LEFT, unit, u"mm"},
        {u"BUTTON", BS_AUTOCHECKBOX | WS_TABSTOP, box, u"Box"},
        {u"BUTTON", BS_PUSHBUTTON | WS_TABSTOP, button, u"Button"},
        {u"BUTTON", BS_AUTORADIOBUTTON | WS_GROUP | WS_TABSTOP, firstRadio, u"First"},
        {u"BUTTON", BS_AUTORADIOBUTTON, secondRadio, u"Second"},
        {u"BUTTON", BS_RADIOBUTTON | WS_GROUP, foreignRadio, u"Foreign"},
        {u"STATIC", SS_LEFT, picture},
        {u"msctls_trackbar32", WS_TABSTOP, track},
        {u"COMBOBOX", CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP, combo},
        {u"LISTBOX", LBS_NOTIFY | WS_TABSTOP, list},
        {u"SysListView32", LVS_REPORT | WS_TABSTOP, table},
        {u"BUTTON", BS_OWNERDRAW | WS_TABSTOP, drawnButton},
        {u"BUTTON", BS_OWNERDRAW | WS_TABSTOP, otherDrawnButton},
    };
    return all;
}

class Tree final : public MessageProcessorWithChildren {};

class Counter final : public Observer {
public:
    void handleSubjectUpdate(std::uint16_t) override { ++count_; }
    // Those since it was asked last.
    int take() { return std::exchange(count_, 0); }

private:
    int count_ = 0;
};

// A dialog whose messages go to a tree with one control.
class UiControls : public testing::Test {
protected:
    // A control in a dialog that is up; with others that were made before.
    template <typename Control, typename... Arguments>
    Control& show(Arguments&&... arguments) {
        Control& control = tree_->addNew<Control>(std::forward<Arguments>(arguments)...);
        control.addObserver(counter);
        open();
        return control;
    }
    void open() {
        close();
        const MemoryDialog dialog(items());
        hands = DialogHands(CreateDialogIndirectParamW(nullptr, dialog.get(), nullptr, procedure,
                                                       reinterpret_cast<LPARAM>(tree_.get())));
        if (!hands.window()) throw std::runtime_error("no window: " + std::to_string(GetLastError()));
    }
    void close() {
        if (hands.window()) DestroyWindow(hands.window());
        hands = DialogHands();
    }
    void startAfresh() {
        close();
        tree_ = std::make_unique<Tree>();
        counter.take();
    }
    void TearDown() override { close(); }

    LRESULT tell(UINT message) { return SendMessageW(hands.window(), message, 0, 0); }

    DialogHands hands;
    Counter counter;
    std::unique_ptr<Tree> tree_ = std::make_unique<Tree>();

private:
    static INT_PTR CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message == WM_INITDIALOG) SetWindowLongPtrW(window, GWLP_USERDATA, lParam);
        auto* tree = reinterpret_cast<Tree*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        LRESULT result = 0;
        const bool handled = tree && tree->processMessage({window, message, wParam, lParam}, result);
        SetWindowLongPtrW(window, DWLP_MSGRESULT, result);
        return handled ? TRUE : FALSE;
    }
};

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

TEST_F(UiControls, aTextBoxTakesTheKeysOfItsTypeUpToItsLength) {
    auto& control = show<TextBoxUIControl>(label, field, std::uint16_t{0}, 5, false);
    hands.type(field, u"a b");
    EXPECT_EQ(control.getText(), u"a b");
    EXPECT_EQ(counter.take(), 3);
    control.setTextType(TextBoxType::customName);
    hands.type(field, u"a b-cdefgh");
    EXPECT_EQ(control.getText(), u"abcde");
    control.setMaxChars(6);
    hands.press(field, u'f');
    EXPECT_EQ(hands.text(field), u"abcdef");
    control.setTextType(TextBoxType::any);
    hands.select(field, 1, 5);
    hands.press(field, u' ');
    EXPECT_EQ(hands.text(field), u"a f");
}

TEST_F(UiControls, aTextThatIsSetIsNoEditEvenWhereItIsTooLong) {
    auto& control = show<TextBoxUIControl>(label, field, std::uint16_t{0}, 5, false);
    control.setText(u"a long name of a job");
    EXPECT_EQ(counter.take(), 0);
    EXPECT_EQ(control.getText(), u"a long name of a job");
    EXPECT_EQ(hands.text(field), u"a long name of a job");
    hands.select(field, 20, 20);
    hands.press(field, u'\b');
    EXPECT_EQ(control.getText(), u"a lon");
    EXPECT_EQ(hands.text(field), u"a lon") << "what is kept is shown";
    EXPECT_EQ(counter.take(), 1);
}

TEST_F(UiControls, whatIsPastedIsWhatCouldHaveBeenTyped) {
    auto& text = show<TextBoxUIControl>(label, field, std::uint16_t{0}, 20, false);
    text.setTextType(TextBoxType::customName);
    hands.insert(field, u"light red-2");
    EXPECT_EQ(hands.text(field), u"lightred2");
    EXPECT_EQ(text.getText(), u"lightred2");
    EXPECT_EQ(counter.take(), 1);
    hands.select(field, 0, 5);
    hands.insert(field, u"?!");
    EXPECT_EQ(hands.text(field), u"lightred2") << "nothing came in, nothing has gone";
    EXPECT_EQ(hands.send(field, EM_GETSEL), MAKELONG(0, 5));
    hands.insert(field, u"d-a-r-k-");
    EXPECT_EQ(hands.text(field), u"darkred2");
    EXPECT_EQ(hands.send(field, EM_GETSEL), MAKELONG(4, 4)) << "the caret stands behind it";
    EXPECT_EQ(counter.take(), 1);

    startAfresh();
    auto& number = show<NumberBoxUIControl>(field, std::uint16_t{0}, true);
    number.setRange(1, 999);
    number.setValue(12);
    for (const char16_t* pasted : {u"1,5", u"12 pages", u"-"}) {
        hands.select(field, 2, 2);
        hands.insert(field, pasted);
        EXPECT_EQ(toUtf8(hands.text(field)), "12") << toUtf8(pasted);
    }
    EXPECT_EQ(counter.take(), 0);
    hands.select(field, 0, -1);
    hands.insert(field, u" 345 ");
    EXPECT_EQ(number.getValue(), 345);
    EXPECT_EQ(hands.text(field), u"345");
    EXPECT_EQ(counter.take(), 1);
}

TEST_F(UiControls, aReadOnlyTextIsPaintedWhite) {
    show<TextBoxUIControl>(std::uint16_t{0}, field, std::uint16_t{0}, 255, true);
    const HDC context = GetDC(hands.item(field));
    SendMessageW(hands.window(), WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(context),
                 reinterpret_cast<LPARAM>(hands.item(field)));
    EXPECT_EQ(GetWindowLongPtrW(hands.window(), DWLP_MSGRESULT),
              reinterpret_cast<LONG_PTR>(GetStockObject(WHITE_BRUSH)));
    EXPECT_EQ(GetBkColor(context), 0xFFFFFFU);
    ReleaseDC(hands.item(field), context);
}

TEST_F(UiControls, aFontLivesAsLongAsItsControl) {
    const auto fonts = [before = GetGuiResources(nullptr, GR_GDIOBJECTS)] {
        return static_cast<int>(GetGuiResources(nullptr, GR_GDIOBJECTS) - before);
    };
    auto& control = show<TextBoxUIControl>(std::uint16_t{0}, field, std::uint16_t{0}, 255, true);
    control.setFont(10, 700, u"Arial");
    control.setFont(12, 700, u"Arial");
    EXPECT_EQ(fonts(), 1) << "the first one is gone";
    close();
    EXPECT_EQ(fonts(), 1);
    startAfresh();
    EXPECT_EQ(fonts(), 0);
}

TEST_F(UiControls, anEntryFieldThatIsMissingIsAFault) {
    Tree tree;
    tree.addNew<NumberBoxUIControl>(std::uint16_t{999}, std::uint16_t{0}, true);
    tree.addNew<TextBoxUIControl>(std::uint16_t{0}, std::uint16_t{999}, std::uint16_t{0}, 5, false);
    open();
    LRESULT result = 0;
    for (auto child = tree.firstChild(); child != tree.endOfChildren(); ++child)
        EXPECT_THROW((*child)->processMessage({hands.window(), WM_INITDIALOG, 0, 0}, result), UnknownCaseException);
}

TEST_F(UiControls, aNumberBoxTellsEmptyFromZero) {
    auto& control = show<NumberBoxUIControl>(label, field, std::uint16_t{0}, std::uint16_t{0}, true);
    control.setRange(1, 100);
    control.setValue(5);
    EXPECT_EQ(hands.text(field), u"5");
    EXPECT_EQ(counter.take(), 0);
    hands.paste(field, u"");
    EXPECT_EQ(counter.take(), 1);
    EXPECT_TRUE(control.isEmptyValue());
    EXPECT_EQ(control.getValue(), 0);
    hands.leave(field);
    EXPECT_EQ(hands.text(field), u"") << "an empty box stays empty";
    hands.press(field, u'0');
    EXPECT_EQ(counter.take(), 1);
    EXPECT_FALSE(control.isEmptyValue());
    control.setEmptyValue();
    control.displayControl();
    EXPECT_EQ(hands.text(field), u"");
    control.setValue(0);
    EXPECT_EQ(hands.text(field), u"0");
    EXPECT_EQ(counter.take(), 0);
}

TEST_F(UiControls, aNumberOutOfRangeLivesUntilTheFieldIsLeft) {
    struct Row {
        bool clamps;
        std::u16string typed;
        std::u16string left;
        int notifications; // of leaving
    };
    const std::vector<Row> rows{
        {true, u"500", u"100", 1},        {true, u"-3", u"1", 1},     {true, u"50", u"50", 0},
        {true, u"9999999999", u"100", 1}, {false, u"500", u"500", 0}, {true, u"-", u"1", 1},
    };
    for (const Row& row : rows) {
        startAfresh();
        auto& control = show<NumberBoxUIControl>(field, std::uint16_t{0}, row.clamps);
        control.setRange(1, 100);
        hands.type(field, row.typed);
        counter.take();
        hands.leave(field);
        EXPECT_EQ(toUtf8(hands.text(field)), toUtf8(row.left)) << toUtf8(row.typed);
        EXPECT_EQ(counter.take(), row.notifications) << toUtf8(row.typed);
    }
}

TEST_F(UiControls, aNumberOutOfRangeIsBroughtBackWhenItsDialogIsAcceptedToo) {
    auto& control = show<NumberBoxUIControl>(field, std::uint16_t{0}, true);
    control.setRange(1, 100);
    control.setValue(500);
    ShowWindow(hands.window(), SW_SHOW);
    for (const UINT question : {UIM_VALIDATE_ENTRY, UIM_VALIDATE_SAVE}) {
        SetFocus(hands.item(box));
        control.setValue(500);
        counter.take();
        tell(question);
        EXPECT_EQ(control.getValue(), 500) << "the document's number, which nobody has touched";
        SetFocus(hands.item(field));
        EXPECT_FALSE(tell(question) != 0);
        EXPECT_EQ(GetWindowLongPtrW(hands.window(), DWLP_MSGRESULT), entriesValid);
        EXPECT_EQ(hands.text(field), u"100");
        EXPECT_EQ(counter.take(), 1);
    }
}

TEST_F(UiControls, numbersAreShownOnceAndAgainInTheNextShowing) {
    auto& control = show<NumberBoxUIControl>(field, std::uint16_t{0}, false);
    control.setNumberType(NumberBoxType::decimal);
    control.setFloatValue(1.26);
    EXPECT_EQ(hands.text(field), u"1.3");
    EXPECT_DOUBLE_EQ(control.getFloatValue(), 1.3);
    EXPECT_EQ(control.getValue(), 1);
    control.setPrecision(3);
    control.setFloatValue(1.26);
    EXPECT_EQ(hands.text(field), u"1.26");
    open();
    EXPECT_EQ(hands.text(field), u"");
    control.setFloatValue(1.26);
    EXPECT_EQ(hands.text(field), u"1.26") << "the value is the same, the window is not";
    EXPECT_EQ(counter.take(), 0);
}

TEST_F(UiControls, aNumberBoxTakesNoSecondSignOrPoint) {
    auto& control = show<NumberBoxUIControl>(field, std::uint16_t{0}, false);
    control.setNumberType(NumberBoxType::decimal);
    hands.type(field, u"-1-2.5.a3");
    EXPECT_EQ(hands.text(field), u"-12.53");
    control.setNumberType(NumberBoxType::unsignedInteger);
    control.setMaxChars(3);
    hands.type(field, u"-1.2345");
    EXPECT_EQ(hands.text(field), u"123");
    EXPECT_EQ(control.getValue(), 123);
}

TEST_F(UiControls, aSpinButtonStepsWithinTheRange) {
    auto& control = show<NumberBoxUIControl>(field, spinButton, true);
    control.setRange(1, 10);
    control.setValue(9);
    hands.spin(spinButton, -1);
    EXPECT_EQ(control.getValue(), 10);
    EXPECT_EQ(counter.take(), 2) << "by the text, and by the press";
    EXPECT_EQ(GetWindowLongPtrW(hands.window(), DWLP_MSGRESULT), TRUE) << "the button keeps its position";
    hands.spin(spinButton, -1);
    EXPECT_EQ(hands.text(field), u"10");
    EXPECT_EQ(counter.take(), 0);
    hands.spin(spinButton, 20);
    EXPECT_EQ(control.getValue(), 1);
    control.setNumberType(NumberBoxType::decimal);
    control.setFloatRange(-1, 1);
    control.setFloatValue(0.9);
    hands.spin(spinButton, -1);
    EXPECT_EQ(hands.text(field), u"1.0");
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

TEST_F(UiControls, aComboBoxWorksWithDataWords) {
    auto& control = show<ComboBoxUIControl>(label, combo);
    EXPECT_FALSE(control.selectFirstIfNone()) << "there is none";
    control.addItem(u"Blue", 130);
    control.addItem(u"A word above 31 bits", 0xFFFFFFFFU);
    control.addItem(u"", 517);
    control.setSelectedData(0xFFFFFFFFU);
    EXPECT_EQ(control.getCurrentIndex(), 1);
    EXPECT_FALSE(control.selectFirstIfNone());
    control.replaceItem(0, u"Red", 134);
    EXPECT_EQ(hands.entries(combo), (std::vector<std::u16string>{u"Red", u"A word above 31 bits", u""}));
    EXPECT_EQ(hands.chosen(combo), u"Red");
    control.setSelectedData(130);
    EXPECT_EQ(control.getCurrentIndex(), -1) << "no entry has the word";
    EXPECT_EQ(counter.take(), 0);
    EXPECT_TRUE(control.selectFirstIfNone());
    EXPECT_EQ(control.getSelectedData(), 134U);
    EXPECT_EQ(counter.take(), 1);
    hands.choose(combo, 2);
    hands.choose(combo, 2);
    EXPECT_EQ(counter.take(), 2) << "the same entry counts too";
    EXPECT_EQ(control.getSelectedData(), 517U);
    EXPECT_EQ(control.getText(), u"");
    control.deleteItem(2);
    EXPECT_EQ(control.findData(517), -1);
    control.clear();
    EXPECT_TRUE(hands.entries(combo).empty());
}

TEST_F(UiControls, anOpenListIsAsWideAsItsLongestTextAndTheScreenAllows) {
    auto& control = show<ComboBoxUIControl>(label, combo);
    RECT place{};
    RECT desktop{};
    GetWindowRect(hands.item(combo), &place);
    GetWindowRect(GetDesktopWindow(), &desktop);
    const auto width = [&] { return static_cast<LONG>(hands.send(combo, CB_GETDROPPEDWIDTH)); };
    control.addItem(std::u16string(60, u'W'), 1);
    const LONG wide = width();
    EXPECT_GT(wide, place.right - place.left);
    control.addItem(u"short", 2);
    EXPECT_EQ(width(), wide);
    control.addItem(std::u16string(3000, u'W'), 3);
    EXPECT_EQ(width(), desktop.right - place.left - 12);
    control.deleteItem(2);
    EXPECT_EQ(width(), wide);
}

TEST_F(UiControls, aListBoxTellsOfAnotherDataWord) {
    auto& control = show<ListBoxUIControl>(label, list);
    control.addItem(u"One", 1);
    control.addItem(u"Two", 2);
    control.setSelectedData(7);
    EXPECT_EQ(hands.send(list, LB_GETCURSEL), LB_ERR);
    control.replaceItem(1, u"Three", 3);
    EXPECT_EQ(hands.send(list, LB_GETCOUNT), 2);
    hands.command(list, LBN_SELCHANGE);
    hands.command(list, LBN_SELCHANGE);
    EXPECT_EQ(control.getSelectedData(), 3U);
    EXPECT_EQ(counter.take(), 1);
}

TEST_F(UiControls, aTableKeepsTextsDataChecksAndSelection) {
    auto& control = show<ListViewUIControl>(table);
    control.addColumn(0, 80, u"Name");
    control.addColumn(1, -1, u"Size");
    EXPECT_EQ(control.addRow(), 0);
    EXPECT_EQ(control.addRow(LPARAM{4711}), 1);
    control.setCellText(1, 0, u"Plain");
    control.setCellText(1, 1, u"A4");
    EXPECT_EQ(control.getCellText(1, 0), u"Plain");
    EXPECT_EQ(control.getCellText(1, 1), u"A4");
    EXPECT_EQ(control.getCellText(0, 0), u"");
    EXPECT_EQ(control.nextSelectedRow(0), -1);
    EXPECT_FALSE(control.nextSelectedData(0).has_value());
    control.selectRow(1);
    EXPECT_EQ(control.getSelectedCount(), 1);
    EXPECT_EQ(control.nextSelectedRow(0), 1);
    EXPECT_EQ(control.nextSelectedData(1), LPARAM{4711});
    EXPECT_EQ(control.nextSelectedRow(2), -1);
    control.setCheckBoxes(true);
    control.setRowChecked(0, true);
    EXPECT_TRUE(control.isRowChecked(0));
    EXPECT_FALSE(control.isRowChecked(1));
    control.deleteRow(0);
    EXPECT_EQ(control.getCellText(0, 1), u"A4");
    open();
    EXPECT_EQ(hands.send(table, LVM_GETITEMCOUNT), 0);
}

// What an observer of a table sees while it is told.
class TableWatcher final : public Observer {
public:
    explicit TableWatcher(const ListViewUIControl& table) : table_(table) {}
    void handleSubjectUpdate(std::uint16_t) override { seen += table_.wasDoubleClicked() ? u"double " : u"single "; }
    std::u16string seen;

private:
    const ListViewUIControl& table_;
};

TEST_F(UiControls, aTableTellsAClickFromADoubleClickAndIgnoresItsEmptyArea) {
    auto& control = show<ListViewUIControl>(table);
    TableWatcher watcher(control);
    control.addObserver(watcher);
    control.addRow();
    control.addRow();
    const auto notify = [&](UINT code, int row) {
        NMITEMACTIVATE notification{};
        notification.hdr = {hands.item(table), table, code};
        notification.iItem = row;
        SendMessageW(hands.window(), WM_NOTIFY, table, reinterpret_cast<LPARAM>(&notification));
    };
    notify(NM_CLICK, 1);
    EXPECT_EQ(control.getCurrentRow(), 1);
    notify(NM_CLICK, -1);
    notify(NM_DBLCLK, -1);
    notify(LVN_ITEMCHANGED, 0);
    EXPECT_EQ(control.getCurrentRow(), 1);
    notify(NM_DBLCLK, 0);
    EXPECT_EQ(watcher.seen, u"single double ");
    hands.command(table, 0);
    EXPECT_FALSE(control.wasDoubleClicked());
}

TEST_F(UiControls, aTableTellsOfKeysOnceAndNotOfWhatTheProgramSelects) {
    auto& control = show<ListViewUIControl>(table);
    control.addColumn(0, 80, u"Name");
    for (const char16_t* name : {u"Apple", u"Banana", u"Cherry"})
        control.setCellText(control.addRow(), 0, name);
    hands.send(table, WM_SETFOCUS);
    EXPECT_EQ(counter.take(), 0) << "a first row with the focus is not chosen";
    control.selectRow(0);
    EXPECT_EQ(counter.take(), 0);
    hands.send(table, WM_SETFOCUS);
    EXPECT_EQ(counter.take(), 1) << "a chosen row is";
    hands.pressKey(table, VK_DOWN);
    EXPECT_EQ(control.getCurrentRow(), 1);
    EXPECT_EQ(control.nextSelectedRow(0), 1);
    EXPECT_EQ(counter.take(), 1) << "one row lost, another one gained";
    hands.press(table, u'c');
    EXPECT_EQ(control.getCurrentRow(), 2);
    EXPECT_EQ(counter.take(), 1);
    hands.pressKey(table, VK_DOWN);
    EXPECT_EQ(counter.take(), 0) << "there is no further row";
    control.setCheckBoxes(true);
    hands.pressKey(table, VK_SPACE);
    EXPECT_TRUE(control.isRowChecked(2));
    EXPECT_EQ(counter.take(), 1);
    control.setRowChecked(2, false);
    control.deleteAllRows();
    EXPECT_EQ(counter.take(), 0);
    const LONG_PTR own = GetWindowLongPtrW(hands.item(table), GWLP_WNDPROC);
    tree_->removeChildObject(control);
    EXPECT_NE(GetWindowLongPtrW(hands.item(table), GWLP_WNDPROC), own) << "the table has its own procedure back";
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
