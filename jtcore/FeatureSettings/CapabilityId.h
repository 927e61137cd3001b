// The identifier of a capability: what is told, and about which feature.
#pragma once

#include "jtcore/FeatureSettings/CapabilityDataBase.h"
#include "jtcore/FeatureSettings/SettingId.h"

class CapabilityId final : public SettingId {
public:
    // The pair need not be one of the table: the questions below tell.
    CapabilityId(Feature feature, CapabilityType type) noexcept
        : SettingId(feature, SettingKind::capability), type_(type) {}

    const NestedAttrID& getNestedId() const override { return info().nestedId(); }
    std::u16string_view getUniqueId() const override;
    std::unique_ptr<SettingId> clone() const override { return std::make_unique<CapabilityId>(*this); }
    bool equals(const SettingId& other) const noexcept override;
    const SyntaxList& getSyntaxes() const override { return info().syntaxes; }

    CapabilityCategory getCategory() const { return info().category; }
    CapabilityType getCapabilityType() const noexcept { return type_; }

    // The types of a feature's rows, or of those of one category, in the order of their numbers.
    static CapabilityTypeList getCapabilityTypes(Feature feature);
    static CapabilityTypeList getCapabilityTypes(Feature feature, CapabilityCategory category);
    static bool isValid(Feature feature, CapabilityType type) noexcept {
        return CapabilityDataBase::isCapability(feature, type);
    }

    const CapabilityInfo& info() const { return CapabilityDataBase::getCapabilityInfo(getNumber(), type_); }

private:
    CapabilityType type_;
};
