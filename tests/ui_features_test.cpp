// The basic features on the real window layer and over a printer's capabilities: what the user does becomes an
// attribute or takes one away, and what the settings hold is shown.
#include "jtcore/Services/formatMessage.h"
#include "platform/property_sheet.h"
#include "plugin_ui/Controls/BitmapUIControl.h"
#include "plugin_ui/DialogHandler.h"
#include "plugin_ui/Features/BitmapUIFeature.h"
#include "plugin_ui/Features/CheckBoxUIFeature.h"
#include "plugin_ui/Features/CollationUIFeature.h"
#include "plugin_ui/Features/CopiesUIFeature.h"
#include "plugin_ui/Features/KeyWordListUIFeature.h"
#include "plugin_ui/Features/NumberCheckBoxUIFeature.h"
#include "plugin_ui/Features/OffsetUIFeature.h"
#include "plugin_ui/Features/PageRangeUIFeature.h"
#include "plugin_ui/Features/PlexUIFeature.h"
#include "plugin_ui/Features/SubsetUIFeature.h"
#include "plugin_ui/Features/introduction.h"
#include "resources/ids.h"
#include "tests/memoryDialog.h"
#include "tests/printersForTests.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <utility>

namespace {

enum Id : std::uint16_t { check = 100, defaultCheck, hint, number, spinButton, picture, listLabel, keywordList };

const std::vector<DialogItem>& items() {
    static const DWORD edit = ES_AUTOHSCROLL | WS_TABSTOP;
    static const DWORD radio = BS_AUTORADIOBUTTON | WS_TABSTOP;
    static const DWORD combo = CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP;
    static const std::vector<DialogItem> all{
        {u"EDIT", edit, IDC_COPIES_EDIT},
        {u"COMBOBOX", combo, IDC_PLEX_LIST},
        {u"STATIC", 0, IDC_PLEX_PICTURE},
        {u"COMBOBOX", combo, IDC_COLLATION_LIST},
        {u"STATIC", 0, IDC_COLLATION_PICTURE},
        {u"BUTTON", radio | WS_GROUP, IDC_PAGES_ALL},
        {u"BUTTON", radio, IDC_PAGES_RANGE},
        {u"EDIT", edit | WS_GROUP, IDC_PAGES_FIRST_EDIT},
        {u"EDIT", edit, IDC_PAGES_LAST_EDIT},
        {u"STATIC", 0, IDC_PAGES_NOTE},
        {u"BUTTON", BS_AUTOCHECKBOX, IDC_OFFSET_CHECK},
        {u"STATIC", 0, IDC_OFFSET_PICTURE},
        {u"EDIT", edit, IDC_SUBSET_EDIT},
        {u"BUTTON", BS_AUTOCHECKBOX, IDC_SUBSET_NOT_SET},
        {u"BUTTON", BS_AUTOCHECKBOX, check},
        {u"BUTTON", BS_AUTOCHECKBOX, defaultCheck},
        {u"EDIT", edit | ES_READONLY, hint},
        {u"EDIT", edit, number},
        {u"STATIC", 0, picture},
        {u"COMBOBOX", combo, keywordList},
    };
    return all;
}

AttrNodeList whatThePrinterCan() {
    return list()
        .set(u"job-creation-attributes-supported",
             keywords({u"copies", u"sides", u"sheet-collate", u"page-ranges", u"finishings", u"pages-per-subset",
                       u"color-effects-type", u"color-emulation"}))
        .range(u"copies-supported", 1, 999)
        .set(u"sides-supported", keywords({u"one-sided", u"two-sided-long-edge"}))
        .set(u"sheet-collate-supported", keywords({u"collated", u"uncollated"}))
        .range(u"page-ranges-allowable-range", 1, 500)
        .set(u"finishings-supported",
             list().enumeration(u"value", 3).enumeration(u"value", 14).enumeration(u"value", 20))
        .range(u"pages-per-subset-allowable-range", 1, 500)
        .set(u"color-effects-type-supported", keywords({u"color", u"monochrome-grayscale"}))
        .set(u"color-emulation-supported", keywords({u"swop", u"euroscale"}))
        .set(u"user-defined-values-supported", keywords({u"color-emulation", u"media-color"}));
}

class Page final : public DialogHandler {
public:
    explicit Page(UIContext& context) : DialogHandler(context, noParentFeature, false, 0) {}
};

class Counter final : public Observer {
public:
    void handleSubjectUpdate(std::uint16_t) override { ++count; }
    int count = 0;
};

constexpr UINT runAction = WM_APP + 0x100;

// A page of features in a window that stands for the sheet.
class UiFeatures : public testing::Test {
protected:
    explicit UiFeatures(std::int32_t family = 1)
        : capabilities(modelOfFamily(family), TicketForm::current, ListCapabilities(whatThePrinterCan())) {
        context.capabilities = &capabilities;
    }

    template <typename Kind, typename... Arguments>
    Kind& add(Arguments&&... arguments) {
        Kind& feature = page.addNew<Kind>(context, std::forward<Arguments>(arguments)...);
        feature.addObserver(counter);
        return feature;
    }
    void open(const AttrNodeList& job = {}) {
        close();
        target = FeatureSettings(job);
        page.setTargetSettings(target);
        sheet = CreateDialogIndirectParamW(nullptr, MemoryDialog({}).get(), nullptr, sheetProcedure,
                                           reinterpret_cast<LPARAM>(this));
        if (!sheet) throw std::runtime_error("no window: " + std::to_string(GetLastError()));
        PROPSHEETPAGEW record{};
        record.lParam = reinterpret_cast<LPARAM>(&page);
        const MemoryDialog dialog(items(), WS_CHILD);
        hands = DialogHands(CreateDialogIndirectParamW(nullptr, dialog.get(), sheet, DialogHandler::windowProc,
                                                       reinterpret_cast<LPARAM>(&record)));
        if (!hands.window()) throw std::runtime_error("no page: " + std::to_string(GetLastError()));
        pageChanges = 0;
        counter.count = 0;
    }
    void close() {
        if (sheet) DestroyWindow(sheet);
        sheet = nullptr;
    }
    void TearDown() override { close(); }

    FeatureSettings& settings() { return page.getWorkingSettings(); }
    std::string job() { return show(settings().getAttrNodeList()); }
    // The settings change from elsewhere.
    void load(const AttrNodeList& settingsOfTicket) {
        settings().assignList(settingsOfTicket);
        tell(UIM_REFRESH);
    }
    LRESULT tell(UINT message) { return SendMessageW(hands.window(), message, 0, 0); }
    int takePageChanges() { return std::exchange(pageChanges, 0); }

    // Done to the dialog that is up then.
    void inNextDialog(std::function<void(const DialogHands&)> act) {
        action = std::move(act);
        PostMessageW(sheet, runAction, 0, 0);
    }

    Capabilities capabilities;
    UIContext context;
    FeatureSettings target;
    Page page{context};
    Counter counter;
    DialogHands hands;

private:
    static INT_PTR CALLBACK sheetProcedure(HWND window, UINT message, WPARAM, LPARAM lParam) {
        if (message == WM_INITDIALOG) SetWindowLongPtrW(window, GWLP_USERDATA, lParam);
        auto* test = reinterpret_cast<UiFeatures*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        if (test && message == PSM_CHANGED) ++test->pageChanges;
        if (test && message == runAction) test->action(DialogHands(findCustomDialog()));
        return message == WM_INITDIALOG;
    }
    static HWND findCustomDialog() {
        HWND found = nullptr;
        EnumThreadWindows(
            GetCurrentThreadId(),
            [](HWND window, LPARAM result) -> BOOL {
                if (!GetDlgItem(window, IDC_CUSTOM_ENTRY_EDIT)) return TRUE;
                *reinterpret_cast<HWND*>(result) = window;
                return FALSE;
            },
            reinterpret_cast<LPARAM>(&found));
        return found;
    }

    HWND sheet = nullptr;
    int pageChanges = 0;
    std::function<void(const DialogHands&)> action;
};

TEST_F(UiFeatures, anEmptyCopiesFieldLeavesTheNumberToThePrinter) {
    auto& copies = add<CopiesUIFeature>();
    EXPECT_TRUE(copies.isFeatureSupported());
    open(list().integer(u"copies", 12));
    EXPECT_EQ(hands.text(IDC_COPIES_EDIT), u"12");
    EXPECT_EQ(takePageChanges(), 0);
    hands.type(IDC_COPIES_EDIT, u"34");
    EXPECT_EQ(job(), "copies=34");
    EXPECT_EQ(takePageChanges(), 2);
    hands.paste(IDC_COPIES_EDIT, u"");
    EXPECT_EQ(job(), "");
    load(list().integer(u"copies", 5));
    EXPECT_EQ(hands.text(IDC_COPIES_EDIT), u"5");
    takePageChanges();
    load({});
    EXPECT_EQ(hands.text(IDC_COPIES_EDIT), u"");
    EXPECT_EQ(job(), "");
    EXPECT_EQ(takePageChanges(), 0) << "a refresh is no edit";
    hands.type(IDC_COPIES_EDIT, u"12345");
    EXPECT_EQ(job(), "copies=123") << "as many digits as the greatest number has";
}

TEST_F(UiFeatures, aPageRangeIsReadWrittenAndTakenAway) {
    add<PageRangeUIFeature>();
    open();
    std::int32_t lower = 0;
    std::int32_t upper = 0;
    capabilities.getFeatureCapabilities(Feature::pageRanges, lower, upper);
    const auto shows = [&](std::uint16_t chosen, const std::u16string& first, const std::u16string& last) {
        EXPECT_TRUE(hands.isTicked(chosen));
        EXPECT_EQ(hands.text(IDC_PAGES_FIRST_EDIT), first);
        EXPECT_EQ(hands.text(IDC_PAGES_LAST_EDIT), last);
        EXPECT_EQ(hands.isEnabled(IDC_PAGES_FIRST_EDIT), chosen == IDC_PAGES_RANGE);
        EXPECT_EQ(hands.isEnabled(IDC_PAGES_LAST_EDIT), chosen == IDC_PAGES_RANGE);
    };
    const std::u16string whole = fromUtf8(std::to_string(upper));
    shows(IDC_PAGES_ALL, u"1", whole);
    tell(UIM_LOCK);
    tell(UIM_UNLOCK);
    shows(IDC_PAGES_ALL, u"1", whole);
    load(list().set(u"page-ranges", list().range(u"value", 3, 9)));
    shows(IDC_PAGES_RANGE, u"3", u"9");
    hands.type(IDC_PAGES_FIRST_EDIT, u"8");
    EXPECT_EQ(job(), "page-ranges=1setOf[value=rangeOfInteger[lower-bound=8 upper-bound=9]]");
    hands.paste(IDC_PAGES_LAST_EDIT, u"");
    EXPECT_NE(job().find("upper-bound=" + std::to_string(upper)), std::string::npos) << job();
    hands.click(IDC_PAGES_ALL);
    EXPECT_EQ(job(), "");
    EXPECT_FALSE(hands.isEnabled(IDC_PAGES_FIRST_EDIT));
    hands.type(IDC_PAGES_LAST_EDIT, u"9");
    hands.click(IDC_PAGES_RANGE);
    EXPECT_EQ(job(), "page-ranges=1setOf[value=rangeOfInteger[lower-bound=8 upper-bound=9]]") << "what the boxes show";
}

TEST_F(UiFeatures, allPagesTakesAwayEveryRangeOfTheJob) {
    add<PageRangeUIFeature>();
    open(list().set(u"page-ranges", list().range(u"value", 3, 5).range(u"value", 7, 9)));
    EXPECT_TRUE(hands.isTicked(IDC_PAGES_RANGE));
    hands.type(IDC_PAGES_FIRST_EDIT, u"4");
    EXPECT_EQ(job(), "page-ranges=1setOf[value=rangeOfInteger[lower-bound=4 upper-bound=5] "
                     "value=rangeOfInteger[lower-bound=7 upper-bound=9]]");
    EXPECT_EQ(hands.text(IDC_PAGES_NOTE), ResourceLibrary().getString(IDS_PAGES_FURTHER)) << "one range is shown";
    hands.click(IDC_PAGES_ALL);
    EXPECT_EQ(job(), "");
    EXPECT_EQ(hands.text(IDC_PAGES_NOTE), u"");
}

TEST_F(UiFeatures, aRangeThatEndsBeforeItBeginsIsKeptAndSaidToBeSo) {
    add<PageRangeUIFeature>();
    open(list().set(u"page-ranges", list().range(u"value", 3, 9)));
    EXPECT_EQ(hands.text(IDC_PAGES_NOTE), u"");
    hands.type(IDC_PAGES_FIRST_EDIT, u"12");
    EXPECT_EQ(job(), "page-ranges=1setOf[value=rangeOfInteger[lower-bound=12 upper-bound=9]]");
    EXPECT_EQ(hands.text(IDC_PAGES_NOTE), ResourceLibrary().getString(IDS_PAGES_REVERSED));
    hands.type(IDC_PAGES_LAST_EDIT, u"12");
    EXPECT_EQ(hands.text(IDC_PAGES_NOTE), u"");
}

TEST_F(UiFeatures, aCheckBoxFeatureHasASecondBoxForNotSet) {
    auto& color =
        add<CheckBoxUIFeature>(Feature::colorEffectsType, check, defaultCheck, FeatureValue(Value::monochromeGrayscale),
                               FeatureValue(Value::color), noParentFeature);
    open();
    EXPECT_TRUE(hands.isTicked(defaultCheck));
    EXPECT_FALSE(hands.isEnabled(check));
    EXPECT_TRUE(color.isNotSet());
    hands.click(defaultCheck);
    EXPECT_TRUE(hands.isEnabled(check));
    EXPECT_EQ(job(), "color-effects-type=keyword:color");
    hands.click(check);
    EXPECT_EQ(job(), "color-effects-type=keyword:monochrome-grayscale");
    EXPECT_TRUE(color.isOn());
    hands.click(defaultCheck);
    EXPECT_EQ(job(), "");
    EXPECT_FALSE(hands.isEnabled(check));
    EXPECT_EQ(counter.count, 3);
    EXPECT_EQ(takePageChanges(), 0) << "the owner marks";
    load(list().keyword(u"color-effects-type", u"color"));
    EXPECT_FALSE(hands.isTicked(defaultCheck) || hands.isTicked(check));
    EXPECT_TRUE(hands.isEnabled(check)) << "the value came from a ticket";
    load(list().keyword(u"color-effects-type", u"sepia"));
    EXPECT_FALSE(hands.isTicked(check)) << "a word of another printer";
    EXPECT_EQ(job(), "color-effects-type=keyword:sepia");
}

TEST_F(UiFeatures, aNumberMayStayUnset) {
    auto& subset = add<NumberCheckBoxUIFeature>(Feature::pagesPerSubset, 0, hint, number, 0, check, 7, true, true,
                                                noParentFeature);
    open();
    EXPECT_TRUE(subset.isChecked());
    EXPECT_FALSE(hands.isEnabled(number));
    EXPECT_EQ(hands.text(number), u"7");
    EXPECT_EQ(hands.text(hint), u"(1 - 99999)");
    hands.click(check);
    EXPECT_EQ(job(), "pages-per-subset=1setOf[value=7]");
    EXPECT_TRUE(hands.isEnabled(number));
    hands.type(number, u"9");
    EXPECT_EQ(job(), "pages-per-subset=1setOf[value=9]");
    EXPECT_EQ(subset.getLastValue(), 9);
    hands.paste(number, u"");
    EXPECT_EQ(job(), "pages-per-subset=1setOf[value=1]") << "never a number that the printer refuses";
    hands.click(check);
    EXPECT_EQ(job(), "");
    EXPECT_EQ(subset.getLastValue(), 7);
    EXPECT_EQ(takePageChanges(), 4);
    subset.disableAll();
    subset.enableAll();
    EXPECT_TRUE(hands.isEnabled(check));
    EXPECT_FALSE(hands.isEnabled(number));
}

TEST_F(UiFeatures, aNumberWithoutABoxShowsItsInitialValue) {
    auto& subset =
        add<NumberCheckBoxUIFeature>(Feature::pagesPerSubset, 0, 0, number, 0, 0, 7, true, true, noParentFeature);
    open(list().set(u"pages-per-subset", list().integer(u"value", 20)));
    EXPECT_EQ(hands.text(number), u"20");
    load({});
    EXPECT_EQ(hands.text(number), u"7");
    EXPECT_TRUE(hands.isEnabled(number));
    EXPECT_FALSE(subset.isChecked());
}

TEST_F(UiFeatures, anUnlockKeepsTheNumberOfNoSubsetsDisabled) {
    auto& subset = add<SubsetUIFeature>();
    open();
    EXPECT_FALSE(subset.isSubsetSet());
    tell(UIM_LOCK);
    EXPECT_FALSE(hands.isEnabled(IDC_SUBSET_NOT_SET));
    tell(UIM_UNLOCK);
    EXPECT_TRUE(hands.isEnabled(IDC_SUBSET_NOT_SET));
    EXPECT_FALSE(hands.isEnabled(IDC_SUBSET_EDIT));
}

TEST_F(UiFeatures, offsetIsOneMemberOfTheFinishings) {
    auto& offset = add<OffsetUIFeature>();
    EXPECT_TRUE(offset.isFeatureSupported());
    const ListBuilder others = list().enumeration(u"value", 20).enumeration(u"value", 77);
    open(list().set(u"finishings", others));
    EXPECT_FALSE(hands.isTicked(IDC_OFFSET_CHECK));
    const std::string without = job();
    hands.click(IDC_OFFSET_CHECK);
    EXPECT_EQ(job(), "finishings=1setOf[value=enum:20 value=enum:77 value=enum:14]");
    EXPECT_TRUE(offset.isOffsetSet());
    EXPECT_EQ(GetPropW(hands.item(IDC_OFFSET_PICTURE), u"SC_ID"), reinterpret_cast<HANDLE>(IDB_OFFSET_ON));
    EXPECT_EQ(takePageChanges(), 1);
    load(list().set(u"finishings",
                    list().enumeration(u"value", 14).enumeration(u"value", 20).enumeration(u"value", 14)));
    EXPECT_TRUE(hands.isTicked(IDC_OFFSET_CHECK));
    hands.click(IDC_OFFSET_CHECK);
    EXPECT_EQ(job(), "finishings=1setOf[value=enum:20]");
    EXPECT_EQ(GetPropW(hands.item(IDC_OFFSET_PICTURE), u"SC_ID"), reinterpret_cast<HANDLE>(IDB_OFFSET_OFF));
}

TEST_F(UiFeatures, aClickOnAPictureChoosesItsMember) {
    auto& staple = add<BitmapUIFeature>(picture, IDB_OFFSET_ON, Feature::finishings,
                                        FeatureValue(Value::finishingsStapleTopLeft), std::u16string(u"Staple"));
    EXPECT_TRUE(staple.isFeatureSupported());
    open(list().set(u"finishings", list().enumeration(u"value", 20).enumeration(u"value", 14)));
    EXPECT_TRUE(staple.holdsValue(settings()));
    hands.send(picture, WM_LBUTTONUP);
    EXPECT_EQ(job(), "finishings=1setOf[value=enum:14 value=enum:20]") << "to the end";
    hands.send(picture, WM_LBUTTONUP);
    EXPECT_EQ(job(), "finishings=1setOf[value=enum:14 value=enum:20]") << "and never away";
    EXPECT_EQ(counter.count, 2);
    staple.eraseValue();
    EXPECT_EQ(job(), "finishings=1setOf[value=enum:14]");
    load({});
    hands.send(picture, WM_LBUTTONUP);
    EXPECT_EQ(job(), "finishings=1setOf[value=enum:20]");
}

// Hears announcements.
class Hearer final : public UIFeature {
public:
    explicit Hearer(UIContext& context) : UIFeature(context, noParentFeature) {}
    bool onIntroduce(const UIMessage& message, LRESULT& result) override {
        heard.push_back(static_cast<Introduction>(message.wParam));
        if (heard.back() == Introduction::plex) plex = reinterpret_cast<PlexUIFeature*>(message.lParam);
        return UIFeature::onIntroduce(message, result);
    }
    bool isFeatureSupported() override { return true; }
    void updateFeatureWithNewSettings() override {}
    void handleSubjectUpdate(std::uint16_t) override {}

    std::vector<Introduction> heard;
    PlexUIFeature* plex = nullptr;
};

TEST_F(UiFeatures, sidesAndCollationAnnounceThemselvesToTheWholePage) {
    auto& plex = add<PlexUIFeature>(noParentFeature);
    auto& collation = add<CollationUIFeature>(noParentFeature);
    add<PlexUIFeature>(listLabel, keywordList, Feature::pageOverrides);
    auto& hearer = add<Hearer>();
    EXPECT_TRUE(plex.isFeatureSupported());
    open(list().keyword(u"sheet-collate", u"collated"));
    EXPECT_EQ(hearer.heard, (std::vector{Introduction::plex, Introduction::collation}));
    EXPECT_EQ(hearer.plex, &plex);
    EXPECT_FALSE(plex.isOneSided()) << "not told";
    EXPECT_TRUE(collation.isCollated());
    counter.count = 0;
    hands.choose(IDC_PLEX_LIST, 1);
    EXPECT_TRUE(plex.isOneSided());
    EXPECT_EQ(counter.count, 1);
    EXPECT_GE(takePageChanges(), 1);
    hands.choose(keywordList, 1);
    EXPECT_EQ(takePageChanges(), 0) << "inside another feature";
}

// ---- lists ----

class UiKeyWordLists : public UiFeatures {
protected:
    explicit UiKeyWordLists(std::int32_t family = 1) : UiFeatures(family) {}

    // A list for values of the user's own, open over these settings.
    KeyWordListUIFeature& showList(const AttrNodeList& jobBefore = {}) {
        auto& feature = add<KeyWordListUIFeature>(Feature::colorEmulation, noParentFeature);
        open(jobBefore);
        return feature;
    }
    template <typename Kind>
    Kind& add(const FeatureId& feature, Feature parent) {
        return UiFeatures::add<Kind>(listLabel, keywordList, feature, parent);
    }
    std::vector<std::u16string> entries() const { return hands.entries(keywordList); }
    std::u16string chosen() const { return hands.chosen(keywordList); }
    static std::u16string own(const std::u16string& text) {
        return formatMessage(std::uint16_t{IDS_CUSTOM_ENTRY_FORMAT}, text);
    }
    void chooseLast() { hands.choose(keywordList, static_cast<int>(entries().size()) - 1); }
    void typeOwn(const std::u16string& text, const std::u16string& startText = {}) {
        inNextDialog([=](const DialogHands& dialog) {
            ASSERT_NE(dialog.window(), nullptr);
            EXPECT_EQ(dialog.text(IDC_CUSTOM_ENTRY_EDIT), startText);
            dialog.type(IDC_CUSTOM_ENTRY_EDIT, text);
            dialog.click(IDOK);
        });
        chooseLast();
    }

    const std::u16string swop = FeatureValue(Value::colorEmulationSwop).getDisplayString();
    const std::u16string euroscale = FeatureValue(Value::euroscale).getDisplayString();
    const std::u16string invitation = ResourceLibrary().getString(IDS_CUSTOM_ENTRY);
};

TEST_F(UiKeyWordLists, theListHoldsWhatThePrinterAllowsAndTheEntryForMore) {
    auto& feature = showList(list().keyword(u"color-emulation", u"euroscale"));
    ASSERT_EQ(entries().size(), 4U);
    EXPECT_EQ(entries()[0], ResourceLibrary().getString(IDS_NOT_SPECIFIED)) << "never blank";
    EXPECT_EQ(entries()[1], swop);
    EXPECT_EQ(entries()[2], euroscale);
    EXPECT_EQ(entries()[3], invitation);
    EXPECT_EQ(chosen(), euroscale);
    hands.choose(keywordList, 1);
    EXPECT_EQ(job(), "color-emulation=keyword:swop");
    EXPECT_EQ(takePageChanges(), 1);
    EXPECT_EQ(counter.count, 1);
    hands.choose(keywordList, 0);
    EXPECT_EQ(job(), "");
    feature.setValue(Value::euroscale);
    EXPECT_EQ(chosen(), euroscale);
    feature.disableList();
    EXPECT_FALSE(hands.isEnabled(keywordList));
    feature.setToDefault(settings());
    feature.removeValue(Value::euroscale);
    feature.removeValue(Value::finishingsNone);
    EXPECT_EQ(entries().size(), 3U);
    feature.reinitialize();
    EXPECT_EQ(entries().size(), 4U);
}

TEST_F(UiKeyWordLists, theNotSetEntryTakesTheLabelOfItsSurroundings) {
    auto& feature =
        UiFeatures::add<KeyWordListUIFeature>(listLabel, keywordList, Feature::colorEmulation, noParentFeature);
    feature.setDefaultLabel(IDS_UNIT_MILLIMETERS);
    open(list().keyword(u"color-emulation", u"swop"));
    EXPECT_EQ(entries()[0], ResourceLibrary().getString(IDS_UNIT_MILLIMETERS));
    feature.setDefaultLabel(IDS_UNIT_INCHES);
    EXPECT_EQ(entries()[0], ResourceLibrary().getString(IDS_UNIT_INCHES));
    EXPECT_EQ(chosen(), swop) << "the choice stays";
}

TEST_F(UiKeyWordLists, aValueFromATicketGetsAnEntryOfItsOwnWhereThatIsAllowed) {
    auto& feature = showList(list().name(u"color-emulation", u"Ours"));
    EXPECT_EQ(entries().size(), 4U);
    EXPECT_EQ(chosen(), own(u"Ours"));
    load(list().name(u"color-emulation", u"Theirs"));
    EXPECT_EQ(entries().size(), 4U);
    EXPECT_EQ(chosen(), own(u"Theirs"));
    feature.setMarkCustomValue(false);
    load(list().name(u"color-emulation", u"Ours"));
    EXPECT_EQ(chosen(), u"Ours");
    load(list().keyword(u"color-emulation", u"no-such-word"));
    EXPECT_EQ(chosen(), u"") << "no word, and none of the user's";
    EXPECT_EQ(job(), "color-emulation=keyword:no-such-word");
}

TEST_F(UiKeyWordLists, aValueOutsideAPlainListIsNotSelected) {
    add<KeyWordListUIFeature>(Feature::sides, noParentFeature);
    open(list().keyword(u"sides", u"two-sided-short-edge"));
    EXPECT_EQ(chosen(), u"");
    EXPECT_EQ(job(), "sides=keyword:two-sided-short-edge");
}

TEST_F(UiKeyWordLists, theFirstEntryIsChosenForTheUserUnlessItAsks) {
    auto& feature = add<KeyWordListUIFeature>(Feature::sides, noParentFeature);
    feature.setFirstEntryRule(true);
    open(list().keyword(u"sides", u"two-sided-short-edge"));
    EXPECT_EQ(job(), "") << "the first entry is the one for not set";
    feature.removeValue(FeatureValue());
    load({});
    EXPECT_EQ(job(), "sides=keyword:one-sided");
}

TEST_F(UiKeyWordLists, theInvitationIsNeverChosenForTheUser) {
    auto& feature = showList(list().keyword(u"color-emulation", u"swop"));
    feature.setFirstEntryRule(true);
    for (const Value value : {Value::notSet, Value::colorEmulationSwop, Value::euroscale})
        feature.removeValue(value);
    load(list().keyword(u"color-emulation", u"swop"));
    EXPECT_EQ(entries(), std::vector{invitation});
    EXPECT_EQ(chosen(), u"");
}

class UiListsOfNamesWithoutBlanks : public UiKeyWordLists {
protected:
    UiListsOfNamesWithoutBlanks() : UiKeyWordLists(8) {}
};

TEST_F(UiListsOfNamesWithoutBlanks, theDialogTakesLettersAndDigits) {
    add<KeyWordListUIFeature>(Feature::mediaColor, noParentFeature);
    open();
    typeOwn(u"light red-2");
    EXPECT_EQ(job(), "media-col=collection[media-color=name:lightred2]");
}

TEST_F(UiKeyWordLists, aTypedValueTakesThePlaceOfTheInvitation) {
    showList();
    typeOwn(u"Mine");
    EXPECT_EQ(job(), "color-emulation=name:Mine");
    EXPECT_EQ(chosen(), own(u"Mine"));
    EXPECT_EQ(entries().size(), 4U);
    EXPECT_EQ(takePageChanges(), 1);
    EXPECT_EQ(counter.count, 1);
    typeOwn(u"Mine too", u"Mine");
    EXPECT_EQ(job(), "color-emulation=name:Mine too");
    EXPECT_EQ(entries().size(), 4U);
    typeOwn(u"swop", u"Mine too");
    EXPECT_EQ(job(), "color-emulation=keyword:swop") << "the printer's own word";
    EXPECT_EQ(chosen(), swop);
    EXPECT_EQ(entries().back(), own(u"Mine too"));
}

TEST_F(UiKeyWordLists, cancelLeavesTheSettingAndShowsItAgain) {
    showList(list().keyword(u"color-emulation", u"swop"));
    inNextDialog([this](const DialogHands& dialog) {
        ASSERT_NE(dialog.window(), nullptr);
        EXPECT_EQ(chosen(), swop) << "the setting, behind the dialog too";
        EXPECT_EQ(dialog.text(IDC_CUSTOM_ENTRY_EDIT), u"");
        EXPECT_FALSE(dialog.isEnabled(IDOK)) << "there is nothing to accept";
        dialog.type(IDC_CUSTOM_ENTRY_EDIT, std::u16string(300, u'x'));
        EXPECT_EQ(dialog.text(IDC_CUSTOM_ENTRY_EDIT).size(), 255U) << "the printer's limit";
        EXPECT_TRUE(dialog.isEnabled(IDOK));
        dialog.click(IDCANCEL);
    });
    chooseLast();
    EXPECT_EQ(job(), "color-emulation=keyword:swop");
    EXPECT_EQ(chosen(), swop);
    EXPECT_EQ(takePageChanges(), 0);
}

TEST_F(UiKeyWordLists, theInvitationMayStayBesideTheValue) {
    auto& feature = add<KeyWordListUIFeature>(Feature::colorEmulation, noParentFeature);
    feature.setKeepCustomChoice(true);
    open();
    typeOwn(u"Mine");
    EXPECT_EQ(entries().size(), 5U);
    EXPECT_EQ(entries()[3], invitation);
    EXPECT_EQ(chosen(), own(u"Mine"));
    hands.choose(keywordList, 1);
    chooseLast();
    EXPECT_EQ(job(), "color-emulation=name:Mine") << "the value's own entry asks nothing";
    open(list().name(u"color-emulation", u"Mine"));
    EXPECT_EQ(entries().size(), 5U) << "rebuilt";
}

} // namespace
