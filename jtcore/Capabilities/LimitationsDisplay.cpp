#include "jtcore/Capabilities/LimitationsDisplay.h"

#include "platform/windows.h"

#include <utility>

namespace {

LimitationsDisplay& installedDisplay() {
    static LimitationsDisplay display;
    return display;
}

int showInMessageBox(const LimitationsReport& report) {
    const std::u16string text = report.headline + u"\r\n\r\n" + report.text;
    const UINT buttons = report.canCancel ? MB_OKCANCEL : MB_OK;
    const UINT modality = report.window ? 0U : MB_TASKMODAL;
    return MessageBoxW(report.window, toWide(text), toWide(report.title), buttons | MB_ICONWARNING | modality);
}

} // namespace

LimitationsDisplay installLimitationsDisplay(LimitationsDisplay display) {
    return std::exchange(installedDisplay(), std::move(display));
}

int showLimitations(const LimitationsReport& report) {
    const LimitationsDisplay& display = installedDisplay();
    return display ? display(report) : showInMessageBox(report);
}
