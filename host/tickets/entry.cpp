// The one entry of the module; exports.map keeps everything else inside.
#include "host/commandFailure.h"
#include "host/tickets/capabilityRequests.h"
#include "host/tickets/checkRequests.h"
#include "host/tickets/kolmatickets.h"
#include "host/tickets/showRequests.h"
#include "host/tickets/stockRequests.h"
#include "host/tickets/transferRequests.h"

namespace {

int run(TicketRequest& request) {
    switch (request.operation) {
    case TicketOperation::showArea:
        return showArea(request);
    case TicketOperation::showTicket:
        return showTicket(request);
    case TicketOperation::ticketToArea:
        return ticketToArea(request);
    case TicketOperation::areaToTicket:
        return areaToTicket(request);
    case TicketOperation::checkTickets:
        return checkTickets(request);
    case TicketOperation::fixTicket:
        return fixTicket(request);
    case TicketOperation::showCapabilities:
        return showCapabilities(request);
    case TicketOperation::writeCapabilities:
        return writeCapabilities(request);
    case TicketOperation::importCapabilities:
        return importCapabilities(request);
    case TicketOperation::clearCapabilities:
        return clearCapabilities(request);
    case TicketOperation::listStocks:
        return listStocks(request);
    }
    raise<UnknownCaseException>(u"kolmaRunTicketRequest(): unknown operation %d.\r\n", request.operation);
}

} // namespace

extern "C" int kolmaRunTicketRequest(TicketRequest* request) {
    setVerbose(request->verbose);
    return runReporting([&] { return run(*request); });
}
