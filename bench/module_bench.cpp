// The module as its host calls it.
#include "bench/plugIn.h"
#include "bench/ratios.h"
#include "bench/tickets.h"
#include "jtcore/AnlXlate/KolmaDevMode.h"
#include "platform/driver_host.h"

#include <cstring>

namespace {

IPrintOemUI& plugIn() {
    static IPrintOemUI* object = createPlugIn();
    return *object;
}

void devModeSize(benchmark::State& state) {
    OEMDMPARAM param{};
    for (auto _ : state)
        benchmark::DoNotOptimize(plugIn().DevMode(OEMDM_SIZE, &param));
}
BENCHMARK(devModeSize);

void createAndGetInfo(benchmark::State& state) {
    for (auto _ : state) {
        IPrintOemUI* object = createPlugIn();
        DWORD version = 0;
        DWORD needed = 0;
        benchmark::DoNotOptimize(object->GetInfo(OEMGI_GETVERSION, &version, sizeof version, &needed));
        object->Release();
    }
}
BENCHMARK(createAndGetInfo);

void devModeConvert(benchmark::State& state) {
    KolmaDevMode settings;
    settings.setAttrNodeList(typicalTicket());
    KolmaDmType in{};
    KolmaDmType out{};
    settings.exportToDevMode(&in);
    settings.exportToDevMode(&out);
    int printer = 0;
    OEMDMPARAM param{};
    param.hPrinter = &printer;
    param.pOEMDMIn = reinterpret_cast<decltype(param.pOEMDMIn)>(&in);
    param.pOEMDMOut = reinterpret_cast<decltype(param.pOEMDMOut)>(&out);
    for (auto _ : state)
        benchmark::DoNotOptimize(plugIn().DevMode(OEMDM_CONVERT, &param));
}
BENCHMARK(devModeConvert);

void compareAreas(benchmark::State& state) {
    KolmaDmType one{};
    KolmaDmType other{};
    for (auto _ : state) {
        benchmark::ClobberMemory();
        benchmark::DoNotOptimize(std::memcmp(&one, &other, sizeof one));
    }
}
BENCHMARK(compareAreas);

const int reported[] = {
    reportRatio({"DevMode with size / compare two areas", "devModeSize", "compareAreas"}),
    reportRatio({"create the object and answer GetInfo / inflate + bare DOM", "createAndGetInfo", "inflateAndDom"}),
    reportRatio({"convert an area / inflate + bare DOM", "devModeConvert", "inflateAndDom"}),
};

} // namespace
