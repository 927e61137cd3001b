// The windows tell a dialog the same things in the same order as the platform's own windows do, whose record lies in
// reference/notifications.txt.
#include "tests/reference/Recorder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <sstream>
#include <string>

namespace reference {

void PrintTo(const Recording& recording, std::ostream* out) { *out << recording.title; }

} // namespace reference

namespace {

// The lines of each step, by its title; a title that comes again gets a number.
std::map<std::string, std::string> blocksOf(std::istream& record) {
    std::map<std::string, std::string> blocks;
    std::string title;
    for (std::string line; std::getline(record, line);) {
        if (line.empty() || line.front() == '#') continue;
        if (line.front() != ' ') {
            title = line;
            for (int again = 2; blocks.count(title) != 0; ++again)
                title = line + " (" + std::to_string(again) + ")";
            blocks[title];
        } else {
            blocks[title] += line + "\n";
        }
    }
    return blocks;
}

std::map<std::string, std::string> blocksOfFile(const std::string& name) {
    std::ifstream file(KOLMA_SOURCE_DIR "/tests/reference/" + name);
    EXPECT_TRUE(file.is_open()) << name;
    return blocksOf(file);
}

class Reference : public testing::TestWithParam<reference::Recording> {};

TEST_P(Reference, isMet) {
    const std::map<std::string, std::string> expected = blocksOfFile("notifications.txt");
    const std::map<std::string, std::string> ourOwn = blocksOfFile("differences.txt");
    std::istringstream record(GetParam().record(15));
    for (const auto& [title, told] : blocksOf(record)) {
        ASSERT_EQ(expected.count(title), 1U) << title << " was never recorded";
        const auto own = ourOwn.find(title);
        EXPECT_EQ(told, own == ourOwn.end() ? expected.at(title) : own->second) << title;
        EXPECT_TRUE(own == ourOwn.end() || own->second != expected.at(title)) << title << " differs no more";
    }
}

INSTANTIATE_TEST_SUITE_P(Scenes, Reference, testing::ValuesIn(reference::recordings()), [](const auto& scene) {
    std::string name = scene.param.title;
    for (char& letter : name)
        if (letter == ' ' || letter == '-') letter = '_';
    return name;
});

} // namespace
