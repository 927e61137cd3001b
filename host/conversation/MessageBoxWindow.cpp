#include "host/conversation/MessageBoxWindow.h"

#include "host/conversation/ControlKind.h"
#include "host/conversation/windowTree.h"
#include "platform/controls.h"

#include <algorithm>

namespace {

// The published numbers of a file dialog's field for the name: a combo box, or an edit box.
constexpr int fileNameBox = 0x047C;
constexpr int fileNameEdit = 0x0480;

constexpr int lastButton = 11; // the published results of a message box

bool isButtonOfBox(HWND window) {
    const int id = GetDlgCtrlID(window);
    return kindOf(window) == ControlKind::pushButton && id >= IDOK && id <= lastButton;
}

bool isPartOfBox(HWND window) {
    const ControlKind kind = kindOf(window);
    return isButtonOfBox(window) || kind == ControlKind::label || kind == ControlKind::picture;
}

// A dialog of a program has a procedure of its own, a message box has none that anybody could see.
bool hasProcedure(HWND dialog) { return GetWindowLongPtrW(dialog, DWLP_DLGPROC) != 0; }

} // namespace

bool isMessageBox(HWND window) {
    if (hasProcedure(window)) return false;
    const std::vector<HWND> parts = windowsIn(window);
    return GetDlgItem(window, IDC_STATIC) && std::any_of(parts.begin(), parts.end(), isButtonOfBox) &&
           std::all_of(parts.begin(), parts.end(), isPartOfBox);
}

std::u16string messageOf(HWND messageBox) { return textOf(GetDlgItem(messageBox, IDC_STATIC)); }

bool answerMessageBox(HWND messageBox, int result) {
    const HWND button = GetDlgItem(messageBox, result);
    if (button) SendMessageW(button, BM_CLICK, 0, 0);
    return button != nullptr;
}

void dismissMessageBox(HWND messageBox) {
    for (const int result : {IDCANCEL, IDNO, IDABORT, IDOK, IDIGNORE})
        if (answerMessageBox(messageBox, result)) return;
    SendMessageW(messageBox, WM_CLOSE, 0, 0);
}

bool isFileDialog(HWND window) {
    return GetDlgItem(window, fileNameBox) != nullptr || GetDlgItem(window, fileNameEdit) != nullptr;
}

void answerFileDialog(HWND dialog, const std::u16string& path) {
    HWND name = GetDlgItem(dialog, fileNameBox);
    if (!name) name = GetDlgItem(dialog, fileNameEdit);
    if (!path.empty()) SendMessageW(name, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(toWide(path)));
    SendMessageW(GetDlgItem(dialog, path.empty() ? IDCANCEL : IDOK), BM_CLICK, 0, 0);
}
