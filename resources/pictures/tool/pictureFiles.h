#pragma once

#include "resources/pictures/tool/PictureRenderer.h"

#include <QByteArray>

#include <vector>

// The file of a bitmap with 24 bits a pixel. Pixels that are more than half transparent take the color that stands for
// transparency in every bitmap of the module; the others are full, and none of them has that color by chance.
QByteArray bitmapFile(const QImage& picture);

// The file of an icon with a picture for each size. Small ones are bitmaps with a mask, which every reader of icons
// knows; from 48 pixels on they are PNG.
QByteArray iconFile(const PictureRenderer& drawing, const std::vector<int>& sizes);
