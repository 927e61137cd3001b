// kolma ticket check and ticket fix, run as a user or a script runs them.
#include "tests/ModuleUnderTest.h"
#include "tests/Process.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

namespace {

using nlohmann::json;
using testing::HasSubstr;

const OwnStores stores;
const TestPrinter booklets(u"Kolma Tarsel 38 PS3 C1", u"Book");
const TestPrinter colour(u"Kolma Lindor 105 PS3 C3", u"Press");

ProcessResult ticket(std::vector<std::string> words) {
    words.insert(words.begin(), {KOLMA_BUILD_DIR "/bin/kolma", "ticket"});
    return runProcess(words);
}

std::string example(const std::string& name) { return KOLMA_SOURCE_DIR "/examples/" + name + ".jtif"; }

} // namespace

TEST(TicketCheck, whatThePrinterCannotDoIsTheReportAndTheExitCode) {
    const ProcessResult fine = ticket({"check", example("letter"), "--printer", "Press"});
    EXPECT_EQ(fine.exitCode, 0);
    EXPECT_THAT(fine.out, testing::EndsWith("letter.jtif: no problems\n"));
    const ProcessResult bad = ticket({"check", example("booklet"), "--printer", "Press"});
    EXPECT_EQ(bad.exitCode, 1);
    EXPECT_THAT(bad.out, HasSubstr(": 3 problems\n\nThe printer does not have the following"));
    EXPECT_THAT(bad.out, HasSubstr("    Whole job:\n"));
    const ProcessResult several =
        ticket({"check", example("letter"), "nowhere.jtif", example("booklet"), "--printer", "Press"});
    EXPECT_EQ(several.exitCode, 3) << "the worst counts";
    EXPECT_THAT(several.out, HasSubstr("booklet.jtif: 3 problems"));
    EXPECT_THAT(several.error, HasSubstr("nowhere.jtif"));
    EXPECT_EQ(ticket({"check", example("letter"), "--printer", "Nobody"}).exitCode, 3);
    EXPECT_EQ(ticket({"check", example("letter")}).exitCode, 2);
}

TEST(TicketCheck, theJsonTellsEachProblem) {
    const json all = json::parse(ticket({"check", example("manual-covers-tabs"), "--printer", "Press", "--json"}).out);
    EXPECT_FALSE(all["valid"]);
    ASSERT_EQ(all["problems"].size(), 14U);
    const auto find = [&](const char* attribute, int page) {
        for (const json& problem : all["problems"])
            if (problem["attribute"] == attribute && problem["context"]["first"] == page) return problem;
        return json();
    };
    const json expectedType = {
        {"class", "UnsupportedValue"}, {"attribute", "media-type"},
        {"feature", "Paper type"},     {"context", {{"heading", "Page insert (2)"}, {"first", 2}, {"last", 0}}},
        {"current", "full-cut-tabs"},  {"fix", {{"kind", "replace"}, {"replacement", "stationery"}}}};
    EXPECT_EQ(find("media-type", 2), expectedType);
    const json expectedCount = {{"class", "UnsupportedAttribute"},
                                {"attribute", "media-order-count"},
                                {"feature", "Sheets per ordered set"},
                                {"context", {{"heading", "Page insert (38)"}, {"first", 38}, {"last", 0}}},
                                {"current", find("media-order-count", 38)["current"]},
                                {"fix", {{"kind", "remove"}, {"replacement", nullptr}}}};
    EXPECT_EQ(find("media-order-count", 38), expectedCount);
    EXPECT_TRUE(find("media-order-count", 38)["current"].is_number());

    const json two =
        json::parse(ticket({"check", example("letter"), example("booklet"), "--printer", "Press", "--json"}).out);
    ASSERT_EQ(two.size(), 2U);
    EXPECT_EQ(two[0]["valid"], true);
    EXPECT_EQ(two[1]["file"], example("booklet"));
}

TEST(TicketFix, theRepairIsWrittenWhenTheUserAgreesAndOnlyThen) {
    const TemporaryFolder folder;
    const std::string out = (folder.path() / "out.jtif").string();
    const std::vector<std::string> fix{"fix", example("older-image-shift"), "--printer", "Book", "-o", out};
    const auto with = [&](const char* answer) {
        auto words = fix;
        words.push_back(answer);
        return ticket(words);
    };
    for (const ProcessResult& refused : {ticket(fix), with("--no")}) {
        EXPECT_EQ(refused.exitCode, 1);
        EXPECT_THAT(refused.out, HasSubstr("The printer does not have the following"));
        EXPECT_THAT(refused.out, HasSubstr("Nothing was written."));
        EXPECT_FALSE(std::filesystem::exists(out));
    }
    const ProcessResult done = with("--yes");
    EXPECT_EQ(done.exitCode, 0) << done.error;
    EXPECT_EQ(ticket({"check", out, "--printer", "Book"}).exitCode, 0);
    EXPECT_THAT(folder.content("out.jtif"), HasSubstr("x-side1-image-shift")) << "the older form is brought up to date";
    EXPECT_THAT(folder.content("out.jtif"), testing::Not(HasSubstr("<x-image-shift")));
    const ProcessResult again =
        ticket({"fix", out, "--printer", "Book", "-o", (folder.path() / "again.jtif").string()});
    EXPECT_EQ(again.exitCode, 0) << "without problems there is nothing to agree to";
    EXPECT_EQ(folder.content("again.jtif"), folder.content("out.jtif"));
}
