#include "host/conversation/textPattern.h"

namespace {

constexpr std::size_t none = std::u16string_view::npos;

struct Place {
    std::size_t pattern = 0;
    std::size_t text = 0;
};

// Takes one character of both, when they agree.
bool step(std::u16string_view pattern, std::u16string_view text, Place& at) {
    if (at.pattern == pattern.size()) return false;
    std::size_t next = at.pattern;
    if (pattern[next] == u'\\' && next + 1 < pattern.size() && pattern[next + 1] == u'*') ++next;
    if (pattern[next] != text[at.text]) return false;
    at = {next + 1, at.text + 1};
    return true;
}

} // namespace

bool matchesPattern(std::u16string_view pattern, std::u16string_view text) {
    Place at;
    Place star{none, 0}; // behind the last star, and the text that it has taken
    while (at.text < text.size()) {
        if (at.pattern < pattern.size() && pattern[at.pattern] == u'*') {
            star = {++at.pattern, at.text};
        } else if (!step(pattern, text, at)) {
            if (star.pattern == none) return false;
            at = {star.pattern, ++star.text};
        }
    }
    while (at.pattern < pattern.size() && pattern[at.pattern] == u'*')
        ++at.pattern;
    return at.pattern == pattern.size();
}

std::u16string foldBlanks(std::u16string_view text) {
    std::u16string folded;
    for (const char16_t c : text) {
        const bool isBlank = c == u' ' || c == u'\t' || c == u'\r' || c == u'\n' || c == u'\u00A0';
        if (!isBlank)
            folded += c;
        else if (!folded.empty() && folded.back() != u' ')
            folded += u' ';
    }
    if (folded.ends_with(u' ')) folded.pop_back();
    return folded;
}
