#include "host/ticketModule.h"

#include "host/commandFailure.h"
#include "host/moduleEntry.h"
#include "jtcore/Services/getDriverFilePath.h"

namespace {

constexpr std::u16string_view ticketModule = u"" KOLMA_TICKET_MODULE_FILE;

// The module stays until the process ends: what it has brought up cannot be taken down safely.
KolmaRunTicketRequest loadTicketModule() {
    const std::u16string path = getDriverFilePath(nullptr, ticketModule);
    const HMODULE module = LoadLibraryExW(toWide(path), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
    auto entry = module ? getModuleEntry<KolmaRunTicketRequest>(module, kolmaRunTicketRequestName) : nullptr;
    if (!entry)
        raise<InWords<UnknownCaseException>>(u"The module \"%s\" could not be loaded (error %u).", path,
                                             GetLastError());
    return entry;
}

} // namespace

int runRequest(TicketRequest& request) {
    request.verbose = isVerbose();
    return loadTicketModule()(&request);
}
