#include "host/conversation/PlayWords.h"

namespace {

constexpr std::u16string_view blanks = u" \t\r\u00A0\uFEFF";

bool isBlank(char16_t c) { return blanks.find(c) != std::u16string_view::npos; }

// A star keeps its backslash, which the patterns of expected texts need.
void addEscaped(char16_t c, std::u16string& text) {
    switch (c) {
    case u'n':
        text += u'\n';
        break;
    case u't':
        text += u'\t';
        break;
    case u'"':
    case u'\\':
        text += c;
        break;
    default:
        text += {u'\\', c};
    }
}

// From behind the opening quote; returns the place behind the closing one, or npos.
std::size_t readQuoted(std::u16string_view line, std::size_t at, std::u16string& text) {
    for (; at < line.size(); ++at) {
        if (line[at] == u'"') return at + 1;
        if (line[at] == u'\\' && at + 1 < line.size())
            addEscaped(line[++at], text);
        else
            text += line[at];
    }
    return std::u16string_view::npos;
}

} // namespace

bool splitPlayWords(std::u16string_view line, std::vector<PlayWord>& words) {
    for (std::size_t at = 0; at < line.size();) {
        if (isBlank(line[at])) {
            ++at;
        } else if (line[at] == u'#') {
            return true;
        } else if (line[at] == u'"') {
            PlayWord& word = words.emplace_back(PlayWord{u"", true});
            at = readQuoted(line, at + 1, word.text);
            if (at == std::u16string_view::npos) return false;
        } else {
            std::size_t end = at;
            while (end < line.size() && !isBlank(line[end]))
                ++end;
            words.push_back({std::u16string(line.substr(at, end - at)), false});
            at = end;
        }
    }
    return true;
}
