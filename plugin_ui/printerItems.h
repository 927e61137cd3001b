// The items in the host's printer sheet: the capability file that the printer uses and, for a printer that has the
// choice, the form of ticket that its server takes. Nothing is stored before the user applies.
#pragma once

#include "platform/driver_host.h"

class DriverBasedPrinter;

// Without room for items only their number is told. With room they are filled and the callback set; the printer must
// live as long as the host's sheet. Raises what the printer and the resource module raise; a value that cannot be read
// is taken for the first choice of the file and the second of the ticket form.
void tellPrinterItems(OEMCUIPPARAM& param, DriverBasedPrinter& printer);

// Failures are shown. CPSUICB_ACTION_NO_APPLY_EXIT keeps the sheet open when something could not be stored.
LONG APIENTRY KolmaPrinterPropertyUICallback(PCPSUICBPARAM callback, POEMCUIPPARAM param);
