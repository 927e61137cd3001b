// Converts between a DOM tree and an attribute list; the root of the four document formats.
//
// In all of them an attribute is an element named after its id, with its syntax in one XML attribute, and its value as
// text or as child elements. The formats differ in their template, in where an attribute is placed, and in how a syntax
// is spelled.
//
// A document holds the XML library for its lifetime: make it, use it, destroy it, on one thread, one at a time.
#pragma once

#include "jtcore/Attributes/AttrNodeList.h"
#include "jtcore/JtifParse/KolmaXmlParser.h"

#include <cstddef>
#include <string>
#include <string_view>

class KolmaDomDoc {
public:
    virtual ~KolmaDomDoc() = default;
    KolmaDomDoc(const KolmaDomDoc&) = delete;
    KolmaDomDoc& operator=(const KolmaDomDoc&) = delete;

    // Parse codes 1 and 2.
    void parseBuffer(const void* data, std::size_t length) { parser_.parse(data, length); }
    // Appends what the loaded tree holds. Parse code 5, and what the making of a value raises.
    void convertToAnl(AttrNodeList& list);
    // Loads the template and adds the nodes that are not private. Parse codes 2 (no DTD), 3 (a text that XML cannot
    // carry), 6 (an id that is no XML name), 7 (an id that has no place in the document).
    void convertFromAnl(const AttrNodeList& list);
    // Parse codes 3 and 4.
    void convertToXmlStream(XmlOutputCallback& callback) { parser_.convertToXmlStream(callback); }

protected:
    // The document element is called rootName; one with another name is refused.
    KolmaDomDoc(std::u16string bufferId, bool validate, std::u16string_view rootName);

    // The empty document, as bytes of a static text.
    virtual std::string_view getTemplate() const noexcept = 0;
    // The element under which a node of the list is placed.
    virtual DomElement& getParentNode(DomDocument& document, DomElement& root, const AttrNode& node);
    // True for an element that has no syntax and whose children belong to the list all the same.
    virtual bool isContainerNode(const DomElement& element) const;
    virtual const char16_t* getSyntaxAttrName() const noexcept;
    virtual std::u16string_view toDocumentSyntax(std::u16string_view syntaxName) const noexcept;
    virtual std::u16string_view fromDocumentSyntax(std::u16string_view syntax) const noexcept;

    static DomElement& appendElement(DomDocument& document, DomElement& parent, const std::u16string& name);

private:
    void walk(const DomElement& element, AttrNodeList& list) const;
    void addDomNodeToAttrNodeList(const DomElement& element, std::u16string_view syntax, AttrNodeList& list) const;
    void addAttrNodeToDOMTree(DomDocument& document, DomElement& parent, const AttrNode& node, int depth) const;

    KolmaXmlParser parser_;
};
