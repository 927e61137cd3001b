// What the keys do in a dialog: Tab, arrows inside a group, mnemonics, Enter, Escape and F1.
#pragma once

#include "platform/qt/Window.h"

#include <QKeyEvent>

// Acts on a key that is pressed while the window has the focus. False when the key is the window's own. `asksOnly`
// tells without acting.
bool dialogTakesKey(Window& focused, const QKeyEvent& key, bool asksOnly);

// The part of a window that keys go to: of the active window, or of the modal one that is about to be. Null for none.
QWidget* focusedPart();

// Gives the focus as the Tab key does: a field's text is selected as a whole. Null does nothing.
void focusByKeyboard(HWND control);

// Shows which push button Enter would press, now that the focus is here.
void showDefaultButton(const QWidget* focused);

// The window's text, through its procedure.
QString textOf(Window& window);
// "Save &as" without its mark; "&&" stands for the character itself.
QString withoutMnemonic(const QString& text);
// The letter that is marked, in lower case; null for none.
QChar mnemonicOf(const QString& text);
