// Turns an attribute list into an outside form and back.
#pragma once

#include "jtcore/Attributes/AttrNodeList.h"
#include "jtcore/Services/ByteBuffer.h"

#include <string>

class AnlTranslator {
public:
    virtual ~AnlTranslator() = default;

    // Each raises when the form cannot be read or written; what the output then holds is told by the class.
    virtual void bufferToAnl(const ByteBuffer& bytes, AttrNodeList& list) const = 0;
    virtual void anlToBuffer(const AttrNodeList& list, ByteBuffer& bytes) const = 0;
    virtual void fileToAnl(const std::u16string& fileName, AttrNodeList& list) const = 0;
    virtual void anlToFile(const AttrNodeList& list, const std::u16string& fileName) const = 0;

protected:
    AnlTranslator() = default;
    AnlTranslator(const AnlTranslator&) = default;
    AnlTranslator& operator=(const AnlTranslator&) = default;
};
