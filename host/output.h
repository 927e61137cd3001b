// What the commands print. Text inside is UTF-16; here it becomes UTF-8.
#pragma once

#include <nlohmann/json_fwd.hpp>

#include <string>
#include <string_view>

// To the standard output, as it stands.
void print(std::string_view text);
void printJson(const nlohmann::ordered_json& json);

// To the standard error, as toTerminal() has it: lines end in one line feed, and the last line ends.
void printError(std::u16string_view text);

// Text of a file as a terminal may show it: controls, and what turns the direction of writing, come out as \u0000
// escapes, so that no ticket can move the cursor or dress up its values.
std::string toTerminal(std::u16string_view text);

// The number of columns that the UTF-8 text takes, wide characters of East Asia and pictures counted twice.
std::size_t columnsOf(std::string_view text);

// Brings the standard output to its end. Raises WriteFileException when not everything could be written.
void finishOutput();
