// Tickets held against a printer. Each returns the exit code, exitNotValid when the printer cannot do what is asked.
#pragma once

#include "host/tickets/kolmatickets.h"

// The failure of one file is printed, and the others are checked nevertheless.
int checkTickets(const TicketRequest& request);
// Raises what cannot be read or written.
int fixTicket(const TicketRequest& request);
