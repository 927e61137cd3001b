#include "jtcore/JtifParse/KolmaXmlParser.h"

#include "jtcore/JtifParse/DomNodeWriter.h"
#include "jtcore/JtifParse/JtXMLInterface.h"
#include "jtcore/JtifParse/XmlOutputTarget.h"
#include "jtcore/JtifParse/XmlPanic.h"
#include "jtcore/JtifParse/XmlParserPool.h"
#include "jtcore/Services/JtifParseException.h"

#include <xercesc/dom/DOMDocument.hpp>
#include <xercesc/dom/DOMException.hpp>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/sax/SAXException.hpp>
#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/XMLException.hpp>

#include <algorithm>
#include <optional>

using namespace XERCES_CPP_NAMESPACE;

namespace {

// What a document of a given size may need. A tree takes fifteen times the bytes of a dense ticket.
constexpr std::size_t memoryPerDocument = 1024U * 1024;
constexpr std::size_t memoryPerByte = 48;

std::size_t memoryFor(std::size_t length) {
    return std::min(memoryPerDocument + memoryPerByte * std::min(length, xmlMaximumMemory), xmlMaximumMemory);
}

// As much of the document as a message has room for behind the reason.
std::string_view excerpt(std::string_view xml, std::u16string_view reason) {
    constexpr std::size_t framing = 160;
    std::size_t taken = framing + reason.size();
    return xml.substr(0, taken < formatMaximum ? formatMaximum - taken : 0);
}

[[noreturn]] void raiseFault(std::u16string_view reason, std::string_view xml) {
    raiseJtifParse(JtifParseCode::XMLEXCEPTION_RAISED_DURING_PARSE,
                   u"KolmaXmlParser::parse(): An error occurred during parsing. Exception message is %s.\r\nXML "
                   u"is:\r\n\r\n%S\r\n",
                   reason, excerpt(xml, reason));
}

[[noreturn]] void raiseReport(std::u16string_view report, std::string_view xml) {
    raiseJtifParse(JtifParseCode::ERROR_REPORTED_DURING_PARSE,
                   u"KolmaXmlParser::parse(): There was a problem with the JTIF stream %s.\r\nXML is:\r\n\r\n%S\r\n",
                   report, excerpt(xml, report));
}

[[noreturn]] void raiseGeneration(std::u16string_view reason) {
    raiseJtifParse(JtifParseCode::XMLEXCEPTION_RAISED_DURING_XML_GENERATION,
                   u"KolmaXmlParser::convertToXmlStream(): XMLException during creation of output stream. Message: "
                   u"%s\r\n",
                   reason);
}

constexpr std::u16string_view outOfMemory = u"The document needs more memory than it may have";

} // namespace

class KolmaXmlParser::Impl {
public:
    Impl(std::u16string bufferId, bool validate, std::u16string_view rootName)
        : interface_(JtXMLInterface::Instance()),
          bufferId_(std::move(bufferId)),
          validate_(validate),
          rootName_(rootName) {
        std::size_t separator = bufferId_.find_last_of(u"\\/");
        dtdName_ = separator == std::u16string::npos ? bufferId_ : bufferId_.substr(separator + 1);
    }

    ~Impl() {
        if (kept_ != nullptr && !broken_) interface_.parsers().giveBack(std::move(kept_));
    }

    void parse(const void* data, std::size_t length);
    DomDocument* getDocument() const noexcept { return broken_ ? nullptr : kept_->parser.getDocument(); }
    void convertToXmlStream(XmlOutputCallback& callback);

private:
    void prepare(std::string_view xml);
    // The library's own failure, in words; nothing when the parse came to its end or was stopped by us.
    std::optional<std::u16string> run(std::string_view xml);

    JtXMLInterface& interface_;
    JtXMLInterface::Lock lock_;
    std::u16string bufferId_;
    bool validate_;
    std::u16string rootName_;
    std::u16string dtdName_;
    DOMTreeErrorReporter reporter_;
    std::unique_ptr<KeptParser> kept_;
    bool broken_ = true; // no parse has succeeded since the last one began
};

void KolmaXmlParser::Impl::parse(const void* data, std::size_t length) {
    std::string_view xml(static_cast<const char*>(data), length);
    reporter_.resetErrors();
    prepare(xml);
    broken_ = true;
    std::optional<std::u16string> fault = run(xml);
    if (fault.has_value()) {
        std::shared_ptr<KeptGrammar> grammar = kept_->grammar;
        kept_.reset();
        if (grammar != nullptr) interface_.parsers().forget(grammar);
        raiseFault(*fault, xml);
    }
    if (reporter_.hasSeenError() || reporter_.hasSeenFatalError()) {
        kept_.reset();
        raiseReport(reporter_.getMessage(), xml);
    }
    // What came in is bounded; what is added to the tree to be written is our own.
    kept_->memory.setLimit(xmlMaximumMemory);
    broken_ = false;
}

void KolmaXmlParser::Impl::prepare(std::string_view xml) {
    if (kept_ == nullptr) {
        if (validate_ && bufferId_.empty()) raiseReport(u"There is no DTD to validate against", xml);
        try {
            kept_ = interface_.parsers().take(validate_ ? bufferId_ : std::u16string());
        } catch (const FileException& failure) {
            raiseReport(formatMessage(u"The DTD %s cannot be read: %s", bufferId_, failure.getMessage()), xml);
        } catch (const OutOfMemoryException&) {
            raiseFault(outOfMemory, xml);
        }
    }
    kept_->parser.resetDocumentPool();
    kept_->parser.expect(rootName_, dtdName_, reporter_);
    kept_->memory.setLimit(kept_->memory.inUse() + memoryFor(xml.size()));
}

std::optional<std::u16string> KolmaXmlParser::Impl::run(std::string_view xml) {
    try {
        MemBufInputSource source(reinterpret_cast<const XMLByte*>(xml.data()), xml.size(), bufferId_.c_str(), false,
                                 &kept_->memory);
        source.setCopyBufToStream(false);
        kept_->parser.parse(source);
    } catch (const ParseStopped&) { // the reporter has the reason
    } catch (const OutOfMemoryException&) {
        return std::u16string(outOfMemory);
    } catch (const XMLException& fault) {
        return fault.getMessage();
    } catch (const DOMException& fault) {
        return fault.getMessage();
    } catch (const SAXException& fault) {
        return fault.getMessage();
    } catch (const XmlPanic& panic) {
        JtXMLInterface::markTerminated();
        return formatMessage(u"The XML library gave itself up: %S", panic.reason);
    }
    return {};
}

void KolmaXmlParser::Impl::convertToXmlStream(XmlOutputCallback& callback) {
    const DOMDocument* document = getDocument();
    if (document == nullptr) raiseGeneration(u"There is no document");
    const XMLCh* encoding = document->getXmlEncoding();
    XmlOutputTarget target(callback);
    try {
        DomNodeWriter writer(target, encoding != nullptr && *encoding != 0 ? encoding : u"UTF-8",
                             callback.isFormatted());
        writer.write(*document);
        target.finish();
    } catch (const XMLException& fault) {
        raiseGeneration(fault.getMessage());
    } catch (const OutOfMemoryException&) {
        raiseGeneration(outOfMemory);
    }
}

KolmaXmlParser::KolmaXmlParser(std::u16string bufferId, bool validate, std::u16string_view rootName)
    : impl_(std::make_unique<Impl>(std::move(bufferId), validate, rootName)) {}

KolmaXmlParser::~KolmaXmlParser() = default;

void KolmaXmlParser::parse(const void* data, std::size_t length) { impl_->parse(data, length); }

DomDocument* KolmaXmlParser::getDocument() const noexcept { return impl_->getDocument(); }

void KolmaXmlParser::convertToXmlStream(XmlOutputCallback& callback) { impl_->convertToXmlStream(callback); }
