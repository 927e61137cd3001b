#include "jtcore/JtifParse/DOMTreeErrorReporter.h"

#include "jtcore/Services/formatMessage.h"

#include <xercesc/sax/SAXParseException.hpp>

using XERCES_CPP_NAMESPACE::SAXParseException;

void DOMTreeErrorReporter::warning(const SAXParseException& fault) {
    report(u"Warning at line %d, column %d: \"%s\"\r\n", fault);
    warningSeen_ = true;
}

void DOMTreeErrorReporter::error(const SAXParseException& fault) {
    report(u"Error at line %d, column %d: \"%s\"\r\n", fault);
    errorSeen_ = true;
}

void DOMTreeErrorReporter::fatalError(const SAXParseException& fault) {
    report(u"Fatal error at line %d, column %d: \"%s\"\r\n", fault);
    fatalErrorSeen_ = true;
}

void DOMTreeErrorReporter::resetErrors() {
    warningSeen_ = errorSeen_ = fatalErrorSeen_ = false;
    reports_ = 0;
    message_.clear();
}

void DOMTreeErrorReporter::report(const char16_t* format, const SAXParseException& fault) {
    // The flags count beyond the report; its length stays bounded, whatever names a document is made of.
    constexpr std::size_t maximumText = 400;
    if (reports_++ >= maximumReports) return;
    auto text = [](const XMLCh* words) {
        std::u16string_view all(words != nullptr ? words : u"");
        return all.substr(0, maximumText);
    };
    message_ += formatMessage(format, fault.getLineNumber(), fault.getColumnNumber(), text(fault.getMessage()));
    message_ += formatMessage(u"DTD name is %s\r\n", text(fault.getSystemId()));
}
