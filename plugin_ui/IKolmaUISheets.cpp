// The operations of the plug-in that put something of ours on the host's sheets.
#include "plugin_ui/IKolmaUI.h"

#include "jtcore/Services/KolmaException.h"
#include "jtcore/Services/catchSite.h"
#include "plugin_ui/hostBoundary.h"
#include "resources/ids.h"

namespace {

constexpr CatchSite printerItemsSite{nullptr, IDS_CAPTION_PRINTER_PROPERTIES,
                                     u"IKolmaUI::CommonUIProp(): OEMCUIP_PRNPROP"};
constexpr CatchSite documentItemsSite{nullptr, IDS_CAPTION_DOCUMENT_PROPERTIES,
                                      u"IKolmaUI::CommonUIProp(): OEMCUIP_DOCPROP"};
constexpr CatchSite documentSheetSite{nullptr, IDS_CAPTION_DOCUMENT_PROPERTIES, u"IKolmaUI::DocumentPropertySheets()"};

} // namespace

HRESULT IKolmaUI::CommonUIProp(DWORD dwMode, POEMCUIPPARAM param) {
    return hostBoundary(E_FAIL, [&] {
        if (!param || (dwMode != OEMCUIP_DOCPROP && dwMode != OEMCUIP_PRNPROP)) {
            SetLastError(ERROR_INVALID_PARAMETER);
            return E_FAIL;
        }
        if (!param->pOEMOptItems) param->cOEMOptItems = 0; // unless all goes well the host makes room for nothing
        if (dwMode == OEMCUIP_DOCPROP)
            return runAtCatchSite(documentItemsSite, S_OK, [] { return addDocumentItems(); });
        return runAtCatchSite(printerItemsSite, S_OK, [&] { return addPrinterItems(*param); });
    });
}

HRESULT IKolmaUI::addDocumentItems() {
    raise<UnknownCaseException>(
        u"IKolmaUI::CommonUIProp(): the document's option items are not available in this build.\r\n");
}

HRESULT IKolmaUI::addPrinterItems(const OEMCUIPPARAM& param) {
    getPrinter(param.hPrinter);
    raise<UnknownCaseException>(
        u"IKolmaUI::CommonUIProp(): the printer's option items are not available in this build.\r\n");
}

HRESULT IKolmaUI::runDocumentSheet(PROPSHEETUI_INFO& info, LPARAM lParam) {
    constexpr HRESULT failure = -1;
    return runAtCatchSite(documentSheetSite, failure, [&] {
        if (info.Reason == PROPSHEETUI_REASON_INIT) openDocumentSheet(reinterpret_cast<const OEMUIPSPARAM*>(lParam));
        if (info.Reason == PROPSHEETUI_REASON_DESTROY) info.Result = 1;
        return static_cast<LONG_PTR>(info.Result) == failure ? failure : HRESULT{1};
    });
}

void IKolmaUI::openDocumentSheet(const OEMUIPSPARAM* param) {
    if (!param) raise<UnknownCaseException>(u"IKolmaUI::DocumentPropertySheets(): no OEMUIPSPARAM was given.\r\n");
    getPrinter(param->hPrinter);
    raise<UnknownCaseException>(
        u"IKolmaUI::DocumentPropertySheets(): the document sheet is not available in this build.\r\n");
}
