// Dialogs and the controls in them.
#include "platform/controls.h"
#include "platform/qt/Dialog.h"
#include "platform/qt/windowCalls.h"

#include <charconv>
#include <string>

namespace {

// -1 is the published failure value of a dialog that could not be made.
INT_PTR runDialog(std::optional<DialogTemplate> dialogTemplate, HINSTANCE instance, HWND owner, DLGPROC procedure,
                  LPARAM initParam) {
    Window* parent = owner == nullptr ? nullptr : Window::of(owner);
    if (!dialogTemplate || (owner != nullptr && parent == nullptr)) return -1;
    dialogTemplate->style &= ~WS_CHILD;
    Dialog* dialog = Dialog::create(*dialogTemplate, instance, parent, procedure, initParam);
    return dialog == nullptr ? -1 : dialog->runModal();
}

HWND createDialog(const std::optional<DialogTemplate>& dialogTemplate, HINSTANCE instance, HWND owner,
                  DLGPROC procedure, LPARAM initParam) {
    Window* parent = owner == nullptr ? nullptr : Window::of(owner);
    if (!dialogTemplate || (owner != nullptr && parent == nullptr)) return nullptr;
    Dialog* dialog = Dialog::create(*dialogTemplate, instance, parent, procedure, initParam);
    if (dialog == nullptr) return nullptr;
    if ((dialogTemplate->style & WS_VISIBLE) != 0) dialog->showAsTemplateSays();
    return dialog->handle();
}

HWND noSuchControl() {
    SetLastError(ERROR_CONTROL_ID_NOT_FOUND);
    return nullptr;
}

// The number that the text begins with, leading spaces aside; it ends before the first character that is no digit.
// False for none, and for one that is too large.
bool parseNumber(std::u16string_view text, bool isSigned, UINT& value) {
    std::string digits;
    for (char16_t unit : text.substr(std::min(text.find_first_not_of(u' '), text.size())))
        digits += unit < 0x80 ? static_cast<char>(unit) : 'x';
    const char* end = digits.data() + digits.size();
    int number = 0;
    auto result = isSigned ? std::from_chars(digits.data(), end, number) : std::from_chars(digits.data(), end, value);
    if (isSigned) value = static_cast<UINT>(number);
    return result.ec == std::errc();
}

bool isRadioButton(const Window& control) {
    DWORD kind = control.style() & BS_TYPEMASK;
    return control.isOfClass(WC_BUTTONW) && (kind == BS_RADIOBUTTON || kind == BS_AUTORADIOBUTTON);
}

} // namespace

namespace qt {

INT_PTR DialogBoxParamW(HINSTANCE hInstance, LPCWSTR lpTemplateName, HWND hWndParent, DLGPROC lpDialogFunc,
                        LPARAM dwInitParam) {
    return runDialog(loadDialogTemplate(hInstance, lpTemplateName), hInstance, hWndParent, lpDialogFunc, dwInitParam);
}

INT_PTR DialogBoxIndirectParamW(HINSTANCE hInstance, LPCDLGTEMPLATEW hDialogTemplate, HWND hWndParent,
                                DLGPROC lpDialogFunc, LPARAM dwInitParam) {
    return runDialog(parseDialogTemplate(hDialogTemplate), hInstance, hWndParent, lpDialogFunc, dwInitParam);
}

HWND CreateDialogParamW(HINSTANCE hInstance, LPCWSTR lpTemplateName, HWND hWndParent, DLGPROC lpDialogFunc,
                        LPARAM dwInitParam) {
    return createDialog(loadDialogTemplate(hInstance, lpTemplateName), hInstance, hWndParent, lpDialogFunc,
                        dwInitParam);
}

HWND CreateDialogIndirectParamW(HINSTANCE hInstance, LPCDLGTEMPLATEW lpTemplate, HWND hWndParent, DLGPROC lpDialogFunc,
                                LPARAM dwInitParam) {
    return createDialog(parseDialogTemplate(lpTemplate), hInstance, hWndParent, lpDialogFunc, dwInitParam);
}

BOOL EndDialog(HWND hDlg, INT_PTR nResult) {
    Dialog* dialog = Dialog::of(Window::of(hDlg));
    if (dialog == nullptr) return FALSE;
    dialog->end(nResult);
    return TRUE;
}

BOOL MapDialogRect(HWND hDlg, LPRECT lpRect) {
    const Dialog* dialog = Dialog::of(Window::of(hDlg));
    if (dialog == nullptr || lpRect == nullptr) return FALSE;
    const DialogUnits& units = dialog->units();
    *lpRect = {units.across(lpRect->left), units.down(lpRect->top), units.across(lpRect->right),
               units.down(lpRect->bottom)};
    return TRUE;
}

HWND GetDlgItem(HWND hDlg, int nIDDlgItem) {
    const Window* dialog = Window::of(hDlg);
    if (dialog == nullptr) return nullptr;
    const Window* item = dialog->child(static_cast<WORD>(nIDDlgItem));
    return item == nullptr ? noSuchControl() : item->handle();
}

int GetDlgCtrlID(HWND hWnd) {
    const Window* window = Window::of(hWnd);
    return window == nullptr ? 0 : window->id();
}

BOOL SetDlgItemTextW(HWND hDlg, int nIDDlgItem, LPCWSTR lpString) {
    HWND item = qt::GetDlgItem(hDlg, nIDDlgItem);
    return item == nullptr ? FALSE : qt::SetWindowTextW(item, lpString);
}

UINT GetDlgItemTextW(HWND hDlg, int nIDDlgItem, LPWSTR lpString, int cchMax) {
    if (lpString != nullptr && cchMax > 0) *lpString = 0;
    HWND item = qt::GetDlgItem(hDlg, nIDDlgItem);
    return item == nullptr ? 0 : static_cast<UINT>(qt::GetWindowTextW(item, lpString, cchMax));
}

BOOL SetDlgItemInt(HWND hDlg, int nIDDlgItem, UINT uValue, BOOL bSigned) {
    QString text = bSigned != FALSE ? QString::number(static_cast<int>(uValue)) : QString::number(uValue);
    return qt::SetDlgItemTextW(hDlg, nIDDlgItem, toWide(text.toStdU16String()));
}

UINT GetDlgItemInt(HWND hDlg, int nIDDlgItem, BOOL* lpTranslated, BOOL bSigned) {
    WCHAR text[64];
    qt::GetDlgItemTextW(hDlg, nIDDlgItem, text, static_cast<int>(std::size(text)));
    UINT value = 0;
    bool isNumber = parseNumber(fromWide(text), bSigned != FALSE, value);
    if (lpTranslated != nullptr) *lpTranslated = isNumber ? TRUE : FALSE;
    return isNumber ? value : 0;
}

BOOL CheckDlgButton(HWND hDlg, int nIDButton, UINT uCheck) {
    HWND button = qt::GetDlgItem(hDlg, nIDButton);
    if (button == nullptr) return FALSE;
    qt::SendMessageW(button, BM_SETCHECK, uCheck, 0);
    return TRUE;
}

BOOL CheckRadioButton(HWND hDlg, int nIDFirstButton, int nIDLastButton, int nIDCheckButton) {
    const Window* dialog = Window::of(hDlg);
    if (dialog == nullptr) return FALSE;
    for (Window* child : dialog->children())
        if (isRadioButton(*child) && child->id() >= nIDFirstButton && child->id() <= nIDLastButton)
            child->send(BM_SETCHECK, child->id() == nIDCheckButton ? BST_CHECKED : BST_UNCHECKED);
    return TRUE;
}

UINT IsDlgButtonChecked(HWND hDlg, int nIDButton) {
    HWND button = qt::GetDlgItem(hDlg, nIDButton);
    return button == nullptr ? 0 : static_cast<UINT>(qt::SendMessageW(button, BM_GETCHECK, 0, 0));
}

} // namespace qt
