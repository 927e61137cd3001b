// The words of one line of a conversation.
#pragma once

#include <string>
#include <string_view>
#include <vector>

struct PlayWord {
    std::u16string text;
    bool isQuoted = false;
};

// Splits the line at blanks; a comment ends it. Returns false when a quotation has no end.
bool splitPlayWords(std::u16string_view line, std::vector<PlayWord>& words);
