// kolma, run as a user or a script runs it.
#include "tests/ModuleUnderTest.h"
#include "tests/Process.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>
#include <sys/stat.h>

namespace {

using nlohmann::json;
using testing::AllOf;
using testing::ContainsRegex;
using testing::HasSubstr;

const OwnStores stores;
constexpr const char* driver = "Kolma Tarsel 77 PS3 C3";

class Kolma : public testing::Test {
protected:
    // "IN/name" stands for a file of the test's folder, "EX/name" for an example.
    ProcessResult run(const std::vector<std::string>& words) const {
        std::vector<std::string> command{KOLMA_BUILD_DIR "/bin/kolma"};
        for (const std::string& word : words)
            command.push_back(expand(word));
        return runProcess(command);
    }

    json runJson(const std::vector<std::string>& words) const {
        const ProcessResult result = run(words);
        EXPECT_EQ(result.exitCode, 0) << result.error;
        return json::parse(result.out);
    }

    void writeArea(const std::string& name, const Area& area) const {
        folder.write(name, std::string(area.begin(), area.end()));
    }
    Area area(const std::string& name) const {
        const std::string content = folder.content(name);
        return {content.begin(), content.end()};
    }

    TemporaryFolder folder;

private:
    std::string expand(const std::string& word) const {
        if (word.starts_with("IN/")) return (folder.path() / word.substr(3)).string();
        if (word.starts_with("EX/")) return KOLMA_SOURCE_DIR "/examples/" + word.substr(3);
        return word;
    }
};

struct Row {
    std::vector<std::string> words;
    int exitCode;
    const char* out;   // a regular expression
    const char* error; // another; "^$" for silence
};

std::string show(const std::vector<std::string>& words) {
    std::string line = "kolma";
    for (const std::string& word : words)
        line += ' ' + word;
    return line;
}

constexpr const char* silence = "^$";
constexpr const char* noUsage = ".";

} // namespace

TEST_F(Kolma, eachCommandEndsWithItsCodeAndSaysWhy) {
    writeArea("good", areaWithCopies(3));
    writeArea("foreign", absentArea());
    writeArea("corrupt", corruptArea());
    folder.write("short", "KLMA");
    folder.write("broken.jtif", "<?xml version=\"1.0\"?><jtif>");
    runProcess({KOLMA_BUILD_DIR "/bin/kolma", "printer", "add", "P", "--driver", driver});
    for (const Row& row : {
             Row{{"--help"}, 0, "devmode", silence},
             Row{{"devmode", "merge", "--help"}, 0, "--output", silence},
             Row{{"--version"}, 0, "^kolma [0-9.]+", silence},
             Row{{}, 2, silence, noUsage},
             Row{{"no-such-command"}, 2, silence, noUsage},
             Row{{"devmode"}, 2, silence, noUsage},
             Row{{"devmode", "show"}, 2, silence, noUsage},
             Row{{"devmode", "default", "P"}, 2, silence, "output"},
             Row{{"drivers", "--yaml"}, 2, silence, noUsage},
             Row{{"drivers"}, 0, driver, silence},
             Row{{"printer", "list"}, 0, "P +Kolma Tarsel 77 PS3 C3", silence},
             Row{{"printer", "add", "P", "--driver", driver}, 3, silence, "already.*\n\n004:000:[0-9]{4}\n$"},
             Row{{"printer", "add", "Q", "--driver", "Nobody's"}, 3, silence, "Nobody's.*\n\n019:000:[0-9]{4}\n$"},
             Row{{"printer", "remove", "Q"}, 3, silence, "\"Q\".*\n\n003:000:[0-9]{4}\n$"},
             Row{{"devmode", "default", "Q", "-o", "IN/x"}, 3, silence, "\"Q\".*\n\n003:000:[0-9]{4}\n$"},
             Row{{"devmode", "show", "IN/good"}, 0, "copies +integer +3 +Copies\n", silence},
             Row{{"devmode", "show", "IN/foreign"}, 1, "Valid +no", silence},
             Row{{"devmode", "show", "--json", "IN/foreign"}, 1, "\"valid\": false", silence},
             Row{{"devmode", "show", "IN/corrupt"}, 3, silence, "\n\n018:000:[0-9]{4}\n$"},
             Row{{"devmode", "show", "IN/short"}, 3, silence, "4 bytes.*4016.*\n\n027:000:[0-9]{4}\n$"},
             Row{{"devmode", "show", "IN/missing"}, 3, silence, "\n\n022:001:[0-9]{4}\n$"},
             Row{{"-v", "devmode", "show", "IN/missing"}, 3, silence, "\n\n022:001:[0-9]{4}\n\n.*File::read"},
             Row{{"devmode", "convert", "P", "IN/short", "-o", "IN/x"}, 3, silence, "4 bytes"},
             Row{{"devmode", "convert", "P", "IN/good", "-o", "IN/short"}, 3, silence, "4 bytes"},
             Row{{"devmode", "convert", "P", "IN/foreign", "-o", "IN/y"}, 0, silence, "not of this driver"},
             Row{{"devmode", "convert", "P", "IN/good", "-o", "IN/no/y"}, 3, silence, "022:003:[0-9]{4}\n$"},
             Row{{"devmode", "to-ticket", "IN/foreign", "-o", "IN/t"}, 1, silence, "not of this driver"},
             Row{{"devmode", "from-ticket", "IN/broken.jtif", "-o", "IN/x"}, 3, silence, "\n\n001:002:[0-9]{4}\n$"},
             Row{{"ticket", "show", "IN/broken.jtif"}, 3, silence, "\n\n001:002:[0-9]{4}\n$"},
             Row{{"ticket", "show", "IN/missing"}, 3, silence, "\n\n001:015:[0-9]{4}\n$"},
             Row{{"ticket", "show", "EX/letter.jtif"},
                 0,
                 "sides +keyword +one-sided +Sides printed: One-sided",
                 silence},
         }) {
        SCOPED_TRACE(show(row.words));
        const ProcessResult result = run(row.words);
        EXPECT_EQ(result.exitCode, row.exitCode);
        EXPECT_THAT(result.out, ContainsRegex(row.out));
        EXPECT_THAT(result.error, ContainsRegex(row.error));
    }
    EXPECT_EQ(folder.content("x"), "(missing)") << "no failure writes a file";
    EXPECT_EQ(folder.content("t"), "(missing)");
    EXPECT_EQ(folder.content("short"), "KLMA");
}

TEST_F(Kolma, theDriversAreListedWithWhatTheyAreFor) {
    const json drivers = runJson({"drivers", "--json"})["drivers"];
    ASSERT_EQ(drivers.size(), 87U);
    for (const json& row : drivers) {
        EXPECT_GE(row["family"], 1) << row;
        EXPECT_THAT(row["language"], testing::AnyOf("PostScript", "PCL")) << row;
    }
}

TEST_F(Kolma, aPrinterIsThereFromItsAddingToItsRemoval) {
    auto isListed = [&] {
        const json printers = runJson({"printer", "list", "--json"})["printers"];
        return std::count(printers.begin(), printers.end(), json{{"name", "Presse Ä"}, {"driver", driver}});
    };
    EXPECT_EQ(isListed(), 0);
    EXPECT_EQ(run({"printer", "add", "Presse Ä", "--driver", driver}).exitCode, 0);
    EXPECT_EQ(isListed(), 1);
    EXPECT_EQ(run({"printer", "remove", "Presse Ä"}).exitCode, 0);
    EXPECT_EQ(isListed(), 0);
}

TEST_F(Kolma, anAreaIsShownWithHeaderRecordAndAttributes) {
    KolmaDevMode settings;
    settings.setUserData(u"zoë 🦊", false, true, false);
    settings.setSettingsEditable(false);
    settings.setAttrNodeList(list()
                                 .integer(u"copies", -2)
                                 .boolean(u"x-image-auto-center", true)
                                 .set(u"page-ranges", list().range(u"value", 1, 5)));
    writeArea("area", exported(settings));
    const json shown = runJson({"devmode", "show", "--json", "IN/area"});
    const json expected = {{"valid", true},
                           {"areaVersion", 0x04000001},
                           {"stateVersion", 0x03080001},
                           {"stateSize", settings.getStateSize()},
                           {"settingsEditable", false},
                           {"userName", "zoë 🦊"},
                           {"jobNamePreference", false},
                           {"useLogonName", true},
                           {"useLogonNameRecipient", false},
                           {"attributes",
                            {{{"id", "copies"}, {"syntax", "integer"}, {"value", -2}},
                             {{"id", "x-image-auto-center"}, {"syntax", "boolean"}, {"value", true}},
                             {{"id", "page-ranges"},
                              {"syntax", "1setOf"},
                              {"value",
                               {{{"id", "value"},
                                 {"syntax", "rangeOfInteger"},
                                 {"value",
                                  {{{"id", "lower-bound"}, {"syntax", "integer"}, {"value", 1}},
                                   {{"id", "upper-bound"}, {"syntax", "integer"}, {"value", 5}}}}}}}}}}};
    EXPECT_EQ(shown, expected);
}

TEST_F(Kolma, theOutgoingAreaOfConvertAndMergeIsTheOneThatIsThere) {
    run({"printer", "add", "P", "--driver", driver});
    struct Case {
        const char* operation;
        Area in;
        Area out;
        std::int32_t copies;
    };
    for (const Case& row : {Case{"convert", areaWithCopies(3), areaWithCopies(8), 3},
                            Case{"convert", corruptArea(), areaWithCopies(8), 8}, Case{"convert", corruptArea(), {}, 0},
                            Case{"merge", areaWithCopies(3), areaWithCopies(3), 3}}) {
        SCOPED_TRACE(row.operation);
        writeArea("in", row.in);
        std::filesystem::remove(folder.path() / "out");
        if (!row.out.empty()) writeArea("out", row.out);
        const ProcessResult result = run({"devmode", row.operation, "P", "IN/in", "-o", "IN/out"});
        EXPECT_EQ(result.exitCode, 0) << result.error;
        EXPECT_EQ(copiesOf(area("out")), row.copies);
    }
}

TEST_F(Kolma, aTicketComesBackFromItsAreaByteForByte) {
    for (const char* name : {"letter", "manual-covers-tabs", "exceptions-250", "names-emoji", "unknown-members"}) {
        SCOPED_TRACE(name);
        const std::string ticket = std::string("EX/") + name + ".jtif";
        const ProcessResult there = run({"devmode", "from-ticket", ticket, "-o", "IN/area"});
        EXPECT_EQ(there.exitCode, 0) << there.error;
        EXPECT_THAT(there.out, ContainsRegex("^[0-9]+ attributes, [0-9]+ bytes, [0-9]+ of 4000 left\n$"));
        EXPECT_EQ(area("area").size(), KolmaDevMode::getDevModeSize());
        const ProcessResult back = run({"devmode", "to-ticket", "IN/area", "-o", "IN/back.jtif"});
        EXPECT_EQ(back.exitCode, 0) << back.error;
        std::ifstream original(KOLMA_SOURCE_DIR "/examples/" + std::string(name) + ".jtif", std::ios::binary);
        EXPECT_EQ(folder.content("back.jtif"), std::string(std::istreambuf_iterator<char>(original), {}));
    }
}

// A ticket keeps its attributes in groups, so they come back in another order: that is no loss.
TEST_F(Kolma, thePrintersDefaultsBecomeATicket) {
    run({"printer", "add", "P", "--driver", driver});
    EXPECT_EQ(run({"devmode", "default", "P", "-o", "IN/area"}).exitCode, 0);
    const ProcessResult back = run({"devmode", "to-ticket", "IN/area", "-o", "IN/back.jtif"});
    EXPECT_EQ(back.exitCode, 0) << back.error;
    EXPECT_THAT(folder.content("back.jtif"), testing::HasSubstr("<job-name"));
}

TEST_F(Kolma, settingsThatDoNotFitAreRefusedAndTheOldAreaStays) {
    writeArea("area", areaWithCopies(3));
    const ProcessResult result =
        run({"devmode", "from-ticket", "EX/exceptions-250-too-many-kinds.jtif", "-o", "IN/area"});
    EXPECT_EQ(result.exitCode, 3);
    EXPECT_THAT(result.error,
                AllOf(HasSubstr("The job settings are too large."), ContainsRegex("[0-9]+ more than the 4000"),
                      ContainsRegex("\n\n015:000:[0-9]{4}\n$")));
    EXPECT_EQ(area("area"), areaWithCopies(3));
}

TEST_F(Kolma, noTextOfATicketReachesTheTerminalAsAControl) {
    KolmaDevMode settings;
    settings.setAttrNodeList(list().name(u"job-name", u"a\u009B31mb\u202Ec"));
    writeArea("area", exported(settings));
    EXPECT_THAT(run({"devmode", "show", "IN/area"}).out, HasSubstr("\"a\\u009B31mb\\u202Ec\""));
}

TEST_F(Kolma, outputThatCannotBeWrittenIsAFailure) {
    const ProcessResult result = runProcess({"/bin/sh", "-c", KOLMA_BUILD_DIR "/bin/kolma drivers > /dev/full"});
    EXPECT_EQ(result.exitCode, 3);
    EXPECT_THAT(result.error, ContainsRegex("\n\n022:003:[0-9]{4}\n$"));
}

// What has to start as fast as a bare process loads neither the XML library nor the module.
TEST_F(Kolma, theProgramItselfDoesNotLoadTheXmlLibrary) {
    const ProcessResult libraries =
        runProcess({"/usr/bin/env", "LD_TRACE_LOADED_OBJECTS=1", KOLMA_BUILD_DIR "/bin/kolma"});
    EXPECT_THAT(libraries.out, HasSubstr("libkolmaplatform"));
    EXPECT_THAT(libraries.out, testing::Not(HasSubstr("xerces")));
}
