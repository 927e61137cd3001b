// What XML makes of text.
#pragma once

#include <cstddef>
#include <string_view>

// Without the blanks, tabs and line breaks at both ends.
std::u16string_view trimSpace(std::u16string_view text) noexcept;

// The position of the first unit that no XML document can carry, not even as a character reference: a control
// character, an unpaired surrogate, U+FFFE or U+FFFF. npos when there is none.
std::size_t findUnwritableCharacter(std::u16string_view text) noexcept;
