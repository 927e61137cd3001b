// The help of a driver in its window: which page is shown, what the keys do, and what is said when there is none.
#include "tests/MessageBoxes.h"
#include "tests/TemporaryFolder.h"
#include "tests/windowStage.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;

namespace {

class HelpWindows : public testing::Test {
protected:
    HelpWindows() {
        create_directory(folder_.path() / "JT37HELP");
        write("contents", "Contents", "<a href=\"800.html\">Basic</a>");
        write("800", "Basic", "Copies");
        stage_.show();
    }

    void write(const std::string& topic, const std::string& title, const std::string& text) {
        folder_.write("JT37HELP/" + topic + ".html",
                      "<html><head><title>" + title + "</title></head><body>" + text + "</body></html>");
    }
    BOOL ask(UINT command, ULONG_PTR topic) {
        return WinHelpW(stage_.window(), toWide(folder_ / "JT37HELP.HLP"), command, topic);
    }
    // "title: text" of each help window.
    static std::vector<std::string> shown() {
        QCoreApplication::processEvents();
        std::vector<std::string> all;
        EnumThreadWindows(
            GetCurrentThreadId(),
            [](HWND window, LPARAM found) -> BOOL {
                const HWND text = GetDlgItem(window, 100);
                if (text && IsWindowVisible(window))
                    reinterpret_cast<std::vector<std::string>*>(found)->push_back(textOf(window) + ": " + textOf(text));
                return TRUE;
            },
            reinterpret_cast<LPARAM>(&all));
        return all;
    }
    static void press(BYTE key) {
        keybd_event(key, 0, 0, 0);
        keybd_event(key, 0, KEYEVENTF_KEYUP, 0);
        QCoreApplication::processEvents();
    }

    TemporaryFolder folder_;
    WindowStage stage_;

private:
    static std::string textOf(HWND window) {
        char16_t text[256] = {};
        GetWindowTextW(window, toWide(text), 256);
        return toUtf8(text);
    }
};

} // namespace

TEST_F(HelpWindows, oneWindowShowsTheTopicAskedForLastAndGoesWithItsSheet) {
    EXPECT_TRUE(ask(HELP_CONTEXT, 800));
    EXPECT_THAT(shown(), ElementsAre("Basic: Copies"));
    EXPECT_TRUE(ask(HELP_CONTEXT, 4711));
    EXPECT_THAT(shown(), ElementsAre("Contents: Basic")) << "a topic without a page";
    EXPECT_TRUE(ask(HELP_QUIT, 0));
    EXPECT_THAT(shown(), IsEmpty());
    EXPECT_TRUE(ask(HELP_CONTEXT, 800));
    DestroyWindow(stage_.window());
    EXPECT_THAT(shown(), IsEmpty());
}

TEST_F(HelpWindows, linksAreFollowedAndTheWindowIsClosedByKeys) {
    ASSERT_TRUE(ask(HELP_CONTEXT, 1));
    ASSERT_THAT(shown(), ElementsAre("Contents: Basic"));
    press(VK_TAB);
    press(VK_RETURN);
    EXPECT_THAT(shown(), ElementsAre("Basic: Copies"));
    press(VK_ESCAPE);
    EXPECT_THAT(shown(), IsEmpty());
}

TEST_F(HelpWindows, aHelpThatIsNotThereIsSaid) {
    remove_all(folder_.path() / "JT37HELP");
    MessageBoxes boxes;
    SetLastError(0);
    EXPECT_FALSE(ask(HELP_CONTEXT, 800));
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
    EXPECT_THAT(boxes.onlyOne().text, EndsWith("JT37HELP.HLP"));
    EXPECT_EQ(boxes.onlyOne().owner, stage_.window());
}
