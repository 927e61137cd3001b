#include "jtcore/Attributes/IppList.h"

#include <utility>

IppList::IppList(const AttrNodeList& list, std::u16string_view syntaxName)
    : AttrValue(AVTE::list), syntaxName_(syntaxName), list_(list) {}

IppList::IppList(AttrNodeList&& list, std::u16string_view syntaxName)
    : AttrValue(AVTE::list), syntaxName_(syntaxName), list_(std::move(list)) {}

bool IppList::equals(const AttrValue& other) const {
    const IppList* list = other.asList();
    return list && list->syntaxName_ == syntaxName_ && list->list_.equals(list_);
}
