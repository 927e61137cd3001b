#include "host/sheets/PlugInPage.h"

#include "platform/property_sheet.h"
#include "platform/windows.h"

#include <algorithm>
#include <cstring>

PlugInPage* PlugInPage::watching = nullptr;

PlugInPage::~PlugInPage() {
    if (watching == this) watching = nullptr;
}

void PlugInPage::watch(PROPSHEETUI_INFO& group) {
    watching = this;
    sheet_ = group.pfnComPropSheet;
    group.pfnComPropSheet = call;
}

LONG_PTR CALLBACK PlugInPage::call(HANDLE group, UINT function, LPARAM first, LPARAM second) {
    if (!watching) return 0;
    const bool isPage = function == CPSFUNC_ADD_PROPSHEETPAGEW && first != 0;
    if (isPage) return watching->add(group, *reinterpret_cast<const PROPSHEETPAGEW*>(first));
    return watching->sheet_(group, function, first, second);
}

// The record may be of an older size; what it has not is zero in the copy, which keeps the size.
LONG_PTR PlugInPage::add(HANDLE group, const PROPSHEETPAGEW& record) {
    if (isRefused) return 0;
    PROPSHEETPAGEW copy{};
    std::memcpy(&copy, &record, std::min<std::size_t>(record.dwSize, sizeof copy));
    if (!procedure_ && copy.pfnDlgProc) {
        procedure_ = copy.pfnDlgProc;
        copy.pfnDlgProc = procedure;
    }
    return sheet_(group, CPSFUNC_ADD_PROPSHEETPAGEW, reinterpret_cast<LPARAM>(&copy), 0);
}

INT_PTR CALLBACK PlugInPage::procedure(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    if (!watching) return FALSE;
    const bool isApply = message == WM_NOTIFY && reinterpret_cast<const NMHDR*>(lParam)->code == PSN_APPLY;
    return isApply ? watching->apply(page, wParam, lParam) : watching->procedure_(page, message, wParam, lParam);
}

INT_PTR PlugInPage::apply(HWND page, WPARAM wParam, LPARAM lParam) {
    isApplying_ = true;
    const INT_PTR isHandled = procedure_(page, WM_NOTIFY, wParam, lParam);
    isApplying_ = false;
    const LONG_PTR answer = isHandled != FALSE ? GetWindowLongPtrW(page, DWLP_MSGRESULT) : PSNRET_NOERROR;
    const bool isAccepted = answer == PSNRET_NOERROR;
    if ((onAnswered && onAnswered(isAccepted)) || !isAccepted) return isHandled;
    SetWindowLongPtrW(page, DWLP_MSGRESULT, PSNRET_INVALID);
    return TRUE;
}
