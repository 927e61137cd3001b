#include "host/tickets/ticketFile.h"

#include "host/commandFailure.h"
#include "host/outputFile.h"
#include "jtcore/AnlXlate/JtifTranslator.h"

AttrNodeList readTicket(const std::u16string& file) {
    AttrNodeList list;
    JtifTranslator().fileToAnl(file, list);
    return list;
}

void writeTicket(const std::u16string& file, const AttrNodeList& list) {
    ByteBuffer ticket;
    JtifTranslator().anlToBuffer(list, ticket);
    AttrNodeList again;
    JtifTranslator().bufferToAnl(ticket, again);
    if (!again.equals(list))
        raise<InWords<MissingOrBadPersistentSettingsFormatException>>(
            u"The ticket would not hold the same settings. Nothing was written.");
    writeOutputFile(file, ticket);
}
