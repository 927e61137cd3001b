// When the window layer starts, and when it does not: templates from modules, displays, threads.
#include "platform/controls.h"
#include "platform/gdi.h"
#include "platform/modules.h"
#include "platform/posix/resourceModuleOf.h"
#include "platform/windows.h"
#include "tests/Process.h"
#include "tests/dialogTemplateBuilder.h"
#include "tests/memoryDialog.h"
#include "tests/peBuilder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <thread>

namespace {

INT_PTR CALLBACK endAtOnce(HWND window, UINT message, WPARAM /*wParam*/, LPARAM /*lParam*/) {
    if (message == WM_INITDIALOG) EndDialog(window, 5);
    return FALSE;
}

using Bytes = TemplateBuilder::Bytes;

// A title, one label and one button, as a resource compiler writes them.
Bytes wholeTemplate() {
    TemplateBuilder builder;
    builder.header(2);
    builder.itemFront(100).ordinal(0x82).text(u"Label").word(0).pad();
    builder.itemFront(1).text(u"BUTTON").text(u"OK").word(4).word(0x1234);
    return builder.bytes();
}

INT_PTR runFromModule(const Bytes& dialogTemplate) {
    PeBuilder builder;
    builder.add(5, 100, 0, dialogTemplate);
    Bytes module = builder.module();
    HMODULE loaded = resourceModuleOf(module.data(), module.size());
    EXPECT_NE(loaded, nullptr);
    INT_PTR result = DialogBoxParamW(loaded, MAKEINTRESOURCEW(100), nullptr, &endAtOnce, 0);
    FreeLibrary(loaded);
    return result;
}

bool isLoaded(const char* library) {
    std::ifstream maps("/proc/self/maps");
    std::string line;
    while (std::getline(maps, line))
        if (line.find(library) != std::string::npos) return true;
    return false;
}

// This program again, for one of its tests, with another display.
ProcessResult runAgain(const std::string& test, const std::vector<std::string>& environment) {
    std::vector<std::string> command = {"/usr/bin/env", "-u", "QT_QPA_PLATFORM", "-u",
                                        "DISPLAY",      "-u", "WAYLAND_DISPLAY"};
    command.insert(command.end(), environment.begin(), environment.end());
    command.insert(command.end(), {"/proc/self/exe"});
    command.back() = std::filesystem::read_symlink("/proc/self/exe").string();
    command.push_back("--gtest_also_run_disabled_tests");
    command.push_back("--gtest_filter=" + test);
    return runProcess(command);
}

} // namespace

// The first of all tests here, since the executable is not linked to the toolkit.
TEST(WindowStart, theToolkitIsLoadedWithTheFirstWindow) {
    HWND nothing = reinterpret_cast<HWND>(static_cast<ULONG_PTR>(0x100));
    EXPECT_FALSE(IsWindow(nothing));
    EXPECT_EQ(SendMessageW(nothing, WM_NULL, 0, 0), 0);
    EXPECT_EQ(MulDiv(10, 3, 4), 8);
    EXPECT_FALSE(isLoaded("libkolmawindows"));
    EXPECT_FALSE(isLoaded("libQt6Widgets"));
    EXPECT_GT(GetSystemMetrics(SM_CXSCREEN), 0);
    EXPECT_TRUE(isLoaded("libkolmawindows"));
    EXPECT_TRUE(isLoaded("libQt6Widgets"));
}

TEST(WindowStart, aDamagedTemplateIsRefusedAtEveryLength) {
    Bytes whole = wholeTemplate();
    EXPECT_EQ(runFromModule(whole), 5);
    for (std::size_t size = 0; size < whole.size(); ++size) {
        EXPECT_EQ(runFromModule(Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size))), -1) << size;
        EXPECT_EQ(GetLastError(), ERROR_RESOURCE_DATA_NOT_FOUND) << size;
    }
}

TEST(WindowStart, aTemplateThatLiesIsRefused) {
    struct Row {
        const char* lie;
        std::size_t offset;
        std::uint8_t value;
    };
    const Row rows[] = {
        {"more items than there are", 8, 3},
        {"thousands of items", 9, 0xFF},
    };
    for (const Row& row : rows) {
        Bytes bytes = wholeTemplate();
        bytes[row.offset] = row.value;
        EXPECT_EQ(runFromModule(bytes), -1) << row.lie;
    }
    TemplateBuilder extended;
    extended.word(1).word(0xFFFF).quad(0).quad(0).quad(0).word(0).word(0).word(0).word(0).word(0);
    EXPECT_EQ(runFromModule(extended.bytes()), -1) << "the extended form";
    EXPECT_EQ(DialogBoxParamW(nullptr, MAKEINTRESOURCEW(1), nullptr, &endAtOnce, 0), -1);
    EXPECT_EQ(DialogBoxIndirectParamW(nullptr, nullptr, nullptr, &endAtOnce, 0), -1);
}

TEST(WindowStart, windowsBelongToOneThread) {
    MemoryDialog memory({{u"Button", 0, IDOK, u"OK"}});
    HWND window = CreateDialogIndirectParamW(nullptr, memory.get(), nullptr, &endAtOnce, 0);
    ASSERT_NE(window, nullptr);
    std::thread([&] {
        EXPECT_FALSE(SetWindowTextW(window, u"from outside"));
        EXPECT_EQ(GetLastError(), ERROR_INVALID_WINDOW_HANDLE);
        EXPECT_EQ(CreateDialogIndirectParamW(nullptr, memory.get(), nullptr, &endAtOnce, 0), nullptr);
        EXPECT_EQ(GetLastError(), ERROR_REQUIRES_INTERACTIVE_WINDOWSTATION);
    }).join();
    DestroyWindow(window);
}

// Runs in a process of its own, without a display.
TEST(WindowStart, DISABLED_withoutDisplay) {
    MemoryDialog memory({{u"Button", 0, IDOK, u"OK"}});
    std::exit(DialogBoxIndirectParamW(nullptr, memory.get(), nullptr, &endAtOnce, 0) == -1 &&
                      GetLastError() == ERROR_REQUIRES_INTERACTIVE_WINDOWSTATION && GetDC(nullptr) == nullptr &&
                      MessageBoxW(nullptr, u"to the console", u"", MB_OK) == IDOK
                  ? 42
                  : 1);
}

TEST(WindowStart, withoutADisplayItFailsAndTheProcessLives) {
    const std::vector<std::string> displays[] = {
        {},
        {"DISPLAY=:4711"},
        {"DISPLAY=nowhere.invalid:0"},
        {"WAYLAND_DISPLAY=wayland-4711"},
        {"QT_QPA_PLATFORM=xcb"},
        {"QT_QPA_PLATFORM=wayland", "DISPLAY=:4711"},
    };
    for (const auto& display : displays) {
        ProcessResult result = runAgain("WindowStart.DISABLED_withoutDisplay", display);
        EXPECT_EQ(result.exitCode, 42) << testing::PrintToString(display) << result.error;
        EXPECT_THAT(result.error, testing::HasSubstr("to the console"));
    }
}
