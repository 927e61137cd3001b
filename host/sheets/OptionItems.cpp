#include "host/sheets/OptionItems.h"

#include "platform/heap.h"

#include <utility>

namespace {

// More than any page could show is a plug-in gone wrong.
constexpr DWORD mostItems = 1000;

} // namespace

OptionItems::OptionItems(IPrintOemUI& plugIn, DWORD mode, SheetSubject& subject)
    : plugIn_(plugIn), mode_(mode), heading_(subject.printerName) {
    param_.cbSize = sizeof param_;
    param_.hPrinter = subject.printer;
    param_.pPrinterName = toWide(subject.printerName.data());
    param_.hOEMHeap = HeapCreate(0, 0, 0);
    param_.pPublicDM = subject.publicDevMode;
    param_.pOEMDM = subject.area;
    param_.dwFlags = subject.flags;
    if (!tell() || param_.cOEMOptItems > mostItems) param_.cOEMOptItems = 0;
}

OptionItems::~OptionItems() { HeapDestroy(param_.hOEMHeap); }

bool OptionItems::tell() { return plugIn_.CommonUIProp(mode_, &param_) == S_OK; }

// Who may not change anything can only look at them.
bool OptionItems::fill() {
    if (param_.cOEMOptItems == 0) return false;
    items_.resize(param_.cOEMOptItems + 1);
    items_[0].cbSize = sizeof(OPTITEM);
    items_[0].pName = toWide(heading_.data());
    param_.pOEMOptItems = items_.data() + 1;
    if (!tell() || param_.cOEMOptItems == 0) return false;
    if ((param_.dwFlags & DM_NOPERMISSION) != 0)
        for (DWORD i = 0; i < param_.cOEMOptItems; ++i)
            param_.pOEMOptItems[i].Flags |= OPTIF_DISABLED;
    return true;
}

bool OptionItems::addPage(PROPSHEETUI_INFO& sheet, std::u16string title) {
    if (!fill()) return false;
    title_ = std::move(title);
    page_.cbSize = sizeof page_;
    page_.pCallerName = toWide(title_.data());
    page_.pOptItemName = page_.pCallerName;
    page_.Flags = (param_.dwFlags & DM_NOPERMISSION) == 0 ? CPSUIF_UPDATE_PERMISSION : WORD{0};
    page_.UserData = reinterpret_cast<ULONG_PTR>(this);
    page_.pfnCallBack = onItems;
    page_.pOptItem = items_.data();
    page_.cOptItem = static_cast<WORD>(items_.size());
    page_.pDlgPage = CPSUI_PDLGPAGE_TREEVIEWONLY;
    const LONG_PTR added =
        sheet.pfnComPropSheet(sheet.hComPropSheet, CPSFUNC_ADD_PCOMPROPSHEETUIW, reinterpret_cast<LPARAM>(&page_), 0);
    return added > 0;
}

// The plug-in knows its own items only.
LONG CALLBACK OptionItems::onItems(PCPSUICBPARAM callback) {
    OEMCUIPPARAM& param = reinterpret_cast<OptionItems*>(callback->UserData)->param_;
    if (!param.OEMCUIPCallback) return CPSUICB_ACTION_NONE;
    const bool isTheirs = callback->pCurItem >= param.pOEMOptItems;
    if (!isTheirs) callback->pCurItem = param.pOEMOptItems;
    callback->pOptItem = param.pOEMOptItems;
    callback->cOptItem = static_cast<WORD>(param.cOEMOptItems);
    return param.OEMCUIPCallback(callback, &param);
}
