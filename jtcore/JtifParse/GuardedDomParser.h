// The library's DOM parser, set up for documents that may be hostile.
#pragma once

#include "jtcore/JtifParse/DOMTreeErrorReporter.h"

#include <xercesc/parsers/XercesDOMParser.hpp>
#include <xercesc/util/SecurityManager.hpp>
#include <xercesc/util/XMLEntityResolver.hpp>

#include <string>
#include <string_view>

// Thrown out of a parse that is given up; the reason is with the reporter.
struct ParseStopped {};

class GuardedDomParser final : public XERCES_CPP_NAMESPACE::XercesDOMParser,
                               public XERCES_CPP_NAMESPACE::XMLEntityResolver {
public:
    // With a grammar pool documents are validated against the grammar kept there under grammarId.
    explicit GuardedDomParser(XERCES_CPP_NAMESPACE::MemoryManager& memory,
                              XERCES_CPP_NAMESPACE::XMLGrammarPool* grammars = nullptr);
    // To be called once, before anything else.
    void setUp();

    // The name under which a DTD is kept in a grammar pool.
    static const XMLCh* grammarId() noexcept { return u"kolma:dtd"; }

    // What the next document must be: an empty rootName admits any document element; dtdName is the file name of the
    // DTD, looked at only with validation. REQUIRES: the texts and the reporter outlive the parse.
    void expect(std::u16string_view rootName, std::u16string_view dtdName, DOMTreeErrorReporter& reporter);

    void doctypeDecl(const XERCES_CPP_NAMESPACE::DTDElementDecl& root, const XMLCh* publicId, const XMLCh* systemId,
                     bool hasInternalSubset, bool hasExternalSubset) override;
    void startElement(const XERCES_CPP_NAMESPACE::XMLElementDecl& element, unsigned urlId, const XMLCh* prefix,
                      const XERCES_CPP_NAMESPACE::RefVectorOf<XERCES_CPP_NAMESPACE::XMLAttr>& attributes,
                      XMLSize_t attributeCount, bool isEmpty, bool isRoot) override;
    void endElement(const XERCES_CPP_NAMESPACE::XMLElementDecl& element, unsigned urlId, bool isRoot,
                    const XMLCh* prefix) override;
    void error(unsigned code, const XMLCh* domain, ErrTypes type, const XMLCh* text, const XMLCh* systemId,
               const XMLCh* publicId, XMLFileLoc line, XMLFileLoc column) override;

    // Answers the DTD by a stand-in, whose name finds the kept grammar, and nothing else.
    XERCES_CPP_NAMESPACE::InputSource* resolveEntity(XERCES_CPP_NAMESPACE::XMLResourceIdentifier* what) override;

private:
    [[noreturn]] void refuse(const std::u16string& words);
    void checkRoot(std::u16string_view name);

    const bool validates_;
    std::u16string_view rootName_;
    std::u16string_view dtdName_;
    DOMTreeErrorReporter* reporter_ = nullptr;
    XERCES_CPP_NAMESPACE::SecurityManager limits_;
    bool doctypeSeen_ = false;
    int depth_ = 0;
};
