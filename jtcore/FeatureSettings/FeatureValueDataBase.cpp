#include "jtcore/FeatureSettings/FeatureValueDataBase.h"

#include "jtcore/FeatureSettings/FeatureDataBase.h"
#include "jtcore/FeatureSettings/RunTimeValues.h"
#include "jtcore/FeatureSettings/fixedValues.h"
#include "jtcore/Services/KolmaException.h"

const FeatureValueInfo& FeatureValueDataBase::getFeatureValueInfo(ValueEnum number) {
    if (const FeatureValueInfo* row = find(number)) return *row;
    raise<UnknownFeatureRequestException>(
        u"FeatureValueDataBase::getFeatureValueInfo( ValueEnum ) could not find requested ValueEnum %ld\r\n", number);
}

const FeatureValueInfo& FeatureValueDataBase::getFeatureValueInfo(Feature feature, std::u16string_view text) {
    if (const FeatureValueInfo* row = find(feature, text)) return *row;
    raiseUnknownValue(feature, text);
}

const FeatureValueInfo& FeatureValueDataBase::getFeatureValueInfoByAbbreviation(std::u16string_view abbreviation) {
    if (const FeatureValueInfo* row = findByAbbreviation(abbreviation)) return *row;
    raise<UnknownFeatureRequestException>(u"FeatureValueDataBase::getFeatureValueInfoByAbbreviation() could not find "
                                          u"requested value for abbreviation '%s'.\r\n",
                                          abbreviation);
}

const FeatureValueInfo& FeatureValueDataBase::addValue(const FeatureValueInfo& row) {
    return RunTimeValues::instance().add(row);
}

const FeatureValueInfo& FeatureValueDataBase::addNewValue(const FeatureValueInfo& row) {
    return RunTimeValues::instance().addNew(row);
}

const FeatureValueInfo& FeatureValueDataBase::findOrAddNewValue(const FeatureValueInfo& row) {
    const FeatureValueInfo* found = find(row.features[0], row.text);
    return found ? *found : RunTimeValues::instance().findOrAddNew(row);
}

void raiseUnknownValue(Feature feature, std::u16string_view text) {
    raise<UnknownFeatureRequestException>(u"FeatureValueDataBase::getFeatureValueInfo( Feature, Value ) could not find "
                                          u"requested value '%s' for feature '%d' (%s).\r\n",
                                          text, feature, FeatureDataBase::describe(feature));
}
