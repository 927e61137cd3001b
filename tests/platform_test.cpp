#include "tests/MessageBoxes.h"
#include "tests/TemporaryFolder.h"

#include "platform/driver_host.h"
#include "platform/files.h"
#include "platform/heap.h"
#include "platform/identity.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <clocale>
#include <csignal>
#include <cstddef>
#include <thread>
#include <unistd.h>

namespace {

TEST(Platform, publishedStructuresLieAsPublished) {
    EXPECT_EQ(offsetof(DEVMODEW, dmFields), 72U);
    EXPECT_EQ(offsetof(DEVMODEW, dmFormName), 102U);
    EXPECT_EQ(offsetof(DEVMODEW, dmBitsPerPel), 168U);
    EXPECT_EQ(offsetof(PROPSHEETUI_INFO, Reason), 6U);
    EXPECT_EQ(offsetof(OEM_DMEXTRAHEADER, dwVersion), 8U);
    EXPECT_EQ(IID_IUnknown.Data4[0], 0xC0);
    EXPECT_FALSE(IID_IPrintOemUI == IID_IPrintOemDriverUI);
}

TEST(Platform, theLastErrorIsEachThreadsOwn) {
    SetLastError(1);
    std::thread other([] {
        EXPECT_EQ(GetLastError(), 0U);
        EXPECT_FALSE(CloseHandle(nullptr));
        EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
    });
    other.join();
    EXPECT_EQ(GetLastError(), 1U);
}

TEST(Platform, aHeapGivesItsBlocksBackAllTogether) {
    HANDLE heap = HeapCreate(0, 0, 0);
    auto* block = static_cast<BYTE*>(HeapAlloc(heap, HEAP_ZERO_MEMORY, 1024));
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(std::count(block, block + 1024, 0), 1024);
    EXPECT_TRUE(HeapFree(heap, 0, block));
    EXPECT_FALSE(HeapFree(heap, 0, block));
    EXPECT_NE(HeapAlloc(heap, 0, 10), nullptr);
    EXPECT_TRUE(HeapDestroy(heap));
    EXPECT_FALSE(HeapDestroy(heap));
    EXPECT_EQ(HeapAlloc(heap, 0, 10), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
}

TEST(Platform, aBoxThatNobodySeesGoesToTheStandardErrorAndAgreesToNothing) {
    struct Row {
        UINT type;
        int answer;
    };
    const Row rows[] = {{MB_OK, IDOK},
                        {MB_OKCANCEL | MB_ICONERROR | MB_TASKMODAL, IDOK},
                        {MB_YESNO, IDNO},
                        {MB_YESNOCANCEL, IDCANCEL},
                        {MB_RETRYCANCEL, IDCANCEL},
                        {MB_ABORTRETRYIGNORE, IDABORT}};
    for (const Row& row : rows) {
        testing::internal::CaptureStderr();
        testing::internal::CaptureStdout();
        EXPECT_EQ(MessageBoxW(nullptr, u"Gr\xF6\xDF\x65.\r\n\x1B[2J\xD800\r\n", u"Title", row.type), row.answer);
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "Title\nGröße.\n?[2J\uFFFD\n");
        EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    }
    WCHAR text[10];
    EXPECT_EQ(GetWindowTextW(nullptr, text, 10), 0);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_WINDOW_HANDLE);
    EXPECT_EQ(GetWindowTextLengthW(nullptr), 0);
    MessageBoxes boxes(IDYES);
    EXPECT_EQ(MessageBoxW(nullptr, u"Text", u"Title", MB_YESNO), IDYES);
    EXPECT_EQ(boxes.onlyOne().text, "Text");
}

TEST(Platform, aStandardErrorThatNobodyReadsIsNotTheEndOfTheProcess) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    int before = dup(STDERR_FILENO);
    dup2(ends[1], STDERR_FILENO);
    close(ends[0]);
    close(ends[1]);
    EXPECT_EQ(MessageBoxW(nullptr, u"Text", u"Title", MB_OK), IDOK);
    dup2(before, STDERR_FILENO);
    close(before);
    sigset_t pending;
    sigpending(&pending);
    EXPECT_EQ(sigismember(&pending, SIGPIPE), 0);
}

std::string localeInfo(LCTYPE type) {
    WCHAR text[4] = {};
    int length = GetLocaleInfoW(LOCALE_USER_DEFAULT, type, text, 4);
    return length == 0 ? "error " + std::to_string(GetLastError()) : toUtf8(text);
}

TEST(Platform, theUsersLocaleTellsUnitsAndPaperAndTheProcesssStaysAsItIs) {
    struct Row {
        const char* locale;
        const char* measure;
        const char* paper;
    };
    const Row rows[] = {
        {"C", "0", "9"},           {"C.UTF-8", "0", "9"},     {"en_US.UTF-8", "1", "1"},
        {"de_DE.UTF-8", "0", "9"}, {"fr_CA.UTF-8", "0", "1"}, {"xx", "0", "9"},
    };
    std::string before = std::setlocale(LC_ALL, nullptr);
    for (const Row& row : rows) {
        SCOPED_TRACE(row.locale);
        EnvironmentVariable all("LC_ALL", row.locale);
        EXPECT_EQ(localeInfo(LOCALE_IMEASURE), row.measure);
        EXPECT_EQ(localeInfo(LOCALE_IPAPERSIZE), row.paper);
    }
    EXPECT_EQ(std::setlocale(LC_ALL, nullptr), before);
    EXPECT_EQ(localeInfo(99), "error 87");
    WCHAR one[1];
    EXPECT_EQ(GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_IMEASURE, nullptr, 0), 2);
    EXPECT_EQ(GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_IMEASURE, one, 1), 0);
    EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
}

TEST(Platform, theProfileFolderIsTheUsersHome) {
    EnvironmentVariable home("HOME", "/user/größe/");
    HANDLE token = nullptr;
    ASSERT_TRUE(OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &token));
    DWORD size = 0;
    EXPECT_FALSE(GetUserProfileDirectoryW(token, nullptr, &size));
    EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
    ASSERT_EQ(size, 12U);
    WCHAR path[12];
    EXPECT_TRUE(GetUserProfileDirectoryW(token, path, &size));
    EXPECT_EQ(path, std::u16string(u"/user/gr\xF6\xDF\x65"));
    EXPECT_EQ(GetWindowsDirectoryW(nullptr, 0), 12U);
    EXPECT_EQ(GetWindowsDirectoryW(path, 12), 11U);
    EXPECT_TRUE(CloseHandle(token));
    EXPECT_FALSE(GetUserProfileDirectoryW(token, path, &size));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
    EXPECT_FALSE(OpenProcessToken(nullptr, TOKEN_QUERY, &token));
    ASSERT_TRUE(OpenProcessToken(GetCurrentProcess(), 0, &token));
    EXPECT_FALSE(GetUserProfileDirectoryW(token, path, &size));
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    CloseHandle(token);
    EnvironmentVariable broken("HOME", "/home/\xFF");
    EXPECT_EQ(GetWindowsDirectoryW(path, 12), 0U);
    EXPECT_EQ(GetLastError(), ERROR_NO_UNICODE_TRANSLATION);
}

TEST(Platform, theUsersNameIsTheSameByBothWays) {
    LPBYTE buffer = nullptr;
    ASSERT_EQ(NetWkstaUserGetInfo(nullptr, 0, &buffer), NERR_Success);
    std::u16string name = reinterpret_cast<WKSTA_USER_INFO_0*>(buffer)->wkui0_username;
    EXPECT_EQ(NetApiBufferFree(buffer), NERR_Success);
    EXPECT_FALSE(name.empty());
    WCHAR text[256];
    DWORD size = 256;
    EXPECT_EQ(WNetGetUserW(nullptr, text, &size), NO_ERROR);
    EXPECT_EQ(text, name);
    size = 1;
    EXPECT_EQ(WNetGetUserW(nullptr, text, &size), ERROR_MORE_DATA);
    EXPECT_EQ(size, name.size() + 1);
    EXPECT_EQ(NetWkstaUserGetInfo(nullptr, 1, &buffer), ERROR_INVALID_LEVEL);
}

} // namespace
