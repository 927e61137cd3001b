// Takes bytes, block by block: the far end of AnlToStreamTranslator::anlToStream.
#pragma once

#include "jtcore/Services/ByteBuffer.h"

class ByteSink {
public:
    virtual ~ByteSink() = default;
    virtual void takeBlock(const ByteBuffer& block) = 0;
};
