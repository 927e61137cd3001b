#include "host/tickets/attributeJson.h"

#include "jtcore/Attributes/IppBoolean.h"
#include "jtcore/Attributes/IppList.h"
#include "jtcore/Attributes/PrimitiveInteger.h"
#include "jtcore/Services/text.h"

#include <nlohmann/json.hpp>

nlohmann::ordered_json toJson(const AttrValue& value) {
    if (const IppList* list = value.asList()) return toJson(list->getList());
    if (const PrimitiveInteger* number = value.asPrimitiveInteger()) return number->getValue();
    if (const IppBoolean* boolean = value.asBoolean()) return boolean->getValue();
    return toUtf8(value.getIppValue());
}

nlohmann::ordered_json toJson(const AttrNodeList& list) {
    auto nodes = nlohmann::ordered_json::array();
    for (const AttrNode& node : list)
        nodes.push_back({{"id", toUtf8(node.getAttrID().getName())},
                         {"syntax", toUtf8(node.getAttrValue().getSyntaxName())},
                         {"value", toJson(node.getAttrValue())}});
    return nodes;
}
