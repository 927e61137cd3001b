// The same job as the printing library of the system carries it.
#pragma once

#include "jtcore/Attributes/AttrNodeList.h"
#include "jtcore/Services/ByteBuffer.h"

#include <cstddef>

// The list as an IPP message in memory.
ByteBuffer writeIpp(const AttrNodeList& list);
// Returns the number of attributes read.
std::size_t readIpp(const ByteBuffer& message);
