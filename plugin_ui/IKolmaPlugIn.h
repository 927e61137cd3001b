// What stands behind the plug-in's COM face: the printer that it serves, and the settings operations.
//
// One object serves one printer handle for its whole life, and is used by one user interface at a time.
#pragma once

#include "platform/driver_host.h"

#include <memory>

class DriverBasedPrinter;
class ResourceLibrary;

class IKolmaPlugIn {
public:
    virtual ~IKolmaPlugIn();
    IKolmaPlugIn(const IKolmaPlugIn&) = delete;
    IKolmaPlugIn& operator=(const IKolmaPlugIn&) = delete;

protected:
    // Keeps the resource module loaded for the object's life, when it can be loaded.
    IKolmaPlugIn() noexcept;

    // The printer behind the handle, made on first use. Raises InvalidPrinterHandleException when the object serves
    // another handle already.
    DriverBasedPrinter& getPrinter(HANDLE printer);

    // Runs OEMDM_DEFAULT, OEMDM_CONVERT or OEMDM_MERGE. Nothing is raised and nobody is told of a failure: whatever
    // happens, pOEMDMOut holds a usable area afterwards. REQUIRES: the areas that the mode needs are not null.
    void runDevMode(DWORD mode, const OEMDMPARAM& param) noexcept;

private:
    void runDevModeImplementation(DWORD mode, const OEMDMPARAM& param);
    void recoverFromDevModeImplementationException(DWORD mode, const OEMDMPARAM& param) noexcept;

    // In this order, since the resource module is given back before the printer goes.
    std::unique_ptr<DriverBasedPrinter> printer_;
    std::unique_ptr<ResourceLibrary> resourceLibrary_;
};
