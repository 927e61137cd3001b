// The colours in which a control is to be drawn, as its parent answers WM_CTLCOLOR...
#pragma once

#include "platform/types.h"

#include <QBrush>
#include <QColor>

#include <optional>

class Window;

struct ControlColours {
    QBrush background;
    QColor text;

    // Asks the parent; `usual` is what holds for what it leaves open. A program that asks for the white stock brush
    // wants its control to look like a field, so it gets the desktop's colours of fields, light or dark.
    static ControlColours of(Window& control, UINT message, const ControlColours& usual);
};
