#include "host/capabilityCommands.h"

#include "host/ExitCode.h"
#include "host/PrinterHandle.h"
#include "host/output.h"
#include "host/ticketModule.h"

#include <fmt/format.h>

namespace {

int run(TicketOperation operation, const std::u16string& printer, const std::u16string& file, bool json,
        const char* summary) {
    const PrinterHandle handle(printer);
    TicketRequest request{};
    request.operation = operation;
    request.printerName = printer.c_str();
    request.printer = handle.get();
    request.file = file.c_str();
    request.json = json;
    if (const int code = runRequest(request)) return code;
    if (summary) print(fmt::format("{} {} attributes\n", summary, request.attributes));
    return exitDone;
}

} // namespace

int showCapabilities(const std::u16string& printer, bool json, const std::u16string& abilFile) {
    if (abilFile.empty()) return run(TicketOperation::showCapabilities, printer, abilFile, json, nullptr);
    return run(TicketOperation::writeCapabilities, printer, abilFile, json, "Wrote");
}

int importCapabilities(const std::u16string& printer, const std::u16string& file) {
    return run(TicketOperation::importCapabilities, printer, file, false, "Imported");
}

int clearCapabilities(const std::u16string& printer) {
    return run(TicketOperation::clearCapabilities, printer, u"", false, nullptr);
}
