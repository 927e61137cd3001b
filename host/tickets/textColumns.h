// Text in columns on a terminal. Widths are columns of the terminal, not bytes.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// Breaks a list of elements ("a, b, c") between two of them, where a line that starts at `indent` would become too
// long.
std::string wrap(const std::string& text, std::size_t indent, std::string_view separator = ", ");

// Blanks behind the text, up to the width.
std::string pad(const std::string& text, std::size_t width);
