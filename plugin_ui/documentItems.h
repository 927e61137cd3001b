// The item in the host's document sheet: whether the settings of the document may be edited on our page.
#pragma once

#include "platform/driver_host.h"

class PageLock;

// Without room for items only their number is told. With room the item is filled and the callback set; the lock must
// live as long as the host's sheet. Raises on an area that cannot be read, and what the resource module raises.
void tellDocumentItems(OEMCUIPPARAM& param, PageLock& lock);

// The choice reaches the host's area at once, and the page when the user leaves the host's. A failure is shown; the
// area is then as it was, and so is the selection.
LONG APIENTRY KolmaDocumentPropertyUICallback(PCPSUICBPARAM callback, POEMCUIPPARAM param);
