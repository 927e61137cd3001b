#include "plugin_ui/PropertySheetInterface.h"

#include "jtcore/Services/DialogResource.h"
#include "jtcore/Services/KolmaException.h"
#include "plugin_ui/DialogHandler.h"

#include <cstddef>

namespace {

// The record up to its subtitle, which every host of this interface takes.
constexpr DWORD pageRecordSize = offsetof(PROPSHEETPAGEW, hActCtx);

// The published error numbers of a sheet lie between this and 0.
constexpr LONG_PTR lowestError = -100;

bool isPage(LONG_PTR answer) noexcept { return answer > 0 || answer < lowestError; }

} // namespace

PropertySheetInterface::PropertySheetInterface(PFNCOMPROPSHEET pfnComPropSheet, HANDLE hComPropSheet,
                                               HINSTANCE hInstance) noexcept
    : pfnComPropSheet_(pfnComPropSheet), hComPropSheet_(hComPropSheet), hInstance_(hInstance) {}

void PropertySheetInterface::AddPage(const std::u16string& title, const DialogResource& dialogResource,
                                     DLGPROC dialogProcedure, DialogHandler& handler) {
    page_ = {};
    page_.dwSize = pageRecordSize;
    page_.dwFlags = PSP_DLGINDIRECT | PSP_USETITLE;
    page_.hInstance = hInstance_;
    page_.pResource = reinterpret_cast<LPCDLGTEMPLATEW>(dialogResource.getResourceData());
    page_.pszTitle = toWide(title);
    page_.pfnDlgProc = dialogProcedure;
    page_.lParam = reinterpret_cast<LPARAM>(&handler);
    hPage_ = call(CPSFUNC_ADD_PROPSHEETPAGEW, reinterpret_cast<LPARAM>(&page_), 0);
    if (!isPage(hPage_)) {
        hPage_ = 0;
        raise<ComPropSheetNullHandleException>(
            u"PropertySheetInterface::AddPage() failed - ComPropSheet() returned NULL handle.\r\n");
    }
}

void PropertySheetInterface::setResultOk() { call(CPSFUNC_SET_RESULT, hPage_, CPSUI_OK); }

LONG_PTR PropertySheetInterface::call(UINT function, LPARAM first, LPARAM second) const {
    return pfnComPropSheet_ ? pfnComPropSheet_(hComPropSheet_, function, first, second) : 0;
}
