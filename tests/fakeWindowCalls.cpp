#include "tests/fakeWindowCalls.h"

#include <cstring>
#include <utility>

namespace fakes {

namespace {

FakeWindows* windows() noexcept { return FakeWindows::current(); }

} // namespace

LRESULT SendMessageW(HWND window, UINT id, WPARAM wParam, LPARAM lParam) {
    return windows() ? windows()->send(window, id, wParam, lParam) : 0;
}

LONG_PTR GetWindowLongPtrW(HWND window, int index) { return windows() ? windows()->word(window, index) : 0; }

LONG_PTR SetWindowLongPtrW(HWND window, int index, LONG_PTR value) {
    return windows() ? std::exchange(windows()->word(window, index), value) : 0;
}

LONG GetWindowLongW(HWND window, int index) { return static_cast<LONG>(fakes::GetWindowLongPtrW(window, index)); }

LONG SetWindowLongW(HWND window, int index, LONG value) {
    return static_cast<LONG>(fakes::SetWindowLongPtrW(window, index, value));
}

BOOL SetPropW(HWND window, LPCWSTR name, HANDLE data) {
    if (windows()) windows()->property(window, name) = data;
    return windows() != nullptr;
}

HANDLE GetPropW(HWND window, LPCWSTR name) { return windows() ? windows()->property(window, name) : nullptr; }

HANDLE RemovePropW(HWND window, LPCWSTR name) {
    return windows() ? std::exchange(windows()->property(window, name), nullptr) : nullptr;
}

HWND GetDlgItem(HWND dialog, int id) { return windows() && dialog ? FakeWindows::item(dialog, id) : nullptr; }

HWND GetParent(HWND) { return FakeWindows::sheet(); }

BOOL ShowWindow(HWND window, int how) {
    if (windows()) windows()->show(window, how);
    return TRUE;
}

BOOL SetWindowTextW(HWND window, LPCWSTR text) {
    if (windows()) windows()->text(window) = fromWide(text);
    return TRUE;
}

BOOL SetDlgItemTextW(HWND dialog, int id, LPCWSTR text) {
    return fakes::SetWindowTextW(fakes::GetDlgItem(dialog, id), text);
}

BOOL DestroyWindow(HWND window) {
    if (windows() && windows()->isDialog(window)) windows()->close(window);
    return TRUE;
}

BOOL EndDialog(HWND dialog, INT_PTR answer) {
    if (windows()) windows()->end(dialog, answer);
    return TRUE;
}

INT_PTR DialogBoxParamW(HINSTANCE, LPCWSTR, HWND, DLGPROC procedure, LPARAM lParam) {
    return windows() ? windows()->runModal(procedure, lParam) : -1;
}

INT_PTR DialogBoxIndirectParamW(HINSTANCE, LPCDLGTEMPLATEW, HWND, DLGPROC procedure, LPARAM lParam) {
    return windows() ? windows()->runModal(procedure, lParam) : -1;
}

HWND CreateDialogIndirectParamW(HINSTANCE, LPCDLGTEMPLATEW, HWND, DLGPROC procedure, LPARAM lParam) {
    if (!windows()) return nullptr;
    const HWND dialog = windows()->makeDialog(procedure);
    windows()->send(dialog, WM_INITDIALOG, 0, lParam);
    return dialog;
}

// Nothing is drawn, and no tip comes up.
HWND CreateWindowExW(DWORD, LPCWSTR, LPCWSTR, DWORD, int, int, int, int, HWND, HMENU, HINSTANCE, LPVOID) {
    return nullptr;
}

HDC GetDC(HWND) { return nullptr; }

int GetSystemMetrics(int) { return 32; }

void* find(const char* name) {
#define FAKE_WINDOW_CALL(Result, Name, Parameters, Arguments)                                                          \
    if (std::strcmp(name, #Name) == 0) return reinterpret_cast<void*>(&fakes::Name);
    FAKE_WINDOW_CALLS(FAKE_WINDOW_CALL)
#undef FAKE_WINDOW_CALL
    return nullptr;
}

} // namespace fakes
