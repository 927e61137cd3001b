// The letters by which compact tickets spell the syntaxes. A syntax without a letter passes unchanged both ways.
#pragma once

#include <string_view>

std::u16string_view toCompactSyntax(std::u16string_view syntaxName) noexcept;
std::u16string_view fromCompactSyntax(std::u16string_view letter) noexcept;
