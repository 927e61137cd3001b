#include "tests/ConversationFile.h"

#include <fstream>
#include <sstream>
#include <stdexcept>

namespace {

std::string replaceAll(std::string text, const std::string& name, const std::string& value) {
    for (std::size_t at = text.find(name); at != std::string::npos; at = text.find(name, at + value.size()))
        text.replace(at, name.size(), value);
    return text;
}

std::vector<std::string> words(const std::string& text) {
    std::istringstream stream(text);
    std::vector<std::string> all;
    for (std::string word; stream >> word;)
        all.push_back(word);
    return all;
}

// "first rest"
std::pair<std::string, std::string> pairOf(const std::string& value) {
    const std::size_t end = value.find(' ');
    return {value.substr(0, end), end == std::string::npos ? std::string() : value.substr(end + 1)};
}

bool takeFault(const std::string& key, const std::string& value, ConversationPart& part) {
    if (key == "without")
        part.without.push_back(value);
    else if (key == "fault")
        part.faults += value + '\n';
    else if (key == "copy")
        part.copies.push_back(pairOf(value));
    else if (key == "remove")
        part.removals.push_back(value);
    else
        return false;
    return true;
}

void takeLine(const std::string& key, const std::string& value, ConversationFile& file) {
    ConversationPart& part = file.parts.back();
    if (key == "driver")
        file.driver = value;
    else if (key == "ticket")
        file.ticket = value;
    else if (key == "area")
        file.area = value;
    else if (key == "options")
        part.options = words(value);
    else if (key == "exit")
        part.exitCode = std::stoi(value);
    else if (key == "out")
        part.out.push_back(value);
    else if (key == "error")
        part.error.push_back(value);
    else if (key == "stores")
        part.stores.push_back(pairOf(value));
    else if (key == "unchanged")
        part.isUnchanged = true;
    else if (key == "again")
        file.parts.emplace_back();
    else if (!takeFault(key, value, part))
        throw std::runtime_error("\"#: " + key + "\" means nothing");
}

} // namespace

ConversationFile readConversation(const std::string& path, const std::string& folder) {
    std::ifstream stream(path);
    ConversationFile file;
    file.parts.emplace_back();
    for (std::string line; std::getline(stream, line);) {
        line = replaceAll(replaceAll(line, "{folder}", folder), "{source}", KOLMA_SOURCE_DIR);
        if (line.starts_with("#: ")) {
            const std::size_t end = line.find(' ', 3);
            takeLine(line.substr(3, end - 3), end == std::string::npos ? "" : line.substr(end + 1), file);
        }
        file.parts.back().script += line + '\n';
    }
    return file;
}
