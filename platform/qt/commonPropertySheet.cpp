// CommonPropertySheetUIW: the tree of who adds what, then the window, then the end for all.
#include "platform/qt/PropertySheet.h"
#include "platform/qt/windowCalls.h"

namespace {

QString titleOf(const PROPSHEETUI_INFO_HEADER& header) {
    QString title = textFrom(static_cast<LPCWSTR>(header.pTitle));
    if ((header.Flags & PSUIHDRF_EXACT_PTITLE) != 0) return title;
    if ((header.Flags & PSUIHDRF_DEFTITLE) != 0) title += " Default";
    return (header.Flags & PSUIHDRF_PROPTITLE) != 0 ? title + " Properties" : title;
}

} // namespace

LONG qt::CommonPropertySheetUIW(HWND hWndOwner, PFNPROPSHEETUI pfnPropSheetUI, LPARAM lParam, LPDWORD pResult) {
    if (!pfnPropSheetUI) return ERR_CPSUI_INVALID_PDATA;
    SheetTree tree;
    PROPSHEETUI_INFO_HEADER header{};
    header.cbSize = sizeof header;
    header.hWndParent = hWndOwner;
    const LONG answer = tree.begin(pfnPropSheetUI, lParam, header);
    if (answer <= 0) return answer < 0 ? answer : ERR_CPSUI_GETLASTERROR;
    const std::vector<SheetPage*> pages = tree.pages();
    if (pages.empty()) return ERR_CPSUI_NO_PROPSHEETPAGE;
    PropertySheet* sheet =
        PropertySheet::create(header.hWndParent ? Window::of(header.hWndParent) : nullptr,
                              {titleOf(header), (header.Flags & PSUIHDRF_NOAPPLYNOW) == 0}, pages, tree.startPage());
    if (!sheet) return ERR_CPSUI_CREATEPROPPAGE_FAILED;
    sheet->runModal();
    if (pResult) *pResult = static_cast<DWORD>(tree.result());
    return CPSUI_OK;
}
