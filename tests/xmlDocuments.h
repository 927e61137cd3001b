// XML documents for tests: bytes in, a list out, and back, without files.
#pragma once

#include "jtcore/JtifParse/KolmaXmlDataStream.h"
#include "jtcore/Services/text.h"

#include <string>
#include <string_view>

inline std::u16string dtdPath() { return fromUtf8(KOLMA_SOURCE_DIR "/resources/jtif-v02021.dtd"); }

inline std::u16string dtdFor(XmlDataType type) { return type == XmlDataType::jobTicket ? dtdPath() : std::u16string(); }

inline AttrNodeList readXml(XmlDataType type, std::string_view xml) {
    KolmaXmlDataStream stream(type, dtdFor(type));
    stream.setBuffer(xml.data(), xml.size());
    AttrNodeList list;
    stream.read(list);
    return list;
}

inline std::string writeXml(XmlDataType type, const AttrNodeList& list, bool formatted = true) {
    KolmaXmlDataStream stream(type, dtdFor(type));
    ByteBuffer bytes;
    XmlOutputBufferCallback callback(bytes);
    callback.setFormatted(formatted);
    stream.setOutputCallback(&callback);
    stream.write(list);
    return {reinterpret_cast<const char*>(bytes.getData()), bytes.getSize()};
}

inline std::string ticket(std::string_view groups) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!DOCTYPE jtif SYSTEM \"jtif-v02021.dtd\">\n<jtif>" +
           std::string(groups) + "</jtif>";
}

// A ticket with these attributes in the job template group.
inline std::string jobTicket(std::string_view attributes) {
    return ticket("<job-template-attributes>" + std::string(attributes) + "</job-template-attributes>");
}

inline std::string capabilityFile(std::string_view attributes) {
    return "<abil>" + std::string(attributes) + "</abil>";
}
