#include "bench/plugIn.h"

#include <cstdlib>
#include <dlfcn.h>

namespace {

using GetClassObject = HRESULT (*)(REFCLSID, REFIID, void**);

GetClassObject moduleEntry() {
    static void* module = dlopen(KOLMA_BUILD_DIR "/lib/kolma/3/libjtui37.so", RTLD_NOW);
    void* entry = module ? dlsym(module, "DllGetClassObject") : nullptr;
    if (!entry) std::abort();
    return reinterpret_cast<GetClassObject>(entry);
}

} // namespace

IPrintOemUI* createPlugIn() {
    IClassFactory* factory = nullptr;
    if (moduleEntry()(CLSID_OEMUI, IID_IClassFactory, reinterpret_cast<void**>(&factory)) != S_OK) std::abort();
    IPrintOemUI* object = nullptr;
    factory->CreateInstance(nullptr, IID_IPrintOemUI, reinterpret_cast<void**>(&object));
    factory->Release();
    if (!object) std::abort();
    return object;
}
