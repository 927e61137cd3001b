#include "plugin_ui/ToolTip.h"

#include "jtcore/Services/quietly.h"
#include "platform/controls.h"

#include <atomic>
#include <cstddef>
#include <utility>

namespace {

constexpr LPARAM maximumWidth = 1000; // pixels
constexpr LPARAM initialDelay = 500;  // milliseconds
// The record without its last field, which older versions of the control refuse.
constexpr UINT toolRecordSize = offsetof(TTTOOLINFOW, lpReserved);

// Sheets of one process may be open on threads of their own.
std::uint32_t nextToolId() noexcept {
    static constinit std::atomic<std::uint32_t> counter = 0;
    return ++counter;
}

HWND makeTipWindow(HWND owner, HMODULE module) {
    const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_WIN95_CLASSES};
    InitCommonControlsEx(&classes);
    const HWND tip =
        CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_NOPREFIX | TTS_ALWAYSTIP, CW_USEDEFAULT,
                        CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, owner, nullptr, module, nullptr);
    SetWindowPos(tip, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE);
    return tip;
}

} // namespace

ToolTip::ToolTip(HWND dialog, std::uint16_t controlId, std::u16string text)
    : controlWindow_(GetDlgItem(dialog, controlId)), text_(std::move(text)), toolId_(nextToolId()) {
    if (!controlWindow_) return;
    tipWindow_ = makeTipWindow(controlWindow_, resourceLibrary_.getModuleHandle());
    addTool();
}

ToolTip::~ToolTip() {
    quietly([this] {
        if (tipWindow_) DestroyWindow(tipWindow_);
    });
}

void ToolTip::setText(std::u16string text) {
    text_ = std::move(text);
    if (!tipWindow_) return;
    TTTOOLINFOW tool = identify();
    SendMessageW(tipWindow_, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    addTool();
}

TTTOOLINFOW ToolTip::identify() const noexcept {
    TTTOOLINFOW tool{};
    tool.cbSize = toolRecordSize;
    tool.hwnd = controlWindow_;
    tool.uId = toolId_;
    return tool;
}

void ToolTip::addTool() {
    TTTOOLINFOW tool = identify();
    tool.uFlags = TTF_SUBCLASS;
    tool.hinst = resourceLibrary_.getModuleHandle();
    tool.lpszText = toWide(text_.data());
    GetClientRect(controlWindow_, &tool.rect);
    SendMessageW(tipWindow_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    SendMessageW(tipWindow_, TTM_SETMAXTIPWIDTH, 0, maximumWidth);
    SendMessageW(tipWindow_, TTM_SETDELAYTIME, TTDT_INITIAL, initialDelay);
}
