#include "jtcore/AnlXlate/JtifTranslator.h"

#include "jtcore/JtifParse/KolmaXmlFile.h"
#include "jtcore/Services/OwnedCriticalResource.h"
#include "jtcore/Services/getDriverFilePath.h"

namespace {

OwnedCriticalResource dtdPathResource("JtifTranslator");

} // namespace

const std::u16string& JtifTranslator::getDtdPath() {
    static std::u16string path;
    OwnedCriticalResource::Guard guard(dtdPathResource);
    if (path.empty()) path = getDriverFilePath(nullptr, u"jtif-v02021.dtd");
    return path;
}

std::unique_ptr<KolmaXmlFile> JtifTranslator::createXmlFile(const std::u16string& fileName) const {
    return std::make_unique<KolmaXmlFile>(XmlDataType::jobTicket, fileName, getDtdPath());
}

std::unique_ptr<KolmaXmlDataStream> JtifTranslator::createXmlStream() const {
    return std::make_unique<KolmaXmlDataStream>(XmlDataType::jobTicket, getDtdPath());
}
