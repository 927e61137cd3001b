// What a user sets once for a printer driver and what outlives every job. One registry key for each driver, under the
// user's own root. Nothing is cached: a getter asks the store when it is called, a setter writes at once.
//
// Getters raise RegistryRequestException, and NotEnoughBytesForDesiredDataTypeException for a stored number of fewer
// than four bytes; setters raise RegistryRequestException. A value that is not stored reads as its default.
#pragma once

#include "jtcore/Services/ByteBuffer.h"
#include "jtcore/Services/Registry.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// How a preference is stored and where its default comes from.
enum class PreferenceKind : std::uint32_t { boolean = 1, number = 2, text = 3, byLocale = 4 };

struct PreferenceRow {
    std::u16string name;
    PreferenceKind kind;
    ByteBuffer fallback; // in its stored form
};

class UserPreferences {
public:
    // The empty driver name stands for the root of all drivers.
    explicit UserPreferences(const std::u16string& driverName = {});

    // bool getJobNamePreference() const; void setJobNamePreference(bool value); and so on for every row.
#define USER_PREFERENCE(Stem, Type, kind, name, fallback)                                                              \
    Type get##Stem() const;                                                                                            \
    void set##Stem(const Type& value);
#include "jtcore/Services/UserPreferences.def"
#undef USER_PREFERENCE

    // Whether the user has ever saved preferences for this driver.
    bool hasJobNamePreference() const;

    const std::u16string& getKeyPath() const noexcept { return keyPath_; }
    // The same for every driver.
    static const std::vector<PreferenceRow>& getRows();

private:
    static const PreferenceRow& findRow(std::u16string_view name);
    void read(std::u16string_view name, bool& value) const;
    void read(std::u16string_view name, std::int32_t& value) const;
    void read(std::u16string_view name, std::u16string& value) const;
    void write(std::u16string_view name, bool value) const;
    void write(std::u16string_view name, std::int32_t value) const;
    void write(std::u16string_view name, const std::u16string& value) const;

    std::u16string keyPath_;
    Registry registry_;
};
