#include "host/output.h"

#include "host/commandFailure.h"
#include "jtcore/Services/text.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <cstdio>

namespace {

bool isUnsafe(char16_t c) {
    const bool isControl = c < 0x20 || (c >= 0x7F && c <= 0x9F);
    const bool isDirection = (c >= 0x202A && c <= 0x202E) || (c >= 0x2066 && c <= 0x2069) || c == 0x2028 || c == 0x2029;
    return isControl || isDirection;
}

struct CodePointRange {
    char32_t first;
    char32_t last;
};

constexpr CodePointRange wideRanges[] = {{0x1100, 0x115F},   {0x2E80, 0x303E},  {0x3041, 0x33FF}, {0x3400, 0x4DBF},
                                         {0x4E00, 0x9FFF},   {0xA000, 0xA4CF},  {0xAC00, 0xD7A3}, {0xF900, 0xFAFF},
                                         {0xFE30, 0xFE6F},   {0xFF00, 0xFF60},  {0xFFE0, 0xFFE6}, {0x1F300, 0x1F64F},
                                         {0x1F900, 0x1F9FF}, {0x20000, 0x3FFFD}};

std::size_t columnsOf(char32_t c) {
    if (c == 0x200D || (c >= 0x0300 && c <= 0x036F) || (c >= 0xFE00 && c <= 0xFE0F)) return 0;
    for (const CodePointRange& range : wideRanges)
        if (c >= range.first && c <= range.last) return 2;
    return 1;
}

} // namespace

void print(std::string_view text) { std::fwrite(text.data(), 1, text.size(), stdout); }

void printJson(const nlohmann::ordered_json& json) {
    print(json.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + '\n');
}

void printError(std::u16string_view text) {
    std::string lines;
    for (std::u16string_view left = text; !left.empty();) {
        const std::u16string_view line = left.substr(0, left.find_first_of(u"\r\n\t"));
        lines += toTerminal(line);
        left.remove_prefix(line.size());
        if (left.starts_with(u'\n') || left.starts_with(u'\t')) lines += static_cast<char>(left.front());
        if (!left.empty()) left.remove_prefix(1);
    }
    if (!lines.ends_with('\n')) lines += '\n';
    std::fwrite(lines.data(), 1, lines.size(), stderr);
}

std::string toTerminal(std::u16string_view text) {
    std::u16string safe;
    for (const char16_t c : text) {
        if (isUnsafe(c))
            safe += fromUtf8(fmt::format("\\u{:04X}", static_cast<unsigned>(c)));
        else
            safe += c;
    }
    return toUtf8(safe);
}

std::size_t columnsOf(std::string_view text) {
    std::size_t columns = 0;
    const std::u16string wide = fromUtf8(text);
    for (std::size_t i = 0; i < wide.size(); ++i) {
        char32_t c = wide[i];
        if (c >= 0xD800 && c < 0xDC00 && i + 1 < wide.size()) c = 0x10000 + ((c - 0xD800) << 10) + (wide[++i] - 0xDC00);
        columns += columnsOf(c);
    }
    return columns;
}

void finishOutput() {
    if (std::fflush(stdout) != 0 || std::ferror(stdout))
        raise<InWords<WriteFileException>>(u"Not everything could be written to the standard output.");
}
