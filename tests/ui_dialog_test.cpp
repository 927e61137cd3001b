// Dialogs of features: what OK and Cancel do to the settings, and who hears of it; and the dialog of the printer's
// limitations. The user in front of them is played.
#include "plugin_ui/DialogLaunchButtonUIFeature.h"
#include "plugin_ui/PropertySheetInterface.h"
#include "plugin_ui/PropertySheetPage.h"
#include "plugin_ui/UIDialog.h"
#include "plugin_ui/showLimitationsDialog.h"

#include "jtcore/Services/KolmaException.h"
#include "resources/ids.h"
#include "tests/FakeWindows.h"
#include "tests/MessageBoxes.h"
#include "tests/expectFailure.h"
#include "tests/listBuilder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAreArray;

namespace {

const FeatureId copies(Feature::copies);

// Writes what the user types into the settings of its dialog.
class CopiesFeature : public UIFeature {
public:
    explicit CopiesFeature(UIContext& context) : UIFeature(context, noParentFeature) {}
    bool isFeatureSupported() override { return isSupported; }
    void updateFeatureWithNewSettings() override { getDialogSettings().getLong(copies, shown); }
    void handleSubjectUpdate(std::uint16_t) override {}
    bool isEntryValid(HWND) override { return shown < 100; }
    bool onShow(const UIMessage& message, LRESULT& result) override {
        if (failsToShow) throw 5;
        return UIFeature::onShow(message, result);
    }
    bool onLock(const UIMessage&, LRESULT&) override {
        isLocked = true;
        return false;
    }
    bool onUnlock(const UIMessage&, LRESULT&) override {
        isLocked = false;
        return false;
    }
    void setToDefault(FeatureSettings& settings) override { settings.setFeatureValue(copies, FeatureValue()); }
    void type(std::int32_t number) {
        shown = number;
        getDialogSettings().setLong(copies, number);
    }

    std::int32_t shown = 0;
    bool isSupported = true;
    bool failsToShow = false;
    bool isLocked = false;
};

class TestDialog : public UIDialog {
public:
    explicit TestDialog(UIContext& context)
        : UIDialog(context, IDD_CUSTOM_ENTRY, noParentFeature, false, false), feature(addNew<CopiesFeature>(context)) {}

    CopiesFeature& feature;
};

struct Counter : Observer {
    void handleSubjectUpdate(std::uint16_t) override { ++heard; }
    int heard = 0;
};

// What a dialog's window is sent until the user has it.
const std::vector<UINT> freeStart = {WM_INITDIALOG, UIM_REFRESH};
const std::vector<UINT> lockedStart = {WM_INITDIALOG, UIM_REFRESH, UIM_LOCK};

class Dialogs : public testing::Test {
protected:
    Dialogs() { settings.setLong(copies, 3); }

    // Presses a button of the dialog.
    void press(HWND window, WORD id) { windows.send(window, WM_COMMAND, id, 0); }
    std::int32_t stored() const {
        std::int32_t number = 0;
        settings.getLong(copies, number);
        return number;
    }

    FakeWindows windows;
    UIContext context;
    FeatureSettings settings;
    TestDialog dialog{context};
};

} // namespace

TEST_F(Dialogs, okCommitsAndCancelDropsWhatWasEntered) {
    for (const auto& [button, after] : {std::pair<WORD, std::int32_t>{IDCANCEL, 3}, {IDOK, 8}}) {
        windows.user = [&, button = button](HWND window) {
            EXPECT_EQ(dialog.getDialogWindow(), window);
            EXPECT_EQ(dialog.feature.shown, 3) << "it starts from the caller's settings each time";
            EXPECT_TRUE(windows.isShown(window, IDOK));
            dialog.feature.type(8);
            EXPECT_EQ(stored(), 3) << "on a copy";
            press(window, button);
        };
        EXPECT_EQ(dialog.showModal(FakeWindows::sheet(), settings), button == IDOK);
        EXPECT_EQ(stored(), after);
    }
}

TEST_F(Dialogs, anInvalidEntryKeepsTheDialogOpenUntilItIsCorrected) {
    dialog.setButtonIds(71, 72);
    windows.user = [&](HWND window) {
        dialog.feature.type(100);
        press(window, 71);
        EXPECT_FALSE(windows.isEnded(window));
        press(window, IDOK);
        EXPECT_FALSE(windows.isEnded(window)) << "not its button";
        dialog.feature.type(99);
        press(window, 71);
        EXPECT_TRUE(windows.isEnded(window));
    };
    EXPECT_TRUE(dialog.showModal(FakeWindows::sheet(), settings));
    EXPECT_EQ(stored(), 99);
}

TEST_F(Dialogs, escapeCancelsWhateverTheButtonsAre) {
    dialog.setButtonIds(71, 72);
    for (const WORD id : {WORD{72}, WORD{IDCANCEL}}) {
        windows.user = [&](HWND window) {
            dialog.feature.type(8);
            press(window, id);
            EXPECT_TRUE(windows.isEnded(window)) << id;
        };
        EXPECT_FALSE(dialog.showModal(FakeWindows::sheet(), settings)) << id;
        EXPECT_EQ(stored(), 3) << id;
    }
}

TEST_F(Dialogs, shownWhileItIsUpItStaysAsItIs) {
    windows.user = [&](HWND window) {
        dialog.feature.type(8);
        FeatureSettings others;
        EXPECT_FALSE(dialog.showModal(window, others));
        dialog.showModeless(window, others);
        EXPECT_EQ(dialog.feature.shown, 8);
        press(window, IDOK);
    };
    EXPECT_TRUE(dialog.showModal(FakeWindows::sheet(), settings));
    EXPECT_EQ(stored(), 8);
}

TEST_F(Dialogs, thatCannotBeShownIsAFailureAndNoCommit) {
    EXPECT_EQ(errorCodeOf([&] { dialog.showModal(FakeWindows::sheet(), settings); }), "005:000");
    EXPECT_EQ(errorCodeOf([&] { dialog.setDialogId(9); }), "005:000") << "there is no such template";
    windows.user = [&](HWND window) { press(window, IDOK); };
    EXPECT_TRUE(dialog.showModal(FakeWindows::sheet(), settings)) << "the next try works, with the earlier template";
}

TEST_F(Dialogs, aModelessOneCommitsByItselfAndTells) {
    Counter counter;
    dialog.addObserver(counter);
    for (const auto& [button, after] : {std::pair<WORD, std::int32_t>{IDCANCEL, 3}, {IDOK, 8}}) {
        dialog.showModeless(FakeWindows::sheet(), settings);
        const HWND window = dialog.getDialogWindow();
        dialog.feature.type(100);
        if (button == IDOK) press(window, IDOK);
        EXPECT_TRUE(windows.isDialog(window)) << "an invalid entry keeps it open";
        dialog.feature.type(8);
        press(window, button);
        EXPECT_FALSE(windows.isDialog(window));
        EXPECT_EQ(stored(), after);
        EXPECT_EQ(counter.heard, button == IDOK ? 1 : 0);
    }
}

TEST_F(Dialogs, aModelessOneMayBeClosedByItsOwnerAndGoesWithItsHandler) {
    dialog.showModeless(FakeWindows::sheet(), settings);
    windows.close(dialog.getDialogWindow());
    windows.user = [&](HWND window) { press(window, IDOK); };
    EXPECT_TRUE(dialog.showModal(FakeWindows::sheet(), settings)) << "it can be shown again";

    auto other = std::make_unique<TestDialog>(context);
    other->showModeless(FakeWindows::sheet(), settings);
    const HWND window = other->getDialogWindow();
    other.reset();
    EXPECT_FALSE(windows.isDialog(window)) << "no window without a handler stays on the screen";
}

TEST_F(Dialogs, areLockedWithTheSessionAtEachShowingWhateverFails) {
    struct Row {
        bool isReadOnly;
        bool failsToShow;
    };
    const Row rows[] = {{false, false}, {true, false}, {false, false}, {true, true}, {false, true}};
    for (const Row& row : rows) {
        const MessageBoxes boxes(IDCANCEL);
        context.readOnly = row.isReadOnly;
        dialog.feature.failsToShow = row.failsToShow;
        windows.user = [&](HWND window) {
            EXPECT_EQ(dialog.feature.isLocked, row.isReadOnly);
            if (!row.failsToShow) {
                EXPECT_THAT(windows.sentTo(window), ElementsAreArray(row.isReadOnly ? lockedStart : freeStart));
            }
            press(window, IDCANCEL);
        };
        EXPECT_FALSE(dialog.showModal(FakeWindows::sheet(), settings));
        EXPECT_EQ(boxes.shown().size(), row.failsToShow ? 1 : 0);
    }
}

TEST_F(Dialogs, behindAButtonTellTheObserversOfAnOkAlone) {
    auto owned = std::make_unique<TestDialog>(context);
    TestDialog& behind = *owned;
    DialogLaunchButtonUIFeature launch(context, 77, std::move(owned));
    Counter counter;
    launch.addObserver(counter);
    launch.setDialogSettings(&settings);
    for (const WORD button : {WORD{IDCANCEL}, WORD{IDOK}}) {
        windows.user = [&](HWND window) {
            behind.feature.type(8);
            press(window, button);
        };
        LRESULT result = 0;
        launch.processMessage({FakeWindows::sheet(), WM_COMMAND, 77, 0}, result);
        EXPECT_EQ(counter.heard, button == IDOK ? 1 : 0);
    }
    EXPECT_EQ(stored(), 8);

    launch.setParentFeature(Feature::pageOverrides);
    EXPECT_EQ(behind.feature.getParentFeature(), Feature::pageOverrides);
    launch.setToDefault(settings);
    EXPECT_FALSE(settings.hasFeature(copies)) << "a default request reaches a dialog that is not shown";
    LRESULT result = 0;
    launch.processMessage({nullptr, UIM_LOCK, 0, 0}, result);
    EXPECT_TRUE(context.readOnly);
    launch.processMessage({nullptr, UIM_UNLOCK, 0, 0}, result);
    EXPECT_FALSE(context.readOnly);
    EXPECT_TRUE(launch.isFeatureSupported());
    behind.feature.isSupported = false;
    EXPECT_FALSE(launch.isFeatureSupported()) << "with nothing left in the dialog the button goes too";
}

namespace {

// A page whose commit fails.
struct FailingPage : PropertySheetPage {
    FailingPage(UIContext& context, PropertySheetInterface& sheet)
        : PropertySheetPage(context, noParentFeature, false, 0, sheet) {}
    void commitSettings(HWND) override {
        if (isUnknown) throw 5;
        throw std::bad_alloc();
    }
    bool isUnknown = false;
};

} // namespace

TEST_F(Dialogs, aPageWhoseCommitFailsKeepsTheSheetOpen) {
    PropertySheetInterface sheet(nullptr, nullptr, nullptr);
    FailingPage page(context, sheet);
    PROPSHEETPAGEW record{};
    record.pfnDlgProc = DialogHandler::windowProc;
    record.lParam = reinterpret_cast<LPARAM>(static_cast<DialogHandler*>(&page));
    const HWND window = windows.openPage(record);
    for (const bool isUnknown : {false, true})
        for (const int answer : {IDOK, IDCANCEL}) {
            page.isUnknown = isUnknown;
            const MessageBoxes boxes(answer);
            EXPECT_EQ(windows.notify(window, PSN_APPLY), PSNRET_INVALID) << isUnknown << answer;
            EXPECT_EQ(boxes.shown().size(), 1U) << isUnknown << answer;
        }
}

TEST(LimitationsDialog, offersTheChoiceOnlyWhereThereIsOne) {
    struct Row {
        bool canCancel;
        WORD pressed;
        int answer;
    };
    const Row rows[] = {{true, IDOK, IDOK}, {true, IDCANCEL, IDCANCEL}, {false, IDCANCEL, IDOK}, {false, IDOK, IDOK}};
    for (const Row& row : rows) {
        FakeWindows windows;
        windows.user = [&](HWND window) {
            EXPECT_EQ(toUtf8(windows.text(window)), "Title job.jtif");
            EXPECT_EQ(toUtf8(windows.text(FakeWindows::item(window, IDC_LIMITATIONS_HEADLINE))), "Headline");
            EXPECT_EQ(toUtf8(windows.text(FakeWindows::item(window, IDC_LIMITATIONS_REPORT))), "One\r\nTwo");
            windows.send(window, WM_COMMAND, 4001, 0);
            EXPECT_FALSE(windows.isEnded(window));
            windows.send(window, WM_COMMAND, row.pressed, 0);
        };
        const LimitationsReport report{FakeWindows::sheet(), u"Title job.jtif", u"Headline", u"One\r\nTwo",
                                       row.canCancel};
        EXPECT_EQ(showLimitationsDialog(report), row.answer) << row.canCancel << row.pressed;
    }
    const FakeWindows nobody;
    EXPECT_EQ(showLimitationsDialog({}), -1) << "no dialog can be shown";
}
