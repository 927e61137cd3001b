// A state of the current version, taken apart.
#pragma once

#include "jtcore/AnlXlate/PersistentLayout.h"
#include "jtcore/Services/ByteBuffer.h"

struct StateParts {
    PersistentHeader header;
    PersistentData data;
    ByteBuffer text; // the settings, as SmallJtifTranslator writes them
};
