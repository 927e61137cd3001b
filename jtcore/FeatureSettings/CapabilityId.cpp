#include "jtcore/FeatureSettings/CapabilityId.h"

#include "jtcore/FeatureSettings/NestedAttrID.h"

std::u16string_view CapabilityId::getUniqueId() const { return getNestedId().getUniqueId(); }

bool CapabilityId::equals(const SettingId& other) const noexcept {
    return other.getKind() == SettingKind::capability && other.getNumber() == getNumber() &&
           static_cast<const CapabilityId&>(other).type_ == type_;
}

CapabilityTypeList CapabilityId::getCapabilityTypes(Feature feature) {
    CapabilityTypeList types;
    for (const CapabilityInfo& row : CapabilityDataBase::getCapabilities(feature))
        types.push_back(row.type);
    return types;
}

CapabilityTypeList CapabilityId::getCapabilityTypes(Feature feature, CapabilityCategory category) {
    CapabilityTypeList types;
    for (const CapabilityInfo& row : CapabilityDataBase::getCapabilities(feature))
        if (row.category == category) types.push_back(row.type);
    return types;
}
