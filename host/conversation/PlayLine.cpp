#include "host/conversation/PlayLine.h"

#include "host/conversation/playNumbers.h"
#include "jtcore/Services/formatMessage.h"

#include <algorithm>
#include <array>

namespace {

struct VerbRow {
    std::u16string_view name;
    PlayVerb verb;
    std::u16string_view arguments;
};
constexpr VerbRow verbs[] = {
#define PLAY_VERB(name, arguments) {u## #name, PlayVerb::name##_, u##arguments},
#include "host/conversation/playVerbs.def"
#undef PLAY_VERB
};

struct AspectRow {
    std::u16string_view name;
    PlayAspect aspect;
    std::u16string_view subject;
    std::u16string_view arguments;
};
constexpr AspectRow aspects[] = {
#define PLAY_ASPECT(name, subject, arguments) {u## #name, PlayAspect::name##_, u##subject, u##arguments},
#include "host/conversation/playAspects.def"
#undef PLAY_ASPECT
};

struct NumberRow {
    std::u16string_view name;
    int number;
};
constexpr NumberRow keys[] = {
#define PLAY_KEY(name, key) {u##name, key},
#include "host/conversation/playKeys.def"
#undef PLAY_KEY
};
constexpr NumberRow answers[] = {
#define PLAY_ANSWER(name, result) {u##name, result},
#include "host/conversation/playAnswers.def"
#undef PLAY_ANSWER
};
constexpr NumberRow states[] = {{u"off", 0}, {u"on", 1}, {u"mixed", 2}};
// The buttons of a property sheet by their names; Apply has the number that is published for it.
constexpr NumberRow buttons[] = {{u"ok", 1}, {u"cancel", 2}, {u"apply", 0x3021}};

template <typename Row, std::size_t count>
const Row* find(const Row (&rows)[count], std::u16string_view name) {
    const Row* row = std::find_if(std::begin(rows), std::end(rows), [&](const Row& r) { return r.name == name; });
    return row == std::end(rows) ? nullptr : row;
}

template <typename Row, std::size_t count>
std::u16string namesOf(const Row (&rows)[count]) {
    std::u16string names;
    for (const Row& row : rows)
        names.append(names.empty() ? u"" : u", ").append(row.name);
    return names;
}

bool take(std::u16string_view& text, std::u16string_view prefix) {
    if (!text.starts_with(prefix)) return false;
    text.remove_prefix(prefix.size());
    return true;
}

std::optional<int> keyOf(std::u16string_view name) {
    if (const NumberRow* row = find(keys, name)) return row->number;
    if (name.size() != 1) return std::nullopt;
    const char16_t c = name.front();
    if ((c >= u'0' && c <= u'9') || (c >= u'A' && c <= u'Z')) return c;
    if (c >= u'a' && c <= u'z') return c - u'a' + u'A';
    return std::nullopt;
}

} // namespace

PlayLine::PlayLine(std::u16string_view line, unsigned number) {
    command_.line = number;
    if (!splitPlayWords(line, words_)) fail(u"the quotation has no end");
    if (line.ends_with(u'\r')) line.remove_suffix(1);
    command_.source = line;
}

std::optional<PlayCommand> PlayLine::parse() {
    if (!error_.empty() || words_.empty() || !parseVerb()) return std::nullopt;
    return std::move(command_);
}

bool PlayLine::parseVerb() {
    const PlayWord& name = words_[at_++];
    const VerbRow* row = name.isQuoted ? nullptr : find(verbs, name.text);
    if (!row) return fail(formatMessage(u"there is no command \"%s\"; there are %s", name.text, namesOf(verbs)));
    command_.verb = row->verb;
    if (!parseArguments(row->arguments)) return false;
    return left() == 0 || fail(formatMessage(u"\"%s\" is too much", words_[at_].text));
}

bool PlayLine::parseArguments(std::u16string_view kinds) {
    while (!kinds.empty()) {
        const std::u16string_view kind = kinds.substr(0, kinds.find(u' '));
        kinds.remove_prefix(std::min(kind.size() + 1, kinds.size()));
        if (!parseArgument(kind)) return false;
    }
    return true;
}

bool PlayLine::parseArgument(std::u16string_view kind) {
    struct Reader {
        std::u16string_view kind;
        bool (PlayLine::*read)();
    };
    static constexpr std::array readers{Reader{u"aspect", &PlayLine::parseAspect},
                                        Reader{u"control", &PlayLine::parseControl},
                                        Reader{u"[control]", &PlayLine::parseOptionalControl},
                                        Reader{u"text", &PlayLine::parseText},
                                        Reader{u"texts", &PlayLine::parseTexts},
                                        Reader{u"number", &PlayLine::parseNumber},
                                        Reader{u"seconds", &PlayLine::parseSeconds},
                                        Reader{u"rows", &PlayLine::parseRows},
                                        Reader{u"state", &PlayLine::parseState},
                                        Reader{u"key", &PlayLine::parseKey},
                                        Reader{u"button", &PlayLine::parseButton},
                                        Reader{u"path", &PlayLine::parsePath}};
    const auto* reader = std::find_if(readers.begin(), readers.end(), [&](const Reader& r) { return r.kind == kind; });
    return (this->*reader->read)();
}

bool PlayLine::parseAspect() {
    const PlayWord* first = left() > 0 ? &words_[at_] : nullptr;
    const AspectRow* row = first && !first->isQuoted ? find(aspects, first->text) : nullptr;
    const bool isOfWindow = row && row->subject == u"window";
    if (!isOfWindow && !parseControl()) return false;
    const PlayWord* name = next(u"what to look at: " + namesOf(aspects));
    if (!name) return false;
    row = find(aspects, name->text);
    if (!row || (row->subject == u"window") != isOfWindow)
        return fail(formatMessage(u"\"%s\" cannot be looked at; there are %s", name->text, namesOf(aspects)));
    command_.aspect = row->aspect;
    return parseArguments(row->arguments);
}

bool PlayLine::parseControl() {
    const PlayWord* word = next(u"the number or the quoted label of a control");
    if (!word) return false;
    if (word->isQuoted) {
        command_.control.label = word->text;
        return !word->text.empty() || fail(u"a label cannot be empty");
    }
    const NumberRow* button = find(buttons, word->text);
    const std::optional<int> number = button ? button->number : readPlayNumber(word->text);
    if (!number || *number < 1 || *number > 0xFFFF)
        return fail(formatMessage(u"\"%s\" is no control: its number is wanted, or its label in quotes", word->text));
    command_.control.id = static_cast<std::uint16_t>(*number);
    return true;
}

bool PlayLine::parseOptionalControl() { return left() < 2 || parseControl(); }

bool PlayLine::parseText() {
    const PlayWord* word = next(u"a text");
    if (word) command_.texts.push_back(word->text);
    return word != nullptr;
}

bool PlayLine::parseTexts() {
    do {
        if (!parseText()) return false;
    } while (left() > 0);
    return true;
}

bool PlayLine::parseNumber() {
    const PlayWord* word = next(u"a number");
    if (!word) return false;
    const std::optional<int> number = readPlayNumber(word->text);
    if (!number) return fail(formatMessage(u"\"%s\" is no number", word->text));
    command_.numbers.push_back(*number);
    return true;
}

bool PlayLine::parseSeconds() {
    return parseNumber() && (command_.numbers.back() > 0 || fail(u"a script needs a second at least"));
}

bool PlayLine::parseRows() {
    const PlayWord* word = next(u"row numbers");
    if (!word) return false;
    if (readPlayRows(word->text, command_.numbers)) return true;
    return fail(formatMessage(u"\"%s\" are no rows: numbers joined by commas, or none", word->text));
}

bool PlayLine::parseState() {
    const PlayWord* word = next(u"on, off or mixed");
    if (!word) return false;
    const NumberRow* row = find(states, word->text);
    if (!row) return fail(formatMessage(u"\"%s\" is neither on, off nor mixed", word->text));
    command_.choice = row->number;
    return true;
}

bool PlayLine::parseKey() {
    const PlayWord* word = next(u"a key");
    if (!word) return false;
    std::u16string_view name = word->text;
    KeyStroke& key = command_.key;
    for (bool isModifier = true; isModifier;) {
        isModifier = false;
        if (take(name, u"Ctrl+")) isModifier = key.control = true;
        if (take(name, u"Shift+")) isModifier = key.shift = true;
        if (take(name, u"Alt+")) isModifier = key.alt = true;
    }
    const std::optional<int> number = keyOf(name);
    if (!number)
        return fail(formatMessage(u"there is no key \"%s\"; there are letters, digits, %s", name, namesOf(keys)));
    key.key = static_cast<std::uint8_t>(*number);
    return true;
}

bool PlayLine::parseButton() {
    const PlayWord* word = next(u"a button: " + namesOf(answers));
    if (!word) return false;
    const NumberRow* row = find(answers, word->text);
    if (!row) return fail(formatMessage(u"there is no button \"%s\"; there are %s", word->text, namesOf(answers)));
    command_.choice = row->number;
    return true;
}

bool PlayLine::parsePath() {
    const PlayWord* word = next(u"a path, or cancel");
    if (!word) return false;
    if (word->text.empty()) return fail(u"a path cannot be empty");
    if (word->isQuoted || word->text != u"cancel") command_.texts.push_back(word->text);
    return true;
}

const PlayWord* PlayLine::next(std::u16string_view wanted) {
    if (at_ < words_.size()) return &words_[at_++];
    fail(formatMessage(u"here is missing %s", wanted));
    return nullptr;
}

bool PlayLine::fail(std::u16string_view text) {
    if (error_.empty()) error_ = text;
    return false;
}
