// An attribute list to and from an XML file.
#pragma once

#include "jtcore/JtifParse/KolmaXmlDataStream.h"

#include <cstddef>
#include <string>

class AtomicFileWriter;

class KolmaXmlFile final : public KolmaXmlDataStream, public XmlOutputCallback {
public:
    // A larger file is refused before it is read (parse code 13). Tickets are a thousandth of this, large ones a
    // thirtieth.
    static constexpr std::size_t maximumSize = 8U * 1024 * 1024;

    KolmaXmlFile(XmlDataType type, std::u16string fileName, std::u16string dtdPath = {});

    // Parse codes, beside those of the base class: 12 to 16, which name the step that failed.
    void read(AttrNodeList& list) override;
    // Replaces the file in one step: it has its old content or its new one, whole, also when the write fails or the
    // process dies. Parse codes, beside those of the base class: 17 (cannot be created), 18 (no name), 19 (not
    // written).
    void write(const AttrNodeList& list) override;

    // The DTD path, else the file name, else "XmlStream".
    std::u16string getBufferId() const override;

    // False outside of write().
    bool handleOutput(const void* bytes, std::size_t length) override;

private:
    std::u16string fileName_;
    AtomicFileWriter* writer_ = nullptr; // while write() runs
};
