#include "jtcore/AnlXlate/AbilTranslator.h"

#include "jtcore/JtifParse/KolmaXmlFile.h"

std::unique_ptr<KolmaXmlFile> AbilTranslator::createXmlFile(const std::u16string& fileName) const {
    return std::make_unique<KolmaXmlFile>(XmlDataType::capabilityFile, fileName);
}

std::unique_ptr<KolmaXmlDataStream> AbilTranslator::createXmlStream() const {
    return std::make_unique<KolmaXmlDataStream>(XmlDataType::capabilityFile);
}
