#include "host/stockCommands.h"

#include "host/PrinterHandle.h"
#include "host/ticketModule.h"

int listStocks(const std::u16string& printer, bool json) {
    const PrinterHandle handle(printer);
    TicketRequest request{};
    request.operation = TicketOperation::listStocks;
    request.printerName = printer.c_str();
    request.printer = handle.get();
    request.json = json;
    return runRequest(request);
}
