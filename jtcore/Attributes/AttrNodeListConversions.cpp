// The typed reading of single attributes.
#include "jtcore/Attributes/AttrNodeList.h"

#include "jtcore/Attributes/IppBoolean.h"
#include "jtcore/Attributes/IppList.h"
#include "jtcore/Attributes/PrimitiveInteger.h"
#include "jtcore/Attributes/PrimitiveString.h"
#include "jtcore/Services/KolmaException.h"

namespace {

const AttrNode* findNode(const AttrNodeList& list, std::u16string_view id, std::size_t occurrence) {
    AttrID::validateTheID(id);
    return list.getNode(id, occurrence);
}

} // namespace

bool AttrNodeList::JtifAttrToLong(std::int32_t& value, std::u16string_view id, std::size_t occurrence) const {
    const AttrNode* node = findNode(*this, id, occurrence);
    if (!node) return false;
    const PrimitiveInteger* integer = node->getAttrValue().asPrimitiveInteger();
    if (!integer)
        raise<AttributeTypeMismatchException>(
            u"AttrNodeList::JtifAttrToLong(): Specified attribute '%s' is not derived "
            u"from PrimitiveInteger or IppEnum!\r\n",
            id);
    value = integer->getValue();
    return true;
}

bool AttrNodeList::JtifAttrToString(std::u16string& value, std::u16string_view id, std::size_t occurrence) const {
    const AttrNode* node = findNode(*this, id, occurrence);
    if (!node) return false;
    const PrimitiveString* text = node->getAttrValue().asPrimitiveString();
    if (!text)
        raise<AttributeTypeMismatchException>(u"AttrNodeList::JtifAttrToString(): Specified attribute '%s' is not "
                                              u"derived from PrimitiveString!\r\n",
                                              id);
    value = text->getValue();
    return true;
}

bool AttrNodeList::JtifAttrToBool(bool& value, std::u16string_view id, std::size_t occurrence) const {
    const AttrNode* node = findNode(*this, id, occurrence);
    if (!node) return false;
    const IppBoolean* boolean = node->getAttrValue().asBoolean();
    if (!boolean)
        raise<AttributeTypeMismatchException>(
            u"AttrNodeList::JtifAttrToBool(): Specified attribute '%s' is not IppBoolean!\r\n", id);
    value = boolean->getValue();
    return true;
}

bool AttrNodeList::JtifAttrToList(const AttrNodeList*& list, std::u16string_view id, std::size_t occurrence) const {
    const AttrNode* node = findNode(*this, id, occurrence);
    if (!node) return false;
    const IppList* value = node->getAttrValue().asList();
    if (!value)
        raise<AttributeTypeMismatchException>(
            u"AttrNodeList::JtifAttrToList(): Specified attribute '%s' is not derived from IppList!\r\n", id);
    list = &value->getList();
    return true;
}

bool AttrNodeList::JtifAttrToList(AttrNodeList*& list, std::u16string_view id, std::size_t occurrence) {
    const AttrNodeList* found = nullptr;
    if (!std::as_const(*this).JtifAttrToList(found, id, occurrence)) return false;
    list = const_cast<AttrNodeList*>(found);
    return true;
}

bool AttrNodeList::JtifRangeToLongs(std::int32_t& lower, std::int32_t& upper, std::u16string_view id,
                                    std::size_t occurrence) const {
    const AttrNodeList* range = nullptr;
    if (!JtifAttrToList(range, id, occurrence)) return false;
    bool hasLower = range->JtifAttrToLong(lower, u"lower-bound");
    bool hasUpper = range->JtifAttrToLong(upper, u"upper-bound");
    return hasLower && hasUpper;
}
