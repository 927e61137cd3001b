#include "host/sheets/PrinterSheet.h"

#include "host/commandFailure.h"

#include <utility>

namespace {

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
      subject_(subject),
      title_((kind == Kind::document ? u"Document properties - " : u"Printer properties - ") + subject.printerName) {
    OEMUIPSPARAM& param = plugInParam_.published;
    param.cbSize = sizeof param;
    param.hPrinter = subject.printer;
    param.pPrinterName = toWide(subject.printerName.data());
    param.pPublicDM = subject.publicDevMode;
    param.pOEMDM = subject.area;
    param.dwFlags = subject.flags;
    plugInParam_.sheet = this;
    page_.onAnswered = [this](bool isAccepted) { return endApply(isAccepted); };
}

bool PrinterSheet::run() {
    DWORD result = CPSUI_CANCEL;
    SetLastError(ERROR_SUCCESS);
    const LONG answer = CommonPropertySheetUIW(nullptr, onSheet, reinterpret_cast<LPARAM>(this), &result);
    const DWORD error = GetLastError();
    if (failure_) std::rethrow_exception(failure_);
    if (hasNoPage_) raise<InWords<UnknownCaseException>>(u"The driver module could not open its page.");
    if (hasNoResult_) raise<InWords<UnknownCaseException>>(u"The driver module could not give its settings back.");
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
        if (sheet.onOpen) sheet.onOpen();
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
}

// The plug-in is asked for the number of its items first. What a document's sheet is opened for is the first page, and
// where that does not come there is nothing to fill them for.
bool PrinterSheet::addPages(PROPSHEETUI_INFO& info) {
    items_.emplace(plugIn_, kind_ == Kind::document ? OEMCUIP_DOCPROP : OEMCUIP_PRNPROP, subject_);
    const LONG_PTR group =
        info.pfnComPropSheet(info.hComPropSheet, CPSFUNC_ADD_PFNPROPSHEETUIW, reinterpret_cast<LPARAM>(onPlugIn),
                             reinterpret_cast<LPARAM>(&plugInParam_));
    hasNoPage_ = group <= 0 ||
                 (!items_->addPage(info, kind_ == Kind::document ? u"Editing" : u"Device") && kind_ == Kind::device);
    return !hasNoPage_;
}

LONG CALLBACK PrinterSheet::onPlugIn(PPROPSHEETUI_INFO info, LPARAM lParam) {
    return reinterpret_cast<PlugInParam*>(info->lParamInit)->sheet->runPlugIn(*info, lParam);
}

LONG PrinterSheet::runPlugIn(PROPSHEETUI_INFO& info, LPARAM lParam) {
    if (kind_ == Kind::device) return plugIn_.DevicePropertySheets(&info, lParam) == S_OK ? 1 : -1;
    if (info.Reason != PROPSHEETUI_REASON_INIT) return runDocumentSheet(info, lParam);
    PROPSHEETUI_INFO watched = info;
    page_.isRefused = refusesPage;
    page_.watch(watched);
    return runDocumentSheet(watched, lParam);
}

LONG PrinterSheet::runDocumentSheet(PROPSHEETUI_INFO& info, LPARAM lParam) {
    const HRESULT answer = plugIn_.DocumentPropertySheets(&info, lParam);
    if (info.Reason == PROPSHEETUI_REASON_SET_RESULT) hasNoResult_ = answer <= 0;
    return answer;
}

void PrinterSheet::takeResult(PROPSHEETUI_INFO& info, const SETRESULT_INFO& result) {
    info.Result = static_cast<ULONG_PTR>(result.Result);
    if (result.Result != CPSUI_OK) return;
    isWaiting_ = page_.isApplying();
    if (!isWaiting_) keep();
}

bool PrinterSheet::endApply(bool isAccepted) { return !std::exchange(isWaiting_, false) || !isAccepted || keep(); }

bool PrinterSheet::keep() {
    failure_ = nullptr; // what failed before may be mended by now
    try {
        if (onApplied) onApplied();
        hasApplied_ = true;
    } catch (const std::exception& failure) {
        failure_ = std::current_exception();
        showFailure(failure);
    }
    return !failure_;
}
