// The road between an area and a ticket file. Each returns the exit code and raises what cannot be carried over.
#pragma once

#include "host/tickets/kolmatickets.h"

int ticketToArea(TicketRequest& request);
int areaToTicket(TicketRequest& request);
