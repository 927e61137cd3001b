#include "plugin_ui/IKolmaPlugIn.h"

#include "jtcore/AnlXlate/KolmaDevMode.h"
#include "jtcore/Printer/DriverBasedPrinter.h"
#include "jtcore/Services/KolmaException.h"
#include "jtcore/Services/ResourceLibrary.h"
#include "jtcore/Services/formatMessage.h"
#include "jtcore/Services/trace.h"
#include "plugin_ui/PrivateAreaOperations.h"
#include "plugin_ui/PrivateAreaRecovery.h"

IKolmaPlugIn::IKolmaPlugIn() noexcept {
    try {
        resourceLibrary_ = std::make_unique<ResourceLibrary>();
    } catch (...) {
        traceText(u"IKolmaPlugIn::IKolmaPlugIn()",
                  u"Ignoring this exception throw because it's not critical that the ResourceLibrary get constructed.");
    }
}

IKolmaPlugIn::~IKolmaPlugIn() = default;

DriverBasedPrinter& IKolmaPlugIn::getPrinter(HANDLE printer) {
    if (printer_)
        printer_->validatePrinterHandleMatch(printer);
    else
        printer_ = std::make_unique<DriverBasedPrinter>(printer);
    return *printer_;
}

void IKolmaPlugIn::runDevMode(DWORD mode, const OEMDMPARAM& param) noexcept {
    try {
        runDevModeImplementation(mode, param);
    } catch (...) {
        recoverFromDevModeImplementationException(mode, param);
    }
}

void IKolmaPlugIn::runDevModeImplementation(DWORD mode, const OEMDMPARAM& param) {
    PrivateAreaOperations operations(getPrinter(param.hPrinter));
    switch (mode) {
    case OEMDM_DEFAULT:
        operations.makeDefault(param.pOEMDMOut);
        break;
    case OEMDM_CONVERT:
        operations.convert(param.pOEMDMIn, param.pOEMDMOut);
        break;
    case OEMDM_MERGE:
        operations.merge(param.pOEMDMIn, param.pOEMDMOut);
        break;
    default:
        raise<UnknownCaseException>(u"IKolmaPlugIn::runDevModeImplementation(): unknown mode 0x%lx.\r\n", mode);
    }
    KolmaDevMode::validateDevMode(param.pOEMDMOut);
}

void IKolmaPlugIn::recoverFromDevModeImplementationException(DWORD mode, const OEMDMPARAM& param) noexcept {
    traceRecovery(mode);
    if (mode == OEMDM_DEFAULT)
        writeEmptyArea(param.pOEMDMOut);
    else
        keepIncomingOrEmptyArea(param.pOEMDMIn, param.pOEMDMOut);
}
