#include "jtcore/JtifParse/XmlOutputCallback.h"

bool XmlOutputBufferCallback::handleOutput(const void* bytes, std::size_t length) {
    buffer_.appendData(bytes, length);
    return true;
}

bool XmlOutputStreamCallback::handleOutput(const void* bytes, std::size_t length) {
    sink_.takeBlock(ByteBuffer(bytes, length));
    return true;
}
