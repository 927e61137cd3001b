// A translator whose outside form is XML.
//
// Every failure is a JtifParseException, or what the making of a value from its text raises. A read that fails leaves
// the list with the nodes read so far. Objects have no state: one may serve several threads.
#pragma once

#include "jtcore/AnlXlate/AnlToStreamTranslator.h"
#include "jtcore/AnlXlate/AnlTranslator.h"

#include <memory>

class KolmaXmlDataStream;
class KolmaXmlFile;

class AnlTranslatorForXml : public AnlTranslator, public AnlToStreamTranslator {
public:
    // Each appends to the list what the form holds.
    void bufferToAnl(const ByteBuffer& bytes, AttrNodeList& list) const override;
    // Appends to the bytes.
    void anlToBuffer(const AttrNodeList& list, ByteBuffer& bytes) const override;
    void fileToAnl(const std::u16string& fileName, AttrNodeList& list) const override;
    // Replaces the file in one step; a failure leaves the earlier file as it was. A file is always formatted.
    void anlToFile(const AttrNodeList& list, const std::u16string& fileName) const override;
    void anlToStream(const AttrNodeList& list, ByteSink& sink) const override;

protected:
    // Formatted output has line breaks and tabs.
    explicit AnlTranslatorForXml(bool formatted = true) noexcept : formatted_(formatted) {}

    // Fills `prepared` with what is to be written in place of the list, and returns true; or returns false.
    virtual bool prepareForWriting(const AttrNodeList& list, AttrNodeList& prepared) const;
    virtual void finishAfterReading(AttrNodeList& list) const;
    virtual std::unique_ptr<KolmaXmlFile> createXmlFile(const std::u16string& fileName) const = 0;
    virtual std::unique_ptr<KolmaXmlDataStream> createXmlStream() const = 0;

private:
    bool formatted_;
};
