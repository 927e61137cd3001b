// kolma capabilities, run as a user or a script runs it.
#include "tests/ModuleUnderTest.h"
#include "tests/Process.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

namespace {

using nlohmann::json;
using testing::AllOf;
using testing::HasSubstr;

const OwnStores stores;
const TestPrinter press(u"Kolma Lindor 105 PS3 C3", u"Press");
const TemporaryFolder folder;

ProcessResult capabilities(std::vector<std::string> words) {
    words.insert(words.begin(), {KOLMA_BUILD_DIR "/bin/kolma", "capabilities"});
    return runProcess(words);
}

std::string file(const std::string& name) { return (folder.path() / name).string(); }

std::string fileWith(const std::string& name, const std::string& content) {
    folder.write(name, content);
    return file(name);
}

json shown() { return json::parse(capabilities({"show", "Press", "--json"}).out); }

json feature(const json& all, const std::string& id) {
    for (const json& entry : all["features"])
        if (entry["id"] == id) return entry;
    return {};
}

constexpr char copiesOnly[] = R"(<abil><job-creation-attributes-supported syntax="1setOf">
<value syntax="keyword">copies</value><value syntax="keyword">adjust-contrast</value>
</job-creation-attributes-supported><copies-supported syntax="rangeOfInteger">
<lower-bound syntax="integer">1</lower-bound><upper-bound syntax="integer">12</upper-bound></copies-supported></abil>)";

} // namespace

TEST(CapabilitiesShow, theFeaturesStandInGroupsWithWhatIsAllowed) {
    const ProcessResult result = capabilities({"show", "Press"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.error, "");
    EXPECT_THAT(result.out, AllOf(HasSubstr("Capabilities  built in\n"), HasSubstr("\nJob\n  Copies "),
                                  HasSubstr("One-sided; Two-sided, long edge; "), HasSubstr("\nPaper\n"),
                                  HasSubstr("up to 255 characters"), HasSubstr("custom 140-572 mm by 178-364 mm")));
    for (std::size_t at = 0, end = 0; (end = result.out.find('\n', at)) != std::string::npos; at = end + 1) {
        EXPECT_LE(end - at, 110U) << result.out.substr(at, end - at);
        EXPECT_FALSE(end > at && result.out[end - 1] == ' ') << result.out.substr(at, end - at);
    }
}

TEST(CapabilitiesShow, theJsonHasTheFeaturesAndTheWholeList) {
    const json all = shown();
    EXPECT_EQ(all["printer"], "Press");
    EXPECT_EQ(all["imported"], false);
    const json sides = feature(all, "sides");
    EXPECT_EQ(sides["label"], "Sides printed");
    EXPECT_EQ(sides["values"][0], (json{{"value", "one-sided"}, {"label", "One-sided"}}));
    EXPECT_EQ(feature(all, "copies")["range"]["lower"], 1);
    EXPECT_EQ(feature(all, "job-name")["characterLimit"], 255);
    EXPECT_EQ(all["attributes"][0]["id"], "job-creation-attributes-supported");
}

TEST(CapabilitiesFile, whatWasWrittenGivesTheSameAnswersWhenImported) {
    const json before = shown();
    EXPECT_EQ(capabilities({"show", "Press", "--abil", file("press.abil")}).exitCode, 0);
    EXPECT_EQ(capabilities({"import", "Press", file("press.abil")}).exitCode, 0);
    const json after = shown();
    EXPECT_EQ(after["imported"], true);
    EXPECT_EQ(after["file"], file("press.abil"));
    EXPECT_EQ(after["features"], before["features"]);
    EXPECT_EQ(after["attributes"], before["attributes"]);
    EXPECT_EQ(capabilities({"clear", "Press"}).exitCode, 0);
    EXPECT_EQ(shown(), before);
}

TEST(CapabilitiesImport, aFileTakesThePlaceOfWhatThePrinterCameWith) {
    const ProcessResult result = capabilities({"import", "Press", fileWith("copies.abil", copiesOnly)});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_THAT(result.error, HasSubstr("adjust-contrast-supported is missing"));
    const json all = shown();
    EXPECT_EQ(feature(all, "copies")["range"]["upper"], 12);
    EXPECT_TRUE(feature(all, "sides").is_null());
    EXPECT_THAT(capabilities({"clear", "Press"}).out, HasSubstr("built-in capabilities again"));
    EXPECT_THAT(capabilities({"clear", "Press"}).out, HasSubstr("No capabilities were imported"));
}

TEST(CapabilitiesImport, aBadFileIsRefusedWithTheBoxAndNothingIsStored) {
    const struct {
        const char* name;
        std::string content;
        const char* code;
    } rows[] = {
        {"cut.abil", std::string(copiesOnly).substr(0, 120), "001:002:"},
        {"ticket.abil", "<jtif/>", "001:002:"},
        {"empty.abil", "", "001:008:"},
        {"text.abil", "<abil><copies-supported syntax=\"rangeOfInteger\">1-9</copies-supported></abil>", "008:000:"},
        {"shape.abil", "<abil><media-col-supported syntax=\"integer\">1</media-col-supported></abil>", "009:000:"},
        {"large.abil", "<abil>" + std::string(5000000, ' ') + "</abil>", "022:002:"},
    };
    for (const auto& row : rows) {
        const ProcessResult result = capabilities({"import", "Press", fileWith(row.name, row.content)});
        EXPECT_EQ(result.exitCode, 3) << row.name;
        EXPECT_THAT(result.error, HasSubstr(row.code)) << row.name;
        EXPECT_EQ(shown()["imported"], false) << row.name;
    }
    EXPECT_THAT(capabilities({"import", "Press", file("missing.abil")}).error, HasSubstr("022:001:"));
}

TEST(CapabilitiesUsage, wrongUseAndUnknownPrintersAreToldApart) {
    EXPECT_EQ(capabilities({}).exitCode, 2);
    EXPECT_EQ(capabilities({"show"}).exitCode, 2);
    EXPECT_EQ(capabilities({"import", "Press"}).exitCode, 2);
    EXPECT_EQ(capabilities({"show", "Press", "--json", "--abil", "x"}).exitCode, 2);
    EXPECT_EQ(capabilities({"show", "Nobody"}).exitCode, 3);
    EXPECT_EQ(capabilities({"show", "Press", "--abil", "nowhere/x.abil"}).exitCode, 3);
}
