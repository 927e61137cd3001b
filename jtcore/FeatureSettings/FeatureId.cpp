#include "jtcore/FeatureSettings/FeatureId.h"

#include "jtcore/FeatureSettings/NestedAttrID.h"
#include "jtcore/Services/KolmaException.h"
#include "jtcore/Services/ResourceLibrary.h"

#include <algorithm>

FeatureId::FeatureId(std::u16string_view uniqueId) : FeatureId(FeatureDataBase::getFeatureInfo(uniqueId).number) {}

FeatureId FeatureId::fromAbbreviation(std::u16string_view abbreviation) {
    return FeatureDataBase::getFeatureInfoByAbbreviation(abbreviation).number;
}

bool FeatureId::equals(const SettingId& other) const noexcept {
    return other.getKind() == SettingKind::feature && other.getNumber() == getNumber();
}

std::u16string FeatureId::getLabel() const { return ResourceLibrary().getString(getLabelId()); }

Feature FeatureId::getRelatedFeature(std::size_t index) const {
    const auto& related = getRelatedFeatures();
    if (index < related.size()) return related[index];
    raise<IndexOutOfBoundsException>(u"FeatureId::getRelatedFeature(): '%s' has no related feature %d.\r\n",
                                     getUniqueId(), index);
}

bool FeatureId::isUserDefinable() const { return !getUserDefinedSyntaxName().empty(); }

std::u16string_view FeatureId::getUserDefinedSyntaxName() const {
    const SyntaxList& syntaxes = getSyntaxes();
    const auto* found = std::find_if(syntaxes.begin(), syntaxes.end(),
                                     [](const Syntax& syntax) { return isUserDefinableSyntax(syntax.type); });
    return found == syntaxes.end() ? std::u16string_view() : found->name;
}

bool FeatureId::getParentFeature(Feature& number) const {
    const AttrPath& path = info().path;
    const FeatureInfo* parent = nullptr;
    for (std::size_t i = path.steps.size(); i-- > 0 && !parent;)
        if (path.steps[i].id != path.name()) parent = FeatureDataBase::find(path.steps[i].id);
    if (parent) number = parent->number;
    return parent != nullptr;
}
