#include "jtcore/Attributes/AttrID.h"

#include "jtcore/Services/KolmaException.h"

#include <utility>

AttrID::AttrID(std::u16string_view name) : name_(name) { validateTheID(name_); }

AttrID::AttrID(std::u16string&& name) : name_(std::move(name)) { validateTheID(name_); }

AttrID& AttrID::operator=(std::u16string_view name) {
    validateTheID(name);
    name_.assign(name);
    return *this;
}

void AttrID::validateTheID(std::u16string_view name) {
    if (name.empty()) raise<InvalidAttributeIdException>(u"AttrID::validateTheID(): supplied value is empty.\r\n");
}
