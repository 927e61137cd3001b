// Between Qt's keys and the published virtual keys.
#pragma once

#include "platform/windows.h"

#include <QKeyEvent>

#include <string>

// 0 for a key that has none.
WORD virtualKeyOf(const QKeyEvent& event) noexcept;
// What the key types: the units of WM_CHAR. Keys with Control type the control characters, as ever; keys with Alt
// nothing.
std::u16string charactersOf(const QKeyEvent& event);

int qtKeyOf(WORD virtualKey) noexcept;
// The press of a key that types the unit.
QKeyEvent pressTyping(char16_t unit);
// The text that a key types when it is pressed with these modifiers; for the keys that type the same everywhere.
QString textOfKey(WORD virtualKey, Qt::KeyboardModifiers modifiers);
