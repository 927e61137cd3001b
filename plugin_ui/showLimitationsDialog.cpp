#include "plugin_ui/showLimitationsDialog.h"

#include "jtcore/Services/ResourceLibrary.h"
#include "platform/controls.h"
#include "platform/modules.h"
#include "platform/windows.h"
#include "plugin_ui/hostBoundary.h"
#include "plugin_ui/sheetSite.h"
#include "resources/ids.h"

namespace {

constexpr int maximumCaption = 256; // with the terminator

void setAnswerOfCancel(HWND window, int answer) {
    SetWindowLongPtrW(GetDlgItem(window, IDCANCEL), GWLP_USERDATA, answer);
}

// Where there is nothing to choose the one button left is that which ends the dialog in every way, under the other's
// caption.
void leaveOneButton(HWND window) {
    const HWND ok = GetDlgItem(window, IDOK);
    WCHAR caption[maximumCaption] = {};
    GetWindowTextW(ok, caption, maximumCaption);
    SetWindowTextW(GetDlgItem(window, IDCANCEL), caption);
    DestroyWindow(ok);
    SendMessageW(window, DM_SETDEFID, IDCANCEL, 0);
    setAnswerOfCancel(window, IDOK);
}

void fill(HWND window, const LimitationsReport& report) {
    SetWindowTextW(window, toWide(report.title));
    SetDlgItemTextW(window, IDC_LIMITATIONS_HEADLINE, toWide(report.headline));
    SetDlgItemTextW(window, IDC_LIMITATIONS_REPORT, toWide(report.text));
    if (report.canCancel)
        setAnswerOfCancel(window, IDCANCEL);
    else
        leaveOneButton(window);
}

// The keys that scroll go to the report, which begins at its beginning; left to itself a dialog marks the whole of it.
void startReading(HWND window) {
    const HWND text = GetDlgItem(window, IDC_LIMITATIONS_REPORT);
    SetFocus(text);
    SendMessageW(text, EM_SETSEL, 0, 0);
}

bool answer(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(window, GWLP_USERDATA, lParam);
        fill(window, *reinterpret_cast<const LimitationsReport*>(lParam));
        startReading(window);
        return false; // it has the focus
    }
    if (message != WM_COMMAND) return false;
    const WORD id = LOWORD(wParam);
    if (id == IDOK) return EndDialog(window, IDOK) != FALSE;
    if (id != IDCANCEL) return false;
    return EndDialog(window, GetWindowLongPtrW(GetDlgItem(window, IDCANCEL), GWLP_USERDATA)) != FALSE;
}

} // namespace

INT_PTR CALLBACK windowProcForPrinterLimitationsDialog(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    constexpr std::uint16_t titleOfWindow = 0;
    constexpr char16_t method[] = u"SettingsProblemReporter::windowProcForPrinterLimitationsDialog()";
    return hostBoundary(INT_PTR{FALSE}, [&] {
        return runAtSheetSite({window, titleOfWindow, method}, INT_PTR{FALSE},
                              [&] { return INT_PTR{answer(window, message, wParam, lParam)}; });
    });
}

int showLimitationsDialog(const LimitationsReport& report) {
    const ResourceLibrary library;
    return static_cast<int>(DialogBoxParamW(library.getModuleHandle(), MAKEINTRESOURCEW(IDD_LIMITATIONS), report.window,
                                            windowProcForPrinterLimitationsDialog, reinterpret_cast<LPARAM>(&report)));
}

void installLimitationsDialog() { static const auto before = installLimitationsDisplay(showLimitationsDialog); }
