// What a printer can do: shown, written to a file, and replaced by an imported file. Each returns the exit code and
// raises what cannot be read or stored; the printer then has what it had.
#pragma once

#include "host/tickets/kolmatickets.h"

int showCapabilities(const TicketRequest& request);
// The same answers as a capability file, which was read again to prove it.
int writeCapabilities(TicketRequest& request);
// Nothing is stored of a file that the driver could not work with.
int importCapabilities(TicketRequest& request);
int clearCapabilities(const TicketRequest& request);
