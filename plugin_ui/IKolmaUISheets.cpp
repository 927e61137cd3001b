// The operations of the plug-in that put something of ours on the host's sheets.
#include "plugin_ui/IKolmaUI.h"

#include "jtcore/Printer/DriverBasedPrinter.h"
#include "jtcore/Services/KolmaException.h"
#include "plugin_ui/documentItems.h"
#include "plugin_ui/hostBoundary.h"
#include "plugin_ui/printerItems.h"
#include "plugin_ui/sheetSite.h"
#include "resources/ids.h"

namespace {

constexpr CatchSite printerItemsSite{nullptr, IDS_CAPTION_PRINTER_PROPERTIES,
                                     u"IKolmaUI::CommonUIProp(): OEMCUIP_PRNPROP"};
constexpr CatchSite documentItemsSite{nullptr, IDS_CAPTION_DOCUMENT_PROPERTIES,
                                      u"IKolmaUI::CommonUIProp(): OEMCUIP_DOCPROP"};
constexpr CatchSite documentSheetSite{nullptr, IDS_CAPTION_DOCUMENT_PROPERTIES, u"IKolmaUI::DocumentPropertySheets()"};

constexpr HRESULT sheetDone = 1;
constexpr HRESULT sheetFailed = -1;

} // namespace

HRESULT IKolmaUI::CommonUIProp(DWORD dwMode, POEMCUIPPARAM param) {
    return hostBoundary(S_OK, [&] {
        if (!param || (dwMode != OEMCUIP_DOCPROP && dwMode != OEMCUIP_PRNPROP)) {
            SetLastError(ERROR_INVALID_PARAMETER);
            return E_FAIL;
        }
        tellItems(dwMode, *param);
        return S_OK;
    });
}

// Unless all goes well the host is told of no items: it shows none, rather than some that were not filled.
void IKolmaUI::tellItems(DWORD mode, OEMCUIPPARAM& param) {
    OEMCUIPPARAM told = param;
    param.cOEMOptItems = 0;
    const bool isTold = runAtSheetSite(mode == OEMCUIP_DOCPROP ? documentItemsSite : printerItemsSite, false, [&] {
        if (mode == OEMCUIP_DOCPROP)
            tellDocumentItems(told, *this);
        else
            tellPrinterItems(told, getPrinter(told.hPrinter));
        return true;
    });
    if (isTold) param = told;
}

HRESULT IKolmaUI::runDocumentSheet(PROPSHEETUI_INFO& info, LPARAM lParam) {
    const WORD reason = info.Reason;
    const HRESULT result = runAtSheetSite(documentSheetSite, sheetFailed, [&] {
        if (reason == PROPSHEETUI_REASON_INIT) openSession(reinterpret_cast<const OEMUIPSPARAM*>(lParam));
        if (session_)
            session_->handleReason(info, lParam);
        else if (reason == PROPSHEETUI_REASON_DESTROY)
            info.Result = TRUE;
        return static_cast<LONG_PTR>(info.Result) == sheetFailed ? sheetFailed : sheetDone;
    });
    if (reason == PROPSHEETUI_REASON_DESTROY) session_.reset();
    return result;
}

void IKolmaUI::openSession(const OEMUIPSPARAM* param) {
    if (!param) raise<UnknownCaseException>(u"IKolmaUI::DocumentPropertySheets(): no OEMUIPSPARAM was given.\r\n");
    Printer& printer = getPrinter(param->hPrinter);
    if (!session_) session_ = std::make_unique<DocumentSheetSession>(printer);
}

void IKolmaUI::lockPage() {
    if (session_) session_->lockPage();
}

void IKolmaUI::unlockPage() {
    if (session_) session_->unlockPage();
}
