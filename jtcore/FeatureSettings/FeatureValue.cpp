#include "jtcore/FeatureSettings/FeatureValue.h"

#include "jtcore/Attributes/AttrValue.h"
#include "jtcore/Services/ResourceLibrary.h"

namespace {

// A row for the feature and for those that share its vocabulary; the number is the table's to give.
FeatureValueInfo makeRow(const FeatureInfo& feature, std::u16string_view text, Syntax syntax) {
    FeatureValueInfo row;
    row.text = text;
    row.syntax = syntax;
    row.features.push_back(feature.number);
    for (const Feature related : feature.related)
        row.features.push_back(related);
    return row;
}

FeatureValue findOrAdd(const FeatureId& feature, std::u16string_view text, Syntax syntax) {
    return FeatureValueDataBase::findOrAddNewValue(makeRow(feature.info(), text, syntax)).number;
}

} // namespace

FeatureValue::FeatureValue(Feature feature, std::u16string_view text)
    : number_(FeatureValueDataBase::getFeatureValueInfo(feature, text).number) {}

FeatureValue FeatureValue::fromAbbreviation(std::u16string_view abbreviation) {
    return FeatureValueDataBase::getFeatureValueInfoByAbbreviation(abbreviation).number;
}

std::u16string FeatureValue::getDisplayString() const {
    const FeatureValueInfo& row = info();
    return row.labelId == 0 ? std::u16string(row.text) : ResourceLibrary().getString(row.labelId);
}

FeatureValue FeatureValue::translateTo(Feature feature) const {
    if (isForAnyFeature()) return *this;
    const FeatureValueInfo* row = FeatureValueDataBase::find(feature, getValueText());
    return row ? row->number : Value::notSet;
}

FeatureValue FeatureValue::fromAttrValue(const FeatureId& feature, const AttrValue& value) {
    const std::u16string text = value.getIppValue();
    if (const FeatureValueInfo* row = FeatureValueDataBase::find(feature.getNumber(), text)) return row->number;
    if (isUserDefinableSyntax(value.getValueType()) && feature.hasSyntax(value.getValueType()))
        return findOrAdd(feature, text, {value.getSyntaxName(), value.getValueType()});
    return {feature.getNumber(), text};
}

FeatureValue FeatureValue::fromString(const FeatureId& feature, std::u16string_view text) {
    if (const FeatureValueInfo* row = FeatureValueDataBase::find(feature.getNumber(), text)) return row->number;
    const Syntax* last = nullptr;
    for (const Syntax& syntax : feature.getSyntaxes())
        if (isUserDefinableSyntax(syntax.type)) last = &syntax;
    return last ? findOrAdd(feature, text, *last) : FeatureValue(feature.getNumber(), text);
}

ValueEnum FeatureValue::createNewValueEnum(Feature feature, std::u16string_view text, std::u16string_view syntaxName,
                                           AVTE type, std::uint16_t labelId, std::uint16_t bitmapId) {
    if (type == AVTE{}) type = syntaxTypeOf(syntaxName);
    FeatureValueInfo row = makeRow(FeatureDataBase::getFeatureInfo(feature), text, {syntaxName, type});
    row.labelId = labelId;
    row.bitmapId = bitmapId;
    return FeatureValueDataBase::addNewValue(row).number;
}

bool FeatureValue::operator<(const FeatureValue& other) const {
    if (!isRunTimeValue(number_) || !isRunTimeValue(other.number_)) return number_ < other.number_;
    return getDisplayString() < other.getDisplayString();
}
