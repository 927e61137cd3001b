// The reader of one line of a conversation.
#pragma once

#include "host/conversation/PlayCommand.h"
#include "host/conversation/PlayWords.h"

#include <optional>
#include <string_view>

class PlayLine {
public:
    PlayLine(std::u16string_view line, unsigned number);

    // Nothing for a line without words, and for one that has an error. Called once.
    std::optional<PlayCommand> parse();
    // Empty when all is well.
    const std::u16string& error() const noexcept { return error_; }

private:
    bool parseVerb();
    // Reads words by a list of argument kinds (playVerbs.def). Each kind's reader takes the words it needs.
    bool parseArguments(std::u16string_view kinds);
    bool parseArgument(std::u16string_view kind);
    bool parseAspect();
    bool parseControl();
    bool parseOptionalControl();
    bool parseText();
    bool parseTexts();
    bool parseNumber();
    bool parseSeconds();
    bool parseRows();
    bool parseState();
    bool parseKey();
    bool parseButton();
    bool parsePath();

    const PlayWord* next(std::u16string_view wanted);
    std::size_t left() const noexcept { return words_.size() - at_; }
    bool fail(std::u16string_view text);

    PlayCommand command_;
    std::vector<PlayWord> words_;
    std::size_t at_ = 0;
    std::u16string error_;
};
