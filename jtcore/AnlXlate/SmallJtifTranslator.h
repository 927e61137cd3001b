// Compact tickets: the settings text of a stored state. Ids and values are written by their abbreviations, so the text
// is a quarter of the size of a ticket.
#pragma once

#include "jtcore/AnlXlate/AnlTranslatorForXml.h"

class SmallJtifTranslator final : public AnlTranslatorForXml {
public:
    SmallJtifTranslator() noexcept : AnlTranslatorForXml(false) {}

    // Text of our own making is read, and nearly all text is written, without the XML library; the rest goes the way
    // of every other document.
    void bufferToAnl(const ByteBuffer& bytes, AttrNodeList& list) const override;
    void anlToBuffer(const AttrNodeList& list, ByteBuffer& bytes) const override;

protected:
    bool prepareForWriting(const AttrNodeList& list, AttrNodeList& prepared) const override;
    void finishAfterReading(AttrNodeList& list) const override;
    std::unique_ptr<KolmaXmlFile> createXmlFile(const std::u16string& fileName) const override;
    std::unique_ptr<KolmaXmlDataStream> createXmlStream() const override;
};
