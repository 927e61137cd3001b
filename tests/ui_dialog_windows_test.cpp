// The dialogs that the page opens, as a person meets them: from the templates of the resource module, on the real
// window layer, driven by posted messages. Where KOLMA_PICTURES names a folder, each leaves a picture there.
#include "jtcore/AnlXlate/PersistentSettings.h"
#include "jtcore/Capabilities/LimitationsDisplay.h"
#include "jtcore/Capabilities/SettingsProblemReporter.h"
#include "jtcore/Services/UserMessage.h"
#include "platform/window_pictures.h"
#include "plugin_ui/Features/CustomStringUIDialog.h"
#include "plugin_ui/UIFeature.h"
#include "plugin_ui/showLimitationsDialog.h"
#include "resources/ids.h"
#include "tests/memoryDialog.h"
#include "tests/printersForTests.h"
#include "tests/problemBuilder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <utility>
#include <vector>

// The leak checker takes what a thread of the toolkit's keeps for itself for addresses, and ends over them.
extern "C" __attribute__((visibility("default"))) const char* __lsan_default_options();
extern "C" const char* __lsan_default_options() { return "use_tls=0"; }

namespace {

constexpr UINT nextAct = WM_APP + 0x100;
constexpr int maximumWaits = 1000;

// Done in the dialog that has the item, once that is on top.
struct Act {
    int item;
    std::function<void(const DialogHands&)> run;
};
constexpr int textOfBox = IDC_STATIC;

// A page's window with a person before it, who does one thing after the other in the dialog on top.
class UiDialogWindows : public testing::Test {
protected:
    UiDialogWindows() {
        owner_ = CreateDialogIndirectParamW(nullptr, MemoryDialog({}).get(), nullptr, procedure,
                                            reinterpret_cast<LPARAM>(this));
        ShowWindow(owner_, SW_SHOW);
    }
    ~UiDialogWindows() override { DestroyWindow(owner_); }

    HWND owner() const { return owner_; }
    // For the next dialog. What stays open without an act for it is closed, so that a failure is no hang.
    void thenDo(std::vector<Act> acts) {
        acts_ = std::move(acts);
        done_ = 0;
        waits_ = 0;
        ++round_;
        callForNextAct();
    }
    void expectAllDone() {
        EXPECT_EQ(done_, acts_.size()) << "acts that found no dialog";
        ++round_;
    }

    // Without waiting: what a press opens is answered by the next act.
    static void press(const DialogHands& dialog, std::uint16_t button) {
        PostMessageW(dialog.item(button), BM_CLICK, 0, 0);
    }
    static void takePicture(const DialogHands& dialog, const std::string& name) {
        const char* folder = std::getenv("KOLMA_PICTURES");
        if (!folder || *folder == '\0') return;
        const std::u16string path = fromUtf8(std::string(folder) + "/" + name + ".png");
        EXPECT_TRUE(SaveWindowPicture(dialog.window(), toWide(path))) << name;
    }
    static std::u16string titleOf(const DialogHands& dialog) {
        char16_t title[256] = {};
        GetWindowTextW(dialog.window(), toWide(title), 256);
        return title;
    }

private:
    static INT_PTR CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message == WM_INITDIALOG) SetWindowLongPtrW(window, GWLP_USERDATA, lParam);
        auto* test = reinterpret_cast<UiDialogWindows*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        if (test && message == nextAct && wParam == test->round_) test->actInTopmost();
        return message == WM_INITDIALOG;
    }
    void actInTopmost() {
        const HWND top = GetActiveWindow();
        if (done_ < acts_.size() && GetDlgItem(top, acts_[done_].item)) {
            waits_ = 0;
            acts_[done_++].run(DialogHands(top));
        } else if (top != owner_ && ++waits_ > maximumWaits) {
            PostMessageW(top, WM_CLOSE, 0, 0);
        }
        callForNextAct();
    }
    void callForNextAct() { PostMessageW(owner_, nextAct, round_, 0); }

    HWND owner_ = nullptr;
    std::vector<Act> acts_;
    std::size_t done_ = 0;
    int waits_ = 0;
    WPARAM round_ = 0;
};

// ---- a value of the user's own ----

// Takes no value but one.
class Picky final : public UIFeature {
public:
    explicit Picky(UIContext& context) : UIFeature(context, noParentFeature) {}
    bool isFeatureSupported() override { return true; }
    void updateFeatureWithNewSettings() override {}
    void handleSubjectUpdate(std::uint16_t) override {}
    bool isEntryValid(HWND window) override {
        if (DialogHands(window).text(IDC_CUSTOM_ENTRY_EDIT) == u"Sunrise 2") return true;
        UserMessage(window, u"Custom value", u"There is a value of this name already. Please choose another one.",
                    MB_OK, Severity::warning)
            .show();
        return false;
    }
};

class UiCustomEntry : public UiDialogWindows {
protected:
    UiCustomEntry() { context_.capabilities = &capabilities_; }

    // True when it was accepted.
    bool show(std::vector<Act> acts, bool isPicky = false) {
        CustomStringUIDialog dialog(context_, Feature::colorEmulation, text);
        if (isPicky) dialog.addNew<Picky>(context_);
        FeatureSettings none;
        thenDo(std::move(acts));
        const bool isAccepted = dialog.showModal(owner(), none);
        expectAllDone();
        return isAccepted;
    }
    std::u16string text;

private:
    Capabilities capabilities_{
        modelOfFamily(1), TicketForm::current,
        ListCapabilities(list()
                             .set(u"job-creation-attributes-supported", keywords({u"color-emulation"}))
                             .set(u"color-emulation-supported", keywords({u"swop"}))
                             .set(u"user-defined-values-supported", keywords({u"color-emulation"})))};
    UIContext context_;
};

TEST_F(UiCustomEntry, opensOnItsEmptyFieldAndTakesWhatIsTyped) {
    const Act look{IDC_CUSTOM_ENTRY_EDIT, [](const DialogHands& dialog) {
                       EXPECT_EQ(GetFocus(), dialog.item(IDC_CUSTOM_ENTRY_EDIT)) << "a person may type at once";
                       EXPECT_FALSE(dialog.isEnabled(IDOK));
                       takePicture(dialog, "custom_entry_empty");
                   }};
    const Act type{IDC_CUSTOM_ENTRY_EDIT, [](const DialogHands& dialog) {
                       for (const char16_t key : std::u16string_view(u"Sunrise"))
                           SendMessageW(GetFocus(), WM_CHAR, key, 1);
                       EXPECT_TRUE(dialog.isEnabled(IDOK));
                       takePicture(dialog, "custom_entry");
                       press(dialog, IDOK);
                   }};
    EXPECT_TRUE(show({look, type}));
    EXPECT_EQ(text, u"Sunrise");
}

TEST_F(UiCustomEntry, opensOnItsTextToBeReplacedAndDropsItOnCancel) {
    text = u"Sunset";
    const Act cancel{IDC_CUSTOM_ENTRY_EDIT, [](const DialogHands& dialog) {
                         EXPECT_EQ(dialog.text(IDC_CUSTOM_ENTRY_EDIT), u"Sunset");
                         EXPECT_EQ(dialog.send(IDC_CUSTOM_ENTRY_EDIT, EM_GETSEL), MAKELONG(0, 6))
                             << "typing replaces it";
                         dialog.type(IDC_CUSTOM_ENTRY_EDIT, u"Noon");
                         press(dialog, IDCANCEL);
                     }};
    EXPECT_FALSE(show({cancel}));
    EXPECT_EQ(text, u"Sunset");
}

TEST_F(UiCustomEntry, staysWithItsTextWhenThatIsRefused) {
    const Act typeOneThatIsTaken{IDC_CUSTOM_ENTRY_EDIT, [](const DialogHands& dialog) {
                                     dialog.type(IDC_CUSTOM_ENTRY_EDIT, u"Sunrise");
                                     press(dialog, IDOK);
                                 }};
    const Act readTheBox{textOfBox, [](const DialogHands& box) {
                             EXPECT_EQ(titleOf(box), u"Custom value");
                             takePicture(box, "custom_entry_refused");
                             press(box, IDOK);
                         }};
    const Act typeAnother{IDC_CUSTOM_ENTRY_EDIT, [](const DialogHands& dialog) {
                              EXPECT_EQ(dialog.text(IDC_CUSTOM_ENTRY_EDIT), u"Sunrise") << "nothing typed is lost";
                              dialog.type(IDC_CUSTOM_ENTRY_EDIT, u"Sunrise 2");
                              press(dialog, IDOK);
                          }};
    EXPECT_TRUE(show({typeOneThatIsTaken, readTheBox, typeAnother}, true));
    EXPECT_EQ(text, u"Sunrise 2");
}

// ---- what the printer cannot do ----

class UiLimitations : public UiDialogWindows {
protected:
    UiLimitations() : before_(installLimitationsDisplay(showLimitationsDialog)) {}
    ~UiLimitations() override { installLimitationsDisplay(std::move(before_)); }

    int report(bool canCancel, std::vector<Act> acts) {
        PersistentSettings state;
        state.setAttrNodeList(defaults());
        AttrNodeList job = list()
                               .keyword(u"trapping", u"x")
                               .keyword(u"sides", u"odd")
                               .collection(u"cover-front", list().keyword(u"sides", u"odd"));
        AttrLocation onCover = locate(job, u"cover-front/sides!");
        onCover.setNestedFeature(job.getNode(u"cover-front"), Feature::coverFront);
        SettingsProblemList problems;
        problems.add(UnsupportedAttribute(locate(job, u"trapping")));
        problems.add(UnsupportedValue(locate(job, u"sides")));
        problems.add(UnsupportedValue(onCover));
        problems.add(MissingFeatureProblem(AttrLocation(&job), Feature::finishings));
        const SettingsProblemReporter reporter(owner(), IDS_TITLE_LOAD_TICKET, u"Annual report.jtif", state, true,
                                               canCancel);
        expected = reporter.getReportText(problems);
        thenDo(std::move(acts));
        const int answer = reporter.report(problems);
        expectAllDone();
        return answer;
    }
    std::u16string expected;

private:
    LimitationsDisplay before_;
};

std::u16string wholeText(HWND item) {
    std::u16string text(static_cast<std::size_t>(GetWindowTextLengthW(item)) + 1, u'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(item, toWide(text.data()), static_cast<int>(text.size()))));
    return text;
}

TEST_F(UiLimitations, tellWhatWillChangeAndAsk) {
    for (const std::uint16_t button : {std::uint16_t{IDOK}, std::uint16_t{IDCANCEL}}) {
        const Act answer{IDC_LIMITATIONS_REPORT, [&](const DialogHands& dialog) {
                             EXPECT_TRUE(titleOf(dialog).ends_with(u"Annual report.jtif"));
                             EXPECT_EQ(wholeText(dialog.item(IDC_LIMITATIONS_REPORT)), expected);
                             EXPECT_NE(dialog.text(IDC_LIMITATIONS_HEADLINE), u"");
                             EXPECT_EQ(LOWORD(SendMessageW(dialog.window(), DM_GETDEFID, 0, 0)), IDOK);
                             EXPECT_EQ(GetFocus(), dialog.item(IDC_LIMITATIONS_REPORT)) << "keys scroll it";
                             EXPECT_EQ(dialog.send(IDC_LIMITATIONS_REPORT, EM_GETSEL), 0) << "from its beginning";
                             takePicture(dialog, "limitations");
                             press(dialog, button);
                         }};
        EXPECT_EQ(report(true, {answer}), int{button});
    }
}

TEST_F(UiLimitations, leaveOneButtonWhereThereIsNothingToChoose) {
    const Act close{IDC_LIMITATIONS_REPORT, [](const DialogHands& dialog) {
                        EXPECT_EQ(dialog.item(IDOK), nullptr);
                        EXPECT_EQ(LOWORD(SendMessageW(dialog.window(), DM_GETDEFID, 0, 0)), IDCANCEL);
                        takePicture(dialog, "limitations_without_choice");
                        PostMessageW(dialog.window(), WM_CLOSE, 0, 0);
                    }};
    EXPECT_EQ(report(false, {close}), IDOK);
}

} // namespace
