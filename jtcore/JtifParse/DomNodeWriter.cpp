#include "jtcore/JtifParse/DomNodeWriter.h"

#include <xercesc/dom/DOMDocument.hpp>
#include <xercesc/dom/DOMDocumentType.hpp>
#include <xercesc/dom/DOMEntity.hpp>
#include <xercesc/dom/DOMNamedNodeMap.hpp>

using namespace XERCES_CPP_NAMESPACE;

namespace {

std::u16string_view viewOf(const XMLCh* text) { return text != nullptr ? text : u""; }

} // namespace

DomNodeWriter::DomNodeWriter(XMLFormatTarget& target, std::u16string encoding, bool formatted)
    : encoding_(std::move(encoding)),
      formatted_(formatted),
      formatter_(encoding_.c_str(), &target, XMLFormatter::NoEscapes, XMLFormatter::UnRep_CharRef) {}

void DomNodeWriter::write(const DOMNode& node) {
    switch (node.getNodeType()) {
    case DOMNode::ELEMENT_NODE:
        return writeElement(node);
    case DOMNode::TEXT_NODE:
        return writeText(viewOf(node.getNodeValue()));
    case DOMNode::CDATA_SECTION_NODE:
        literal(u"<![CDATA[");
        literal(viewOf(node.getNodeValue()));
        return literal(u"]]>");
    case DOMNode::ENTITY_REFERENCE_NODE:
        return writeChildren(node);
    case DOMNode::ENTITY_NODE:
        return writeEntity(node);
    case DOMNode::PROCESSING_INSTRUCTION_NODE:
        literal(u"<?");
        literal(viewOf(node.getNodeName()));
        quoted(u" ", node.getNodeValue(), u"");
        return literal(u"?>");
    case DOMNode::COMMENT_NODE:
        literal(u"<!--");
        literal(viewOf(node.getNodeValue()));
        return literal(u"-->");
    case DOMNode::DOCUMENT_NODE:
        return writeDocument(node);
    case DOMNode::DOCUMENT_TYPE_NODE:
        return writeDocumentType(node);
    default:
        return;
    }
}

void DomNodeWriter::writeElement(const DOMNode& element) {
    std::u16string_view name = element.getNodeName();
    if (formatted_) breakLine();
    literal(u"<");
    literal(name);
    writeAttributes(element);
    if (element.getFirstChild() == nullptr) return literal(u"/>");
    literal(u">");
    bool hasText = writeElementChildren(element);
    if (formatted_ && !hasText) breakLine();
    literal(u"</");
    literal(name);
    literal(u">");
}

bool DomNodeWriter::writeElementChildren(const DOMNode& element) {
    bool hasText = false;
    bool startsWithElement = element.getFirstChild()->getNodeType() == DOMNode::ELEMENT_NODE;
    if (startsWithElement) indent_ += u'\t';
    for (const DOMNode* child = element.getFirstChild(); child != nullptr; child = child->getNextSibling()) {
        bool isElement = child->getNodeType() == DOMNode::ELEMENT_NODE;
        hasText |= child->getNodeType() == DOMNode::TEXT_NODE;
        if (!isElement) indent_ += u'\t';
        write(*child);
        if (!isElement) indent_.pop_back();
    }
    if (startsWithElement) indent_.pop_back();
    return hasText;
}

void DomNodeWriter::writeAttributes(const DOMNode& element) {
    const DOMNamedNodeMap* attributes = element.getAttributes();
    const DOMNode* first = attributes->getNamedItem(u"version");
    if (first != nullptr) writeAttribute(*first);
    // The library keeps them sorted by name.
    for (XMLSize_t i = 0; i < attributes->getLength(); ++i)
        if (const DOMNode* attribute = attributes->item(i); attribute != first) writeAttribute(*attribute);
}

void DomNodeWriter::writeAttribute(const DOMNode& attribute) {
    literal(u" ");
    literal(viewOf(attribute.getNodeName()));
    literal(u"=\"");
    std::u16string_view value = viewOf(attribute.getNodeValue());
    formatter_.formatBuf(value.data(), value.size(), XMLFormatter::AttrEscapes);
    literal(u"\"");
}

void DomNodeWriter::writeChildren(const DOMNode& parent) {
    for (const DOMNode* child = parent.getFirstChild(); child != nullptr; child = child->getNextSibling())
        write(*child);
}

void DomNodeWriter::writeText(std::u16string_view text) {
    while (!text.empty()) {
        // A reader takes a bare carriage return for a line feed.
        std::size_t length = std::min(text.find(u'\r'), text.size());
        if (length > 0)
            formatter_.formatBuf(text.data(), length, XMLFormatter::CharEscapes, XMLFormatter::DefaultUnRep);
        if (length == text.size()) return;
        literal(u"&#xD;");
        text.remove_prefix(length + 1);
    }
}

void DomNodeWriter::writeDocument(const DOMNode& node) {
    const auto& document = static_cast<const DOMDocument&>(node);
    std::u16string_view version = viewOf(document.getXmlVersion());
    literal(u"<?xml version=\"");
    literal(version.empty() ? u"1.0" : version);
    literal(u"\" encoding=\"");
    literal(encoding_);
    if (document.getXmlStandalone()) literal(u"\" standalone=\"yes");
    literal(u"\"?>\r\n");
    writeChildren(node);
}

void DomNodeWriter::writeDocumentType(const DOMNode& node) {
    const auto& type = static_cast<const DOMDocumentType&>(node);
    literal(u"<!DOCTYPE ");
    literal(viewOf(type.getName()));
    quoted(u" PUBLIC \"", type.getPublicId(), u"\"");
    quoted(u" SYSTEM \"", type.getSystemId(), u"\"");
    quoted(u"[", type.getInternalSubset(), u"]");
    literal(u">");
}

void DomNodeWriter::writeEntity(const DOMNode& node) {
    const auto& entity = static_cast<const DOMEntity&>(node);
    literal(u"<!ENTITY ");
    literal(viewOf(node.getNodeName()));
    quoted(u"PUBLIC \"", entity.getPublicId(), u"\"");
    quoted(u"SYSTEM \"", entity.getSystemId(), u"\"");
    quoted(u"NDATA \"", entity.getNotationName(), u"\"");
    literal(u">\r\n");
}

void DomNodeWriter::breakLine() {
    literal(u"\r\n");
    literal(indent_);
}

void DomNodeWriter::literal(std::u16string_view text) {
    if (!text.empty()) formatter_.formatBuf(text.data(), text.size(), XMLFormatter::NoEscapes);
}

void DomNodeWriter::quoted(std::u16string_view before, const XMLCh* text, std::u16string_view after) {
    if (viewOf(text).empty()) return;
    literal(before);
    literal(text);
    literal(after);
}
