// Icons as they lie in a module: the window layer makes its pictures of them.
#pragma once

#include "platform/posix/HandleTable.h"
#include "platform/types.h"

#include <vector>

// One of an icon's pictures. Sizes in pixels; the bytes are the resource's own (a bitmap without file header, or PNG).
struct IconImage {
    int width;
    int height;
    int bitCount;
    std::vector<BYTE> bytes;
};

struct Icon {
    std::vector<IconImage> images;
};

inline HandleTable<Icon, HICON>& loadedIcons() { return handleTable<HandleKind::icon, Icon, HICON>(); }

// The pictures of an icon that LoadIconW gave, empty for what is no icon.
KOLMA_PLATFORM_API std::vector<IconImage> iconImages(HICON icon);
