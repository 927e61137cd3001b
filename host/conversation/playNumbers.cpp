#include "host/conversation/playNumbers.h"

#include "jtcore/Services/text.h"

#include <charconv>

std::optional<int> readPlayNumber(std::u16string_view text) {
    std::string digits = toUtf8(text);
    const bool isHexadecimal = digits.starts_with("0x");
    if (isHexadecimal) digits.erase(0, 2);
    if (isHexadecimal && digits.starts_with('-')) return std::nullopt;
    int number = 0;
    const char* end = digits.data() + digits.size();
    const auto result = std::from_chars(digits.data(), end, number, isHexadecimal ? 16 : 10);
    if (result.ec != std::errc{} || result.ptr != end) return std::nullopt;
    return number;
}

bool readPlayRows(std::u16string_view text, std::vector<int>& rows) {
    if (text == u"none") return true;
    std::vector<int> read;
    for (;;) {
        const std::u16string_view part = text.substr(0, text.find(u','));
        const std::optional<int> row = readPlayNumber(part);
        if (!row || *row < 0) return false;
        read.push_back(*row);
        if (part.size() == text.size()) break;
        text.remove_prefix(part.size() + 1);
    }
    rows = std::move(read);
    return true;
}
