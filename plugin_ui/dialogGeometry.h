// Where a dialog's window is, and how large.
#pragma once

#include "platform/types.h"

// Moves the controls of the dialog, hidden ones too, and sizes its window so that on all four sides there are seven
// dialog units between them and its edge. The OK button is where the measuring starts and may be null.
void fitAroundControls(HWND dialog, HWND okButton);

// Puts the top right corner of the window at the anchor, and higher where it would leave the screen below; `anchorY`
// then keeps the higher value.
void placeTopRight(HWND window, int anchorX, int& anchorY);
