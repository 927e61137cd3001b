// The module, loaded as its host loads it.
#pragma once

#include "platform/driver_host.h"

// A new plug-in object; the caller holds its one reference. An object serves one printer handle, so each user makes its
// own. Ends the program when the module is not there.
IPrintOemUI* createPlugIn();
