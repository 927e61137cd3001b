// The abbreviations of the compact ticket.
//
// An id is abbreviated by the feature table, or as one of the few member names. A value is abbreviated by the value
// table, under the feature that was met last: lists are handled before the node that holds them, so the members of a
// list are seen under the feature before it. A "*" marks a value that only looks like an abbreviation.
#pragma once

#include "jtcore/Attributes/AttrNodeList.h"

// Abbreviates every node, at any depth, in place.
void abbreviateList(AttrNodeList& list);

// The reverse.
void expandList(AttrNodeList& list);
