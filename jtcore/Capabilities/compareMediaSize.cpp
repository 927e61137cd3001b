#include "jtcore/Capabilities/compareMediaSize.h"

#include "jtcore/Attributes/IppList.h"
#include "jtcore/Capabilities/Capabilities.h"

namespace {

struct Dimensions {
    const AttrNode* x = nullptr;
    const AttrNode* y = nullptr;
};

Dimensions readSize(const AttrValue& value) {
    const IppList* list = value.asList();
    if (!list) return {};
    return {list->getList().getNode(u"x-dimension"), list->getList().getNode(u"y-dimension")};
}

bool isRange(const AttrNode* node) { return node && node->getAttrValue().isRangeOfInteger(); }
bool isIntegerOrMissing(const AttrNode* node) { return !node || node->getAttrValue().isPrimitiveInteger(); }
bool isFixed(const Dimensions& size) { return isIntegerOrMissing(size.x) && isIntegerOrMissing(size.y); }

} // namespace

bool compareMediaSize(const Capabilities& capabilities, const AttrValue& tested, const AttrValue& supported,
                      const AttrNodeList* userDefined) {
    const auto check = [&](const AttrNode* value, const AttrNode* allowed) {
        return !value || !allowed ||
               capabilities.compareAttrValues(value->getAttrID(), value->getAttrValue(), allowed->getAttrValue(),
                                              userDefined);
    };
    const Dimensions size = readSize(tested);
    const IppList* sizes = supported.asList();
    if ((!size.x && !size.y) || !sizes) return true;
    const bool isCustom = capabilities.hasKeyword(userDefined, u"media-size");
    bool isOutside = false;
    bool hasRange = false;
    for (const AttrNode& node : sizes->getList()) {
        const Dimensions allowed = readSize(node.getAttrValue());
        if (node.isPrivate() || (isCustom && isFixed(allowed))) continue;
        if (check(size.x, allowed.x) && check(size.y, allowed.y)) return true;
        if (check(size.y, allowed.x) && check(size.x, allowed.y)) return true;
        hasRange |= isRange(allowed.x) || isRange(allowed.y);
        isOutside = true;
    }
    return !isOutside || (isCustom && !hasRange);
}
