#include "jtcore/AnlXlate/SpfTranslator.h"

#include "jtcore/JtifParse/KolmaXmlFile.h"

std::unique_ptr<KolmaXmlFile> SpfTranslator::createXmlFile(const std::u16string& fileName) const {
    return std::make_unique<KolmaXmlFile>(XmlDataType::stockPreferences, fileName);
}

std::unique_ptr<KolmaXmlDataStream> SpfTranslator::createXmlStream() const {
    return std::make_unique<KolmaXmlDataStream>(XmlDataType::stockPreferences);
}
