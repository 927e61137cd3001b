// Asks all components of a dialog whether what was entered is in order. Each that finds a fault tells the user itself,
// and the first ends the walk.
#pragma once

#include "platform/types.h"

// Before OK or apply.
bool validateEntries(HWND window);
// Before a ticket is saved.
bool validateForSave(HWND window);
