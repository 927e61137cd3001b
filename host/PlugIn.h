// The plug-in module, loaded and called as the printer driver interface does it: class factory, one object, its
// signature, its operations, the host's services for it.
#pragma once

#include "jtcore/AnlXlate/PersistentLayout.h"
#include "platform/driver_host.h"

class PlugIn {
public:
    // Raises UnknownCaseException, with words, when the module is missing or is not the plug-in that we know.
    PlugIn();
    ~PlugIn();
    PlugIn(const PlugIn&) = delete;
    PlugIn& operator=(const PlugIn&) = delete;

    // OEMDM_DEFAULT, OEMDM_CONVERT or OEMDM_MERGE; the incoming area is null for the first. One object serves one
    // printer handle. Raises UnknownCaseException when the module refuses.
    void runDevMode(DWORD mode, HANDLE printer, const KolmaDmType* in, KolmaDmType& out);

    // Knows the host's services. It lives as long as this.
    IPrintOemUI& object() noexcept { return *object_; }

private:
    void createObject();
    void checkObject();
    void release() noexcept;

    HMODULE module_ = nullptr;
    IPrintOemUI* object_ = nullptr;
};
