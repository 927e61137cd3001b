// Writes a DOM tree as text, node by node.
//
// The order of the attributes of an element is fixed: "version" first, then by name.
#pragma once

#include <xercesc/dom/DOMNode.hpp>
#include <xercesc/framework/XMLFormatter.hpp>

#include <string>
#include <string_view>

class DomNodeWriter {
public:
    // Raises the library's XMLException for an encoding that it does not know. REQUIRES: the target outlives this.
    DomNodeWriter(XERCES_CPP_NAMESPACE::XMLFormatTarget& target, std::u16string encoding, bool formatted);

    // REQUIRES: trees no deeper than xmlMaximumDepth.
    void write(const XERCES_CPP_NAMESPACE::DOMNode& node);

private:
    void writeElement(const XERCES_CPP_NAMESPACE::DOMNode& element);
    // True when one of them is a text.
    bool writeElementChildren(const XERCES_CPP_NAMESPACE::DOMNode& element);
    void writeAttributes(const XERCES_CPP_NAMESPACE::DOMNode& element);
    void writeAttribute(const XERCES_CPP_NAMESPACE::DOMNode& attribute);
    void writeChildren(const XERCES_CPP_NAMESPACE::DOMNode& parent);
    void writeText(std::u16string_view text);
    void writeDocument(const XERCES_CPP_NAMESPACE::DOMNode& document);
    void writeDocumentType(const XERCES_CPP_NAMESPACE::DOMNode& documentType);
    void writeEntity(const XERCES_CPP_NAMESPACE::DOMNode& entity);
    void breakLine();
    void literal(std::u16string_view text);
    // The two literals round the text; nothing at all for no text.
    void quoted(std::u16string_view before, const XMLCh* text, std::u16string_view after);

    std::u16string encoding_;
    const bool formatted_;
    std::u16string indent_;
    XERCES_CPP_NAMESPACE::XMLFormatter formatter_;
};
