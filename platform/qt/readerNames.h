// What a screen reader calls a control that has no text of its own: by the label before it.
#pragma once

#include "platform/qt/Window.h"

#include <vector>

// Of a dialog, in the order of its template.
void nameForReaders(const std::vector<Window*>& controls);
// The label has got another text.
void renameForReaders(Window& label);
