// An attribute list to and from XML in memory.
//
// Every failure of reading and writing is a JtifParseException; its parse code says what went wrong. Only one thread at
// a time is inside read() or write() of any stream, since the XML library serves one at a time: a callback must not
// start another read or write.
#pragma once

#include "jtcore/Attributes/AttrNodeList.h"
#include "jtcore/JtifParse/XmlDataType.h"
#include "jtcore/JtifParse/XmlOutputCallback.h"

#include <cstddef>
#include <memory>
#include <string>

class KolmaDomDoc;

class KolmaXmlDataStream {
public:
    // With a DTD path the document is validated against that file; job tickets must have one.
    explicit KolmaXmlDataStream(XmlDataType type = XmlDataType::notSpecified, std::u16string dtdPath = {});
    virtual ~KolmaXmlDataStream();
    KolmaXmlDataStream(const KolmaXmlDataStream&) = delete;
    KolmaXmlDataStream& operator=(const KolmaXmlDataStream&) = delete;

    // The bytes to read. REQUIRES: they stay where they are for as long as the stream reads.
    virtual void setBuffer(const void* data, std::size_t length);
    // Who receives what is written. REQUIRES: outlives the writing.
    virtual void setOutputCallback(XmlOutputCallback* callback);

    // Appends what the bytes hold. After a failure the list holds the nodes read so far.
    // Parse codes: 1, 2, 5 (bad document), 8 (no buffer), 10, 11 (bad kind), 20, 22 (no XML in this process).
    virtual void read(AttrNodeList& list);
    // Writes the nodes that are not private. Parse codes: 3, 4, 6, 7 (the list cannot be written), 9 (no receiver), 10,
    // 11, 20, 22, and 2 when the DTD cannot be read.
    virtual void write(const AttrNodeList& list);

    // The name under which the parser knows the bytes: the path of the DTD, else "XmlStream".
    virtual std::u16string getBufferId() const;

protected:
    std::unique_ptr<KolmaDomDoc> createDomDocument() const;
    void readFrom(const void* data, std::size_t length, AttrNodeList& list) const;
    void writeTo(XmlOutputCallback& callback, const AttrNodeList& list) const;
    const std::u16string& getDtdPath() const noexcept { return dtdPath_; }

private:
    XmlDataType type_;
    const void* buffer_ = nullptr;
    std::size_t length_ = 0;
    XmlOutputCallback* callback_ = nullptr;
    std::u16string dtdPath_;
};
