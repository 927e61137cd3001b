// Numbers in conversations.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

// Decimal with or without a minus, or hexadecimal behind 0x. Nothing else, and nothing beyond 32 bits.
std::optional<int> readPlayNumber(std::u16string_view text);

// "0,2,5", or "none". Returns false, and leaves the rows alone, when the text is neither.
bool readPlayRows(std::u16string_view text, std::vector<int>& rows);
