// A program's picture as an icon of a widget, drawn anew for each device pixel ratio.
#pragma once

#include "platform/types.h"

#include <QIcon>
#include <QSize>

struct PictureIcon {
    // Of an image that BM_SETIMAGE or STM_SETIMAGE gives, IMAGE_BITMAP or IMAGE_ICON; null for what is none.
    static PictureIcon of(WPARAM type, LPARAM image);

    QIcon icon;
    // In logical pixels, as the program sees it.
    QSize size;
};
