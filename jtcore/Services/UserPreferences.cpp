#include "jtcore/Services/UserPreferences.h"

#include "jtcore/Services/KolmaException.h"
#include "jtcore/Services/User.h"

#include <algorithm>

namespace {

constexpr char16_t root[] = u"SOFTWARE\\Kolma\\Kolma Lindor Services\\";
constexpr char16_t jobNamePreference[] = u"JOB_NAME_PREFERENCE";

ByteBuffer inStoredForm(bool value) { return ByteBuffer(value); }
ByteBuffer inStoredForm(std::int32_t value) { return ByteBuffer(value); }
ByteBuffer inStoredForm(std::u16string_view value) { return ByteBuffer(value); }

} // namespace

UserPreferences::UserPreferences(const std::u16string& driverName) : keyPath_(root + driverName) {}

const std::vector<PreferenceRow>& UserPreferences::getRows() {
    static const std::vector<PreferenceRow> rows = {
#define USER_PREFERENCE(Stem, Type, kind, name, fallback) {u##name, PreferenceKind::kind, inStoredForm(Type(fallback))},
#include "jtcore/Services/UserPreferences.def"
#undef USER_PREFERENCE
    };
    return rows;
}

#define USER_PREFERENCE(Stem, Type, kind, name, fallback)                                                              \
    Type UserPreferences::get##Stem() const {                                                                          \
        Type value{};                                                                                                  \
        read(u##name, value);                                                                                          \
        return value;                                                                                                  \
    }                                                                                                                  \
    void UserPreferences::set##Stem(const Type& value) { write(u##name, value); }
#include "jtcore/Services/UserPreferences.def"
#undef USER_PREFERENCE

bool UserPreferences::hasJobNamePreference() const { return registry_.hasValue(keyPath_, jobNamePreference); }

const PreferenceRow& UserPreferences::findRow(std::u16string_view name) {
    return *std::ranges::find(getRows(), name, &PreferenceRow::name);
}

void UserPreferences::read(std::u16string_view name, bool& value) const {
    const PreferenceRow& row = findRow(name);
    value = registry_.getLongValue(keyPath_, row.name, row.fallback.getAsBoolValue() ? 1 : 0) != 0;
}

void UserPreferences::read(std::u16string_view name, std::int32_t& value) const {
    const PreferenceRow& row = findRow(name);
    std::int32_t fallback = row.fallback.getAsLongValue();
    if (row.kind == PreferenceKind::byLocale) fallback = User::isUsingUSMeasurements() ? 1 : 2;
    value = registry_.getLongValue(keyPath_, row.name, fallback);
}

void UserPreferences::read(std::u16string_view name, std::u16string& value) const {
    const PreferenceRow& row = findRow(name);
    value = registry_.getStringValue(keyPath_, row.name, row.fallback.getAsString());
}

void UserPreferences::write(std::u16string_view name, bool value) const {
    registry_.setLongValue(keyPath_, std::u16string(name), value ? 1 : 0);
}

void UserPreferences::write(std::u16string_view name, std::int32_t value) const {
    registry_.setLongValue(keyPath_, std::u16string(name), value);
}

void UserPreferences::write(std::u16string_view name, const std::u16string& value) const {
    registry_.setStringValue(keyPath_, std::u16string(name), value);
}
