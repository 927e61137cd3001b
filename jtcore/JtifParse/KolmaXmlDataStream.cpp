#include "jtcore/JtifParse/KolmaXmlDataStream.h"

#include "jtcore/JtifParse/AbilDomDoc.h"
#include "jtcore/JtifParse/JtifDomDoc.h"
#include "jtcore/JtifParse/SJtifDomDoc.h"
#include "jtcore/JtifParse/StockPrefDomDoc.h"
#include "jtcore/Services/JtifParseException.h"

#include <utility>

KolmaXmlDataStream::KolmaXmlDataStream(XmlDataType type, std::u16string dtdPath)
    : type_(type), dtdPath_(std::move(dtdPath)) {}

KolmaXmlDataStream::~KolmaXmlDataStream() = default;

void KolmaXmlDataStream::setBuffer(const void* data, std::size_t length) {
    buffer_ = data;
    length_ = length;
}

void KolmaXmlDataStream::setOutputCallback(XmlOutputCallback* callback) { callback_ = callback; }

void KolmaXmlDataStream::read(AttrNodeList& list) {
    if (buffer_ == nullptr)
        raiseJtifParse(JtifParseCode::NO_XML_SOURCE_BUFFER_SPECIFIED,
                       u"KolmaXmlDataStream::read(): No buffer to read from!\r\n");
    readFrom(buffer_, length_, list);
}

void KolmaXmlDataStream::write(const AttrNodeList& list) {
    if (callback_ == nullptr)
        raiseJtifParse(JtifParseCode::NO_XML_OUTPUT_RECEIVER_SPECIFIED,
                       u"KolmaXmlDataStream::write(): No output callback object to receive XML data.\r\n");
    writeTo(*callback_, list);
}

void KolmaXmlDataStream::readFrom(const void* data, std::size_t length, AttrNodeList& list) const {
    std::unique_ptr<KolmaDomDoc> document = createDomDocument();
    document->parseBuffer(data, length);
    document->convertToAnl(list);
}

void KolmaXmlDataStream::writeTo(XmlOutputCallback& callback, const AttrNodeList& list) const {
    std::unique_ptr<KolmaDomDoc> document = createDomDocument();
    document->convertFromAnl(list);
    document->convertToXmlStream(callback);
}

std::u16string KolmaXmlDataStream::getBufferId() const { return dtdPath_.empty() ? u"XmlStream" : dtdPath_; }

std::unique_ptr<KolmaDomDoc> KolmaXmlDataStream::createDomDocument() const {
    bool validate = !dtdPath_.empty();
    switch (type_) {
    case XmlDataType::jobTicket:
        if (!validate)
            raiseJtifParse(
                JtifParseCode::REQUIRED_DTD_NOT_SPECIFIED,
                u"KolmaXmlDataStream::createDomDocument(): Validation required for JtifDomDoc, but it is not "
                u"set. Did you specify a DTD?\r\n");
        return std::make_unique<JtifDomDoc>(getBufferId(), validate);
    case XmlDataType::capabilityFile:
        return std::make_unique<AbilDomDoc>(getBufferId(), validate);
    case XmlDataType::stockPreferences:
        return std::make_unique<StockPrefDomDoc>(getBufferId(), validate);
    case XmlDataType::compactTicket:
        return std::make_unique<SJtifDomDoc>(getBufferId(), validate);
    default:
        raiseJtifParse(JtifParseCode::TYPE_OF_XML_DATA_NOT_SPECIFIED,
                       u"KolmaXmlDataStream::createDomDocument(): Unknown or unsupported data type!\r\n");
    }
}
