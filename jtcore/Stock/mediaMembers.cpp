#include "jtcore/Stock/mediaMembers.h"

#include "jtcore/Attributes/IppList.h"
#include "jtcore/Services/KolmaException.h"

#include <algorithm>
#include <vector>

namespace {

bool fits(const AttrValue& value, const Syntax& syntax) {
    switch (syntax.type) {
    case AVTE::list:
        return value.isList();
    case AVTE::integer:
    case AVTE::enumeration:
        return value.isPrimitiveInteger();
    default:
        return value.isPrimitiveString();
    }
}

} // namespace

const std::u16string& idOf(Feature feature) { return FeatureId(feature).getAttrName(); }

const AttrNodeList* findMediaMembers(const AttrNodeList& level) {
    const AttrNode* node = level.getNode(idOf(Feature::mediaCol));
    const IppList* list = node ? node->getAttrValue().asList() : nullptr;
    return list ? &list->getList() : nullptr;
}

AttrNodeList* findMediaMembers(AttrNodeList& level) {
    return const_cast<AttrNodeList*>(findMediaMembers(static_cast<const AttrNodeList&>(level)));
}

FeatureValue readStockName(const AttrNodeList& list, Feature feature) {
    const AttrNode* node = list.getNode(idOf(feature));
    if (!node || !isReadable(*node)) return {};
    const std::u16string text = node->getAttrValue().getIppValue();
    if (text.empty()) return {};
    try {
        return FeatureValue::fromString(feature, text);
    } catch (const UnknownFeatureRequestException&) {
        return {};
    }
}

bool isReadable(const AttrNode& node) {
    const std::u16string_view id = node.getAttrID().getName();
    if (!FeatureId::isValidId(id)) return true;
    const FeatureId feature(id);
    const SyntaxList& syntaxes = feature.getSyntaxes();
    return std::any_of(syntaxes.begin(), syntaxes.end(),
                       [&](const Syntax& syntax) { return fits(node.getAttrValue(), syntax); });
}

void dropUnreadable(AttrNodeList& list) {
    std::vector<const AttrNode*> unreadable;
    for (AttrNode& node : list)
        if (!isReadable(node))
            unreadable.push_back(&node);
        else if (IppList* inner = node.getAttrValue().asList())
            dropUnreadable(inner->getList());
    for (const AttrNode* node : unreadable)
        list.deleteNodeObject(node);
}

void refuseUnreadable(const AttrNodeList& list) {
    for (const AttrNode& node : list) {
        const AttrValue& value = node.getAttrValue();
        if (!isReadable(node))
            raise<AttributeTypeMismatchException>(
                u"refuseUnreadable(): '%s' of a stock has a value of syntax '%s', which it cannot have.\r\n",
                node.getAttrID().getName(), value.getSyntaxName());
        if (value.isPrimitiveString() && value.getIppValue().size() > FeatureValueDataBase::maximumTextLength)
            raise<UnknownFeatureRequestException>(
                u"refuseUnreadable(): '%s' of a stock is longer than %d characters.\r\n", node.getAttrID().getName(),
                FeatureValueDataBase::maximumTextLength);
        if (const IppList* inner = value.asList()) refuseUnreadable(inner->getList());
    }
}
