// Changes a state where it matters. A change of the stored bytes alone seldom gets past the check sum of the compressed
// block, so this one unpacks the block, changes what is inside, and packs it again.
#pragma once

#include "jtcore/Services/ByteBuffer.h"

#include <cstddef>

// Also gives states that cannot be read: every few changes are of the stored bytes. The result has at most `maximum`
// bytes.
ByteBuffer mutateState(const ByteBuffer& state, std::size_t maximum, unsigned seed);
