// One enumerated value of a feature: a small value by which the rest of the system speaks of keywords without comparing
// texts. It stays good for the life of the process.
#pragma once

#include "jtcore/FeatureSettings/FeatureId.h"
#include "jtcore/FeatureSettings/FeatureValueDataBase.h"

#include <cstdint>
#include <string>
#include <string_view>

class AttrValue;

// Every question to the table raises UnknownFeatureRequestException when it has no row of the number.
class FeatureValue {
public:
    // Value::notSet means that the feature is not set; it belongs to every feature.
    constexpr FeatureValue(ValueEnum number = Value::notSet) noexcept : number_(number) {}
    // Raises UnknownFeatureRequestException when the feature has no such value.
    FeatureValue(Feature feature, std::u16string_view text);
    static FeatureValue fromAbbreviation(std::u16string_view abbreviation);

    constexpr ValueEnum getNumber() const noexcept { return number_; }
    constexpr bool isSet() const noexcept { return number_ != Value::notSet; }

    std::u16string_view getValueText() const { return info().text; }
    std::u16string_view getAbbreviation() const { return info().abbreviation; }
    std::u16string_view getSyntaxName() const { return info().syntax.name; }
    AVTE getSyntax() const { return info().syntax.type; }
    std::uint16_t getLabelId() const { return info().labelId; }
    std::uint16_t getBitmapId() const { return info().bitmapId; }
    // What the user reads: the row's label, or the text where it has none. Raises what the resource module raises.
    std::u16string getDisplayString() const;
    bool isForAnyFeature() const { return info().features.contains(Feature::any); }

    // The value of the same text under another feature; not set where that has none. A value that is for any feature
    // stays itself.
    FeatureValue translateTo(Feature feature) const;

    static bool isKnown(Feature feature, std::u16string_view text) {
        return FeatureValueDataBase::isValue(feature, text);
    }
    static bool isKnown(ValueEnum number) { return FeatureValueDataBase::isValue(number); }
    static bool isKnownAbbreviation(std::u16string_view text) { return FeatureValueDataBase::isAbbreviation(text); }
    static constexpr bool isUserDefinableSyntax(AVTE type) noexcept { return ::isUserDefinableSyntax(type); }

    // The value that an attribute or a text stands for. A text that is new becomes a row of its own when the user may
    // define it: by the attribute's own syntax, or by the last such syntax of the feature. Otherwise raise
    // UnknownFeatureRequestException.
    static FeatureValue fromAttrValue(const FeatureId& feature, const AttrValue& value);
    static FeatureValue fromString(const FeatureId& feature, std::u16string_view text);

    // Makes a new row for the feature and its related features and returns its number, 517 or more. AVTE{} stands for
    // the type that goes with the syntax name. REQUIRES: isKnown() said no for the text; otherwise raises
    // DuplicateFeatureValueDBEntryException. Raises UnknownFeatureRequestException for a feature that is not in the
    // table, and when the table of values has no room for it (see FeatureValueDataBase).
    static ValueEnum createNewValueEnum(Feature feature, std::u16string_view text, std::u16string_view syntaxName,
                                        AVTE type = AVTE{}, std::uint16_t labelId = 0, std::uint16_t bitmapId = 0);

    const FeatureValueInfo& info() const { return FeatureValueDataBase::getFeatureValueInfo(number_); }

    constexpr bool operator==(const FeatureValue&) const noexcept = default;
    // The fixed values in the order of the table, and behind them those made at run time by what the user reads.
    bool operator<(const FeatureValue& other) const;

private:
    ValueEnum number_;
};
