#include "jtcore/Attributes/AttrValueFactory.h"

#include "jtcore/Attributes/IppBoolean.h"
#include "jtcore/Attributes/IppNull.h"
#include "jtcore/Attributes/PrimitiveInteger.h"
#include "jtcore/Attributes/PrimitiveString.h"
#include "jtcore/Services/KolmaException.h"

#define ATTR_SYNTAX(enumerator, number, name, Class)                                                                   \
    static_assert(Class::syntaxName == name, "the class of this row answers with another syntax name");
#include "jtcore/Attributes/AttrSyntax.def"

std::unique_ptr<AttrValue> AttrValueFactory::createSimpleAttrValue(AVTE type, std::u16string_view text) {
    switch (type) {
#define ATTR_SYNTAX(enumerator, number, name, Class)                                                                   \
    case AVTE::enumerator:                                                                                             \
        return std::make_unique<Class>(text);
#include "jtcore/Attributes/AttrSyntax.def"
    case AVTE::null:
    case AVTE::list:
        break;
    }
    raise<UnknownCaseException>(
        u"AttrValueFactory::createSimpleAttrValue(AVTE): unhandled attribute value enumeration (%ld).\r\n", type);
}

std::unique_ptr<AttrValue> AttrValueFactory::createAttrValue(std::u16string_view syntaxName, std::u16string_view text) {
    AVTE type = getSyntaxType(syntaxName);
    if (type == AVTE::null) return std::make_unique<IppNull>(syntaxName);
    return createSimpleAttrValue(type, text);
}
