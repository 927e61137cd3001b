// kolma stocks, run as a user runs it.
#include "tests/Process.h"
#include "tests/stockBuilder.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

using nlohmann::json;
using testing::ContainsRegex;
using testing::HasSubstr;

namespace {

class KolmaStocks : public testing::Test {
protected:
    KolmaStocks() { run({"printer", "add", "P", "--driver", "Kolma Tarsel 77 PS3 C3"}); }

    static ProcessResult run(std::vector<std::string> words) {
        words.insert(words.begin(), KOLMA_BUILD_DIR "/bin/kolma");
        return runProcess(words);
    }

    UserProfile profile_;
    EnvironmentVariable data_{"XDG_DATA_HOME", profile_.folder().path().c_str()};
    EnvironmentVariable config_{"XDG_CONFIG_HOME", profile_.folder().path().c_str()};
    EnvironmentVariable locale_{"LC_ALL", "C.UTF-8"};
};

constexpr const char* aLibrary =
    "<stockpref><media-user-defined syntax='1setOf'>\n<value syntax='collection'>\n"
    "<media-key syntax='name'>Caf\u00e9 \u202e</media-key><media-color syntax='keyword'>blue</media-color>"
    "<media-weight-metric syntax='integer'>90</media-weight-metric><media-size syntax='collection'>\n"
    "<x-dimension syntax='integer'>10000</x-dimension><y-dimension syntax='integer'>20050</y-dimension></media-size>"
    "</value></media-user-defined><media-favorites-user-defined syntax='1setOf'>\n"
    "<value syntax='name'>Caf\u00e9 \u202e</value></media-favorites-user-defined></stockpref>";

} // namespace

TEST_F(KolmaStocks, areListedInColumnsWithWhereTheyComeFrom) {
    const ProcessResult first = run({"stocks", "list", "P"});
    EXPECT_EQ(first.exitCode, 0) << first.error;
    EXPECT_THAT(first.out, ContainsRegex("^Library  .*not stored"));
    EXPECT_THAT(first.out, ContainsRegex("\n7 +library  yes +A4 \\(210 x 297 mm\\) +White +Plain paper +0\n"));
    EXPECT_THAT(first.out, ContainsRegex("\nA4 80 g white +printer +A4 .* 80 g/m.+ +0\n"));
    profile_.writeLibrary(aLibrary);
    const ProcessResult second = run({"stocks", "list", "P"});
    EXPECT_THAT(second.out, ContainsRegex("^Library  /.*/stkpr35.spf\n"));
    EXPECT_THAT(second.out, ContainsRegex("\nCaf\u00e9 .u202E +library  yes +100 x 200.5 mm +Blue +90 g/m.+\n"));
    EXPECT_EQ(profile_.library(), aLibrary);
}

TEST_F(KolmaStocks, areJsonForAProgram) {
    profile_.writeLibrary(aLibrary);
    const json listed = json::parse(run({"stocks", "list", "P", "--json"}).out);
    EXPECT_EQ(listed["printer"], "P");
    EXPECT_THAT(listed["file"], HasSubstr("stkpr35.spf"));
    json first = listed["stocks"][0];
    EXPECT_EQ(first["attributes"].size(), 4U);
    first.erase("attributes");
    EXPECT_EQ(first, json({{"name", "Caf\u00e9 \u202e"},
                           {"source", "user"},
                           {"favorite", true},
                           {"size", {{"x", 10000}, {"y", 20050}}},
                           {"color", "blue"},
                           {"weight", 90}}));
    EXPECT_EQ(listed["stocks"][1]["source"], "printer");
}

TEST_F(KolmaStocks, failWithTheFileThatCannotBeRead) {
    EXPECT_EQ(run({"stocks"}).exitCode, 2);
    EXPECT_EQ(run({"stocks", "list"}).exitCode, 2);
    EXPECT_THAT(run({"stocks", "list", "Q"}).error, ContainsRegex("\"Q\".*\n\n003:000:[0-9]{4}\n$"));
    profile_.writeLibrary("<stockpref>");
    const ProcessResult result = run({"stocks", "list", "P"});
    EXPECT_EQ(result.exitCode, 3);
    EXPECT_TRUE(result.out.empty()) << result.out;
    EXPECT_THAT(result.error, ContainsRegex("stkpr35.spf.*\n\n001:002:[0-9]{4}\n$"));
}
