// What the printer can do, and whether a job is within it, against the system's printing library on an equal task.
#include "bench/plugIn.h"
#include "bench/ppdPeer.h"
#include "bench/ratios.h"
#include "bench/tickets.h"
#include "jtcore/AnlXlate/KolmaDevMode.h"
#include "jtcore/Attributes/IppList.h"
#include "jtcore/Capabilities/Capabilities.h"
#include "jtcore/Capabilities/FactoryCapabilities.h"
#include "jtcore/Capabilities/SettingsProblemList.h"
#include "jtcore/Printer/PrinterModel.h"
#include "jtcore/Services/User.h"
#include "jtcore/Services/UserPreferences.h"
#include "jtcore/Stock/StockInformation.h"
#include "platform/driver_host.h"
#include "platform/spooler.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>
#include <thread>

namespace {

// A colour printer, which can do nearly all of the job, and a monochrome one, which lacks a third of it.
constexpr char16_t driver[] = u"Kolma Lindor 63 PS3 C3";
constexpr char16_t otherDriver[] = u"Kolma Tarsel 77 PS3 C3";

std::unique_ptr<Capabilities> makeCapabilities(const char16_t* driverName = driver) {
    auto model = PrinterModel::createFromDriverName(driverName);
    return std::make_unique<Capabilities>(*model, TicketForm::current,
                                          FactoryCapabilities(*model, TicketForm::current));
}

const Capabilities& capabilities() {
    static const std::unique_ptr<Capabilities> built = makeCapabilities();
    return *built;
}

std::size_t countAttributes(const AttrNodeList& list) {
    std::size_t count = list.getNumNodes();
    for (const AttrNode& node : list)
        if (const IppList* inner = node.getAttrValue().asList()) count += countAttributes(inner->getList());
    return count;
}

void validate(benchmark::State& state, const AttrNodeList& job, const Capabilities& printer = capabilities()) {
    FeatureSettings settings(job);
    std::size_t found = 0;
    for (auto _ : state) {
        SettingsProblemList problems;
        printer.validateSettings(settings, problems);
        found = problems.getSize();
    }
    state.counters["attributes"] = static_cast<double>(countAttributes(job));
    state.counters["problems"] = static_cast<double>(found);
}
void validateTypical(benchmark::State& state) { validate(state, typicalTicket()); }
void validateLarge(benchmark::State& state) { validate(state, largeTicket()); }
void validateManyProblems(benchmark::State& state) {
    static const std::unique_ptr<Capabilities> monochrome = makeCapabilities(otherDriver);
    validate(state, typicalTicket(), *monochrome);
}
BENCHMARK(validateTypical);
BENCHMARK(validateManyProblems);
BENCHMARK(validateLarge);

void markAndResolvePeer(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(markAndResolveJob());
}
BENCHMARK(markAndResolvePeer);

void capabilitiesLater(benchmark::State& state) {
    capabilities();
    for (auto _ : state)
        benchmark::DoNotOptimize(makeCapabilities());
}
BENCHMARK(capabilitiesLater);

// A process of its own for each measurement: only the first building in a process is the first.
void capabilitiesFirst(benchmark::State& state) {
    for (auto _ : state) {
        std::FILE* child =
            popen((std::string(KOLMA_BUILD_DIR) + "/bench/kolma_bench --first-capabilities").c_str(), "r");
        double seconds = 0;
        if (!child || std::fscanf(child, "%lf", &seconds) != 1) std::abort();
        pclose(child);
        state.SetIterationTime(seconds);
    }
}
BENCHMARK(capabilitiesFirst)->UseManualTime()->Iterations(5);

IPrintOemUI& plugIn() {
    static IPrintOemUI* object = createPlugIn();
    return *object;
}

// Stores of the run's own, gone with the process.
class OwnStores {
public:
    OwnStores() {
        setenv("XDG_DATA_HOME", (folder_ + "/data").c_str(), 1);
        setenv("XDG_CONFIG_HOME", (folder_ + "/config").c_str(), 1);
    }
    ~OwnStores() { std::filesystem::remove_all(folder_); }
    OwnStores(const OwnStores&) = delete;
    OwnStores& operator=(const OwnStores&) = delete;

    // The user has saved preferences for the driver, or none ever. They were saved a while ago.
    void choosePreferences(bool areSaved) const {
        setenv("XDG_CONFIG_HOME", (folder_ + (areSaved ? "/saved" : "/config")).c_str(), 1);
        if (UserPreferences preferences(driver); areSaved && !preferences.hasJobNamePreference()) {
            preferences.setJobNamePreference(true);
            std::this_thread::sleep_for(std::chrono::seconds(1));
        }
    }

private:
    char pattern_[sizeof "/tmp/kolma_bench_store_XXXXXX"] = "/tmp/kolma_bench_store_XXXXXX";
    std::string folder_ = mkdtemp(pattern_);
};

const OwnStores& stores() {
    static const OwnStores own;
    return own;
}

HANDLE benchPrinter() {
    static HANDLE handle = [] {
        stores();
        WCHAR name[] = u"bench";
        WCHAR driverName[64] = {};
        std::memcpy(driverName, driver, sizeof driver);
        PRINTER_INFO_2W info{};
        info.pPrinterName = name;
        info.pDriverName = driverName;
        HANDLE added = AddPrinterW(nullptr, 2, reinterpret_cast<LPBYTE>(&info));
        if (!added) std::abort();
        std::this_thread::sleep_for(std::chrono::seconds(1)); // no document is opened the moment a printer is set up
        return added;
    }();
    return handle;
}

void merge(benchmark::State& state, const AttrNodeList& incoming, const AttrNodeList& outgoing,
           bool arePreferencesSaved = false) {
    HANDLE printer = benchPrinter();
    stores().choosePreferences(arePreferencesSaved);
    KolmaDmType in{};
    KolmaDmType kept{};
    KolmaDevMode settings;
    settings.setUserData(User::getLogonName(), true, true, true);
    settings.setAttrNodeList(incoming);
    settings.exportToDevMode(&in);
    settings.setAttrNodeList(outgoing);
    settings.exportToDevMode(&kept);
    KolmaDmType out = kept;
    OEMDMPARAM param{};
    param.hPrinter = printer;
    param.pOEMDMIn = reinterpret_cast<decltype(param.pOEMDMIn)>(&in);
    param.pOEMDMOut = reinterpret_cast<decltype(param.pOEMDMOut)>(&out);
    for (auto _ : state) {
        out = kept;
        benchmark::DoNotOptimize(plugIn().DevMode(OEMDM_MERGE, &param));
    }
}

AttrNodeList otherTicket() {
    AttrNodeList job = typicalTicket();
    job.deleteNode(u"cover-front");
    return job;
}
void mergeEqual(benchmark::State& state) { merge(state, typicalTicket(), typicalTicket()); }
void mergeDifferent(benchmark::State& state) { merge(state, typicalTicket(), otherTicket()); }
void mergeEqualWithPreferences(benchmark::State& state) { merge(state, typicalTicket(), typicalTicket(), true); }
BENCHMARK(mergeEqual);
BENCHMARK(mergeEqualWithPreferences);
BENCHMARK(mergeDifferent);

// As many stocks as the argument says, searched for each of 250 exception pages.
void findStocks(benchmark::State& state) {
    StockInformation stocks(capabilities());
    const Stock pattern = *stocks.getStocks().begin();
    for (std::int64_t i = 0; i < state.range(0); ++i) {
        Stock stock(pattern);
        FeatureSettings description = stock.getSettings();
        description.setLong(FeatureId(Feature::mediaWeightMetric), static_cast<std::int32_t>(60 + i));
        stocks.addStock(Stock(0, FeatureValue(), StockType::user, stock.getNameKind(), description));
    }
    AttrNodeList job = largeTicket();
    FeatureSettings settings(&job);
    for (auto _ : state) {
        stocks.setSettings(&settings);
        stocks.setSettings(nullptr);
    }
}
BENCHMARK(findStocks)->Arg(10)->Arg(50)->Arg(100);

const int reported[] = {
    reportRatio(
        {"validate a typical job / libcups mark, conflicts, resolve", "validateTypical", "markAndResolvePeer", 0.2}),
    reportRatio({"the same where the printer lacks a third of it", "validateManyProblems", "markAndResolvePeer"}),
    reportRatio(
        {"cost of an attribute, 250 exceptions / typical", "validateLarge", "validateTypical", 1.2,
         static_cast<double>(countAttributes(largeTicket())) / static_cast<double>(countAttributes(typicalTicket()))}),
    reportRatio({"merge of equal areas / libcups mark, conflicts, resolve", "mergeEqual", "markAndResolvePeer", 0.05}),
    reportRatio({"the same, the user having saved preferences", "mergeEqualWithPreferences", "markAndResolvePeer"}),
    reportRatio({"merge of different areas with repair / the same", "mergeDifferent", "markAndResolvePeer", 1.0}),
    reportRatio(
        {"capabilities of a printer: later / first in a process", "capabilitiesLater", "capabilitiesFirst", 0.25}),
};

} // namespace

int measureFirstCapabilities() {
    auto start = std::chrono::steady_clock::now();
    capabilities();
    std::printf("%.9f\n", std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
    return 0;
}
