#include "plugin_ui/DialogHandler.h"

#include "jtcore/Services/KolmaException.h"
#include "jtcore/Services/quietly.h"
#include "jtcore/Stock/StockInformation.h"
#include "platform/property_sheet.h"
#include "platform/windows.h"
#include "plugin_ui/hostBoundary.h"
#include "plugin_ui/sheetSite.h"

namespace {

// The last of the handlers: nothing leaves a dialog procedure, whatever the user chose at a failure's box.
constexpr INT_PTR notHandled = 0;

DialogHandler* givenHandler(LPARAM lParam) noexcept {
    const auto* page = reinterpret_cast<const PROPSHEETPAGEW*>(lParam);
    return page ? reinterpret_cast<DialogHandler*>(page->lParam) : nullptr;
}

DialogHandler* handlerOf(HWND window) {
    return reinterpret_cast<DialogHandler*>(GetWindowLongPtrW(window, GWLP_USERDATA));
}

// Their answer is the procedure's own: a brush.
bool asksForColours(UINT id) noexcept { return id >= WM_CTLCOLORMSGBOX && id <= WM_CTLCOLORSTATIC; }

bool isValidation(UINT id) noexcept { return id == UIM_VALIDATE_ENTRY || id == UIM_VALIDATE_SAVE; }

} // namespace

DialogHandler::DialogHandler(UIContext& context, Feature parentFeature, bool bindsStocks, std::uint16_t titleId)
    : ConfigurableUIComponent(context, parentFeature), bindsStocks_(bindsStocks), titleId_(titleId) {}

DialogHandler::~DialogHandler() {
    quietly([this] {
        if (openWindow_ && handlerOf(openWindow_) == this) SetWindowLongPtrW(openWindow_, GWLP_USERDATA, 0);
    });
}

void DialogHandler::setTargetSettings(FeatureSettings& settings) {
    workingSettings_.assignList(settings.getAttrNodeList());
    targetSettings_ = &settings;
}

FeatureSettings& DialogHandler::getTargetSettings() const {
    if (!targetSettings_)
        raise<UnknownCaseException>(u"DialogHandler::getTargetSettings(): the dialog edits no settings.\r\n");
    return *targetSettings_;
}

void DialogHandler::beforeInitDialog(HWND) {}

void DialogHandler::afterInitDialog(HWND) {}

void DialogHandler::commitSettings(HWND) { getTargetSettings().assignList(workingSettings_.getAttrNodeList()); }

INT_PTR CALLBACK DialogHandler::windowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return hostBoundary(notHandled, [&] {
        if (message == WM_INITDIALOG)
            if (DialogHandler* given = givenHandler(lParam)) given->attach(window);
        DialogHandler* handler = handlerOf(window);
        return handler ? handler->handle({window, message, wParam, lParam}) : notHandled;
    });
}

void DialogHandler::attach(HWND window) {
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    openWindow_ = window;
}

template <typename Body>
bool DialogHandler::runGuarded(HWND window, Body&& body) {
    return hostBoundary(false, [&] {
        return runAtSheetSite({window, titleId_, u"DialogHandler::windowProc()"}, false, [&] {
            body();
            return true;
        });
    });
}

INT_PTR DialogHandler::handle(const UIMessage& message) {
    LRESULT result = 0;
    bool isHandled = false;
    const bool isDone = runGuarded(message.window, [&] {
        if (message.id == WM_INITDIALOG)
            initDialog(message, result, isHandled);
        else
            isHandled = processMessage(message, result);
    });
    // What one of them could not judge is not valid, whatever the ones before it said.
    if (!isDone && isValidation(message.id)) result = entriesInvalid;
    // What stood as the answer when a handler failed is heard: a sheet whose apply failed must stay.
    if (!isDone && result != 0) isHandled = true;
    // A session that may change nothing is locked, whatever failed before.
    if (message.id == WM_INITDIALOG) lockIfReadOnly(message.window);
    SetWindowLongPtrW(message.window, DWLP_MSGRESULT, result);
    return isHandled && asksForColours(message.id) ? result : INT_PTR{isHandled};
}

void DialogHandler::initDialog(UIMessage message, LRESULT& result, bool& isHandled) {
    const HWND window = message.window;
    if (bindsStocks_ && getContext().stockInformation) getContext().stockInformation->setSettings(&workingSettings_);
    message.lParam = reinterpret_cast<LPARAM>(&workingSettings_);
    LRESULT ignored = 0;
    if (wasLocked_ && !getContext().readOnly) processMessage({nullptr, UIM_UNLOCK, 0, 0}, ignored);
    beforeInitDialog(window);
    isHandled = processMessage(message, result);
    afterInitDialog(window);
    processMessage({window, UIM_SHOW, 0, 0}, ignored);
    isHandled = true;
    SendMessageW(window, UIM_REFRESH, 0, 0);
}

void DialogHandler::lockIfReadOnly(HWND window) {
    wasLocked_ = getContext().readOnly;
    if (wasLocked_) SendMessageW(window, UIM_LOCK, 0, 0);
}
