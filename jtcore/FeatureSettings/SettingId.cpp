#include "jtcore/FeatureSettings/SettingId.h"

#include "jtcore/FeatureSettings/NestedAttrID.h"
#include "jtcore/Services/KolmaException.h"

#include <algorithm>

const AttrID& SettingId::getAttrID() const { return getNestedId(); }

const std::u16string& SettingId::getAttrName() const { return getAttrID().getName(); }

bool SettingId::is1setOfMember() const {
    const NestedAttrID& id = getNestedId();
    return !id.isTopLevel() && id.getPathEntrySyntax(0) == syntax1setOf;
}

std::u16string_view SettingId::getSyntaxName(std::size_t index) const {
    const SyntaxList& syntaxes = getSyntaxes();
    if (index < syntaxes.size()) return syntaxes[index].name;
    raise<IndexOutOfBoundsException>(u"SettingId::getSyntaxName(): '%s' has no syntax %d.\r\n", getUniqueId(), index);
}

bool SettingId::hasSyntax(AVTE type) const {
    const SyntaxList& syntaxes = getSyntaxes();
    return std::any_of(syntaxes.begin(), syntaxes.end(), [type](const Syntax& syntax) { return syntax.type == type; });
}

bool SettingId::hasSyntaxName(std::u16string_view name) const {
    const SyntaxList& syntaxes = getSyntaxes();
    return std::any_of(syntaxes.begin(), syntaxes.end(), [name](const Syntax& syntax) { return syntax.name == name; });
}
