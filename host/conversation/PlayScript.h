// A conversation as text: one command a line, # starts a comment, words with blanks stand in quotes (with \" \\ \n \t).
#pragma once

#include "host/conversation/PlayCommand.h"

#include <string>
#include <string_view>
#include <vector>

struct PlayError {
    unsigned line = 0;
    std::u16string text; // what is wrong, with what would be right
};

struct PlayScript {
    std::vector<PlayCommand> commands; // in the order of the lines
    std::vector<PlayError> errors;     // a line that has one gives no command
};

// Reads a whole script; everything that is wrong is told. Any text is taken.
PlayScript parsePlayScript(std::u16string_view text);
