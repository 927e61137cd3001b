#include "plugin_ui/Overlay.h"

#include "platform/windows.h"

namespace {

constexpr std::uint16_t generalHelp = 800;

} // namespace

std::uint16_t Overlay::getHelpContextId() const { return generalHelp; }

bool Overlay::onShow(const UIMessage& message, LRESULT& result) {
    showFrame(message.window, SW_SHOW);
    return sendToChildren(message, result);
}

bool Overlay::onHide(const UIMessage& message, LRESULT& result) {
    showFrame(message.window, SW_HIDE);
    return sendToChildren(message, result);
}

void Overlay::showFrame(HWND window, int how) const { ShowWindow(GetDlgItem(window, frameId_), how); }
