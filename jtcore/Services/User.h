// Who the user is, where the user's files lie, and what the user's locale says. Every call asks anew.
#pragma once

#include <cstdint>
#include <string>

// The paper that a locale takes for granted. The numbers are those of the size table of the stocks.
enum class DefaultStockSize : std::int32_t { letter = 2, legal = 3, a4 = 8, a3 = 9 };

class User {
public:
    // The profile directory, without a separator at its end. Raises UserInformationRequestException and
    // ProcessTokenRequestException.
    static std::u16string getProfileDirectoryPath();

    // The name of the logged-on user, empty when it is unknown.
    static std::u16string getLogonName();

    // False when the locale measures in metric units.
    static bool isUsingUSMeasurements();

    static DefaultStockSize getDefaultStockSize();
};
