// Job tickets as files.
#pragma once

#include "jtcore/Attributes/AttrNodeList.h"

#include <string>

// Raises what the translator raises.
AttrNodeList readTicket(const std::u16string& file);

// Replaces the file in one step, after proving that the ticket can be read again. A failure, which is raised, leaves
// the earlier file as it was.
void writeTicket(const std::u16string& file, const AttrNodeList& list);
