#include "jtcore/JtifParse/JtifDomDoc.h"

#include "jtcore/JtifParse/attrCategory.h"
#include "jtcore/Services/JtifParseException.h"

#include <xercesc/dom/DOMElement.hpp>

namespace {

constexpr std::u16string_view operationGroupName = u"jtif-operation-attributes";
constexpr std::u16string_view jobTemplateGroupName = u"job-template-attributes";

} // namespace

JtifDomDoc::JtifDomDoc(std::u16string bufferId, bool validate) : KolmaDomDoc(std::move(bufferId), validate, u"jtif") {}

std::string_view JtifDomDoc::getTemplate() const noexcept {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n"
           "<!DOCTYPE jtif SYSTEM \"jtif-v02021.dtd\">\r\n"
           "<jtif version=\"1.0\" sema-version=\"2.01\" xml:lang=\"en-US\"></jtif>";
}

DomElement& JtifDomDoc::getParentNode(DomDocument& document, DomElement& root, const AttrNode& node) {
    const std::u16string& id = node.getAttrID().getName();
    AttrCategory category = getAttrCategory(id);
    if (category == AttrCategory::none)
        raiseJtifParse(JtifParseCode::NO_CATEGORY_FOR_JTIF_ATTRIBUTE,
                       u"JtifDomDoc::getParentNode(): No JTIF category for %s!\r\n", id);
    bool isOperation = category == AttrCategory::operation;
    DomElement*& group = isOperation ? operationGroup_ : jobTemplateGroup_;
    if (group == nullptr)
        group = &appendElement(document, root, std::u16string(isOperation ? operationGroupName : jobTemplateGroupName));
    return *group;
}

bool JtifDomDoc::isContainerNode(const DomElement& element) const {
    std::u16string_view name = element.getTagName();
    return name == operationGroupName || name == jobTemplateGroupName;
}
