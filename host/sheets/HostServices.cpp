#include "host/sheets/HostServices.h"

HostServices& HostServices::instance() {
    static HostServices one;
    return one;
}

HRESULT HostServices::QueryInterface(REFIID riid, void** ppvObject) {
    if (!ppvObject) return E_POINTER;
    const bool isOurs = riid == IID_IUnknown || riid == IID_IPrintOemDriverUI;
    *ppvObject = isOurs ? static_cast<IPrintOemDriverUI*>(this) : nullptr;
    return isOurs ? S_OK : E_NOINTERFACE;
}
