#include "jtcore/Attributes/IppBoolean.h"

#include "jtcore/Services/KolmaException.h"

IppBoolean::IppBoolean(std::u16string_view text) noexcept
    : AttrValue(AVTE::boolean), value_(text == u"true" || text == u"1" || text == u"yes") {}

void IppBoolean::setIppValue(std::u16string_view text) {
    if (text != u"true" && text != u"false")
        raise<UnknownCaseException>(
            u"IppBoolean::setIppValue(): illegal attribute value string specified for this class(%s).\r\n", text);
    value_ = text == u"true";
}

bool IppBoolean::equals(const AttrValue& other) const {
    const IppBoolean* boolean = other.asBoolean();
    return boolean && boolean->value_ == value_;
}
