#include "plugin_ui/UIDialog.h"

#include "jtcore/Services/KolmaException.h"
#include "jtcore/Services/ResourceLibrary.h"
#include "jtcore/Services/quietly.h"
#include "platform/property_sheet.h"
#include "platform/windows.h"
#include "plugin_ui/dialogGeometry.h"
#include "plugin_ui/validateEntries.h"

#include <utility>

namespace {

// A failure in the dialog is shown under the dialog's own title.
constexpr std::uint16_t titleOfWindow = 0;

// The record by which a dialog of ours finds its handler, in the form of a page's.
PROPSHEETPAGEW recordOf(DialogHandler& handler) noexcept {
    PROPSHEETPAGEW record{};
    record.lParam = reinterpret_cast<LPARAM>(&handler);
    return record;
}

LPCDLGTEMPLATEW templateOf(const DialogResource& resource) {
    return reinterpret_cast<LPCDLGTEMPLATEW>(resource.getResourceData());
}

void showItem(HWND window, std::uint16_t id) { ShowWindow(GetDlgItem(window, id), SW_SHOW); }

// Set for as long as the object lives.
class Flag {
public:
    explicit Flag(bool& flag) noexcept : flag_(flag) { flag_ = true; }
    ~Flag() { flag_ = false; }
    Flag(const Flag&) = delete;
    Flag& operator=(const Flag&) = delete;

private:
    bool& flag_;
};

} // namespace

UIDialog::UIDialog(UIContext& context, std::uint16_t dialogId, Feature parentFeature, bool bindsStocks, bool autoSize)
    : DialogHandler(context, parentFeature, bindsStocks, titleOfWindow),
      okId_(IDOK),
      cancelId_(IDCANCEL),
      autoSize_(autoSize) {
    setDialogId(dialogId);
}

UIDialog::~UIDialog() {
    quietly([this] { closeModeless(); });
}

void UIDialog::setDialogId(std::uint16_t dialogId) {
    DialogResource resource(dialogId, true);
    ResourceLibrary().loadDialogData(resource);
    dialogResource_ = std::move(resource);
}

void UIDialog::setButtonIds(std::uint16_t ok, std::uint16_t cancel) noexcept {
    okId_ = ok;
    cancelId_ = cancel;
}

void UIDialog::setAnchor(int x, int y) noexcept {
    anchorX_ = x;
    anchorY_ = y;
}

bool UIDialog::showModal(HWND parent, FeatureSettings& settings) {
    if (isModal_ || modelessWindow_) return false;
    if (!runModal(parent, settings)) return false;
    commitSettings(parent);
    return true;
}

bool UIDialog::runModal(HWND parent, FeatureSettings& settings) {
    const Flag shown(isModal_);
    parentWindow_ = parent;
    setTargetSettings(settings);
    const ResourceLibrary library;
    const PROPSHEETPAGEW record = recordOf(*this);
    const INT_PTR answer = DialogBoxIndirectParamW(library.getModuleHandle(), templateOf(dialogResource_), parent,
                                                   windowProc, reinterpret_cast<LPARAM>(&record));
    if (answer == -1)
        raise<ResourceAcquisitionException>(
            u"UIDialog::showModal(): Dialog %d could not be shown. Last Error: %ld.\r\n",
            dialogResource_.getResourceId(), GetLastError());
    return answer != 0;
}

void UIDialog::showModeless(HWND parent, FeatureSettings& settings) {
    if (isModal_ || modelessWindow_) return;
    parentWindow_ = parent;
    setTargetSettings(settings);
    const ResourceLibrary library;
    const PROPSHEETPAGEW record = recordOf(*this);
    modelessWindow_ = CreateDialogIndirectParamW(library.getModuleHandle(), templateOf(dialogResource_), parent,
                                                 windowProc, reinterpret_cast<LPARAM>(&record));
    if (!modelessWindow_)
        raise<ResourceAcquisitionException>(
            u"UIDialog::showModeless(): Dialog %d could not be shown. Last Error: %ld.\r\n",
            dialogResource_.getResourceId(), GetLastError());
}

bool UIDialog::onCommand(const UIMessage& message, LRESULT& result) {
    const WORD id = LOWORD(message.wParam);
    if (id == okId_) return accept(message.window);
    if (id == cancelId_ || id == IDCANCEL) return cancel(message.window);
    return sendToChildren(message, result);
}

// A modal dialog commits when its window has gone, in showModal().
bool UIDialog::accept(HWND window) {
    if (!validateEntries(window)) return true;
    if (isModal_) {
        EndDialog(window, IDOK);
    } else if (modelessWindow_) {
        commitSettings(parentWindow_);
        closeModeless();
        notifyObservers();
    }
    return true;
}

bool UIDialog::cancel(HWND window) {
    if (isModal_)
        EndDialog(window, 0);
    else
        closeModeless();
    return true;
}

// The dialog may be told to cancel once more while its window goes.
void UIDialog::closeModeless() {
    if (const HWND open = std::exchange(modelessWindow_, nullptr)) DestroyWindow(open);
}

bool UIDialog::onDestroy(const UIMessage& message, LRESULT& result) {
    modelessWindow_ = nullptr;
    return sendToChildren(message, result);
}

void UIDialog::beforeInitDialog(HWND window) {
    dialogWindow_ = window;
    if (!title_.empty()) SetWindowTextW(window, toWide(title_));
    if (autoSize_) fitAroundControls(window, GetDlgItem(window, okId_));
}

void UIDialog::afterInitDialog(HWND window) {
    if (anchorX_ != 0 || anchorY_ != 0) placeTopRight(window, anchorX_, anchorY_);
    showItem(window, okId_);
    showItem(window, cancelId_);
}
