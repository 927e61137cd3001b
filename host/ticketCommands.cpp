#include "host/ticketCommands.h"

#include "host/AreaFile.h"
#include "host/ExitCode.h"
#include "host/PlugIn.h"
#include "host/PrinterHandle.h"
#include "host/commandFailure.h"
#include "host/output.h"
#include "host/ticketModule.h"

#include <fmt/format.h>

#include <cstring>

namespace {

void printSummary(const TicketRequest& request) {
    print(fmt::format("{} attributes, {} bytes, {} of {} left\n", request.attributes, request.stateSize,
                      sizeof(KolmaDmType::data) - request.stateSize, sizeof(KolmaDmType::data)));
}

TicketRequest makeRequest(TicketOperation operation, const std::u16string& file, KolmaDmType* area) {
    TicketRequest request{};
    request.operation = operation;
    request.file = file.c_str();
    request.area = area;
    return request;
}

// As a document's host would: the settings count only when the module takes them over.
void passThroughModule(KolmaDmType& area) {
    KolmaDmType accepted = absentArea();
    PlugIn().runDevMode(OEMDM_CONVERT, nullptr, &area, accepted);
    if (std::memcmp(&accepted, &area, sizeof area) != 0)
        raise<InWords<MissingOrBadPersistentSettingsFormatException>>(
            u"The driver module did not take over the settings of the ticket.");
}

} // namespace

int showArea(const std::u16string& file, bool json) {
    KolmaDmType area = readAreaFile(file);
    TicketRequest request = makeRequest(TicketOperation::showArea, file, &area);
    request.json = json;
    return runRequest(request);
}

int showTicket(const std::u16string& file, bool json) {
    TicketRequest request = makeRequest(TicketOperation::showTicket, file, nullptr);
    request.json = json;
    return runRequest(request);
}

int ticketToArea(const std::u16string& ticket, const std::u16string& output) {
    KolmaDmType area{};
    TicketRequest request = makeRequest(TicketOperation::ticketToArea, ticket, &area);
    if (const int code = runRequest(request)) return code;
    passThroughModule(area);
    writeAreaFile(output, area);
    printSummary(request);
    return exitDone;
}

int areaToTicket(const std::u16string& file, const std::u16string& output) {
    KolmaDmType area = readAreaFile(file);
    TicketRequest request = makeRequest(TicketOperation::areaToTicket, output, &area);
    if (const int code = runRequest(request)) return code;
    printSummary(request);
    return exitDone;
}

int checkTickets(const std::vector<std::u16string>& files, const std::u16string& printer, bool json) {
    const PrinterHandle handle(printer);
    std::vector<const char16_t*> names;
    names.reserve(files.size());
    for (const std::u16string& file : files)
        names.push_back(file.c_str());
    TicketRequest request = makeRequest(TicketOperation::checkTickets, files.front(), nullptr);
    request.printer = handle.get();
    request.files = names.data();
    request.fileCount = names.size();
    request.json = json;
    return runRequest(request);
}

int fixTicket(const std::u16string& file, const std::u16string& printer, const std::u16string& output, bool agrees) {
    const PrinterHandle handle(printer);
    TicketRequest request = makeRequest(TicketOperation::fixTicket, file, nullptr);
    request.printer = handle.get();
    request.output = output.c_str();
    request.agrees = agrees;
    return runRequest(request);
}
