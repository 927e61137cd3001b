#include "host/conversation/windowTree.h"

#include "host/conversation/ControlKind.h"
#include "jtcore/Services/formatMessage.h"

#include <algorithm>

namespace {

BOOL CALLBACK collect(HWND window, LPARAM list) {
    reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
    return TRUE;
}

bool isUsable(HWND window) {
    return IsWindowVisible(window) && IsWindowEnabled(window) && kindOf(window) == ControlKind::dialog;
}

std::u16string withoutMark(const std::u16string& text) {
    std::u16string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == u'&' && i + 1 < text.size()) ++i;
        plain += text[i];
    }
    while (plain.ends_with(u':') || plain.ends_with(u' '))
        plain.pop_back();
    return plain;
}

bool hasOwnLabel(ControlKind kind) {
    return kind == ControlKind::pushButton || kind == ControlKind::checkBox || kind == ControlKind::radioButton ||
           kind == ControlKind::groupBox || kind == ControlKind::label || kind == ControlKind::dialog;
}

// The edit box of an up-down stands between it and its label.
HWND labelBefore(HWND control) {
    HWND before = GetWindow(control, GW_HWNDPREV);
    if (kindOf(control) == ControlKind::upDown && before && kindOf(before) == ControlKind::edit)
        before = GetWindow(before, GW_HWNDPREV);
    return before && kindOf(before) == ControlKind::label ? before : nullptr;
}

bool isNamed(HWND control, const ControlName& name) {
    if (name.id != 0) return GetDlgCtrlID(control) == name.id;
    const ControlKind kind = kindOf(control);
    return kind != ControlKind::label && kind != ControlKind::dialog && labelOf(control) == name.label;
}

} // namespace

HWND topmostWindow() {
    std::vector<HWND> windows;
    EnumThreadWindows(GetCurrentThreadId(), collect, reinterpret_cast<LPARAM>(&windows));
    std::erase_if(windows, [](HWND window) { return !isUsable(window); });
    if (windows.empty()) return nullptr;
    const HWND active = GetActiveWindow();
    const bool isThere = std::find(windows.begin(), windows.end(), active) != windows.end();
    return isThere ? active : windows.back();
}

std::vector<HWND> windowsIn(HWND window) {
    std::vector<HWND> windows;
    EnumChildWindows(window, collect, reinterpret_cast<LPARAM>(&windows));
    return windows;
}

std::u16string textOf(HWND window) {
    std::u16string text(static_cast<std::size_t>(SendMessageW(window, WM_GETTEXTLENGTH, 0, 0)) + 1, u'\0');
    const LRESULT length = SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(toWide(text.data())));
    text.resize(static_cast<std::size_t>(std::max<LRESULT>(length, 0)));
    return text;
}

std::u16string labelOf(HWND control) {
    if (hasOwnLabel(kindOf(control))) return withoutMark(textOf(control));
    const HWND label = labelBefore(control);
    return label ? withoutMark(textOf(label)) : std::u16string();
}

HWND findControl(HWND window, const ControlName& name) {
    HWND hidden = nullptr;
    for (const HWND control : windowsIn(window)) {
        if (!isNamed(control, name)) continue;
        if (IsWindowVisible(control)) return control;
        if (!hidden) hidden = control;
    }
    return hidden;
}

std::u16string describe(const ControlName& name) {
    return name.id != 0 ? formatMessage(u"%u", name.id) : formatMessage(u"\"%s\"", name.label);
}
