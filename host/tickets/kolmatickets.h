// What the program asks of the module libkolmatickets, and how. One C function; no exception crosses it.
#pragma once

#include "jtcore/AnlXlate/PersistentLayout.h"
#include "platform/types.h"

#include <cstddef>
#include <cstdint>

enum class TicketOperation : std::int32_t {
    showArea,     // prints what is in `area`
    showTicket,   // prints the ticket `file`
    ticketToArea, // makes `area` of the ticket `file`
    areaToTicket, // writes `area` as the ticket `file`
    checkTickets, // holds `files` against `printer`
    fixTicket,    // repairs `file` for `printer`, into `output`

    showCapabilities,   // prints what `printer` can do
    writeCapabilities,  // writes it as the capability file `file`
    importCapabilities, // gives `printer` the capability file `file`
    clearCapabilities,  // takes the imported one away

    listStocks, // prints the stocks of `printer` and the user
};

// Texts are borrowed for the time of the call.
struct TicketRequest {
    TicketOperation operation;
    const char16_t* file;
    bool json;
    bool verbose;
    KolmaDmType* area;
    const char16_t* printerName;
    HANDLE printer;
    const char16_t* const* files;
    std::size_t fileCount;
    const char16_t* output;
    bool agrees; // to the repair
    // What came of it: attributes at the top level, and bytes of state.
    std::uint32_t attributes;
    std::uint32_t stateSize;
};

// Does it, prints failures, and returns the exit code.
using KolmaRunTicketRequest = int (*)(TicketRequest* request);
inline constexpr char kolmaRunTicketRequestName[] = "kolmaRunTicketRequest";
