// Texts as conversations expect them.
#pragma once

#include <string>
#include <string_view>

// The pattern stands for the whole text: * for anything, \* for the star itself, everything else for itself.
bool matchesPattern(std::u16string_view pattern, std::u16string_view text);

// Every run of blanks and ends of lines as one blank, none at the ends: boxes break their lines as they please.
std::u16string foldBlanks(std::u16string_view text);
