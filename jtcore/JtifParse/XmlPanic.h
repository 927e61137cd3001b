// Thrown where the XML library gives itself up. It cannot be used any more in this process.
#pragma once

struct XmlPanic {
    const char* reason; // a static text
};
