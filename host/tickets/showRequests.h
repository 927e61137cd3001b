// What is shown of an area and of a ticket. Each returns the exit code and raises what cannot be read.
#pragma once

#include "host/tickets/kolmatickets.h"

int showArea(const TicketRequest& request);
int showTicket(const TicketRequest& request);
