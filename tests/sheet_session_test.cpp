// One showing of the document's sheet, with the host's side and the windows played: what is stored when, who may change
// it, and what the user hears when something fails.
#include "plugin_ui/DocumentSheetSession.h"

#include "jtcore/Printer/DriverBasedPrinter.h"
#include "jtcore/Services/ResourceLibrary.h"
#include "platform/controls.h"
#include "plugin_ui/KolmaSettingsPropertySheetPage.h"
#include "plugin_ui/NavigationBar.h"
#include "plugin_ui/Overlay.h"
#include "plugin_ui/UIFeature.h"
#include "plugin_ui/navigationList.h"
#include "resources/ids.h"
#include "tests/FakeWindows.h"
#include "tests/MessageBoxes.h"
#include "tests/ModuleUnderTest.h"
#include "tests/expectFailure.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

const OwnStores ownStores;

constexpr char16_t driver[] = u"Kolma Tarsel 77 PS3 C3";

// The host: it takes the page, opens it in a window, and hands the area on.
class Host {
public:
    explicit Host(Area given, DWORD flags = DM_UPDATE) : area(std::move(given)) {
        theHost = this;
        param.pOEMDM = area.data();
        param.hPrinter = store.handle;
        param.dwFlags = flags;
        info.Version = PROPSHEETUI_INFO_VERSION;
        info.pfnComPropSheet = answer;
        info.lParamInit = reinterpret_cast<LPARAM>(&param);
    }
    ~Host() { theHost = nullptr; }
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    void initialize() { tell(PROPSHEETUI_REASON_INIT, reinterpret_cast<LPARAM>(&param)); }
    HWND open() {
        initialize();
        return window = windows.openPage(page);
    }
    // PSNRET_NOERROR, or what keeps the sheet open.
    LRESULT apply() { return windows.notify(window, PSN_APPLY); }
    LRESULT setResult(LONG result) {
        SETRESULT_INFO record{sizeof record, 0, nullptr, result};
        tell(PROPSHEETUI_REASON_SET_RESULT, reinterpret_cast<LPARAM>(&record));
        return static_cast<LRESULT>(info.Result);
    }
    void tell(WORD reason, LPARAM lParam) {
        info.Reason = reason;
        session.handleReason(info, lParam);
    }

    KolmaSettingsPropertySheetPage& handler() const {
        return *static_cast<KolmaSettingsPropertySheetPage*>(reinterpret_cast<DialogHandler*>(page.lParam));
    }
    Overlay& firstOverlay() const { return dynamic_cast<NavigationBar&>(**handler().firstChild()).getCurrent(); }
    // What a feature does when the user changes something.
    void edit(std::int32_t copies) { handler().getWorkingSettings().setLong(FeatureId(Feature::copies), copies); }
    bool isLocked() const {
        const auto sent = windows.sentTo(window);
        return std::find(sent.begin(), sent.end(), UIM_LOCK) != sent.end();
    }

    Area area;
    FakeWindows windows;
    TestPrinter store{driver};
    DriverBasedPrinter printer{store.handle};
    OEMUIPSPARAM param{};
    PROPSHEETUI_INFO info{};
    PROPSHEETPAGEW page{};
    LONG_PTR pageAnswer = 0x1000;
    std::vector<LPARAM> results; // told by CPSFUNC_SET_RESULT
    HWND window = nullptr;
    DocumentSheetSession session{printer};

private:
    static LONG_PTR CALLBACK answer(HANDLE, UINT function, LPARAM first, LPARAM second) {
        if (function == CPSFUNC_SET_RESULT) {
            EXPECT_EQ(first, theHost->pageAnswer);
            theHost->results.push_back(second);
            return 1;
        }
        EXPECT_EQ(function, CPSFUNC_ADD_PROPSHEETPAGEW);
        theHost->page = *reinterpret_cast<const PROPSHEETPAGEW*>(first);
        return theHost->pageAnswer;
    }

    static inline Host* theHost = nullptr;
};

Area areaThat(bool isEditable, std::int32_t copies = 3) {
    KolmaDevMode settings;
    settings.setAttrNodeList(list().integer(u"copies", copies));
    settings.setSettingsEditable(isEditable);
    return exported(settings);
}

// Settings that no area has room for: random words, so that compressing does not help.
AttrNodeList tooLarge() {
    std::uint32_t seed = 7;
    std::u16string words;
    for (int i = 0; i < 9000; ++i) {
        seed = seed * 1664525 + 1013904223;
        words += static_cast<char16_t>(u'!' + (seed >> 20) % 90);
    }
    for (char16_t& character : words)
        if (character == u'<' || character == u'&' || character == u'>' || character == u'"') character = u'x';
    return list().integer(u"copies", 5).text(u"sheet-message", words);
}

} // namespace

TEST(SheetSession, whatIsStoredIsWhatWasAppliedAndAccepted) {
    struct Row {
        const char* what;
        DWORD flags;
        bool isApplied;
        LONG result;
        std::int32_t copies; // in the area afterwards
    };
    const Row rows[] = {
        {"applied and accepted", DM_UPDATE, true, CPSUI_OK, 8},    {"the other flag", DM_COPY, true, CPSUI_OK, 8},
        {"nobody wants the result", DM_PROMPT, true, CPSUI_OK, 3}, {"no flag", 0, true, CPSUI_OK, 3},
        {"cancelled", DM_UPDATE, true, CPSUI_CANCEL, 3},           {"not applied", DM_UPDATE, false, CPSUI_OK, 3},
    };
    for (const Row& row : rows) {
        Host host(areaThat(true), row.flags);
        const Area before = host.area;
        host.open();
        host.edit(8);
        if (row.isApplied) {
            EXPECT_EQ(host.apply(), PSNRET_NOERROR) << row.what;
        }
        EXPECT_EQ(host.area, before) << row.what << ": an apply alone stores nothing";
        EXPECT_EQ(host.setResult(row.result), row.result) << row.what;
        EXPECT_EQ(copiesOf(host.area), row.copies) << row.what;
        if (row.result == CPSUI_CANCEL) {
            EXPECT_EQ(host.area, before) << row.what;
        }
    }
}

TEST(SheetSession, acceptedTwiceStoresWhatIsAppliedEachTime) {
    Host host(areaThat(true));
    host.open();
    for (const std::int32_t copies : {4, 5}) {
        host.edit(copies);
        host.apply();
        host.setResult(CPSUI_OK);
        EXPECT_EQ(copiesOf(host.area), copies);
    }
    host.edit(6);
    host.windows.send(host.window, UIM_VALIDATE_ENTRY, 0, 0);
    EXPECT_EQ(host.windows.word(host.window, DWLP_MSGRESULT), entriesValid);
    host.setResult(CPSUI_OK);
    EXPECT_EQ(copiesOf(host.area), 5) << "judging an entry is not applying it";
    host.tell(PROPSHEETUI_REASON_DESTROY, 0);
    EXPECT_EQ(host.info.Result, 1U);
}

TEST(SheetSession, anAreaThatIsNoneOpensWithInitialSettings) {
    Host host(absentArea());
    host.open();
    EXPECT_FALSE(host.isLocked());
    EXPECT_TRUE(host.handler().getWorkingSettings().isEmpty());
    host.setResult(CPSUI_OK);
    EXPECT_TRUE(KolmaDevMode::isValidArea(host.area.data()));
}

TEST(SheetSession, readOnlyIsWhoMayNotOrWhatMayNot) {
    struct Row {
        bool isEditable;
        DWORD flags;
        bool isLocked;
        bool canBeUnlocked;
    };
    const Row rows[] = {{true, DM_UPDATE, false, true},
                        {false, DM_UPDATE, true, true},
                        {true, DM_UPDATE | DM_NOPERMISSION, true, false},
                        {false, DM_UPDATE | DM_NOPERMISSION, true, false}};
    for (const Row& row : rows) {
        const std::string what = std::to_string(row.isEditable) + " " + std::to_string(row.flags);
        Host host(areaThat(row.isEditable), row.flags);
        host.open();
        EXPECT_EQ(host.isLocked(), row.isLocked) << what;
        host.session.unlockPage();
        EXPECT_EQ(host.handler().getContext().readOnly, !row.canBeUnlocked) << what;
        host.session.lockPage();
        EXPECT_TRUE(host.handler().getContext().readOnly) << what;
    }
}

TEST(SheetSession, whatTheHostsPageSaysOfEditingSurvivesTheAccept) {
    Host host(areaThat(true));
    host.initialize();
    host.session.lockPage();
    host.window = host.windows.openPage(host.page);
    EXPECT_TRUE(host.isLocked()) << "locked before there was a window";
    host.setResult(CPSUI_OK);
    EXPECT_FALSE(KolmaDevMode(host.area.data()).isSettingsEditable());
    host.session.unlockPage();
    host.setResult(CPSUI_OK);
    EXPECT_TRUE(KolmaDevMode(host.area.data()).isSettingsEditable());
}

TEST(SheetSession, aHostThatRefusesThePageIsAFailureAndMayTryAgain) {
    for (const LONG_PTR refusal : {LONG_PTR{0}, LONG_PTR{ERR_CPSUI_CREATEPROPPAGE_FAILED}}) {
        Host host(areaThat(true));
        const Area before = host.area;
        host.pageAnswer = refusal;
        EXPECT_EQ(messageOf<ComPropSheetNullHandleException>([&] { host.initialize(); }),
                  "PropertySheetInterface::AddPage() failed - ComPropSheet() returned NULL handle.\r\n");
        host.setResult(CPSUI_OK);
        EXPECT_EQ(host.area, before) << "without a page there is nothing to store";
        host.pageAnswer = 0x2000;
        host.open();
        EXPECT_EQ(errorCodeOf([&] { host.initialize(); }), "008:000") << "one page at a time";
        host.edit(4);
        EXPECT_EQ(host.apply(), PSNRET_NOERROR);
    }
}

TEST(Page, isComposedOfWhatThePrinterCanDo) {
    Host host(areaThat(true));
    host.open();
    EXPECT_EQ(host.page.dwFlags, PSP_DLGINDIRECT | PSP_USETITLE);
    EXPECT_EQ(toUtf8(fromWide(host.page.pszTitle)), "Kolma Job Settings");
    // All controls are there and hidden; the first overlay and the bar are shown.
    EXPECT_TRUE(host.windows.isShown(host.window, IDC_NAVIGATION_LIST));
    EXPECT_TRUE(host.windows.isShown(host.window, IDC_BASIC_FRAME));
    EXPECT_TRUE(host.windows.isShown(host.window, IDC_COPIES_EDIT));
    EXPECT_FALSE(host.windows.isShown(host.window, IDC_ABOUT_FRAME));
    EXPECT_FALSE(host.windows.isShown(host.window, IDC_PREFERENCES_BUTTON));
}

TEST(Page, settingsTooLargeForTheAreaKeepTheSheetOpenAndTheStoredOnesAsTheyWere) {
    Host host(areaThat(true));
    host.open();
    const FeatureSettings large(tooLarge());
    host.handler().getWorkingSettings().assignList(large.getAttrNodeList());
    const MessageBoxes boxes;
    EXPECT_EQ(host.apply(), PSNRET_INVALID);
    EXPECT_EQ(boxes.onlyOne().title, "Kolma Job Settings");
    EXPECT_THAT(boxes.onlyOne().text, HasSubstr("too large"));
    EXPECT_THAT(boxes.onlyOne().text, HasSubstr("\r\n\r\n015:000:"));
    EXPECT_EQ(boxes.onlyOne().owner, host.window);
    EXPECT_THAT(host.results, ElementsAre(CPSUI_OK)) << "the host is told in either case";
    EXPECT_EQ(show(host.handler().getStoredSettings().getAttrNodeList()), "copies=3");
    host.setResult(CPSUI_OK);
    EXPECT_EQ(copiesOf(host.area), 3);
    host.windows.send(host.window, UIM_VALIDATE_SAVE, 0, 0);
    EXPECT_EQ(host.windows.word(host.window, DWLP_MSGRESULT), entriesValid) << "a ticket file has room for them";
}

namespace {

// A feature that fails when it is told so.
class FailingFeature : public UIFeature {
public:
    enum class When { never, init, show, refresh, command, validate, notify };

    FailingFeature(UIContext& context, When when) : UIFeature(context, noParentFeature), when_(when) {}
    bool isFeatureSupported() override { return true; }
    void updateFeatureWithNewSettings() override { failAt(When::refresh); }
    void initializeFeature() override { failAt(When::init); }
    void handleSubjectUpdate(std::uint16_t) override {}
    bool onShow(const UIMessage&, LRESULT&) override { return failAt(When::show); }
    bool onCommand(const UIMessage&, LRESULT&) override { return failAt(When::command); }
    bool onNotify(const UIMessage&, LRESULT&) override { return failAt(When::notify); }
    bool isEntryValid(HWND) override { return !failAt(When::validate); }

    bool isUnknown = false;

private:
    bool failAt(When now) const {
        if (now != when_) return false;
        if (isUnknown) throw 5;
        raise<UnknownCaseException>(u"FailingFeature::failAt(): as told.\r\n");
    }

    When when_;
};

using When = FailingFeature::When;

} // namespace

TEST(Page, aFeatureThatFailsIsReportedAndTheSheetStaysOpen) {
    const std::pair<When, const char*> rows[] = {{When::init, "init"},         {When::show, "show"},
                                                 {When::refresh, "refresh"},   {When::command, "command"},
                                                 {When::validate, "validate"}, {When::notify, "notify"}};
    for (const bool isUnknown : {false, true})
        for (const int answer : {IDOK, IDCANCEL})
            for (const auto& [when, what] : rows) {
                Host host(areaThat(true));
                host.initialize();
                host.firstOverlay().addNew<FailingFeature>(host.handler().getContext(), when).isUnknown = isUnknown;
                const MessageBoxes boxes(answer);
                host.window = host.windows.openPage(host.page);
                host.windows.send(host.window, WM_COMMAND, 1, 0);
                host.windows.notify(host.window, PSN_KILLACTIVE);
                host.edit(8);
                const LRESULT applied = host.apply();
                EXPECT_EQ(applied, when == When::validate ? PSNRET_INVALID : PSNRET_NOERROR) << what;
                ASSERT_THAT(boxes.shown(), Not(IsEmpty())) << what;
                const ShownBox& box = boxes.shown().front();
                EXPECT_EQ(box.title, "Kolma Job Settings") << what;
                EXPECT_THAT(box.text, HasSubstr(isUnknown ? "unexpected failure" : "\r\n\r\n008:000:")) << what;
                EXPECT_EQ((box.style & MB_TYPEMASK) == MB_OKCANCEL, isUnknown) << what;
                host.setResult(CPSUI_OK);
                EXPECT_EQ(copiesOf(host.area), when == When::validate ? 3 : 8) << what;
            }
}

TEST(DialogProcedure, aMessageBeforeTheFirstFindsNobody) {
    Host host(areaThat(true));
    host.initialize();
    const HWND early = host.windows.makeDialog(host.page.pfnDlgProc);
    EXPECT_EQ(host.page.pfnDlgProc(early, WM_COMMAND, 1, 0), 0);
    EXPECT_EQ(host.page.pfnDlgProc(early, WM_INITDIALOG, 0, 0), 0) << "no record came with it";
}

TEST(DialogProcedure, aWindowThatOutlivesItsHandlerIsLeftAlone) {
    Host host(areaThat(true));
    struct Dialog : DialogHandler {
        explicit Dialog(UIContext& context) : DialogHandler(context, noParentFeature, false, 0) {}
    };
    UIContext context;
    HWND window = nullptr;
    {
        Dialog dialog(context);
        PROPSHEETPAGEW record{};
        record.pfnDlgProc = DialogHandler::windowProc;
        record.lParam = reinterpret_cast<LPARAM>(static_cast<DialogHandler*>(&dialog));
        window = host.windows.openPage(record);
        EXPECT_NE(host.windows.word(window, GWLP_USERDATA), 0);
        EXPECT_THAT(host.windows.sentTo(window), ElementsAre(WM_INITDIALOG, UIM_REFRESH));
    }
    EXPECT_EQ(host.windows.word(window, GWLP_USERDATA), 0);
    EXPECT_EQ(DialogHandler::windowProc(window, WM_COMMAND, 1, 0), 0);
}

TEST(NavigationBar, showsTheChosenOverlayAndHidesTheOther) {
    Host host(areaThat(true));
    host.open();
    const auto choose = [&](int item, UINT state, UINT_PTR from = IDC_NAVIGATION_LIST) {
        NMLISTVIEW change{};
        change.hdr = {nullptr, from, LVN_ITEMCHANGING};
        change.iItem = item;
        change.uNewState = state;
        host.windows.send(host.window, WM_NOTIFY, IDC_NAVIGATION_LIST, reinterpret_cast<LPARAM>(&change));
        EXPECT_EQ(host.windows.word(host.window, DWLP_MSGRESULT), 0) << "the change is allowed";
        return host.windows.isShown(host.window, IDC_ABOUT_FRAME);
    };
    int about = 0; // the last entry
    while (!choose(about, LVIS_SELECTED | LVIS_FOCUSED) && about < 12)
        ++about;
    EXPECT_GT(about, 0);
    EXPECT_FALSE(host.windows.isShown(host.window, IDC_BASIC_FRAME));
    EXPECT_FALSE(host.windows.isShown(host.window, IDC_COPIES_EDIT));
    EXPECT_TRUE(choose(0, LVIS_SELECTED)) << "selected alone does not switch";
    EXPECT_TRUE(choose(0, LVIS_SELECTED | LVIS_FOCUSED, 17)) << "another sender";
    EXPECT_TRUE(choose(about + 1, LVIS_SELECTED | LVIS_FOCUSED)) << "no such entry";
    EXPECT_TRUE(choose(-1, LVIS_SELECTED | LVIS_FOCUSED)) << "all entries";
    EXPECT_TRUE(choose(about, LVIS_SELECTED | LVIS_FOCUSED)) << "the current one again";
    EXPECT_FALSE(choose(0, LVIS_SELECTED | LVIS_FOCUSED));
    EXPECT_TRUE(host.windows.isShown(host.window, IDC_COPIES_EDIT));
}

TEST(NavigationBar, theViewOfTheListFollowsThePreference) {
    Host host(areaThat(true));
    host.open();
    const HWND list = FakeWindows::item(host.window, IDC_NAVIGATION_LIST);
    UserPreferences& preferences = host.handler().getContext().getPreferences();
    LONG_PTR& style = host.windows.word(list, GWL_STYLE);
    style |= LVS_SHOWSELALWAYS;
    host.windows.forget();
    for (const auto& [preference, view] : {std::pair{1, LVS_ICON}, {0, LVS_LIST}, {2, LVS_ICON}}) {
        preferences.setToolBarPreference(preference);
        host.windows.send(host.window, UIM_REFRESH, 0, 0);
        EXPECT_EQ(style, static_cast<LONG_PTR>(LVS_SHOWSELALWAYS | view)) << preference;
    }
    EXPECT_THAT(host.windows.sentTo(list), IsEmpty()) << "the entries stay";
    EXPECT_EQ(getIconSpacing(96), 70);
    EXPECT_EQ(getIconSpacing(97), 80);
}
