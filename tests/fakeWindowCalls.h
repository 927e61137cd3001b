// The published calls as FakeWindows answers them: result, name, parameters, arguments of each.
#pragma once

#include "platform/gdi.h"
#include "tests/FakeWindows.h"

#define FAKE_WINDOW_CALLS(ROW)                                                                                         \
    ROW(LRESULT, SendMessageW, (HWND window, UINT id, WPARAM wParam, LPARAM lParam), (window, id, wParam, lParam))     \
    ROW(LONG_PTR, GetWindowLongPtrW, (HWND window, int index), (window, index))                                        \
    ROW(LONG_PTR, SetWindowLongPtrW, (HWND window, int index, LONG_PTR value), (window, index, value))                 \
    ROW(LONG, GetWindowLongW, (HWND window, int index), (window, index))                                               \
    ROW(LONG, SetWindowLongW, (HWND window, int index, LONG value), (window, index, value))                            \
    ROW(BOOL, SetPropW, (HWND window, LPCWSTR name, HANDLE data), (window, name, data))                                \
    ROW(HANDLE, GetPropW, (HWND window, LPCWSTR name), (window, name))                                                 \
    ROW(HANDLE, RemovePropW, (HWND window, LPCWSTR name), (window, name))                                              \
    ROW(HWND, GetDlgItem, (HWND dialog, int id), (dialog, id))                                                         \
    ROW(HWND, GetParent, (HWND window), (window))                                                                      \
    ROW(BOOL, ShowWindow, (HWND window, int how), (window, how))                                                       \
    ROW(HWND, CreateWindowExW,                                                                                         \
        (DWORD a, LPCWSTR b, LPCWSTR c, DWORD d, int e, int f, int g, int h, HWND i, HMENU j, HINSTANCE k, LPVOID l),  \
        (a, b, c, d, e, f, g, h, i, j, k, l))                                                                          \
    ROW(BOOL, SetWindowTextW, (HWND window, LPCWSTR text), (window, text))                                             \
    ROW(BOOL, SetDlgItemTextW, (HWND dialog, int id, LPCWSTR text), (dialog, id, text))                                \
    ROW(BOOL, DestroyWindow, (HWND window), (window))                                                                  \
    ROW(BOOL, EndDialog, (HWND dialog, INT_PTR answer), (dialog, answer))                                              \
    ROW(INT_PTR, DialogBoxParamW, (HINSTANCE a, LPCWSTR b, HWND c, DLGPROC procedure, LPARAM lParam),                  \
        (a, b, c, procedure, lParam))                                                                                  \
    ROW(INT_PTR, DialogBoxIndirectParamW, (HINSTANCE a, LPCDLGTEMPLATEW b, HWND c, DLGPROC procedure, LPARAM lParam),  \
        (a, b, c, procedure, lParam))                                                                                  \
    ROW(HWND, CreateDialogIndirectParamW, (HINSTANCE a, LPCDLGTEMPLATEW b, HWND c, DLGPROC procedure, LPARAM lParam),  \
        (a, b, c, procedure, lParam))                                                                                  \
    ROW(HDC, GetDC, (HWND window), (window))                                                                           \
    ROW(int, GetSystemMetrics, (int index), (index))

// While there is no FakeWindows they answer as if no window were there.
namespace fakes {
#define FAKE_WINDOW_CALL(Result, Name, Parameters, Arguments) Result Name Parameters;
FAKE_WINDOW_CALLS(FAKE_WINDOW_CALL)
#undef FAKE_WINDOW_CALL

// Null for a call that is not played.
void* find(const char* name);
} // namespace fakes
