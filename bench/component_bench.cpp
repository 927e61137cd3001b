// One change in a page of many features: the click finds its control, the feature writes the setting, and the whole
// page is told to follow it. What a component costs must not depend on how many there are.
#include "bench/ratios.h"
#include "platform/property_sheet.h"
#include "plugin_ui/DialogHandler.h"
#include "plugin_ui/Features/CheckBoxUIFeature.h"
#include "plugin_ui/UIContext.h"
#include "tests/capabilityBuilder.h"
#include "tests/memoryDialog.h"

#include <cstdlib>
#include <vector>

namespace {

constexpr std::uint16_t firstControl = 1000;
constexpr std::uint16_t firstDefault = 2000;
constexpr int fewComponents = 64;
constexpr int manyComponents = 512;

class Page final : public DialogHandler, public Observer {
public:
    Page(UIContext& context, int features) : DialogHandler(context, noParentFeature, false, 0) {
        for (int i = 0; i < features; ++i)
            add(context, i).addObserver(*this);
    }
    void handleSubjectUpdate(std::uint16_t) override {
        ++changes_;
        last_->refreshDialog();
    }
    int getChanges() const noexcept { return changes_; }

private:
    // The first shows what is changed, the others show something else.
    CheckBoxUIFeature& add(UIContext& context, int index) {
        const bool isFirst = index == 0;
        last_ = &addNew<CheckBoxUIFeature>(
            context, FeatureId(isFirst ? Feature::sheetCollate : Feature::sides),
            static_cast<std::uint16_t>(firstControl + index), static_cast<std::uint16_t>(firstDefault + index),
            FeatureValue(isFirst ? Value::collated : Value::twoSidedLongEdge),
            FeatureValue(isFirst ? Value::uncollated : Value::oneSided), noParentFeature);
        return *last_;
    }

    CheckBoxUIFeature* last_ = nullptr;
    int changes_ = 0;
};

// A window with a page of features in it.
class OpenPage {
public:
    explicit OpenPage(int features) : page_(context_, features) {
        std::vector<DialogItem> items;
        for (const std::uint16_t first : {firstControl, firstDefault})
            for (int i = 0; i < features; ++i)
                items.push_back({u"BUTTON", BS_AUTOCHECKBOX, static_cast<std::uint16_t>(first + i), u"Box"});
        page_.setTargetSettings(settings_);
        PROPSHEETPAGEW record{};
        record.lParam = reinterpret_cast<LPARAM>(&page_);
        window_ = CreateDialogIndirectParamW(nullptr, MemoryDialog(items).get(), nullptr, DialogHandler::windowProc,
                                             reinterpret_cast<LPARAM>(&record));
        if (!window_) std::abort();
        ShowWindow(window_, SW_SHOW);
    }
    ~OpenPage() { DestroyWindow(window_); }
    OpenPage(const OpenPage&) = delete;
    OpenPage& operator=(const OpenPage&) = delete;

    void change() const {
        const int before = page_.getChanges();
        SendMessageW(GetDlgItem(window_, firstControl), BM_CLICK, 0, 0);
        if (page_.getChanges() == before) std::abort();
    }

private:
    static UIContext contextOf(const Capabilities& capabilities) {
        UIContext context;
        context.capabilities = &capabilities;
        return context;
    }

    Capabilities capabilities_ = makeCapabilities({});
    UIContext context_ = contextOf(capabilities_);
    FeatureSettings settings_{list().keyword(u"sheet-collate", u"uncollated").keyword(u"sides", u"one-sided")};
    Page page_;
    HWND window_ = nullptr;
};

template <int features>
void changeAmong(benchmark::State& state) {
    const OpenPage page(features);
    for (auto _ : state)
        page.change();
    state.counters["components"] = features;
}
void changeAmongFew(benchmark::State& state) { changeAmong<fewComponents>(state); }
void changeAmongMany(benchmark::State& state) { changeAmong<manyComponents>(state); }

BENCHMARK(changeAmongFew)->Unit(benchmark::kMicrosecond);
BENCHMARK(changeAmongMany)->Unit(benchmark::kMicrosecond);

const int reported = reportRatio({"one change, cost of a component: among 512 / among 64", "changeAmongMany",
                                  "changeAmongFew", 1.3, double{manyComponents} / fewComponents});

} // namespace
