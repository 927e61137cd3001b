// One XML parser with its DOM tree: bytes in, bytes out.
//
// The parser belongs to one operation on one thread. From its construction to its end it holds the XML library, so
// another thread waits. REQUIRES: no other parser on the same thread.
//
// What comes in may be hostile. Refused, always with a JtifParseException: any document type declaration but the plain
// reference to the DTD of this kind of document, another document element, nesting past xmlMaximumDepth, and whatever
// needs more memory than a document of that size may need. No file and no address named in a document is ever opened.
#pragma once

#include "jtcore/JtifParse/XmlOutputCallback.h"
#include "jtcore/JtifParse/xercesTypes.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

inline constexpr int xmlMaximumDepth = 64;

class KolmaXmlParser {
public:
    // The buffer id names the bytes in messages; with validation it is the full path of the DTD. The names of the
    // document element and of the DTD are compared exactly. An empty rootName admits any document element.
    // Raises parse codes 20 and 22 when there is no XML in this process.
    KolmaXmlParser(std::u16string bufferId, bool validate, std::u16string_view rootName = {});
    ~KolmaXmlParser();
    KolmaXmlParser(const KolmaXmlParser&) = delete;
    KolmaXmlParser& operator=(const KolmaXmlParser&) = delete;

    // Replaces the tree. Raises parse code 1 when the library fails or the memory is used up, 2 when the document is
    // not as it must be: the message holds line, column and reason of each fault, and then the document, cut short.
    void parse(const void* data, std::size_t length);

    // The tree of the last parse that succeeded, or null. It is the parser's.
    DomDocument* getDocument() const noexcept;

    // Writes the tree in the encoding that its declaration names. Parse codes 3 and 4, and what the callback raises.
    void convertToXmlStream(XmlOutputCallback& callback);

private:
    class Impl;
    std::unique_ptr<Impl> impl_;
};
