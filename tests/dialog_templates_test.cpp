// The dialog templates as they lie in the modules: what may be joined to one page, how it is laid out, and whether the
// texts of each language fit.

#include "platform/controls.h"
#include "platform/qt/dialogTemplate.h"
#include "resources/dialogs/grid.h"
#include "resources/ids.h"
#include "tests/ResourceFile.h"

#include <QFontMetrics>
#include <QGuiApplication>
#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace {

// What a person sees at once. The sheet around the page has a letter of its own, for its button that applies.
struct View {
    const char* name;
    std::vector<int> dialogs;
    bool isOnSheet;
};

const std::array views = {
    View{"basic", {IDD_PAGE_FRAME, IDD_BASIC_OVERLAY}, true},
    View{"highlight color", {IDD_PAGE_FRAME, IDD_HIGHLIGHT_COLOR_OVERLAY}, true},
    View{"about", {IDD_PAGE_FRAME, IDD_ABOUT_OVERLAY}, true},
    View{"custom entry", {IDD_CUSTOM_ENTRY}, false},
    View{"limitations", {IDD_LIMITATIONS}, false},
};

const std::array overlays = {IDD_BASIC_OVERLAY, IDD_HIGHLIGHT_COLOR_OVERLAY, IDD_ABOUT_OVERLAY};

struct Rectangle {
    int left, top, right, bottom;
};

bool overlap(const Rectangle& a, const Rectangle& b) {
    return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

bool contains(const Rectangle& outer, const Rectangle& inner) {
    return outer.left <= inner.left && outer.top <= inner.top && inner.right <= outer.right &&
           inner.bottom <= outer.bottom;
}

// The class by its name in lower case, however the template tells it.
std::u16string classOf(const TemplateItem& item) {
    switch (item.classOrdinal) {
    case 0x80:
        return u"button";
    case 0x81:
        return u"edit";
    case 0x82:
        return u"static";
    case 0x85:
        return u"combobox";
    default:
        break;
    }
    std::u16string name = item.className;
    for (char16_t& unit : name)
        if (unit >= u'A' && unit <= u'Z') unit = static_cast<char16_t>(unit + (u'a' - u'A'));
    return name;
}

int buttonKind(const TemplateItem& item) {
    return classOf(item) == u"button" ? static_cast<int>(item.style & 0xFU) : -1;
}

bool isFrame(const TemplateItem& item) { return buttonKind(item) == BS_GROUPBOX; }
bool isStatic(const TemplateItem& item) { return classOf(item) == u"static"; }
bool isCombo(const TemplateItem& item) { return classOf(item) == u"combobox"; }
bool isSpin(const TemplateItem& item) { return classOf(item) == u"msctls_updown32"; }
bool takesLabel(const TemplateItem& item) { return isCombo(item) || classOf(item) == u"edit"; }

Rectangle placeOf(const TemplateItem& item) {
    const int height = isCombo(item) ? FIELD_H : item.height; // that of a combo box is told with its list
    return {item.x, item.y, item.x + item.width, item.y + height};
}

std::string describe(const TemplateItem& item) { return std::to_string(item.id) + " '" + narrow(item.text) + "'"; }

// The letter after the ampersand, in lower case; 0 for none. The languages have no mnemonics beyond ASCII.
char16_t mnemonicOf(const std::u16string& text) {
    const std::size_t mark = text.find(u'&');
    if (mark == std::u16string::npos || mark + 1 == text.size()) return 0;
    const char16_t letter = text[mark + 1];
    return letter >= u'A' && letter <= u'Z' ? static_cast<char16_t>(letter + (u'a' - u'A')) : letter;
}

QString shownText(const std::u16string& text) { return QString::fromStdU16String(text).remove(u'&'); }

// Measures texts in dialog units of the font of the templates.
class Ruler {
public:
    Ruler() : metrics(templateFont()) {
        static const QString alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
        unit = (metrics.horizontalAdvance(alphabet) / 26 + 1) / 2;
    }
    bool isUsable() const { return unit > 0; }
    int width(const QString& text) const { return (metrics.horizontalAdvance(text) * 4 + unit - 1) / unit; }

private:
    static QFont templateFont() {
        QFont font = QGuiApplication::font();
        font.setPointSize(9);
        return font;
    }

    QFontMetrics metrics;
    int unit = 0;
};

// What an item needs beside its text: the box of an option, the edges of a button.
int roomBesideText(const TemplateItem& item) {
    switch (buttonKind(item)) {
    case BS_AUTOCHECKBOX:
    case BS_AUTORADIOBUTTON:
        return 11;
    case BS_PUSHBUTTON:
    case BS_DEFPUSHBUTTON:
        return 8;
    default:
        return 0;
    }
}

class DialogTemplates : public testing::TestWithParam<Language> {
protected:
    const ResourceFile module{driverDir / GetParam().file};

    void SetUp() override { ASSERT_TRUE(module.isLoaded()); }

    DialogTemplate dialog(int id) const {
        const auto parsed = parseDialogTemplate(module.resource(id, RT_DIALOG));
        if (!parsed) ADD_FAILURE() << "template " << id << " is missing or damaged";
        return parsed.value_or(DialogTemplate{});
    }

    std::vector<TemplateItem> itemsOf(const View& view) const {
        std::vector<TemplateItem> items;
        for (const int id : view.dialogs)
            for (const TemplateItem& item : dialog(id).items)
                items.push_back(item);
        return items;
    }
};

INSTANTIATE_TEST_SUITE_P(Languages, DialogTemplates, testing::ValuesIn(languages),
                         [](const testing::TestParamInfo<Language>& info) { return info.param.name; });

} // namespace

TEST_P(DialogTemplates, areAllThereInThePlainFormAndInOneFont) {
    for (const NamedId& id : idsOf("ids_dialogs.h", "IDD_")) {
        const DialogTemplate parsed = dialog(id.number);
        EXPECT_EQ(parsed.pointSize, 9) << id.name;
        EXPECT_EQ(parsed.faceName, u"MS Shell Dlg") << id.name;
    }
}

TEST_P(DialogTemplates, holdEachNamedControlOnceAndNoOther) {
    std::map<int, int> found;
    for (const NamedId& id : idsOf("ids_dialogs.h", "IDD_"))
        for (const TemplateItem& item : dialog(id.number).items)
            if (item.id != IDOK && item.id != IDCANCEL) ++found[item.id];

    std::map<int, std::string> names;
    for (const NamedId& id : idsOf("ids_dialogs.h", "IDC_"))
        names[id.number] = id.name;
    ASSERT_GT(names.size(), 50U);
    for (const auto& [number, name] : names)
        EXPECT_EQ(found[number], 1) << name << " " << number;
    for (const auto& [number, count] : found)
        EXPECT_TRUE(names.contains(number)) << number << " has no name";
}

TEST_P(DialogTemplates, keepTheirMarginsAndDoNotCoverEachOther) {
    for (const View& view : views) {
        const DialogTemplate first = dialog(view.dialogs.front());
        const Rectangle inside{MARGIN, AREA_Y, first.width - MARGIN, first.height - MARGIN};
        const std::vector<TemplateItem> items = itemsOf(view);
        for (std::size_t i = 0; i < items.size(); ++i) {
            if (isSpin(items[i])) continue; // moves into the field before it
            EXPECT_TRUE(contains(inside, placeOf(items[i]))) << view.name << ": " << describe(items[i]);
            for (std::size_t other = i + 1; other < items.size(); ++other)
                EXPECT_FALSE(!isFrame(items[i]) && !isFrame(items[other]) && !isSpin(items[other]) &&
                             overlap(placeOf(items[i]), placeOf(items[other])))
                    << view.name << ": " << describe(items[i]) << " and " << describe(items[other]);
        }
    }
}

TEST_P(DialogTemplates, haveOverlaysOfOneFrameThatHoldsAllTheirItems) {
    for (const int id : overlays) {
        const DialogTemplate overlay = dialog(id);
        ASSERT_FALSE(overlay.items.empty());
        const TemplateItem& frame = overlay.items.front();
        EXPECT_TRUE(isFrame(frame)) << id;
        EXPECT_EQ(std::vector<int>({frame.x, frame.y, frame.width, frame.height}),
                  std::vector<int>({AREA_X, AREA_Y, AREA_W, AREA_H}))
            << id;
        for (std::size_t i = 1; i < overlay.items.size(); ++i)
            EXPECT_TRUE(
                contains({COLUMN_1, ROW_1, COLUMN_1 + BOTH_W, AREA_Y + AREA_H - MARGIN}, placeOf(overlay.items[i])))
                << id << ": " << describe(overlay.items[i]);
    }
}

TEST_P(DialogTemplates, giveAMnemonicOnceOnAView) {
    const char16_t appliesTheSheet = std::string(GetParam().name) == "de" ? u'b' : u'a';
    for (const View& view : views) {
        std::map<char16_t, std::string> taken;
        if (view.isOnSheet) taken[appliesTheSheet] = "the sheet's button that applies";
        for (const TemplateItem& item : itemsOf(view)) {
            const char16_t letter = mnemonicOf(item.text);
            if (letter == 0 || ((item.style & SS_NOPREFIX) != 0 && isStatic(item))) continue;
            const auto [first, isNew] = taken.emplace(letter, describe(item));
            EXPECT_TRUE(isNew) << view.name << ": " << describe(item) << " and " << first->second;
        }
    }
}

// A screen reader names a field by the static before it, and the letter of a label leads to the item behind it.
TEST_P(DialogTemplates, setALabelRightBeforeEachFieldThatIsTypedOrChosenFrom) {
    const std::set<int> filledByTheProgram = {IDC_ABOUT_TITLE, IDC_ABOUT_VERSION, IDC_ABOUT_LEGAL, IDC_STOCK_SUMMARY,
                                              IDC_LIMITATIONS_REPORT};
    for (const View& view : views) {
        const std::vector<TemplateItem> items = itemsOf(view);
        for (std::size_t i = 1; i < items.size(); ++i) {
            if (!takesLabel(items[i]) || filledByTheProgram.contains(items[i].id)) continue;
            EXPECT_TRUE(isStatic(items[i - 1]) && mnemonicOf(items[i - 1].text) != 0)
                << view.name << ": " << describe(items[i]) << " follows " << describe(items[i - 1]);
        }
    }
}

TEST_P(DialogTemplates, haveRoomForTheirTexts) {
    const Ruler ruler;
    ASSERT_TRUE(ruler.isUsable()) << "no font";
    for (const View& view : views)
        for (const TemplateItem& item : itemsOf(view)) {
            if (item.text.empty() || buttonKind(item) == BS_OWNERDRAW) continue;
            EXPECT_LE(ruler.width(shownText(item.text)) + roomBesideText(item), item.width)
                << view.name << ": " << describe(item);
        }
}

// The lists of these pages: an entry that is chosen is read without opening the list.
TEST_P(DialogTemplates, haveRoomForWhatTheirListsOffer) {
    constexpr int arrowAndEdges = 18;
    const Ruler ruler;
    ASSERT_TRUE(ruler.isUsable()) << "no font";
    for (const int text : {IDS_VALUE_COLLATED, IDS_VALUE_UNCOLLATED, IDS_VALUE_ONE_SIDED, IDS_VALUE_TWO_SIDED_LONG_EDGE,
                           IDS_VALUE_TWO_SIDED_SHORT_EDGE, IDS_VALUE_OUTPUT_BIN_AUTOMATIC, IDS_VALUE_OUTPUT_BIN_TOP,
                           IDS_VALUE_STACKER, IDS_NOT_SPECIFIED, IDS_CUSTOM_ENTRY})
        EXPECT_LE(ruler.width(QString::fromStdU16String(module.string(text))) + arrowAndEdges, FIELD_W)
            << narrow(module.string(text));
    for (const int text : {IDS_VALUE_COLOR_TO_HIGHLIGHT, IDS_VALUE_USE_READY, IDS_VALUE_HIGHLIGHT_COLORANT_ROYAL})
        EXPECT_LE(ruler.width(QString::fromStdU16String(module.string(text))) + arrowAndEdges, COLUMN_W)
            << narrow(module.string(text));
    constexpr int lines = 2;
    constexpr int lostWhereALineBreaks = 20;
    for (const int text : {IDS_PAGES_REVERSED, IDS_PAGES_FURTHER})
        EXPECT_LE(ruler.width(QString::fromStdU16String(module.string(text))), lines * FIELD_W - lostWhereALineBreaks)
            << narrow(module.string(text));
    for (const NamedId& id : idsOf("ids_dialogs.h", "IDS_OVERLAY_"))
        EXPECT_LE(ruler.width(QString::fromStdU16String(module.string(id.number))) + arrowAndEdges, NAVIGATION_W)
            << id.name;
}

TEST(DialogTemplatesOfAllLanguages, areLaidOutAlike) {
    const ResourceFile english(driverDir / languages[0].file);
    const ResourceFile german(driverDir / languages[1].file);
    for (const NamedId& id : idsOf("ids_dialogs.h", "IDD_")) {
        const auto first = parseDialogTemplate(english.resource(id.number, RT_DIALOG));
        const auto second = parseDialogTemplate(german.resource(id.number, RT_DIALOG));
        ASSERT_TRUE(first && second && first->items.size() == second->items.size()) << id.name;
        for (std::size_t i = 0; i < first->items.size(); ++i) {
            EXPECT_EQ(first->items[i].id, second->items[i].id) << id.name;
            EXPECT_EQ(mnemonicOf(first->items[i].text) == 0, mnemonicOf(second->items[i].text) == 0)
                << id.name << ": " << describe(first->items[i]) << " and " << describe(second->items[i]);
        }
    }
}

TEST(ReservedNumbers, haveNothingInTheModuleYet) {
    const ResourceFile module(driverDir / languages[0].file);
    for (const NamedId& id : idsOf("ids_reserved.h", "IDD_"))
        EXPECT_TRUE(module.resource(id.number, RT_DIALOG).empty()) << id.name << " belongs to ids_dialogs.h";
}

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen"); // also when the tests are only listed
    const QGuiApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
