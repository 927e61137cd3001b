// The jobs that are measured.
#pragma once

#include "jtcore/AnlXlate/KolmaDevMode.h"

#include <vector>

// About 60 attributes with nested collections, ten exceptions among them: a manual with covers and inserts.
AttrNodeList typicalTicket();
// The same with 250 exceptions, 60 inserts and 100 chapter starts. Does not fit a document's area.
AttrNodeList largeTicket();

// The list as a ticket file, as the text inside a state, and as that text in a compressed block.
ByteBuffer ticketText(const AttrNodeList& list);
ByteBuffer compactText(const AttrNodeList& list);
ByteBuffer compressedText(const AttrNodeList& list);

// Settings of typical tickets that differ in one number, more of them than a process remembers: who goes through them
// in turn finds each one unknown.
std::vector<KolmaDevMode> manySettings();
