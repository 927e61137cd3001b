#include "plugin_ui/IOemCFUI.h"

#include "plugin_ui/IKolmaUI.h"
#include "plugin_ui/hostBoundary.h"
#include "plugin_ui/moduleState.h"

HRESULT IOemCFUI::QueryInterface(REFIID riid, void** ppv) {
    if (!ppv) return E_POINTER;
    *ppv = nullptr;
    if (riid != IID_IUnknown && riid != IID_IClassFactory) return E_NOINTERFACE;
    AddRef();
    *ppv = static_cast<IClassFactory*>(this);
    return S_OK;
}

ULONG IOemCFUI::AddRef() { return static_cast<ULONG>(InterlockedIncrement(&references_)); }

ULONG IOemCFUI::Release() {
    const LONG left = InterlockedDecrement(&references_);
    if (left == 0) delete this;
    return static_cast<ULONG>(left);
}

HRESULT IOemCFUI::CreateInstance(IUnknown* outer, REFIID riid, void** ppv) {
    if (!ppv) return E_POINTER;
    *ppv = nullptr;
    if (outer) return CLASS_E_NOAGGREGATION;
    return hostBoundary(E_OUTOFMEMORY, [&] {
        auto* plugIn = new IKolmaUI;
        const HRESULT result = plugIn->QueryInterface(riid, ppv);
        plugIn->Release();
        return result;
    });
}

HRESULT IOemCFUI::LockServer(BOOL lock) {
    lock ? lockServer() : unlockServer();
    return S_OK;
}
