#include "jtcore/JtifParse/KolmaDomDoc.h"

#include "jtcore/Attributes/AttrValueFactory.h"
#include "jtcore/Attributes/IppList.h"
#include "jtcore/Attributes/PrimitiveString.h"
#include "jtcore/JtifParse/xmlText.h"
#include "jtcore/Services/JtifParseException.h"

#include <xercesc/dom/DOMAttr.hpp>
#include <xercesc/dom/DOMDocument.hpp>
#include <xercesc/dom/DOMElement.hpp>
#include <xercesc/dom/DOMException.hpp>
#include <xercesc/dom/DOMText.hpp>
#include <xercesc/util/OutOfMemoryException.hpp>

using namespace XERCES_CPP_NAMESPACE;

namespace {

const char* nameOf(const DOMException& fault) noexcept {
    switch (fault.code) {
#define DOM_EXCEPTION_CODE(name)                                                                                       \
    case DOMException::name:                                                                                           \
        return #name;
#include "jtcore/JtifParse/domExceptionCode.def"
#undef DOM_EXCEPTION_CODE
    default:
        return "Unknown_DOMException_Code!";
    }
}

// The first child that carries content, or null.
const DOMNode* firstContentOf(const DOMElement& element) {
    const DOMNode* child = element.getFirstChild();
    while (child != nullptr && (child->getNodeType() == DOMNode::COMMENT_NODE ||
                                child->getNodeType() == DOMNode::PROCESSING_INSTRUCTION_NODE))
        child = child->getNextSibling();
    return child;
}

std::u16string_view textOf(const DOMNode& node) {
    const XMLCh* text = node.getNodeValue();
    return text != nullptr ? text : u"";
}

bool preservesSpace(const DOMElement& element) {
    return std::u16string_view(element.getAttribute(u"xml:space")) == u"preserve";
}

[[noreturn]] void raiseUnwritable(const std::u16string& id, const std::u16string& why) {
    raiseJtifParse(JtifParseCode::XMLEXCEPTION_RAISED_DURING_XML_GENERATION,
                   u"KolmaDomDoc::addAttrNodeToDOMTree(): The attribute '%s' cannot be written: %s\r\n", id, why);
}

void checkText(const std::u16string& id, std::u16string_view text) {
    std::size_t at = findUnwritableCharacter(text);
    if (at != std::u16string_view::npos)
        raiseUnwritable(id, formatMessage(u"its text holds the character U+%04X.", text[at]));
}

} // namespace

KolmaDomDoc::KolmaDomDoc(std::u16string bufferId, bool validate, std::u16string_view rootName)
    : parser_(std::move(bufferId), validate, rootName) {}

DomElement& KolmaDomDoc::getParentNode(DomDocument&, DomElement& root, const AttrNode&) { return root; }

bool KolmaDomDoc::isContainerNode(const DomElement&) const { return false; }

const char16_t* KolmaDomDoc::getSyntaxAttrName() const noexcept { return u"syntax"; }

std::u16string_view KolmaDomDoc::toDocumentSyntax(std::u16string_view syntaxName) const noexcept { return syntaxName; }

std::u16string_view KolmaDomDoc::fromDocumentSyntax(std::u16string_view syntax) const noexcept { return syntax; }

DomElement& KolmaDomDoc::appendElement(DomDocument& document, DomElement& parent, const std::u16string& name) {
    DOMElement* element = document.createElement(name.c_str());
    parent.appendChild(element);
    return *element;
}

void KolmaDomDoc::convertToAnl(AttrNodeList& list) {
    const DOMDocument* document = parser_.getDocument();
    const DOMElement* root = document != nullptr ? document->getDocumentElement() : nullptr;
    if (root == nullptr) return;
    try {
        walk(*root, list);
    } catch (const DOMException& fault) {
        raiseJtifParse(JtifParseCode::DOMEXCEPTION_DURING_NODE_CONVERSION,
                       u"KolmaDomDoc::addDomNodeToAttrNodeList(): DOM_DOMException exception during DOM tree parsing. "
                       u"Exception code is %S.\r\n",
                       nameOf(fault));
    }
}

void KolmaDomDoc::walk(const DomElement& element, AttrNodeList& list) const {
    for (const DOMNode* node = element.getFirstChild(); node != nullptr; node = node->getNextSibling()) {
        if (node->getNodeType() != DOMNode::ELEMENT_NODE) continue;
        const auto& child = static_cast<const DOMElement&>(*node);
        if (const DOMAttr* syntax = child.getAttributeNode(getSyntaxAttrName()))
            addDomNodeToAttrNodeList(child, syntax->getValue(), list);
        else if (isContainerNode(child))
            walk(child, list);
    }
}

void KolmaDomDoc::addDomNodeToAttrNodeList(const DomElement& element, std::u16string_view syntax,
                                           AttrNodeList& list) const {
    const DOMNode* content = firstContentOf(element);
    if (content == nullptr) return;
    std::u16string_view text = textOf(*content);
    std::u16string_view trimmed = trimSpace(text);
    if (trimmed.size() != text.size() && !preservesSpace(element)) text = trimmed;
    syntax = fromDocumentSyntax(trimSpace(syntax));
    std::unique_ptr<AttrValue> value;
    if (text.empty()) {
        AttrNodeList inner;
        walk(element, inner);
        value = std::make_unique<IppList>(std::move(inner), syntax);
    } else {
        value = AttrValueFactory::createAttrValue(syntax, text);
    }
    list.addNode(element.getTagName(), std::move(value));
}

void KolmaDomDoc::convertFromAnl(const AttrNodeList& list) {
    std::string_view bytes = getTemplate();
    parser_.parse(bytes.data(), bytes.size());
    DOMDocument& document = *parser_.getDocument();
    DOMElement& root = *document.getDocumentElement();
    try {
        for (const AttrNode& node : list) {
            if (node.isPrivate()) continue;
            DOMElement& parent = getParentNode(document, root, node);
            addAttrNodeToDOMTree(document, parent, node, &parent == &root ? 2 : 3);
        }
    } catch (const DOMException& fault) {
        raiseJtifParse(JtifParseCode::DOMEXCEPTION_DURING_NODE_CREATION,
                       u"KolmaDomDoc::addAttrNodeToDOMTree(): DOM_DOMException exception during DOM node creation. "
                       u"Exception code is %S.\r\n",
                       nameOf(fault));
    } catch (const OutOfMemoryException&) {
        raiseJtifParse(JtifParseCode::XMLEXCEPTION_RAISED_DURING_XML_GENERATION,
                       u"KolmaDomDoc::convertFromAnl(): The document needs more memory than it may have.\r\n");
    }
}

void KolmaDomDoc::addAttrNodeToDOMTree(DomDocument& document, DomElement& parent, const AttrNode& node,
                                       int depth) const {
    const std::u16string& id = node.getAttrID().getName();
    const AttrValue& value = node.getAttrValue();
    if (depth > xmlMaximumDepth) raiseUnwritable(id, u"it is nested too deep to be read again.");
    checkText(id, value.getSyntaxName());
    DOMElement& element = appendElement(document, parent, id);
    element.setAttribute(getSyntaxAttrName(), std::u16string(toDocumentSyntax(value.getSyntaxName())).c_str());
    if (value.isPreservedText()) element.setAttribute(u"xml:space", u"preserve");
    if (const IppList* inner = value.asList()) {
        for (const AttrNode& member : inner->getList())
            if (!member.isPrivate()) addAttrNodeToDOMTree(document, element, member, depth + 1);
        return;
    }
    std::u16string text = value.getIppValue();
    checkText(id, text);
    element.appendChild(document.createTextNode(text.c_str()));
}
