// What a person does with a control, as the messages that doing it would send. Each raises PlayFailure when the control
// is not one with which that can be done, or cannot be used now.
#pragma once

#include "host/conversation/PlayCommand.h"
#include "platform/windows.h"

#include <string>
#include <vector>

void focusControl(HWND control);
// Marks what is there and types over it.
void typeText(HWND control, const std::u16string& text);
void chooseItem(HWND control, const std::u16string& text);
// 0 off, 1 on, 2 mixed.
void checkButton(HWND control, int state);
void clickControl(HWND control);
void slideTo(HWND control, int position);
// Rows of a list; the others are left. One row at most where only one can be chosen.
void selectRows(HWND control, const std::vector<int>& rows);
void doubleClickRow(HWND control, int row);
// To what has the focus.
void pressKey(const KeyStroke& key);
