#include "jtcore/JtifParse/XmlOutputTarget.h"

#include "jtcore/Services/JtifParseException.h"

namespace {

constexpr std::size_t blockSize = 16384;

} // namespace

void XmlOutputTarget::writeChars(const XMLByte* toWrite, XMLSize_t count, XERCES_CPP_NAMESPACE::XMLFormatter*) {
    pending_.append(reinterpret_cast<const char*>(toWrite), count);
    if (pending_.size() >= blockSize) finish();
}

void XmlOutputTarget::finish() {
    if (!callback_.handleOutput(pending_.data(), pending_.size()))
        raiseJtifParse(JtifParseCode::HANDLEOUTPUT_METHOD_FAILED_IN_WRITECHARS,
                       u"KolmaXmlParser::writeChars(): Failed the call to handleOutput() in special callback "
                       u"object!\r\n");
    pending_.clear();
}
