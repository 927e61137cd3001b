// The module as its host calls it.
#include "bench/plugIn.h"
#include "bench/ratios.h"
#include "bench/tickets.h"
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

std::vector<KolmaDmType> exported(const std::vector<KolmaDevMode>& settings) {
    std::vector<KolmaDmType> areas(settings.size());
    for (std::size_t i = 0; i < areas.size(); ++i)
        settings[i].exportToDevMode(&areas[i]);
    return areas;
}

// Each area in turn becomes the one that was made from the area before.
void convert(benchmark::State& state, const std::vector<KolmaDevMode>& settings) {
    std::vector<KolmaDmType> in = exported(settings);
    KolmaDmType out = in[0];
    int printer = 0;
    OEMDMPARAM param{};
    param.hPrinter = &printer;
    param.pOEMDMOut = reinterpret_cast<decltype(param.pOEMDMOut)>(&out);
    std::size_t turn = 0;
    const auto convertNext = [&] {
        param.pOEMDMIn = reinterpret_cast<decltype(param.pOEMDMIn)>(&in[++turn % in.size()]);
        return plugIn().DevMode(OEMDM_CONVERT, &param);
    };
    convertNext();
    for (auto _ : state)
        benchmark::DoNotOptimize(convertNext());
}
void devModeConvert(benchmark::State& state) { convert(state, manySettings()); }
void devModeConvertKnown(benchmark::State& state) { convert(state, {manySettings().front()}); }
BENCHMARK(devModeConvert);
BENCHMARK(devModeConvertKnown);

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
    reportRatio({"convert an area that is known / the same", "devModeConvertKnown", "inflateAndDom"}),
};

} // namespace
