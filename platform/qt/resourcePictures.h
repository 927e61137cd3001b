// Pictures as they lie in a module or an icon. All of them count as hostile: sizes are bounded before a decoder sees a
// byte, and what does not hold together gives no picture.
#pragma once

#include "platform/types.h"

#include <QByteArray>
#include <QIcon>
#include <QImage>

#include <span>

// The longest side of a picture, in pixels.
inline constexpr int longestPictureSide = 4096;

// A bitmap without file header. Null for what is none.
QImage pictureOfDib(std::span<const BYTE> bytes);

// One of an icon's pictures: a bitmap with its mask, or PNG. Null for what is neither.
QImage pictureOfIconImage(std::span<const BYTE> bytes, QSize size);

// True for a drawing that holds nothing but shapes: no entities, no references to other files, no deep nesting.
bool isPlainDrawing(const QByteArray& svg);

// All pictures of an icon that LoadIconW gave; the one for the size and device pixel ratio is chosen when it is drawn.
// Null for what is no icon.
QIcon iconOf(HICON icon);
