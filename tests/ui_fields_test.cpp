// Fields to type into on the real window layer: which keys and which pasted texts they take, when a number is brought
// back into its range, and what observers hear.
#include "jtcore/Services/KolmaException.h"
#include "jtcore/Services/text.h"
#include "plugin_ui/Controls/NumberBoxUIControl.h"
#include "plugin_ui/Controls/TextBoxUIControl.h"
#include "tests/controlStage.h"

namespace {

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

} // namespace
