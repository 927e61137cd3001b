// What entry fields take and show: the pure decisions behind text boxes and number boxes, and the size of pictures.
#include "jtcore/Services/KolmaException.h"
#include "jtcore/Services/text.h"
#include "plugin_ui/Controls/bitmapLayout.h"
#include "plugin_ui/Controls/keyFilter.h"
#include "plugin_ui/Controls/numberText.h"
#include "plugin_ui/Controls/pastedText.h"
#include "plugin_ui/Controls/spinArithmetic.h"
#include "resources/ids.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

namespace {

constexpr char16_t backspace = 8;
constexpr char16_t escape = 27;
constexpr char16_t copyKey = 3;
constexpr char16_t pasteKey = 22;

// A field with a selection, written as one text: "1[23]4" has "23" selected, "12|" has the caret at the end.
EntryState parseField(std::u16string text) {
    EntryState state;
    for (const char16_t mark : {u'[', u']', u'|'}) {
        const std::size_t place = text.find(mark);
        if (place == std::u16string::npos) continue;
        if (mark != u']') state.selectionStart = place;
        state.selectionEnd = place;
        text.erase(place, 1);
    }
    state.text = text;
    return state;
}

struct KeyCase {
    std::u16string field;
    char16_t key;
    std::int32_t maxChars;
    bool passes;
};

std::string tell(const KeyCase& row) {
    return "key " + std::to_string(static_cast<unsigned>(row.key)) + " in \"" + toUtf8(row.field) + "\", at most " +
           std::to_string(row.maxChars);
}

TEST(UiEntry, numberBoxesTakeOnlyKeysThatMakeANumber) {
    using enum NumberBoxType;
    struct Row {
        NumberBoxType type;
        KeyCase key;
    };
    const std::vector<Row> rows{
        {unsignedInteger, {u"12|", u'3', 10, true}},
        {unsignedInteger, {u"|", u'-', 10, false}},
        {unsignedInteger, {u"1|", u'.', 10, false}},
        {unsignedInteger, {u"1|", u'a', 10, false}},
        {unsignedInteger, {u"1|", u'\u0663', 10, false}}, // a digit of another script
        {signedInteger, {u"12|", u'3', 10, true}},
        {signedInteger, {u"|12", u'-', 10, true}},
        {signedInteger, {u"1|2", u'-', 10, false}},
        {signedInteger, {u"|-12", u'-', 10, false}},
        {signedInteger, {u"[-1]2", u'-', 10, true}},
        {signedInteger, {u"-[12]", u'-', 10, false}},
        {signedInteger, {u"1|", u'.', 10, false}},
        {decimal, {u"1|", u'.', 10, true}},
        {decimal, {u"|", u'.', 10, true}},
        {decimal, {u"1.5|", u'.', 10, false}},
        {decimal, {u"|1.5", u'.', 10, false}},
        {decimal, {u"1[.5]", u'.', 10, true}},
        {decimal, {u"[1].5", u'.', 10, false}},
        {decimal, {u"|.5", u'-', 10, true}},
        {decimal, {u"1|", u',', 10, false}},
        // room
        {signedInteger, {u"123|", u'4', 3, false}},
        {signedInteger, {u"[12]3", u'4', 3, true}},
        {signedInteger, {u"|123", u'-', 3, false}},
        {signedInteger, {u"12|", u'3', 3, true}},
        {signedInteger, {u"|", u'3', 0, false}},
        // keys that add no text pass; the key that pastes goes its own way
        {unsignedInteger, {u"123|", backspace, 3, true}},
        {unsignedInteger, {u"123|", escape, 3, true}},
        {unsignedInteger, {u"[12]3", copyKey, 3, true}},
        {unsignedInteger, {u"1|", pasteKey, 3, false}},
    };
    for (const Row& row : rows)
        EXPECT_EQ(acceptsNumberKey(row.type, row.key.key, parseField(row.key.field), row.key.maxChars), row.key.passes)
            << "type " << static_cast<int>(row.type) << ": " << tell(row.key);
    EXPECT_THROW(acceptsNumberKey(NumberBoxType{}, u'1', {}, 3), UnknownCaseException);
}

TEST(UiEntry, textBoxesTakeTheKeysOfTheirType) {
    using enum TextBoxType;
    struct Row {
        std::u16string keys;
        std::vector<TextBoxType> takers;
    };
    const std::vector<Row> rows{
        {u"azAZ09", {any, lettersAndDigits, customName, description}},
        {u" !_", {any, description}},
        {u"-.?\"\u00E4\u4E2D", {any}},
    };
    for (const Row& row : rows)
        for (const char16_t key : row.keys)
            for (const TextBoxType type : {any, lettersAndDigits, customName, description}) {
                const bool takes = std::find(row.takers.begin(), row.takers.end(), type) != row.takers.end();
                EXPECT_EQ(acceptsTextKey(type, key, parseField(u"ab|"), 10), takes)
                    << "key " << static_cast<unsigned>(key) << ", type " << static_cast<int>(type);
            }
    EXPECT_FALSE(acceptsTextKey(any, u'x', parseField(u"abc|"), 3));
    EXPECT_TRUE(acceptsTextKey(any, u'x', parseField(u"ab[c]"), 3));
    EXPECT_TRUE(acceptsTextKey(customName, backspace, parseField(u"abc|"), 3));
    EXPECT_THROW(acceptsTextKey(TextBoxType{}, u'x', {}, 3), UnknownCaseException);
}

TEST(UiEntry, whatAnEditPutInIsFoundWithWhatItReplaced) {
    struct Row {
        std::u16string before, after, field, inserted;
    };
    for (const Row& row : std::vector<Row>{{u"", u"12", u"|", u"12"},
                                           {u"14", u"1234", u"1|4", u"23"},
                                           {u"1234", u"14", u"1[23]4", u""},
                                           {u"a bc", u"a xyc", u"a [b]c", u"xy"},
                                           {u"11", u"111", u"11|", u"1"},
                                           {u"abab", u"ab", u"ab[ab]", u""},
                                           {u"same", u"same", u"same|", u""},
                                           {u"all", u"", u"[all]", u""}}) {
        const EntryState expected = parseField(row.field);
        const FieldEdit edit = findEdit(row.before, row.after);
        EXPECT_TRUE(edit.inserted == row.inserted && edit.field.selectionStart == expected.selectionStart &&
                    edit.field.selectionEnd == expected.selectionEnd && edit.field.text == row.before)
            << toUtf8(row.before) << " -> " << toUtf8(row.after) << ": \"" << toUtf8(edit.inserted) << "\" for "
            << edit.field.selectionStart << " to " << edit.field.selectionEnd;
    }
}

TEST(UiEntry, pastedTextIsHeldToTheKeysOfItsField) {
    struct Row {
        std::u16string field, pasted, admitted;
    };
    const auto expectAll = [](const char* name, const std::vector<Row>& rows, auto admit) {
        for (const Row& row : rows)
            EXPECT_EQ(toUtf8(admit(FieldEdit{parseField(row.field), row.pasted})), toUtf8(row.admitted))
                << name << ": \"" << toUtf8(row.pasted) << "\" into " << toUtf8(row.field);
    };
    const auto number = [](NumberBoxType type) {
        return [type](const FieldEdit& edit) { return admitNumber(type, edit, 4); };
    };
    const auto text = [](TextBoxType type, bool hasLines) {
        return [type, hasLines](const FieldEdit& edit) { return admitText(type, edit, 8, hasLines); };
    };
    expectAll("signed",
              {{u"|", u"-12", u"-12"},
               {u"|", u" 12\r\n", u"12"},
               {u"|", u"1,5", u""},
               {u"|", u"3-5", u""},
               {u"1|", u"-2", u""},
               {u"[-1]2", u"-3", u"-3"},
               {u"123|", u"45", u""}, // cut to four digits it were another number
               {u"[1234]", u"5678", u"5678"},
               {u"1|", u"\x08", u""}},
              number(NumberBoxType::signedInteger));
    expectAll("decimal", {{u"|", u"1.25", u"1.25"}, {u"1.[2]", u".5", u""}, {u"1[.]2", u".", u"."}},
              number(NumberBoxType::decimal));
    expectAll("custom name",
              {{u"|", u"light red", u"lightred"}, {u"abc|", u"!?", u""}, {u"abc[de]f", u"123456789", u"1234"}},
              text(TextBoxType::customName, false));
    expectAll("any", {{u"|", u"a\tb\r\nc\x01", u"abc"}}, text(TextBoxType::any, false));
    expectAll("any, several lines", {{u"|", u"a\tb\r\nc\x01", u"a\tb\r\nc"}}, text(TextBoxType::any, true));
}

TEST(UiEntry, aFieldsTextIsReadAsANumber) {
    using enum NumberBoxType;
    struct Row {
        NumberBoxType type;
        std::u16string text;
        NumberEntry entry;
    };
    const std::vector<Row> rows{
        {signedInteger, u"", {0, true}},
        {unsignedInteger, u"", {0, true}},
        {decimal, u"", {0, true}},
        {signedInteger, u"0", {0, false}},
        {signedInteger, u"-12", {-12, false}},
        {signedInteger, u"-", {0, false}},
        {signedInteger, u"007", {7, false}},
        {signedInteger, u"12abc", {12, false}},
        {signedInteger, u"abc", {0, false}},
        {unsignedInteger, u"12", {12, false}},
        {unsignedInteger, u"-12", {0, false}},
        {unsignedInteger, u"4294967295", {4294967295.0, false}},
        {decimal, u"1.25", {1.25, false}},
        {decimal, u"-.5", {-0.5, false}},
        {decimal, u".", {0, false}},
        {decimal, u"-", {0, false}},
        {decimal, u"2.", {2, false}},
        {decimal, u"nan", {0, false}},
        {decimal, u"inf", {0, false}},
    };
    for (const Row& row : rows) {
        const NumberEntry read = readNumberEntry(row.text, row.type);
        EXPECT_EQ(read, row.entry) << "type " << static_cast<int>(row.type) << " reads \"" << toUtf8(row.text)
                                   << "\" as " << read.value;
    }
    EXPECT_GT(readNumberEntry(u"99999999999999999999", signedInteger).value, 1e18);
    EXPECT_LT(readNumberEntry(u"-99999999999999999999", signedInteger).value, -1e18);
    EXPECT_THROW(readNumberEntry(u"1", NumberBoxType{}), UnknownCaseException);
}

TEST(UiEntry, numbersAreShownWithTheirPlaces) {
    using enum NumberBoxType;
    struct Row {
        double value;
        NumberBoxType type;
        std::int32_t precision;
        std::u16string text;
    };
    const std::vector<Row> rows{
        {12, signedInteger, 1, u"12"}, {-12, signedInteger, 2, u"-12"},
        {1.9, signedInteger, 1, u"1"}, {4294967295.0, unsignedInteger, 1, u"4294967295"},
        {1.26, decimal, 1, u"1.3"},    {1.26, decimal, 2, u"1.26"},
        {5, decimal, 2, u"5.00"},      {-0.04, decimal, 1, u"0.0"},
        {-0.06, decimal, 1, u"-0.1"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(toUtf8(formatNumber(row.value, row.type, row.precision)), toUtf8(row.text));
    EXPECT_DOUBLE_EQ(roundToPrecision(1.26, 1), 1.3);
    EXPECT_THROW(formatNumber(1, NumberBoxType{}, 1), UnknownCaseException);
}

TEST(UiEntry, integersSaturateAndTellTheirLength) {
    using Limits = std::numeric_limits<std::int32_t>;
    const std::vector<std::pair<double, std::int32_t>> cuts{
        {1.9, 1}, {-1.9, -1}, {1e10, Limits::max()}, {-1e10, Limits::min()}};
    for (const auto& [value, integer] : cuts)
        EXPECT_EQ(toInteger(value), integer) << value;
    const std::vector<std::pair<std::int32_t, std::int32_t>> lengths{
        {0, 1}, {9, 1}, {10, 2}, {-1, 2}, {-10, 3}, {Limits::max(), 10}, {Limits::min(), 11}};
    for (const auto& [value, length] : lengths)
        EXPECT_EQ(countDigits(value), length) << value;
}

TEST(UiEntry, aSpinStepsByOneUnitOfTheLastPlaceWithinTheRange) {
    EXPECT_EQ(spinInteger(5, -1, 1, 10), 6);
    EXPECT_EQ(spinInteger(5, 1, 1, 10), 4);
    EXPECT_EQ(spinInteger(10, -1, 1, 10), 10);
    EXPECT_EQ(spinInteger(500, -1, 1, 10), 10);
    EXPECT_EQ(spinInteger(0, 1, 1, 10), 1);
    EXPECT_EQ(spinInteger(5, -1, 0, 0), 0); // a box without a range
    EXPECT_EQ(spinInteger(1e12, -1, 1, 10), 10);
    struct Row {
        double value;
        std::int32_t delta;
        std::int32_t precision;
        std::u16string shown;
    };
    for (const Row& row : std::vector<Row>{{1.1, -1, 1, u"1.2"},
                                           {1.1, 1, 1, u"1.0"},
                                           {0.1, 1, 1, u"0.0"},
                                           {1.29, -1, 2, u"1.30"},
                                           {9.95, -10, 2, u"10.00"},
                                           {-9.99, 5, 2, u"-10.00"}})
        EXPECT_EQ(toUtf8(formatDecimal(spinDecimal(row.value, row.delta, row.precision, -10, 10), row.precision)),
                  toUtf8(row.shown));
}

TEST(UiEntry, picturesGrowWithTheResolution) {
    struct Row {
        std::uint16_t bitmapId;
        LONG resolution;
        SIZE picture;
        SIZE background;
    };
    const std::vector<Row> rows{
        {IDB_PLEX, 96, {41, 30}, {0, 0}},
        {IDB_PLEX, 120, {51, 37}, {0, 0}},
        {IDB_PLEX, 192, {82, 60}, {0, 0}},
        {IDB_ABOUT_LOGO, 96, {41, 30}, {42, 31}},
        {IDB_ABOUT_LOGO, 144, {61, 45}, {62, 46}},
        {IDB_ABOUT_LOGO, 120, {120, 60}, {120, 62}}, // fills its item, 90 by 50
    };
    for (const Row& row : rows) {
        const BitmapLayout layout = layOutBitmap(row.bitmapId, {41, 30}, {90, 50}, {row.resolution, row.resolution});
        EXPECT_TRUE(layout.picture.cx == row.picture.cx && layout.picture.cy == row.picture.cy)
            << row.bitmapId << " at " << row.resolution << ": " << layout.picture.cx << " x " << layout.picture.cy;
        EXPECT_TRUE(layout.background.cx == row.background.cx && layout.background.cy == row.background.cy)
            << row.bitmapId << " at " << row.resolution << ": " << layout.background.cx << " x "
            << layout.background.cy;
    }
}

} // namespace
