#include "jtcore/AnlXlate/SmallJtifTranslator.h"

#include "jtcore/AnlXlate/abbreviate.h"
#include "jtcore/JtifParse/KolmaXmlFile.h"
#include "jtcore/JtifParse/compactText.h"

void SmallJtifTranslator::bufferToAnl(const ByteBuffer& bytes, AttrNodeList& list) const {
    if (!readCompactText(bytes, list)) return AnlTranslatorForXml::bufferToAnl(bytes, list);
    finishAfterReading(list);
}

void SmallJtifTranslator::anlToBuffer(const AttrNodeList& list, ByteBuffer& bytes) const {
    if (!writeCompactText(list, bytes, Abbreviation())) AnlTranslatorForXml::anlToBuffer(list, bytes);
}

bool SmallJtifTranslator::prepareForWriting(const AttrNodeList& list, AttrNodeList& prepared) const {
    prepared = list;
    abbreviateList(prepared);
    return true;
}

void SmallJtifTranslator::finishAfterReading(AttrNodeList& list) const { expandList(list); }

std::unique_ptr<KolmaXmlFile> SmallJtifTranslator::createXmlFile(const std::u16string& fileName) const {
    return std::make_unique<KolmaXmlFile>(XmlDataType::compactTicket, fileName);
}

std::unique_ptr<KolmaXmlDataStream> SmallJtifTranslator::createXmlStream() const {
    return std::make_unique<KolmaXmlDataStream>(XmlDataType::compactTicket);
}
