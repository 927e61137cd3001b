// The two exports of the module; exports.map keeps everything else inside.
#include "plugin_ui/IOemCFUI.h"
#include "plugin_ui/hostBoundary.h"
#include "plugin_ui/moduleState.h"

#include "platform/driver_host.h"

extern "C" HRESULT WINAPI DllGetClassObject(REFCLSID rclsid, REFIID riid, LPVOID* ppv) {
    if (!ppv) return E_POINTER;
    *ppv = nullptr;
    if (rclsid != CLSID_OEMUI) return CLASS_E_CLASSNOTAVAILABLE;
    return hostBoundary(E_OUTOFMEMORY, [&] {
        auto* factory = new IOemCFUI;
        const HRESULT result = factory->QueryInterface(riid, ppv);
        factory->Release();
        return result;
    });
}

extern "C" HRESULT WINAPI DllCanUnloadNow() { return isModuleInUse() ? S_FALSE : S_OK; }
