#include "jtcore/JtifParse/GuardedDomParser.h"

#include "jtcore/JtifParse/KolmaXmlParser.h"
#include "jtcore/Services/formatMessage.h"

#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/framework/XMLElementDecl.hpp>
#include <xercesc/internal/XMLScanner.hpp>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/util/XMLResourceIdentifier.hpp>
#include <xercesc/util/XMLUniDefs.hpp>
#include <xercesc/validators/DTD/DTDElementDecl.hpp>

#include <type_traits>

using namespace XERCES_CPP_NAMESPACE;

static_assert(std::is_same_v<XMLCh, char16_t>, "the library must be built with UTF-16 text of type char16_t");

namespace {

constexpr XMLSize_t maximumEntityExpansions = 100;
// An element of ours has at most three; inserting into the library's attribute map takes time by the square.
constexpr XMLSize_t maximumAttributes = 32;
constexpr std::size_t shownNameLength = 80;

std::u16string_view viewOf(const XMLCh* text) { return text != nullptr ? text : u""; }

// True for the bare file name, and for a path or an address that ends in it.
bool namesFile(std::u16string_view systemId, std::u16string_view fileName) {
    if (!systemId.ends_with(fileName)) return false;
    systemId.remove_suffix(fileName.size());
    return systemId.empty() || systemId.ends_with(u'/') || systemId.ends_with(u'\\');
}

} // namespace

GuardedDomParser::GuardedDomParser(MemoryManager& memory, XMLGrammarPool* grammars)
    : XercesDOMParser(nullptr, &memory, grammars), validates_(grammars != nullptr) {}

void GuardedDomParser::setUp() {
    useScanner(XMLUni::fgDGXMLScanner);
    setValidationScheme(validates_ ? Val_Always : Val_Never);
    setDoNamespaces(false);
    setDoSchema(false);
    setDoXInclude(false);
    setCreateEntityReferenceNodes(false);
    setLoadExternalDTD(validates_);
    useCachedGrammarInParse(validates_);
    cacheGrammarFromParse(false);
    setDisableDefaultEntityResolution(true);
    setXMLEntityResolver(this);
    limits_.setEntityExpansionLimit(maximumEntityExpansions);
    setSecurityManager(&limits_);
    setExitOnFirstFatalError(true);
}

void GuardedDomParser::expect(std::u16string_view rootName, std::u16string_view dtdName,
                              DOMTreeErrorReporter& reporter) {
    rootName_ = rootName;
    dtdName_ = dtdName;
    reporter_ = &reporter;
    setErrorHandler(&reporter);
    doctypeSeen_ = false;
    depth_ = 0;
}

void GuardedDomParser::refuse(const std::u16string& words) {
    reporter_->fatalError(SAXParseException(words.c_str(), *getScanner()->getLocator()));
    throw ParseStopped{};
}

void GuardedDomParser::checkRoot(std::u16string_view name) {
    if (!rootName_.empty() && name != rootName_)
        refuse(formatMessage(u"The document element is '%s' where '%s' is expected.", name.substr(0, shownNameLength),
                             rootName_));
}

void GuardedDomParser::doctypeDecl(const DTDElementDecl& root, const XMLCh* publicId, const XMLCh* systemId,
                                   bool hasInternalSubset, bool hasExternalSubset) {
    if (!validates_) refuse(u"This kind of document has no document type declaration.");
    if (hasInternalSubset) refuse(u"The document type declaration has an internal subset.");
    if (!viewOf(publicId).empty()) refuse(u"The document type declaration has a public identifier.");
    if (!namesFile(viewOf(systemId), dtdName_))
        refuse(formatMessage(u"The document type declaration does not name '%s'.", dtdName_));
    checkRoot(viewOf(root.getFullName()));
    doctypeSeen_ = true;
    XercesDOMParser::doctypeDecl(root, publicId, systemId, hasInternalSubset, hasExternalSubset);
}

void GuardedDomParser::startElement(const XMLElementDecl& element, unsigned urlId, const XMLCh* prefix,
                                    const RefVectorOf<XMLAttr>& attributes, XMLSize_t attributeCount, bool isEmpty,
                                    bool isRoot) {
    if (isRoot) {
        if (validates_ && !doctypeSeen_) refuse(u"The document type declaration is missing.");
        checkRoot(viewOf(element.getFullName()));
    }
    if (++depth_ > xmlMaximumDepth) refuse(formatMessage(u"Elements are nested more than %d deep.", xmlMaximumDepth));
    if (attributeCount > maximumAttributes)
        refuse(formatMessage(u"An element has %u attributes.", static_cast<std::uint64_t>(attributeCount)));
    XercesDOMParser::startElement(element, urlId, prefix, attributes, attributeCount, isEmpty, isRoot);
}

void GuardedDomParser::endElement(const XMLElementDecl& element, unsigned urlId, bool isRoot, const XMLCh* prefix) {
    --depth_;
    XercesDOMParser::endElement(element, urlId, isRoot, prefix);
}

void GuardedDomParser::error(unsigned code, const XMLCh* domain, ErrTypes type, const XMLCh* text,
                             const XMLCh* systemId, const XMLCh* publicId, XMLFileLoc line, XMLFileLoc column) {
    XercesDOMParser::error(code, domain, type, text, systemId, publicId, line, column);
    if (reporter_ != nullptr && reporter_->isFull()) throw ParseStopped{};
}

InputSource* GuardedDomParser::resolveEntity(XMLResourceIdentifier* what) {
    if (!doctypeSeen_ || what->getResourceIdentifierType() != XMLResourceIdentifier::ExternalEntity) return nullptr;
    auto* standIn = new (getMemoryManager()) MemBufInputSource(nullptr, 0, grammarId(), false, getMemoryManager());
    return standIn;
}
