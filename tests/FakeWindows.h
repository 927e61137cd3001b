// Windows that are only remembered: dialogs with a procedure, items by their ids, a sheet round the dialogs. Enough to
// run a dialog procedure and its tree without a display. Code comes here by way of
// fakeWindowCalls.h; one object at a time.
#pragma once

#include "platform/property_sheet.h"
#include "platform/windows.h"

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

struct SentMessage {
    HWND window;
    UINT id;
    WPARAM wParam;
    LPARAM lParam;
};

class FakeWindows {
public:
    FakeWindows();
    ~FakeWindows();
    FakeWindows(const FakeWindows&) = delete;
    FakeWindows& operator=(const FakeWindows&) = delete;

    // Opens the page's window: WM_INITDIALOG comes with the record.
    HWND openPage(const PROPSHEETPAGEW& page);
    // A window that got no WM_INITDIALOG yet.
    HWND makeDialog(DLGPROC procedure);
    void close(HWND dialog);
    // What the sender gets: 0 for what the dialog has not handled.
    LRESULT notify(HWND dialog, UINT code, UINT_PTR idFrom = 0);

    // What the user does in a modal dialog, until it is ended; -1 is the answer when nobody plays the user.
    std::function<void(HWND dialog)> user;
    INT_PTR runModal(DLGPROC procedure, LPARAM lParam);
    void end(HWND dialog, INT_PTR answer) { ended_[dialog] = answer; }
    bool isEnded(HWND dialog) const { return ended_.count(dialog) != 0; }

    static HWND sheet() noexcept;
    bool isShown(HWND dialog, int id) const;
    // What the dialogs were sent, by id.
    std::vector<UINT> sentTo(HWND dialog) const;
    void forget() { sent_.clear(); }

    // The answers to the published calls.
    LRESULT send(HWND window, UINT id, WPARAM wParam, LPARAM lParam);
    LONG_PTR& word(HWND window, int index);
    HANDLE& property(HWND window, LPCWSTR name);
    std::u16string& text(HWND window) { return texts_[window]; }
    bool isDialog(HWND window) const { return dialogs_.count(window) != 0; }
    void show(HWND item, int how) { shown_[item] = how != SW_HIDE; }
    static HWND item(HWND dialog, int id) noexcept;
    static FakeWindows* current() noexcept;

private:
    std::map<HWND, DLGPROC> dialogs_;
    std::map<std::pair<HWND, int>, LONG_PTR> words_;
    std::map<std::pair<HWND, std::u16string>, HANDLE> properties_;
    std::map<HWND, bool> shown_;
    std::map<HWND, std::u16string> texts_;
    std::map<HWND, INT_PTR> ended_;
    std::vector<SentMessage> sent_;
    std::uintptr_t next_ = 1;
};
