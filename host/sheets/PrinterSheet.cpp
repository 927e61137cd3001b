#include "host/sheets/PrinterSheet.h"

#include "host/commandFailure.h"
#include "jtcore/Services/catchSite.h"
#include "resources/ids.h"

namespace {

constexpr CatchSite appliedSite{nullptr, IDS_CAPTION_DRIVER, u"PrinterSheet::takeResult()"};

[[noreturn]] void raiseNotOpened(LONG answer, DWORD error) {
    if (error == ERROR_REQUIRES_INTERACTIVE_WINDOWSTATION)
        raise<InWords<UnknownCaseException>>(
            u"There is no display that the sheet could be shown on. A script needs none: --play SCRIPT.");
    raise<InWords<UnknownCaseException>>(u"The sheet could not be opened (%d, error %u).", answer, error);
}

} // namespace

PrinterSheet::PrinterSheet(IPrintOemUI& plugIn, Kind kind, SheetSubject& subject)
    : plugIn_(plugIn),
      kind_(kind),
      title_((kind == Kind::document ? u"Document properties - " : u"Printer properties - ") + subject.printerName),
      items_(plugIn, kind == Kind::document ? OEMCUIP_DOCPROP : OEMCUIP_PRNPROP, subject) {
    OEMUIPSPARAM& param = plugInParam_.published;
    param.cbSize = sizeof param;
    param.hPrinter = subject.printer;
    param.pPrinterName = toWide(subject.printerName.data());
    param.pPublicDM = subject.publicDevMode;
    param.pOEMDM = subject.area;
    param.dwFlags = subject.flags;
    plugInParam_.sheet = this;
}

bool PrinterSheet::run() {
    DWORD result = CPSUI_CANCEL;
    SetLastError(ERROR_SUCCESS);
    const LONG answer = CommonPropertySheetUIW(nullptr, onSheet, reinterpret_cast<LPARAM>(this), &result);
    const DWORD error = GetLastError();
    if (failure_) std::rethrow_exception(failure_);
    if (hasFailed_)
        raise<InWords<UnknownCaseException>>(u"The driver module could not open its page or give its settings back.");
    if (answer < 0) raiseNotOpened(answer, error);
    return hasApplied_;
}

LONG CALLBACK PrinterSheet::onSheet(PPROPSHEETUI_INFO info, LPARAM lParam) {
    PrinterSheet& sheet = *reinterpret_cast<PrinterSheet*>(info->lParamInit);
    switch (info->Reason) {
    case PROPSHEETUI_REASON_GET_INFO_HEADER:
        sheet.fillHeader(*reinterpret_cast<PROPSHEETUI_INFO_HEADER*>(lParam));
        return 1;
    case PROPSHEETUI_REASON_INIT:
        return sheet.addPages(*info) ? 1 : -1;
    case PROPSHEETUI_REASON_SET_RESULT:
        sheet.takeResult(*info, *reinterpret_cast<const SETRESULT_INFO*>(lParam));
        return 1;
    default:
        return 1;
    }
}

void PrinterSheet::fillHeader(PROPSHEETUI_INFO_HEADER& header) {
    header.Flags = PSUIHDRF_EXACT_PTITLE;
    header.pTitle = toWide(title_.data());
    if (onOpen) onOpen();
}

// What a document's sheet is opened for comes first.
bool PrinterSheet::addPages(PROPSHEETUI_INFO& info) {
    const LONG_PTR group =
        info.pfnComPropSheet(info.hComPropSheet, CPSFUNC_ADD_PFNPROPSHEETUIW, reinterpret_cast<LPARAM>(onPlugIn),
                             reinterpret_cast<LPARAM>(&plugInParam_));
    if (group <= 0) hasFailed_ = true;
    const bool hasItems = !items_.isEmpty() && items_.addPage(info, kind_ == Kind::document ? u"Editing" : u"Device");
    return group > 0 && (hasItems || kind_ == Kind::document);
}

LONG CALLBACK PrinterSheet::onPlugIn(PPROPSHEETUI_INFO info, LPARAM lParam) {
    return reinterpret_cast<PlugInParam*>(info->lParamInit)->sheet->runPlugIn(*info, lParam);
}

LONG PrinterSheet::runPlugIn(PROPSHEETUI_INFO& info, LPARAM lParam) {
    if (kind_ == Kind::device) return plugIn_.DevicePropertySheets(&info, lParam) == S_OK ? 1 : -1;
    const HRESULT answer = plugIn_.DocumentPropertySheets(&info, lParam);
    if (info.Reason == PROPSHEETUI_REASON_SET_RESULT && answer <= 0) hasFailed_ = true;
    return answer;
}

void PrinterSheet::takeResult(PROPSHEETUI_INFO& info, const SETRESULT_INFO& result) {
    info.Result = static_cast<ULONG_PTR>(result.Result);
    if (result.Result != CPSUI_OK) return;
    hasApplied_ = true;
    runAtCatchSite(appliedSite, false, [this] {
        try {
            if (onApplied) onApplied();
        } catch (...) {
            if (!failure_) failure_ = std::current_exception();
            throw;
        }
        return true;
    });
}
