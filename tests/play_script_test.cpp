// The language of conversations: what a line means, and what is told about one that means nothing.
#include "host/conversation/PlayScript.h"
#include "host/conversation/textPattern.h"
#include "jtcore/Services/text.h"

#include <gmock/gmock.h>

namespace {

using testing::HasSubstr;

// A command as one text, so that a row can say all of it.
std::string show(const PlayCommand& command) {
    std::string text = std::to_string(static_cast<int>(command.verb)) + " on ";
    text += command.control.id != 0 ? std::to_string(command.control.id) : toUtf8(command.control.label);
    if (command.aspect != PlayAspect::none) text += " aspect " + std::to_string(static_cast<int>(command.aspect));
    for (const std::u16string& word : command.texts)
        text += " '" + toUtf8(word) + "'";
    for (const int number : command.numbers)
        text += ' ' + std::to_string(number);
    if (command.choice != 0) text += " choice " + std::to_string(command.choice);
    if (command.key.key != 0) text += " key " + std::to_string(command.key.key);
    text += command.key.control ? " ctrl" : "";
    text += command.key.shift ? " shift" : "";
    return text + (command.key.alt ? " alt" : "");
}

std::string show(const PlayScript& script) {
    std::string text;
    for (const PlayCommand& command : script.commands)
        text += std::to_string(command.line) + ": " + show(command) + '\n';
    for (const PlayError& error : script.errors)
        text += "error in " + std::to_string(error.line) + ": " + toUtf8(error.text) + '\n';
    return text;
}

PlayCommand make(PlayVerb verb, std::uint16_t id, std::vector<std::u16string> texts = {},
                 std::vector<int> numbers = {}) {
    PlayCommand command;
    command.verb = verb;
    command.control.id = id;
    command.texts = std::move(texts);
    command.numbers = std::move(numbers);
    return command;
}

PlayCommand makeLook(PlayAspect aspect, std::uint16_t id, std::vector<std::u16string> texts = {},
                     std::vector<int> numbers = {}) {
    PlayCommand command = make(PlayVerb::expect_, id, std::move(texts), std::move(numbers));
    command.aspect = aspect;
    return command;
}

PlayCommand makeKey(std::uint16_t id, KeyStroke key) {
    PlayCommand command = make(PlayVerb::key_, id);
    command.key = key;
    return command;
}

PlayCommand makeChoice(PlayVerb verb, std::uint16_t id, int choice) {
    PlayCommand command = make(verb, id);
    command.choice = choice;
    return command;
}

PlayCommand makeLabelled(PlayVerb verb, const std::u16string& label, const std::u16string& text) {
    PlayCommand command = make(verb, 0, {text});
    command.control.label = label;
    return command;
}

} // namespace

TEST(PlayScript, eachLineIsOneCommand) {
    struct Row {
        const char16_t* line;
        PlayCommand command;
    };
    const Row rows[] = {
        {u"overlay \"Page inserts\"", make(PlayVerb::overlay_, 0, {u"Page inserts"})},
        {u"  overlay Basic # the first", make(PlayVerb::overlay_, 0, {u"Basic"})},
        {u"type 1203 12", make(PlayVerb::type_, 1203, {u"12"})},
        {u"type 0x4B3 \"\"", make(PlayVerb::type_, 1203, {u""})},
        {u"type 1203 \"a \\\"b\\\" \\\\ \\n# c\"\r", make(PlayVerb::type_, 1203, {u"a \"b\" \\ \n# c"})},
        {u"choose 1205 \"Two-sided, long edge\"", make(PlayVerb::choose_, 1205, {u"Two-sided, long edge"})},
        {u"choose \"Copies\" 3", makeLabelled(PlayVerb::choose_, u"Copies", u"3")},
        {u"check 1239 on", makeChoice(PlayVerb::check_, 1239, 1)},
        {u"check 1239 mixed", makeChoice(PlayVerb::check_, 1239, 2)},
        {u"click apply", make(PlayVerb::click_, 0x3021)},
        {u"slide 2639 -10", make(PlayVerb::slide_, 2639, {}, {-10})},
        {u"row 1604 0,2", make(PlayVerb::row_, 1604, {}, {0, 2})},
        {u"row 1604 none", make(PlayVerb::row_, 1604)},
        {u"doubleclick 3203 1", make(PlayVerb::doubleclick_, 3203, {}, {1})},
        {u"key 1203 Backspace", makeKey(1203, {8})},
        {u"key Ctrl+Shift+Tab", makeKey(0, {9, true, true, false})},
        {u"key Alt+b", makeKey(0, {'B', false, false, true})},
        {u"answer no", makeChoice(PlayVerb::answer_, 0, 7)},
        {u"file /tmp/a.jtif", make(PlayVerb::file_, 0, {u"/tmp/a.jtif"})},
        {u"file \"cancel\"", make(PlayVerb::file_, 0, {u"cancel"})},
        {u"file cancel", make(PlayVerb::file_, 0)},
        {u"show", make(PlayVerb::show_, 0)},
        {u"timeout 5", make(PlayVerb::timeout_, 0, {}, {5})},
        {u"expect title \"a*\"", makeLook(PlayAspect::title_, 0, {u"a*"})},
        {u"expect closed", makeLook(PlayAspect::closed_, 0)},
        {u"expect 1203 text \"\\*\"", makeLook(PlayAspect::text_, 1203, {u"\\*"})},
        {u"expect 1205 items a \"b c\"", makeLook(PlayAspect::items_, 1205, {u"a", u"b c"})},
        {u"expect ok disabled", makeLook(PlayAspect::disabled_, 1)},
        {u"expect 1604 cell 2 1 x", makeLook(PlayAspect::cell_, 1604, {u"x"}, {2, 1})},
        {u"expect 1604 rows 0,1", makeLook(PlayAspect::rows_, 1604, {}, {0, 1})},
    };
    for (const Row& row : rows) {
        const PlayScript script = parsePlayScript(row.line);
        ASSERT_EQ(script.commands.size(), 1U) << toUtf8(row.line) << '\n' << show(script);
        EXPECT_EQ(show(script.commands[0]), show(row.command)) << toUtf8(row.line);
    }
}

TEST(PlayScript, aLineThatMeansNothingSaysWhatIsWrong) {
    struct Row {
        const char16_t* line;
        const char* error;
    };
    const Row rows[] = {
        {u"jump 3", "no command \"jump\""},
        {u"\"show\"", "no command \"show\""},
        {u"show all", "\"all\" is too much"},
        {u"type 1203", "missing a text"},
        {u"type \"1203", "no end"},
        {u"type 0 x", "\"0\" is no control"},
        {u"type 65536 x", "\"65536\" is no control"},
        {u"type \"\" x", "label cannot be empty"},
        {u"click here", "\"here\" is no control"},
        {u"check 1239 yes", "neither on, off nor mixed"},
        {u"slide 5 1.5", "\"1.5\" is no number"},
        {u"slide 5 99999999999", "is no number"},
        {u"slide 5 0x-1", "is no number"},
        {u"timeout 0", "a second at least"},
        {u"row 5 1,,2", "are no rows"},
        {u"row 5 -1", "are no rows"},
        {u"key Ctrl+", "no key \"\""},
        {u"key Foo", "no key \"Foo\""},
        {u"answer maybe", "no button \"maybe\""},
        {u"file \"\"", "path cannot be empty"},
        {u"expect", "missing the number"},
        {u"expect 1203", "missing what to look at"},
        {u"expect 1203 title x", "\"title\" cannot be looked at"},
        {u"expect 1203 colour red", "\"colour\" cannot be looked at"},
        {u"expect 1203 items", "missing a text"},
    };
    for (const Row& row : rows) {
        const PlayScript script = parsePlayScript(row.line);
        ASSERT_EQ(script.errors.size(), 1U) << toUtf8(row.line) << '\n' << show(script);
        EXPECT_THAT(toUtf8(script.errors[0].text), HasSubstr(row.error)) << toUtf8(row.line);
        EXPECT_TRUE(script.commands.empty()) << toUtf8(row.line);
    }
}

TEST(PlayScript, aScriptKeepsTheNumbersOfItsLinesAndTellsAllErrors) {
    const PlayScript script = parsePlayScript(u"\uFEFFshow\n\n# nothing\nbad\r\n  ok\n\nworse");
    EXPECT_EQ(show(script).substr(0, 2), "1:");
    ASSERT_EQ(script.commands.size(), 2U) << show(script);
    EXPECT_EQ(script.commands[1].line, 5U);
    EXPECT_EQ(script.commands[1].source, u"  ok");
    ASSERT_EQ(script.errors.size(), 2U) << show(script);
    EXPECT_EQ(script.errors[0].line, 4U);
    EXPECT_EQ(script.errors[1].line, 7U);
    EXPECT_TRUE(parsePlayScript(u"").commands.empty());
}

TEST(PlayScript, aPatternStandsForTheWholeText) {
    struct Row {
        const char16_t* pattern;
        const char16_t* text;
        bool matches;
    };
    for (const Row& row : {
             Row{u"", u"", true},
             Row{u"", u"a", false},
             Row{u"abc", u"abc", true},
             Row{u"abc", u"abcd", false},
             Row{u"*", u"", true},
             Row{u"a*c", u"abcbc", true},
             Row{u"a*c", u"abcb", false},
             Row{u"*b*", u"abc", true},
             Row{u"**", u"x", true},
             Row{u"\\*", u"*", true},
             Row{u"\\*", u"x", false},
             Row{u"a\\*b*", u"a*bc", true},
             Row{u"a\\b", u"a\\b", true},
             Row{u"*aab", u"aaaab", true},
         })
        EXPECT_EQ(matchesPattern(row.pattern, row.text), row.matches)
            << toUtf8(row.pattern) << " / " << toUtf8(row.text);
    EXPECT_EQ(foldBlanks(u"  a\r\n\r\nb \t c\n"), u"a b c");
}
