// The host's services for the plug-in. This driver's settings are the plug-in's own, so there are none that it could
// ask for: every question is answered with E_NOTIMPL.
#pragma once

#include "platform/driver_host.h"

// NOLINTNEXTLINE(cppcoreguidelines-virtual-class-destructor): there is one, for the life of the process
class HostServices final : public IPrintOemDriverUI {
public:
    static HostServices& instance();

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** ppvObject) override;
    // It is never destroyed: references are not counted.
    ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }

    HRESULT STDMETHODCALLTYPE DrvGetDriverSetting(PVOID, LPCSTR, PVOID, DWORD, PDWORD, PDWORD) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE DrvUpgradeRegistrySetting(HANDLE, LPCSTR, LPCSTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE DrvUpdateUISetting(PVOID, PVOID, DWORD, DWORD) override { return E_NOTIMPL; }
};
