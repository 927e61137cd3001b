// How a user is shown the report of what a printer cannot do, and asked whether the settings are to be changed.
//
// Until the sheets bring their dialog, which takes its place by installing itself here, the report is shown in a
// message box. Programs without windows install a display of their own.
#pragma once

#include "platform/types.h"

#include <functional>
#include <string>

struct LimitationsReport {
    HWND window = nullptr;
    std::u16string title;
    std::u16string headline;
    std::u16string text;
    // Whether the user may refuse; otherwise there is one button.
    bool canCancel = false;
};

// Returns IDOK or IDCANCEL, or 0 when nothing could be shown, with the reason as the last error.
using LimitationsDisplay = std::function<int(const LimitationsReport& report)>;

// Returns the one that was installed before. An empty one stands for the message box. Not to be called while a report
// is shown.
LimitationsDisplay installLimitationsDisplay(LimitationsDisplay display);

int showLimitations(const LimitationsReport& report);
