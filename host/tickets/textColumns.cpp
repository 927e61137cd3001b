#include "host/tickets/textColumns.h"

#include "host/output.h"

namespace {

constexpr std::size_t lineWidth = 100;

} // namespace

std::string wrap(const std::string& text, std::size_t indent, std::string_view separator) {
    std::string wrapped;
    std::size_t column = indent;
    std::size_t start = 0;
    while (start < text.size()) {
        const std::size_t found = text.find(separator, start);
        const std::size_t end = found == std::string::npos ? text.size() : found + separator.size();
        const std::string piece = text.substr(start, end - start);
        if (column > indent && column + columnsOf(piece) > lineWidth) {
            wrapped.erase(wrapped.find_last_not_of(' ') + 1);
            wrapped += '\n' + std::string(indent, ' ');
            column = indent;
        }
        wrapped += piece;
        column += columnsOf(piece);
        start = end;
    }
    return wrapped;
}

std::string pad(const std::string& text, std::size_t width) {
    const std::size_t columns = columnsOf(text);
    return text + std::string(columns < width ? width - columns : 0, ' ');
}
