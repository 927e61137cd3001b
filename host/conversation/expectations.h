// The "expect" commands that look at a control.
#pragma once

#include "host/conversation/PlayCommand.h"
#include "platform/windows.h"

// Raises PlayFailure with what was found in place of what the command expects. REQUIRES: an aspect of a control.
void expectOfControl(HWND window, const PlayCommand& command);

// Raises PlayFailure when the text does not match the pattern.
void expectText(const std::u16string& pattern, const std::u16string& found);
