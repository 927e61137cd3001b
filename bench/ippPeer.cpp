#include "bench/ippPeer.h"

#include "jtcore/Attributes/IppBoolean.h"
#include "jtcore/Attributes/IppList.h"
#include "jtcore/Attributes/PrimitiveInteger.h"
#include "jtcore/Services/text.h"

#include <algorithm>
#include <cstring>
#include <cups/cups.h>

namespace {

void addNodes(ipp_t* message, ipp_tag_t group, const AttrNodeList& list);

void addList(ipp_t* message, ipp_tag_t group, const char* id, const IppList& value) {
    std::int32_t lower = 0;
    std::int32_t upper = 0;
    std::int32_t units = 0;
    if (value.isRangeOfInteger() && value.getRangeOfIntegerValues(lower, upper)) {
        ippAddRange(message, group, id, lower, upper);
    } else if (value.isResolution() && value.getResolutionValues(lower, upper, units)) {
        ippAddResolution(message, group, id, IPP_RES_PER_INCH, lower, upper);
    } else {
        ipp_t* collection = ippNew();
        addNodes(collection, IPP_TAG_ZERO, value.getList());
        ippAddCollection(message, group, id, collection);
        ippDelete(collection);
    }
}

void addNodes(ipp_t* message, ipp_tag_t group, const AttrNodeList& list) {
    for (const AttrNode& node : list) {
        std::string id = toUtf8(node.getAttrID());
        const AttrValue& value = node.getAttrValue();
        std::string text = toUtf8(value.getIppValue());
        if (const IppList* inner = value.asList())
            addList(message, group, id.c_str(), *inner);
        else if (const PrimitiveInteger* number = value.asPrimitiveInteger())
            ippAddInteger(message, group, IPP_TAG_INTEGER, id.c_str(), number->getValue());
        else if (const IppBoolean* flag = value.asBoolean())
            ippAddBoolean(message, group, id.c_str(), static_cast<char>(flag->getValue()));
        else
            ippAddString(message, group, value.getValueType() == AVTE::keyword ? IPP_TAG_KEYWORD : IPP_TAG_NAME,
                         id.c_str(), nullptr, text.c_str());
    }
}

struct Cursor {
    const std::uint8_t* at;
    std::size_t left;
};

ssize_t readBytes(void* context, ipp_uchar_t* buffer, size_t size) {
    auto* cursor = static_cast<Cursor*>(context);
    std::size_t count = std::min(size, cursor->left);
    std::memcpy(buffer, cursor->at, count);
    cursor->at += count;
    cursor->left -= count;
    return static_cast<ssize_t>(count);
}

ssize_t writeBytes(void* context, ipp_uchar_t* buffer, size_t size) {
    static_cast<ByteBuffer*>(context)->appendData(buffer, size);
    return static_cast<ssize_t>(size);
}

} // namespace

ByteBuffer writeIpp(const AttrNodeList& list) {
    ipp_t* message = ippNewRequest(IPP_OP_PRINT_JOB);
    addNodes(message, IPP_TAG_JOB, list);
    ByteBuffer bytes;
    ippWriteIO(&bytes, writeBytes, 1, nullptr, message);
    ippDelete(message);
    return bytes;
}

std::size_t readIpp(const ByteBuffer& bytes) {
    ipp_t* message = ippNew();
    Cursor cursor{bytes.getData(), bytes.getSize()};
    ippReadIO(&cursor, readBytes, 1, nullptr, message);
    std::size_t count = 0;
    for (ipp_attribute_t* attribute = ippFirstAttribute(message); attribute; attribute = ippNextAttribute(message))
        ++count;
    ippDelete(message);
    return count;
}
