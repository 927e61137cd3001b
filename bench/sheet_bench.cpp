// The document sheet from the call to the painted page, drawn into memory, against dialogs of the toolkit that it is
// drawn with; what a change costs; and what a thousand sheets leave behind.
#include "bench/plugIn.h"
#include "bench/ratios.h"
#include "host/sheets/PrinterSheet.h"
#include "platform/controls.h"
#include "platform/property_sheet.h"
#include "platform/spooler.h"
#include "platform/windows.h"
#include "resources/ids.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPageSetupDialog>
#include <QPrinter>
#include <QTimer>

#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int soakSheets = 1000;
constexpr int soakStart = 10;
constexpr double soakMostMiB = 1;

// Stores of its own, gone with the program.
class OwnStores {
public:
    OwnStores() : folder_(mkdtemp(pattern_)) {
        for (const char* name : {"XDG_DATA_HOME", "XDG_CONFIG_HOME", "HOME"})
            setenv(name, folder_.c_str(), 1);
    }
    ~OwnStores() { std::filesystem::remove_all(folder_); }
    OwnStores(const OwnStores&) = delete;
    OwnStores& operator=(const OwnStores&) = delete;

private:
    char pattern_[32] = "/tmp/kolma_sheet_bench.XXXXXX";
    std::string folder_;
};

double secondsSince(Clock::time_point begin) { return std::chrono::duration<double>(Clock::now() - begin).count(); }

BOOL CALLBACK takeVisible(HWND window, LPARAM found) {
    if (!IsWindowVisible(window)) return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

HWND visibleSheet() {
    HWND window = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), takeVisible, reinterpret_cast<LPARAM>(&window));
    return window;
}

// One printer and one document for all sheets; each sheet has a plug-in object of its own, as in a host.
class Document {
public:
    Document() {
        PRINTER_INFO_2W info{};
        std::u16string driver = u"Kolma Lindor 63 PS3 C3";
        info.pPrinterName = toWide(name_.data());
        info.pDriverName = toWide(driver.data());
        printer_ = AddPrinterW(nullptr, 2, reinterpret_cast<BYTE*>(&info));
        if (!printer_) OpenPrinterW(toWide(name_.data()), &printer_, nullptr);
        IPrintOemUI* plugIn = createPlugIn();
        OEMDMPARAM param{};
        param.cbSize = sizeof param;
        param.hPrinter = printer_;
        param.pOEMDMOut = area_.data();
        if (!printer_ || plugIn->DevMode(OEMDM_DEFAULT, &param) != S_OK) std::abort();
        plugIn->Release();
    }

    // Opens the sheet, does that with it when it has been painted, and cancels it. Returns the seconds to the paint.
    double open(const std::function<void(HWND)>& use = {}) {
        DEVMODEW devMode{};
        devMode.dmSize = sizeof devMode;
        SheetSubject subject{printer_, name_, &devMode, area_.data(), DM_UPDATE | DM_COPY};
        use_ = use;
        begin_ = Clock::now();
        IPrintOemUI* plugIn = createPlugIn();
        {
            PrinterSheet sheet(*plugIn, PrinterSheet::Kind::document, subject);
            sheet.onOpen = [this] { QTimer::singleShot(0, qApp, [this] { useAndCancel(); }); };
            sheet.run();
        }
        plugIn->Release();
        return seconds_;
    }

private:
    void useAndCancel() {
        const HWND sheet = visibleSheet();
        if (!sheet) std::abort();
        UpdateWindow(sheet);
        seconds_ = secondsSince(begin_);
        if (use_) use_(sheet);
        SendMessageW(sheet, PSM_PRESSBUTTON, PSBTN_CANCEL, 0);
    }

    std::u16string name_ = u"bench";
    HANDLE printer_ = nullptr;
    std::array<BYTE, 4016> area_{};
    std::function<void(HWND)> use_;
    Clock::time_point begin_;
    double seconds_ = 0;
};

Document& document() {
    static Document one;
    return one;
}

std::size_t widgetsOfSheet() {
    std::size_t count = 0;
    document().open([&](HWND) {
        for (const QWidget* window : QApplication::topLevelWidgets())
            if (window->isVisible()) count += static_cast<std::size_t>(window->findChildren<QWidget*>().size());
    });
    return count;
}

// What the windows of a sheet are sent while something is done to it, the sheet itself and its page included. One sheet
// at a time.
class MessageCount {
public:
    explicit MessageCount(HWND sheet) {
        procedures_.clear();
        count_ = 0;
        watch(sheet);
        EnumChildWindows(sheet, watchChild, 0);
    }
    ~MessageCount() {
        for (const auto& [window, procedure] : procedures_)
            SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure));
    }
    MessageCount(const MessageCount&) = delete;
    MessageCount& operator=(const MessageCount&) = delete;

    std::size_t get() const noexcept { return count_; }

private:
    static void watch(HWND window) {
        procedures_[window] = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&countAndPassOn)));
    }
    static BOOL CALLBACK watchChild(HWND window, LPARAM) {
        watch(window);
        return TRUE;
    }
    static LRESULT CALLBACK countAndPassOn(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        ++count_;
        return CallWindowProcW(procedures_.at(window), window, message, wParam, lParam);
    }

    static inline std::map<HWND, WNDPROC> procedures_;
    static inline std::size_t count_ = 0;
};

// Shows the dialog, and closes it when it has been painted.
template <typename Make>
double openPeer(Make make) {
    const Clock::time_point begin = Clock::now();
    double seconds = 0;
    const std::unique_ptr<QDialog> dialog = make();
    QTimer::singleShot(0, dialog.get(), [&] {
        dialog->repaint();
        seconds = secondsSince(begin);
        dialog->reject();
    });
    dialog->exec();
    return seconds;
}

std::unique_ptr<QDialog> makePlainDialog(std::size_t widgets) {
    auto dialog = std::make_unique<QDialog>();
    auto* grid = new QGridLayout(dialog.get());
    constexpr std::size_t columns = 12;
    for (std::size_t i = 0; i < widgets; ++i) {
        QWidget* widget = nullptr;
        switch (i % 4) {
        case 0:
            widget = new QLabel("Label");
            break;
        case 1:
            widget = new QLineEdit("text");
            break;
        case 2:
            widget = new QCheckBox("Choice");
            break;
        default:
            auto* box = new QComboBox;
            box->addItems({"one", "two", "three"});
            widget = box;
        }
        grid->addWidget(widget, static_cast<int>(i / columns), static_cast<int>(i % columns));
    }
    return dialog;
}

template <typename Measure>
void measure(benchmark::State& state, Measure once) {
    for (auto _ : state)
        state.SetIterationTime(once());
}

void documentSheet(benchmark::State& state) {
    measure(state, [] { return document().open(); });
}

// The toolkit's own page setup of a printer.
void pageSetup(benchmark::State& state) {
    QPrinter printer;
    measure(state, [&] { return openPeer([&] { return std::make_unique<QPageSetupDialog>(&printer); }); });
}

void plainDialog(benchmark::State& state) {
    const std::size_t widgets = widgetsOfSheet();
    state.counters["widgets"] = static_cast<double>(widgets);
    measure(state, [&] { return openPeer([&] { return makePlainDialog(widgets); }); });
}

// Another number of copies, until everything that depends on it has been told and painted.
void changeCopies(HWND sheet) {
    const auto page = reinterpret_cast<HWND>(SendMessageW(sheet, PSM_GETCURRENTPAGEHWND, 0, 0));
    SetWindowTextW(GetDlgItem(page, IDC_COPIES_EDIT), u"7");
    UpdateWindow(sheet);
}

void oneChange(benchmark::State& state) {
    measure(state, [] {
        double seconds = 0;
        document().open([&](HWND sheet) {
            const Clock::time_point begin = Clock::now();
            changeCopies(sheet);
            seconds = secondsSince(begin);
        });
        return seconds;
    });
}

std::size_t messagesOfOneChange() {
    std::size_t count = 0;
    document().open([&](HWND sheet) {
        const MessageCount messages(sheet);
        changeCopies(sheet);
        count = messages.get();
    });
    return count;
}

BENCHMARK(documentSheet)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(pageSetup)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(plainDialog)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(oneChange)->UseManualTime()->Unit(benchmark::kMillisecond);

const int reported[] = {
    reportRatio({"open the document sheet / page setup of the toolkit", "documentSheet", "pageSetup", 1.5}),
    reportRatio({"open the document sheet / plain dialog with as many widgets", "documentSheet", "plainDialog"}),
    reportRatio({"one change / open the document sheet", "oneChange", "documentSheet", 0.1}),
};

double residentMiB() {
    long pages = 0;
    long resident = 0;
    if (std::FILE* file = std::fopen("/proc/self/statm", "r")) {
        if (std::fscanf(file, "%ld %ld", &pages, &resident) != 2) resident = 0;
        std::fclose(file);
    }
    constexpr double pageSize = 4096;
    return static_cast<double>(resident) * pageSize / (1024 * 1024);
}

bool soak() {
    double before = 0;
    for (int i = 0; i < soakSheets; ++i) {
        if (i == soakStart) before = residentMiB();
        document().open();
    }
    const double growth = residentMiB() - before;
    const bool isKept = growth < soakMostMiB;
    std::printf("\n%d sheets opened and closed: resident memory grew by %.2f MiB after the first %d%s\n", soakSheets,
                growth, soakStart, isKept ? "" : "  NOT KEPT");
    return isKept;
}

} // namespace

int main(int count, char** arguments) {
    const OwnStores stores;
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    setenv("QT_LOGGING_RULES", "default.warning=false", 1); // what offscreen windows cannot do
    benchmark::Initialize(&count, arguments);
    if (benchmark::ReportUnrecognizedArguments(count, arguments)) return 2;
    std::printf("first sheet of the process, window layer loaded on the way: %.1f ms\n", document().open() * 1000);
    std::printf("messages to the windows of the sheet for one change: %zu\n", messagesOfOneChange());
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    const bool isSmall = soak();
    return reporter.printRatios() && isSmall ? 0 : 1;
}
