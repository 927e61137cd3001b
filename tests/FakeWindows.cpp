#include "tests/FakeWindows.h"

#include <utility>

namespace {

FakeWindows* theWindows = nullptr;

constexpr std::uintptr_t sheetNumber = 0x5000;
// An item's handle is its dialog's with the id below.
constexpr unsigned idBits = 16;

LRESULT CALLBACK answerNothing(HWND, UINT, WPARAM, LPARAM) { return 0; }

HWND toHandle(std::uintptr_t number) noexcept { return reinterpret_cast<HWND>(number); }

} // namespace

FakeWindows::FakeWindows() { theWindows = this; }

FakeWindows::~FakeWindows() { theWindows = nullptr; }

FakeWindows* FakeWindows::current() noexcept { return theWindows; }

HWND FakeWindows::sheet() noexcept { return toHandle(sheetNumber); }

HWND FakeWindows::item(HWND dialog, int id) noexcept {
    return toHandle(reinterpret_cast<std::uintptr_t>(dialog) | static_cast<std::uint16_t>(id));
}

HWND FakeWindows::makeDialog(DLGPROC procedure) {
    const HWND dialog = toHandle(next_++ << idBits);
    dialogs_[dialog] = procedure;
    return dialog;
}

HWND FakeWindows::openPage(const PROPSHEETPAGEW& page) {
    const HWND dialog = makeDialog(page.pfnDlgProc);
    send(dialog, WM_INITDIALOG, 0, reinterpret_cast<LPARAM>(&page));
    return dialog;
}

void FakeWindows::close(HWND dialog) {
    send(dialog, WM_DESTROY, 0, 0);
    dialogs_.erase(dialog);
}

INT_PTR FakeWindows::runModal(DLGPROC procedure, LPARAM lParam) {
    if (!user) return -1;
    const HWND dialog = makeDialog(procedure);
    send(dialog, WM_INITDIALOG, 0, lParam);
    user(dialog);
    close(dialog);
    return ended_[dialog];
}

LRESULT FakeWindows::notify(HWND dialog, UINT code, UINT_PTR idFrom) {
    NMHDR header{sheet(), idFrom, code};
    return send(dialog, WM_NOTIFY, idFrom, reinterpret_cast<LPARAM>(&header));
}

LRESULT FakeWindows::send(HWND window, UINT id, WPARAM wParam, LPARAM lParam) {
    sent_.push_back({window, id, wParam, lParam});
    const auto found = dialogs_.find(window);
    if (found == dialogs_.end()) return 0;
    word(window, DWLP_MSGRESULT) = 0;
    return found->second(window, id, wParam, lParam) != 0 ? word(window, DWLP_MSGRESULT) : 0;
}

LONG_PTR& FakeWindows::word(HWND window, int index) {
    const LONG_PTR first = index == GWLP_WNDPROC ? reinterpret_cast<LONG_PTR>(&answerNothing) : 0;
    return words_.try_emplace({window, index}, first).first->second;
}

HANDLE& FakeWindows::property(HWND window, LPCWSTR name) { return properties_[{window, fromWide(name)}]; }

bool FakeWindows::isShown(HWND dialog, int id) const {
    const auto found = shown_.find(item(dialog, id));
    return found != shown_.end() && found->second;
}

std::vector<UINT> FakeWindows::sentTo(HWND dialog) const {
    std::vector<UINT> ids;
    for (const SentMessage& message : sent_)
        if (message.window == dialog) ids.push_back(message.id);
    return ids;
}
