// The module libkolmatickets, which has what needs the XML library. It is loaded with the first request.
#pragma once

#include "host/tickets/kolmatickets.h"

// Returns the exit code; failures of the request are printed by then. Raises, with words, when the module is missing.
int runRequest(TicketRequest& request);
