#include "jtcore/Capabilities/JobTicketUserMessage.h"

#include "jtcore/Services/JtifParseException.h"
#include "jtcore/Services/ResourceLibrary.h"
#include "resources/ids.h"

JobTicketUserMessage::JobTicketUserMessage(HWND window, std::uint16_t titleId, const std::u16string& fileName,
                                           std::uint16_t textId)
    : UserMessage(window, titleId, textId) {
    setTitle(getTitle() + fileName);
}

JobTicketUserMessage::JobTicketUserMessage(HWND window, std::uint16_t titleId, const std::u16string& fileName,
                                           const std::exception& failure)
    : JobTicketUserMessage(window, titleId, fileName, getTextId(failure)) {
    setException(&failure);
}

std::uint16_t JobTicketUserMessage::getTextId(const std::exception& failure) noexcept {
    const auto* parsing = dynamic_cast<const JtifParseException*>(&failure);
    if (!parsing) return IDS_TICKET_FAILED;
    using enum JtifParseCode;
    switch (parsing->getParseCode()) {
    case XMLEXCEPTION_RAISED_DURING_PARSE:
    case ERROR_REPORTED_DURING_PARSE:
        return IDS_TICKET_INVALID;
    case XMLEXCEPTION_RAISED_DURING_XML_GENERATION:
    case HANDLEOUTPUT_METHOD_FAILED_IN_WRITECHARS:
    case DOMEXCEPTION_DURING_NODE_CREATION:
    case NO_CATEGORY_FOR_JTIF_ATTRIBUTE:
    case WRITEFILE_FAILED:
        return IDS_TICKET_WRITE_FAILED;
    case DOMEXCEPTION_DURING_NODE_CONVERSION:
    case READFILE_FAILED:
    case FAILED_ALLOCATION_OF_XML_FILE_BUFFER:
    case FAILED_GETFILESIZE_DURING_READ:
        return IDS_TICKET_READ_FAILED;
    case FAILED_CREATFILE_DURING_READ:
        return IDS_TICKET_OPEN_FAILED;
    case FAILED_CREATFILE_DURING_WRITE:
        return IDS_TICKET_CREATE_FAILED;
    default:
        return IDS_TICKET_FAILED;
    }
}
