// Capability files. They are not validated against a DTD.
#pragma once

#include "jtcore/AnlXlate/AnlTranslatorForXml.h"

class AbilTranslator final : public AnlTranslatorForXml {
protected:
    std::unique_ptr<KolmaXmlFile> createXmlFile(const std::u16string& fileName) const override;
    std::unique_ptr<KolmaXmlDataStream> createXmlStream() const override;
};
