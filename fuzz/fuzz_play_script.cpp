// Any bytes as a conversation: every line gives a command, an error or nothing, in the order of the lines. A command's
// own line, read again, gives that command again; and its texts are patterns that match themselves where they have no
// star.
#include "host/conversation/PlayScript.h"
#include "host/conversation/textPattern.h"
#include "jtcore/Services/text.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace {

void require(bool isTrue) {
    if (!isTrue) std::abort();
}

void checkAgain(const PlayCommand& command) {
    const PlayScript again = parsePlayScript(command.source);
    require(again.errors.empty() && again.commands.size() == 1);
    const PlayCommand& same = again.commands[0];
    require(same.verb == command.verb && same.aspect == command.aspect && same.control == command.control &&
            same.texts == command.texts && same.numbers == command.numbers && same.key == command.key);
    for (const std::u16string& text : command.texts)
        require(text.find(u'*') != std::u16string::npos || matchesPattern(text, text));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::u16string text = fromUtf8({reinterpret_cast<const char*>(data), size});
    const PlayScript script = parsePlayScript(text);
    const auto lines = static_cast<std::size_t>(std::count(text.begin(), text.end(), u'\n')) + 1;
    require(script.commands.size() + script.errors.size() <= lines);
    unsigned line = 0;
    for (const PlayCommand& command : script.commands) {
        require(command.line > line && command.line <= lines);
        line = command.line;
        checkAgain(command);
    }
    for (const PlayError& error : script.errors)
        require(!error.text.empty());
    return 0;
}
