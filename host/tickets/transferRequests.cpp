#include "host/tickets/transferRequests.h"

#include "host/ExitCode.h"
#include "host/output.h"
#include "host/tickets/ticketFile.h"
#include "jtcore/AnlXlate/KolmaDevMode.h"
#include "jtcore/Services/KolmaException.h"
#include "jtcore/Services/formatMessage.h"

namespace {

void describe(TicketRequest& request, const AttrNodeList& list, const KolmaDevMode& settings) {
    request.attributes = static_cast<std::uint32_t>(list.getNumNodes());
    request.stateSize = static_cast<std::uint32_t>(settings.getStateSize());
}

// The failure is the settings' own; these words go before it.
void tellByHowMuch(const AttrNodeList& list) {
    PersistentSettings unlimited;
    unlimited.setAttrNodeList(list);
    constexpr std::size_t room = sizeof(KolmaDmType::data);
    printError(formatMessage(u"The settings take %u bytes, %u more than the %u of a document.\r\n",
                             unlimited.getStateSize(), unlimited.getStateSize() - room, room));
}

} // namespace

int ticketToArea(TicketRequest& request) {
    const AttrNodeList list = readTicket(request.file);
    KolmaDevMode settings;
    try {
        settings.setAttrNodeList(list);
    } catch (const DevModeOverflowException&) {
        tellByHowMuch(list);
        throw;
    }
    settings.exportToDevMode(request.area);
    describe(request, list, settings);
    return exitDone;
}

int areaToTicket(TicketRequest& request) {
    if (!KolmaDevMode::isValidArea(request.area)) {
        printError(u"The area is not of this driver. Nothing was written.");
        return exitNotValid;
    }
    const KolmaDevMode settings(request.area);
    AttrNodeList list;
    settings.getAttrNodeList(list);
    writeTicket(request.file, list);
    describe(request, list, settings);
    return exitDone;
}
