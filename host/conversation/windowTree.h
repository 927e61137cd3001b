// The windows of this thread: which one a person would act on, and what is in it.
#pragma once

#include "host/conversation/PlayCommand.h"
#include "platform/windows.h"

#include <string>
#include <vector>

// The window on top: of those that can be seen and used, the active one, else the one opened last. Null for none.
HWND topmostWindow();

// Everything in the window, as deep as it goes, each before what is in it.
std::vector<HWND> windowsIn(HWND window);

std::u16string textOf(HWND window);
// The text of a button; of everything else the text of the label before it. Without & and without a colon at the end.
std::u16string labelOf(HWND control);

// One that is shown goes before one that is hidden. A label is matched against labelOf(). Null for none.
HWND findControl(HWND window, const ControlName& name);

// "1203", or the quoted label.
std::u16string describe(const ControlName& name);
