#include "jtcore/AnlXlate/AnlTranslatorForXml.h"

#include "jtcore/JtifParse/KolmaXmlDataStream.h"
#include "jtcore/JtifParse/KolmaXmlFile.h"

bool AnlTranslatorForXml::prepareForWriting(const AttrNodeList&, AttrNodeList&) const { return false; }

void AnlTranslatorForXml::finishAfterReading(AttrNodeList&) const {}

void AnlTranslatorForXml::bufferToAnl(const ByteBuffer& bytes, AttrNodeList& list) const {
    std::unique_ptr<KolmaXmlDataStream> stream = createXmlStream();
    stream->setBuffer(bytes.getData(), bytes.getSize());
    stream->read(list);
    finishAfterReading(list);
}

void AnlTranslatorForXml::anlToBuffer(const AttrNodeList& list, ByteBuffer& bytes) const {
    AttrNodeList scratch;
    const AttrNodeList& written = prepareForWriting(list, scratch) ? scratch : list;
    std::unique_ptr<KolmaXmlDataStream> stream = createXmlStream();
    XmlOutputBufferCallback callback(bytes);
    callback.setFormatted(formatted_);
    stream->setOutputCallback(&callback);
    stream->write(written);
}

void AnlTranslatorForXml::fileToAnl(const std::u16string& fileName, AttrNodeList& list) const {
    createXmlFile(fileName)->read(list);
    finishAfterReading(list);
}

void AnlTranslatorForXml::anlToFile(const AttrNodeList& list, const std::u16string& fileName) const {
    AttrNodeList scratch;
    const AttrNodeList& written = prepareForWriting(list, scratch) ? scratch : list;
    createXmlFile(fileName)->write(written);
}

void AnlTranslatorForXml::anlToStream(const AttrNodeList& list, ByteSink& sink) const {
    AttrNodeList scratch;
    const AttrNodeList& written = prepareForWriting(list, scratch) ? scratch : list;
    std::unique_ptr<KolmaXmlDataStream> stream = createXmlStream();
    XmlOutputStreamCallback callback(sink);
    callback.setFormatted(formatted_);
    stream->setOutputCallback(&callback);
    stream->write(written);
}
