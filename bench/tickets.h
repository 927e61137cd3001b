// The jobs that are measured.
#pragma once

#include "jtcore/Attributes/AttrNodeList.h"
#include "jtcore/Services/ByteBuffer.h"

// About 60 attributes with nested collections, ten exceptions among them: a manual with covers and inserts.
AttrNodeList typicalTicket();
// The same with 250 exceptions, 60 inserts and 100 chapter starts. Does not fit a document's area.
AttrNodeList largeTicket();

// The list as a ticket file, as the text inside a state, and as that text in a compressed block.
ByteBuffer ticketText(const AttrNodeList& list);
ByteBuffer compactText(const AttrNodeList& list);
ByteBuffer compressedText(const AttrNodeList& list);
