// The module as its host calls it.
#include "bench/ratios.h"
#include "bench/tickets.h"
#include "jtcore/AnlXlate/KolmaDevMode.h"
#include "platform/driver_host.h"

#include <cstring>
#include <dlfcn.h>
#include <string>

namespace {

constexpr const char* modulePath = KOLMA_BUILD_DIR "/lib/kolma/3/libjtui37.so";

IPrintOemUI* createObject(void* module) {
    using GetClassObject = HRESULT (*)(REFCLSID, REFIID, void**);
    auto get = reinterpret_cast<GetClassObject>(dlsym(module, "DllGetClassObject"));
    IClassFactory* factory = nullptr;
    if (!get || get(CLSID_OEMUI, IID_IClassFactory, reinterpret_cast<void**>(&factory)) != S_OK) return nullptr;
    IPrintOemUI* object = nullptr;
    factory->CreateInstance(nullptr, IID_IPrintOemUI, reinterpret_cast<void**>(&object));
    factory->Release();
    return object;
}

IPrintOemUI& plugIn() {
    static IPrintOemUI* object = createObject(dlopen(modulePath, RTLD_NOW));
    return *object;
}

void devModeSize(benchmark::State& state) {
    OEMDMPARAM param{};
    for (auto _ : state)
        benchmark::DoNotOptimize(plugIn().DevMode(OEMDM_SIZE, &param));
}
BENCHMARK(devModeSize);

void createAndGetInfo(benchmark::State& state) {
    void* module = dlopen(modulePath, RTLD_NOW);
    for (auto _ : state) {
        IPrintOemUI* object = createObject(module);
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
