// The media database of a printer and the user who asks: his library, and the stocks of the printer. Returns the exit
// code; raises what cannot be read. Nothing is written.
#pragma once

#include "host/tickets/kolmatickets.h"

int listStocks(const TicketRequest& request);
