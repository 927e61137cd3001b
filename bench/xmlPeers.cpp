#include "bench/xmlPeers.h"

#include "jtcore/AnlXlate/JtifTranslator.h"
#include "jtcore/JtifParse/JtXMLInterface.h"
#include "jtcore/Services/File.h"

#include <memory>
#include <pugixml.hpp>
#include <xercesc/dom/DOM.hpp>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/framework/XMLGrammarPoolImpl.hpp>
#include <xercesc/parsers/XercesDOMParser.hpp>
#include <xercesc/sax2/DefaultHandler.hpp>
#include <xercesc/sax2/SAX2XMLReader.hpp>
#include <xercesc/sax2/XMLReaderFactory.hpp>
#include <xercesc/util/XMLEntityResolver.hpp>
#include <xercesc/util/XMLResourceIdentifier.hpp>
#include <xercesc/util/XMLUni.hpp>
#include <xercesc/validators/common/Grammar.hpp>
#include <zlib.h>

using namespace XERCES_CPP_NAMESPACE;

namespace {

constexpr char16_t systemId[] = u"/jtif-v02021.dtd";

// Answers the cached grammar's name, so that no file is looked for.
InputSource* makeGrammarName() {
    static const XMLByte nothing[1] = {};
    return new MemBufInputSource(nothing, 0, systemId);
}

class GrammarName : public XMLEntityResolver, public EntityResolver {
public:
    InputSource* resolveEntity(XMLResourceIdentifier*) override { return makeGrammarName(); }
    InputSource* resolveEntity(const XMLCh*, const XMLCh*) override { return makeGrammarName(); }
};

XMLGrammarPool& grammars() {
    static XMLGrammarPool* pool = [] {
        auto* made = new XMLGrammarPoolImpl(XMLPlatformUtils::fgMemoryManager);
        ByteBuffer dtd = File(JtifTranslator::getDtdPath()).read();
        MemBufInputSource source(dtd.getData(), dtd.getSize(), systemId);
        XercesDOMParser parser(nullptr, XMLPlatformUtils::fgMemoryManager, made);
        parser.loadGrammar(source, Grammar::DTDGrammarType, true);
        return made;
    }();
    return *pool;
}

struct DomParser {
    explicit DomParser(bool validate)
        : parser(nullptr, XMLPlatformUtils::fgMemoryManager, validate ? &grammars() : nullptr) {
        parser.setValidationScheme(validate ? XercesDOMParser::Val_Always : XercesDOMParser::Val_Never);
        parser.setLoadExternalDTD(validate);
        parser.useCachedGrammarInParse(validate);
        parser.setCreateEntityReferenceNodes(false);
        parser.setXMLEntityResolver(&resolver);
    }
    GrammarName resolver;
    XercesDOMParser parser;
};

struct SaxReader {
    explicit SaxReader(bool validate)
        : reader(
              XMLReaderFactory::createXMLReader(XMLPlatformUtils::fgMemoryManager, validate ? &grammars() : nullptr)) {
        reader->setFeature(XMLUni::fgSAX2CoreNameSpaces, false);
        reader->setFeature(XMLUni::fgSAX2CoreValidation, validate);
        reader->setFeature(XMLUni::fgXercesLoadExternalDTD, validate);
        reader->setFeature(XMLUni::fgXercesUseCachedGrammarInParse, validate);
        if (!validate) reader->setProperty(XMLUni::fgXercesScannerName, const_cast<XMLCh*>(XMLUni::fgWFXMLScanner));
        reader->setEntityResolver(&resolver);
        reader->setContentHandler(&counter);
    }
    struct Counter : DefaultHandler {
        void startElement(const XMLCh*, const XMLCh*, const XMLCh*, const Attributes&) override { ++elements; }
        std::size_t elements = 0;
    };
    GrammarName resolver;
    Counter counter;
    std::unique_ptr<SAX2XMLReader> reader;
};

std::size_t parse(DomParser& dom, const ByteBuffer& text) {
    MemBufInputSource source(text.getData(), text.getSize(), u"bench");
    dom.parser.parse(source);
    std::size_t count = dom.parser.getDocument()->getDocumentElement()->getChildElementCount();
    dom.parser.resetDocumentPool();
    return count;
}

} // namespace

std::size_t parseWithDom(const ByteBuffer& text, bool validate, DomUse use) {
    JtXMLInterface::Instance();
    if (use == DomUse::newParser) {
        DomParser fresh(validate);
        return parse(fresh, text);
    }
    static DomParser kept[] = {DomParser(false), DomParser(true)};
    return parse(kept[validate ? 1 : 0], text);
}

std::size_t parseWithSax2(const ByteBuffer& text, bool validate) {
    JtXMLInterface::Instance();
    static SaxReader kept[] = {SaxReader(false), SaxReader(true)};
    MemBufInputSource source(text.getData(), text.getSize(), u"bench");
    SaxReader& reader = kept[validate ? 1 : 0];
    reader.counter.elements = 0;
    reader.reader->parse(source);
    return reader.counter.elements;
}

std::size_t parseWithPugixml(const ByteBuffer& text) {
    pugi::xml_document document;
    document.load_buffer(text.getData(), text.getSize());
    std::size_t count = 0;
    for (auto child = document.document_element().first_child(); child; child = child.next_sibling())
        ++count;
    return count;
}

ByteBuffer inflateBare(const ByteBuffer& block, std::size_t originalSize) {
    ByteBuffer text;
    text.resize(originalSize);
    uLongf size = static_cast<uLongf>(originalSize);
    uncompress(text.getData(), &size, block.getData(), static_cast<uLong>(block.getSize()));
    return text;
}

std::size_t deflateBare(const ByteBuffer& text) {
    ByteBuffer block;
    block.resize(compressBound(static_cast<uLong>(text.getSize())));
    uLongf size = static_cast<uLongf>(block.getSize());
    compress2(block.getData(), &size, text.getData(), static_cast<uLong>(text.getSize()), -1);
    return size;
}
