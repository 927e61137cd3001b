// Message boxes and file dialogs among the windows of this thread, and how they are answered.
#pragma once

#include "platform/windows.h"

#include <string>

// A dialog that has nothing but the published label of a message box and buttons.
bool isMessageBox(HWND window);
std::u16string messageOf(HWND messageBox);
// Presses the button with that result. Returns false when the box has none.
bool answerMessageBox(HWND messageBox, int result);
// The button that agrees to the least.
void dismissMessageBox(HWND messageBox);

bool isFileDialog(HWND window);
// An empty path is Cancel.
void answerFileDialog(HWND dialog, const std::u16string& path);
