// Writes an attribute list to a byte sink.
#pragma once

#include "jtcore/Attributes/AttrNodeList.h"
#include "jtcore/JtifParse/ByteSink.h"

class AnlToStreamTranslator {
public:
    virtual ~AnlToStreamTranslator() = default;
    // Raises when the list cannot be written; the sink may then have taken blocks.
    virtual void anlToStream(const AttrNodeList& list, ByteSink& sink) const = 0;
};
