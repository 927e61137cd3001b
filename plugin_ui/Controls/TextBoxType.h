#pragma once

#include <cstdint>

// Which keys a text box takes.
enum class TextBoxType : std::int32_t {
    any = 1,
    lettersAndDigits = 2,
    customName = 3,  // as lettersAndDigits
    description = 4, // letters, digits, blank, "!" and "_"
};
