// kolma properties as a command: where it keeps what was chosen, and what it says when it cannot open or keep.
#include "tests/Process.h"

#include <gmock/gmock.h>

#include <filesystem>

namespace {

using testing::HasSubstr;
using testing::Not;

class Properties : public testing::Test {
protected:
    Properties()
        : data_("XDG_DATA_HOME", (folder.path() / "data").c_str()),
          config_("XDG_CONFIG_HOME", (folder.path() / "config").c_str()),
          home_("HOME", folder.path().c_str()),
          display_("DISPLAY", nullptr),
          wayland_("WAYLAND_DISPLAY", nullptr),
          platform_("QT_QPA_PLATFORM", nullptr) {
        kolma({"printer", "add", "press", "--driver", "Kolma Lindor 63 PS3 C3"});
    }

    static ProcessResult kolma(std::vector<std::string> words) {
        words.insert(words.begin(), KOLMA_BUILD_DIR "/bin/kolma");
        return runProcess(words);
    }

    // Plays that script with these words behind "kolma properties".
    ProcessResult play(const std::string& script, std::vector<std::string> words) const {
        folder.write("script.play", script);
        words.insert(words.begin(), "properties");
        words.insert(words.end(), {"--play", path("script.play")});
        return kolma(words);
    }

    std::string path(const std::string& name) const { return (folder.path() / name).string(); }

    TemporaryFolder folder;

private:
    EnvironmentVariable data_;
    EnvironmentVariable config_;
    EnvironmentVariable home_;
    EnvironmentVariable display_;
    EnvironmentVariable wayland_;
    EnvironmentVariable platform_;
};

} // namespace

TEST_F(Properties, settingsAreKeptWithThePrinterWhereNoFileIsNamed) {
    const ProcessResult first = play("type 1203 7\nok\n", {"press"});
    ASSERT_EQ(first.exitCode, 0) << first.error;
    EXPECT_THAT(first.out, HasSubstr("the settings are kept with the printer"));
    EXPECT_EQ(play("expect 1203 text 7\n", {"press"}).exitCode, 0);
    EXPECT_EQ(play("expect 1203 text 1\n", {"press", "--fresh"}).exitCode, 0) << "begins with the defaults";
    EXPECT_EQ(play("expect 1203 text 7\n", {"press"}).exitCode, 0) << "and keeps what there was";
    kolma({"printer", "remove", "press"});
    kolma({"printer", "add", "press", "--driver", "Kolma Lindor 63 PS3 C3"});
    EXPECT_EQ(play("expect 1203 text 1\n", {"press"}).exitCode, 0) << "they went with the printer";
}

TEST_F(Properties, theDemonstrationPrinterIsAddedOnce) {
    const ProcessResult first = play("cancel\n", {"demo"});
    EXPECT_EQ(first.exitCode, 0) << first.error;
    EXPECT_THAT(first.out, HasSubstr("Added the printer \"demo\""));
    EXPECT_THAT(play("cancel\n", {"demo"}).out, Not(HasSubstr("Added")));
    EXPECT_THAT(play("cancel\n", {"other"}).error, HasSubstr("There is no printer \"other\""));
}

TEST_F(Properties, whatCannotBeOpenedSaysWhy) {
    const ProcessResult unseen = kolma({"properties", "press"});
    EXPECT_EQ(unseen.exitCode, 3);
    EXPECT_THAT(unseen.error, HasSubstr("There is no display"));
    folder.write("short.area", "KLMA");
    const ProcessResult cut = play("ok\n", {"press", "--devmode", path("short.area")});
    EXPECT_EQ(cut.exitCode, 3);
    EXPECT_THAT(cut.error, HasSubstr("has 4 bytes"));
    EXPECT_EQ(folder.content("short.area"), "KLMA");
    EXPECT_EQ(kolma({"properties", "press", "--play", path("missing.play")}).exitCode, 3);
    EXPECT_EQ(kolma({"properties", "press", "--device", "--fresh"}).exitCode, 2);
    EXPECT_EQ(kolma({"properties", "press", "--shots", "."}).exitCode, 2);
}

TEST_F(Properties, aDocumentThatCannotBeWrittenIsToldInTheSheetWhichStaysOpen) {
    std::filesystem::create_directory(folder.path() / "gone");
    const std::string area = path("gone/document.area");
    ASSERT_EQ(kolma({"devmode", "default", "press", "-o", area}).exitCode, 0);
    const std::string before = folder.content("gone/document.area");
    std::filesystem::permissions(area, std::filesystem::perms::owner_read);
    const ProcessResult result = play("type 1203 9\nanswer ok\nok\n"
                                      "expect message \"*document.area*could not be written*022:003:*\"\n"
                                      "expect title \"Document properties - press\"\n"
                                      "expect 1203 text 9\nexpect apply enabled\ncancel\n",
                                      {"press", "--devmode", area});
    EXPECT_EQ(result.exitCode, 3) << result.out;
    EXPECT_THAT(result.error, HasSubstr("could not be written"));
    EXPECT_THAT(result.error, Not(HasSubstr("found:")));
    EXPECT_EQ(folder.content("gone/document.area"), before);
}

TEST_F(Properties, picturesGoWhereTheyAreWanted) {
    // The folder is made; where it cannot be, the picture says so.
    const ProcessResult result = play("shot one.png\ncancel\n", {"press", "--shots", path("shots")});
    EXPECT_EQ(result.exitCode, 0) << result.error;
    EXPECT_THAT(folder.content("shots/one.png"), testing::StartsWith("\x89PNG"));
    EXPECT_EQ(play("shot one.png\n", {"press", "--shots", path("shots/one.png/below")}).exitCode, 1);
}
