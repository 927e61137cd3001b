#include "host/conversation/PlayScript.h"

#include "host/conversation/PlayLine.h"

PlayScript parsePlayScript(std::u16string_view text) {
    PlayScript script;
    unsigned number = 0;
    while (!text.empty()) {
        const std::u16string_view line = text.substr(0, text.find(u'\n'));
        text.remove_prefix(line.size() < text.size() ? line.size() + 1 : line.size());
        ++number;
        PlayLine parser(line, number);
        if (std::optional<PlayCommand> command = parser.parse()) script.commands.push_back(std::move(*command));
        if (!parser.error().empty()) script.errors.push_back({number, parser.error()});
    }
    return script;
}
