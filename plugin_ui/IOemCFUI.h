// The class factory of the plug-in. It deletes itself when its last reference goes.
#pragma once

#include "platform/com.h"

// NOLINTNEXTLINE(cppcoreguidelines-virtual-class-destructor): nobody but Release() may delete it
class IOemCFUI final : public IClassFactory {
public:
    // The creator holds the first reference.
    IOemCFUI() noexcept = default;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** ppv) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;

    // A new plug-in object. E_OUTOFMEMORY when there is none to be had, CLASS_E_NOAGGREGATION with an outer object.
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID riid, void** ppv) override;
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override;

private:
    ~IOemCFUI() = default;

    LONG volatile references_ = 1;
};
