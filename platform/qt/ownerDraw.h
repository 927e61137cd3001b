// Controls that their program draws.
#pragma once

#include "platform/types.h"

class Window;

// Asks the parent, by WM_DRAWITEM, for the whole of the control: the surface is a new one each time. REQUIRES: called
// while the control's widget is painted.
void sendDrawItem(Window& control, UINT type, UINT state);
