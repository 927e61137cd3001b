#include "plugin_ui/DocumentSheetSession.h"

#include "jtcore/AnlXlate/KolmaDevMode.h"
#include "jtcore/Capabilities/Capabilities.h"
#include "jtcore/Printer/Printer.h"
#include "jtcore/Printer/PrinterDefaults.h"
#include "jtcore/Services/KolmaException.h"
#include "jtcore/Stock/StockInformation.h"
#include "plugin_ui/KolmaSettingsPropertySheetPage.h"
#include "plugin_ui/PropertySheetInterface.h"
#include "plugin_ui/UIContext.h"
#include "plugin_ui/showLimitationsDialog.h"

namespace {

bool wantsResult(const OEMUIPSPARAM& param) noexcept { return (param.dwFlags & (DM_UPDATE | DM_COPY)) != 0; }

// What the lParam of a reason, or the info, points to.
template <typename Record>
const Record& requireRecord(LPARAM lParam) {
    if (lParam == 0) raise<UnknownCaseException>(u"DocumentSheetSession::handleReason(): the host gave no record.\r\n");
    return *reinterpret_cast<const Record*>(lParam);
}

} // namespace

DocumentSheetSession::DocumentSheetSession(Printer& printer) : printer_(printer) { installLimitationsDialog(); }

DocumentSheetSession::~DocumentSheetSession() { close(); }

void DocumentSheetSession::close() noexcept {
    page_.reset();
    sheet_.reset();
    settings_.reset();
    context_.reset();
    stockInformation_.reset();
}

void DocumentSheetSession::handleReason(PROPSHEETUI_INFO& info, LPARAM lParam) {
    switch (info.Reason) {
    case PROPSHEETUI_REASON_INIT:
        initialize(info, requireRecord<OEMUIPSPARAM>(lParam));
        break;
    case PROPSHEETUI_REASON_SET_RESULT:
        setResult(info, requireRecord<SETRESULT_INFO>(lParam));
        break;
    case PROPSHEETUI_REASON_DESTROY:
        info.Result = TRUE;
        break;
    default:
        break;
    }
}

void DocumentSheetSession::initialize(const PROPSHEETUI_INFO& info, const OEMUIPSPARAM& param) {
    if (page_) raise<UnknownCaseException>(u"DocumentSheetSession::initialize(): the page of the session is open.\r\n");
    close();
    sheet_ = std::make_unique<PropertySheetInterface>(info.pfnComPropSheet, info.hComPropSheet,
                                                      resourceLibrary_.getModuleHandle());
    stockInformation_ = std::make_unique<StockInformation>(printer_.getCapabilities());
    const KolmaDevMode given(param.pOEMDM);
    hasPermission_ = (param.dwFlags & DM_NOPERMISSION) == 0;
    context_ = std::make_unique<UIContext>(UIContext{
        uiModePrinterDriver, &printer_.getCapabilities(), &printer_.getPrinterDefaults(), printer_.getUserPreferences(),
        stockInformation_.get(), !hasPermission_ || !given.isSettingsEditable()});
    settings_ = std::make_unique<KolmaDevMode>(given);
    page_ = std::make_unique<KolmaSettingsPropertySheetPage>(*sheet_, *context_, *settings_);
}

void DocumentSheetSession::setResult(PROPSHEETUI_INFO& info, const SETRESULT_INFO& result) {
    const auto& param = requireRecord<OEMUIPSPARAM>(info.lParamInit);
    if (result.Result == CPSUI_OK && page_ && wantsResult(param)) store(param);
    info.Result = static_cast<ULONG_PTR>(result.Result);
}

void DocumentSheetSession::store(const OEMUIPSPARAM& param) {
    if (!param.pOEMDM) raise<UnknownCaseException>(u"DocumentSheetSession::setResult(): the host gave no area.\r\n");
    printer_.updateUserData(*settings_);
    settings_->validateState();
    settings_->exportToDevMode(param.pOEMDM);
}

void DocumentSheetSession::lockPage() {
    if (!page_) return;
    setReadOnly(true);
    page_->lockPage();
}

void DocumentSheetSession::unlockPage() {
    if (!page_ || !hasPermission_) return;
    setReadOnly(false);
    page_->unlockPage();
}

// The window of the page, and a dialog, may be made later. The item in the host's sheet has written the choice into the
// host's area already, which this session's settings replace on OK.
void DocumentSheetSession::setReadOnly(bool readOnly) {
    context_->readOnly = readOnly;
    settings_->setSettingsEditable(!readOnly);
}
