#include "host/tickets/ticketFile.h"

#include "host/commandFailure.h"
#include "host/outputFile.h"
#include "jtcore/AnlXlate/JtifTranslator.h"

#include <utility>

namespace {

// A ticket keeps its attributes in groups, so those of the job may come back in another order.
bool holdSame(const AttrNodeList& list, AttrNodeList other) {
    for (const AttrNode& node : list) {
        const AttrNode* match = other.getMatchingNode(node);
        if (!match) return false;
        other.deleteNodeObject(match);
    }
    return other.isEmpty();
}

} // namespace

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
    if (!holdSame(list, std::move(again)))
        raise<InWords<MissingOrBadPersistentSettingsFormatException>>(
            u"The ticket would not hold the same settings. Nothing was written.");
    writeOutputFile(file, ticket);
}
