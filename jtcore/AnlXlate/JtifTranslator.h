// Job tickets: the files that a user opens and saves. They are validated against the DTD beside the driver's files.
#pragma once

#include "jtcore/AnlXlate/AnlTranslatorForXml.h"

class JtifTranslator final : public AnlTranslatorForXml {
public:
    // The full path of the DTD, worked out once in the process.
    static const std::u16string& getDtdPath();

protected:
    std::unique_ptr<KolmaXmlFile> createXmlFile(const std::u16string& fileName) const override;
    std::unique_ptr<KolmaXmlDataStream> createXmlStream() const override;
};
