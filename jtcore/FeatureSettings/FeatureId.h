// The identifier of a feature.
#pragma once

#include "jtcore/FeatureSettings/FeatureDataBase.h"
#include "jtcore/FeatureSettings/SettingId.h"

#include <cstdint>
#include <string>
#include <string_view>

class FeatureId final : public SettingId {
public:
    // The number need not be one of the table: the questions below tell.
    FeatureId(Feature number) noexcept : SettingId(number, SettingKind::feature) {}
    // By the unique id of the feature, or its abbreviation. Raise UnknownFeatureRequestException.
    explicit FeatureId(std::u16string_view uniqueId);
    static FeatureId fromAbbreviation(std::u16string_view abbreviation);

    const NestedAttrID& getNestedId() const override { return info().nestedId(); }
    std::u16string_view getUniqueId() const override { return info().uniqueId(); }
    std::unique_ptr<SettingId> clone() const override { return std::make_unique<FeatureId>(*this); }
    bool equals(const SettingId& other) const noexcept override;
    const SyntaxList& getSyntaxes() const override { return info().syntaxes; }

    std::u16string_view getAbbreviation() const { return info().abbreviation; }
    std::uint16_t getLabelId() const { return info().labelId; }
    // The feature's name as the user reads it. Raises what the resource module raises.
    std::u16string getLabel() const;
    UnspecifiedRule getUnspecifiedRule() const { return info().unspecifiedRule; }

    const FixedList<Feature, 2>& getRelatedFeatures() const { return info().related; }
    std::size_t getNumRelatedFeatures() const { return info().related.size(); }
    // An index past the list raises IndexOutOfBoundsException.
    Feature getRelatedFeature(std::size_t index) const;

    // True when the user may give a value of his own: one of the syntaxes is a name or a URI.
    bool isUserDefinable() const;
    // The first such syntax; empty when there is none.
    std::u16string_view getUserDefinedSyntaxName() const;

    // The innermost collection or set round this feature that is itself a feature. False, and the number untouched,
    // when there is none.
    bool getParentFeature(Feature& number) const;

    static bool isValidNumber(Feature number) noexcept { return FeatureDataBase::isFeature(number); }
    static bool isValidId(std::u16string_view uniqueId) noexcept { return FeatureDataBase::isFeature(uniqueId); }
    static bool isValidAbbreviation(std::u16string_view text) noexcept {
        return FeatureDataBase::isFeatureAbbreviation(text);
    }

    const FeatureInfo& info() const { return FeatureDataBase::getFeatureInfo(getNumber()); }
};

// Names, whose texts are the user's, and URIs.
constexpr bool isUserDefinableSyntax(AVTE type) noexcept { return type == AVTE::name || type == AVTE::uri; }
