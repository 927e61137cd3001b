// The dialog that shows what the printer cannot do with a job's settings, and asks whether they are to be changed.
#pragma once

#include "jtcore/Capabilities/LimitationsDisplay.h"

// Returns IDOK or IDCANCEL, and 0 or -1 when there can be no dialog, with the reason as the last error.
int showLimitationsDialog(const LimitationsReport& report);

// Reports of this module are shown in the dialog from now on. Any number of calls is one.
void installLimitationsDialog();

// The report is the lParam of WM_INITDIALOG.
INT_PTR CALLBACK windowProcForPrinterLimitationsDialog(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
