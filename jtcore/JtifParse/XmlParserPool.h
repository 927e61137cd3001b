// Parsers and grammars that are kept between documents.
//
// Making a parser costs more than parsing a small document, and reading the DTD costs more than both. A kept parser
// holds nothing of the documents that it has read; one that met a fault is thrown away with all its memory.
//
// The library's objects live in a CappedMemory and are never destroyed: their destructors allocate, which ends the
// process when there is no memory. It is the memory that goes, all at once.
//
// REQUIRES, for every operation: a JtXMLInterface::Lock.
#pragma once

#include "jtcore/JtifParse/CappedMemory.h"
#include "jtcore/JtifParse/GuardedDomParser.h"
#include "jtcore/Services/ByteBuffer.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

// The most memory that one document may take: enough for a ticket with two thousand page overrides.
inline constexpr std::size_t xmlMaximumMemory = 32U * 1024 * 1024;

// A DTD that has been read.
class KeptGrammar {
public:
    // Raises CreateFileForReadingException or ReadFileException when the DTD cannot be read, JtifParseException with
    // code 2 when it is none.
    explicit KeptGrammar(std::u16string dtdPath);

    const std::u16string& getPath() const noexcept { return path_; }
    XERCES_CPP_NAMESPACE::XMLGrammarPool& getPool() noexcept { return pool_; }

private:
    void load(const ByteBuffer& dtd);

    std::u16string path_;
    CappedMemory memory_;
    XERCES_CPP_NAMESPACE::XMLGrammarPool& pool_;
};

// A parser and the memory that it lives in.
struct KeptParser {
    // Raises the library's OutOfMemoryException.
    explicit KeptParser(XERCES_CPP_NAMESPACE::XMLGrammarPool* grammars);

    std::shared_ptr<KeptGrammar> grammar; // what the pool belongs to; null without validation
    CappedMemory memory;
    GuardedDomParser& parser;
};

class XmlParserPool {
public:
    // A parser that validates against that DTD, or one that does not validate when the path is empty. Raises as
    // KeptGrammar does.
    std::unique_ptr<KeptParser> take(const std::u16string& dtdPath);
    // Keeps the parser for the next taker. REQUIRES: its last parse succeeded.
    void giveBack(std::unique_ptr<KeptParser> parser) noexcept;
    // After the library ran out of memory: the grammar may be half made, and is read anew.
    void forget(const std::shared_ptr<KeptGrammar>& grammar) noexcept;

private:
    std::unique_ptr<KeptParser> make(const std::u16string& dtdPath);
    std::shared_ptr<KeptGrammar> grammarOf(const std::u16string& dtdPath);

    std::vector<std::shared_ptr<KeptGrammar>> grammars_;
    std::vector<std::unique_ptr<KeptParser>> idle_;
};
