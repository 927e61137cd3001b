// The two forms of a job ticket that printers' servers take.
#pragma once

#include <cstdint>

enum class TicketForm : std::int32_t {
    current = 1,
    rendo2x = 2, // the older one, of Rendo 2.x servers
};
