#include "platform/files.h"

#include "tests/FaultyFileSystem.h"
#include "tests/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr DWORD untouched = 0xABCD;

mode_t modeOf(const std::filesystem::path& path) {
    struct stat status {};
    EXPECT_EQ(::stat(path.c_str(), &status), 0);
    return status.st_mode & 07777U;
}

TEST(FileMoves, aMoveIsOneStepAndReachesTheMedium) {
    constexpr DWORD both = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
    struct Row {
        const char* name;
        const char* to;
        DWORD flags;
        const char* call;
        int fault;
        DWORD error;
        const char* from;
        const char* after;
    };
    const Row rows[] = {
        {"to a free name", "free", 0, "", 0, 0, "(missing)", "new"},
        {"over a file", "old", both, "", 0, 0, "(missing)", "new"},
        {"over a file, not wanted", "old", 0, "", 0, ERROR_ALREADY_EXISTS, "new", "old"},
        {"over a read-only file", "locked", both, "", 0, ERROR_ACCESS_DENIED, "new", "locked"},
        {"over a folder", ".", both, "", 0, ERROR_ACCESS_DENIED, "new", nullptr},
        {"into a missing folder", "no/file", both, "", 0, ERROR_PATH_NOT_FOUND, "new", "(missing)"},
        {"of unknown flags", "old", 0x100, "", 0, ERROR_INVALID_PARAMETER, "new", "old"},
        {"failing", "old", both, "rename", EIO, ERROR_GEN_FAILURE, "new", "old"},
        {"failing, free", "free", 0, "renameNew", ENOSPC, ERROR_DISK_FULL, "new", "(missing)"},
        {"across devices", "old", both, "rename", EXDEV, ERROR_NOT_SAME_DEVICE, "new", "old"},
        {"done, perhaps not durable", "old", both, "fsync", EIO, ERROR_WRITE_FAULT, "(missing)", "new"},
        {"where folders know no flush", "old", both, "fsync", EINVAL, 0, "(missing)", "new"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        TemporaryFolder folder;
        folder.write("new", "new");
        folder.write("old", "old");
        folder.write("locked", "locked");
        ASSERT_EQ(chmod((folder.path() / "locked").c_str(), 0444), 0);
        FaultyFileSystem files;
        files.fail(row.call, row.fault);
        SetLastError(untouched);
        EXPECT_EQ(MoveFileExW(toWide(folder / "new"), toWide(folder / row.to), row.flags) != FALSE, row.error == 0);
        EXPECT_EQ(GetLastError(), row.error == 0 ? untouched : row.error);
        EXPECT_EQ(folder.content("new"), row.from);
        if (row.after != nullptr) {
            EXPECT_EQ(folder.content(row.to), row.after);
        }
    }
}

TEST(FileMoves, aReplacedFileKeepsItsModeItsOwnerItsLinkAndOnDemandItsContent) {
    TemporaryFolder folder;
    std::filesystem::create_directory(folder.path() / "real");
    folder.write("real/file", "old");
    folder.write("new", "new");
    folder.write("backup", "earlier backup");
    ASSERT_EQ(chmod((folder.path() / "real/file").c_str(), 0640), 0);
    bool mayGiveAway = chown((folder.path() / "real/file").c_str(), 1234, 2345) == 0;
    std::filesystem::create_symlink("real/file", folder.path() / "link");
    SetLastError(untouched);
    EXPECT_TRUE(
        ReplaceFileW(toWide(folder / "link"), toWide(folder / "new"), toWide(folder / "backup"), 0, nullptr, nullptr));
    EXPECT_EQ(GetLastError(), untouched);
    EXPECT_TRUE(std::filesystem::is_symlink(folder.path() / "link"));
    EXPECT_EQ(folder.content("real/file"), "new");
    EXPECT_EQ(folder.content("backup"), "old");
    EXPECT_EQ(folder.content("new"), "(missing)");
    EXPECT_EQ(modeOf(folder.path() / "real/file"), 0640U);
    struct stat status {};
    ASSERT_EQ(::stat((folder.path() / "real/file").c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, mayGiveAway ? 1234 : geteuid());
}

TEST(FileMoves, aReplacementThatFailsLeavesTheOldFileAsItWas) {
    struct Row {
        const char* replaced;
        const char* call;
        int error;
        int after;
        DWORD told;
    };
    const Row rows[] = {
        {"missing", "", 0, 0, ERROR_FILE_NOT_FOUND},  {"folder", "", 0, 0, ERROR_ACCESS_DENIED},
        {"locked", "", 0, 0, ERROR_ACCESS_DENIED},    {"old", "open", EACCES, 0, ERROR_ACCESS_DENIED},
        {"old", "fchmod", EIO, 0, ERROR_GEN_FAILURE}, {"old", "fsync", EIO, 0, ERROR_WRITE_FAULT},
        {"old", "close", EIO, 0, ERROR_WRITE_FAULT},  {"old", "unlink", EACCES, 0, ERROR_ACCESS_DENIED},
        {"old", "link", EIO, 0, ERROR_GEN_FAILURE},   {"old", "link", ENOSPC, 0, ERROR_DISK_FULL},
        {"old", "rename", EIO, 0, ERROR_GEN_FAILURE},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(std::string(row.replaced) + " " + row.call);
        TemporaryFolder folder;
        folder.write("new", "new");
        folder.write("old", "old");
        folder.write("locked", "old");
        ASSERT_EQ(chmod((folder.path() / "locked").c_str(), 0444), 0);
        std::filesystem::create_directory(folder.path() / "folder");
        FaultyFileSystem files;
        files.fail(row.call, row.error, row.after);
        EXPECT_FALSE(ReplaceFileW(toWide(folder / row.replaced), toWide(folder / "new"), toWide(folder / "backup"), 0,
                                  nullptr, nullptr));
        EXPECT_EQ(GetLastError(), row.told);
        EXPECT_EQ(folder.content("old"), "old");
        EXPECT_EQ(folder.content("locked"), "old");
        EXPECT_EQ(folder.content("new"), "new");
    }
}

TEST(FileMoves, aReplacementWorksWhereFilesHaveOneNameOnly) {
    TemporaryFolder folder;
    folder.write("new", "new");
    folder.write("old", "old");
    FaultyFileSystem files;
    files.fail("link", EPERM);
    EXPECT_TRUE(
        ReplaceFileW(toWide(folder / "old"), toWide(folder / "new"), toWide(folder / "backup"), 0, nullptr, nullptr));
    EXPECT_EQ(folder.content("old") + " " + folder.content("backup"), "new old");
}

// The folder in memory is another file system than that of temporary files on most machines.
TEST(FileMoves, aLinkToAnotherFileSystemIsFollowedToo) {
    TemporaryFolder folder;
    struct stat here {};
    struct stat there {};
    if (::stat(folder.path().c_str(), &here) != 0 || ::stat("/dev/shm", &there) != 0 || here.st_dev == there.st_dev)
        GTEST_SKIP() << "no second file system";
    std::string other = "/dev/shm/kolma-test-" + std::to_string(getpid());
    std::ofstream(other) << "old";
    std::filesystem::create_symlink(other, folder.path() / "link");
    folder.write("new", "new");
    EXPECT_TRUE(
        ReplaceFileW(toWide(folder / "link"), toWide(folder / "new"), toWide(folder / "backup"), 0, nullptr, nullptr));
    EXPECT_TRUE(std::filesystem::is_symlink(folder.path() / "link"));
    EXPECT_EQ(folder.content("link") + " " + folder.content("backup"), "new old");
    EXPECT_EQ(folder.entries(), 2U);
    std::filesystem::remove(other);
}

TEST(FileMoves, aGroupThatCannotBeKeptGetsNoRights) {
    TemporaryFolder folder;
    folder.write("new", "new");
    folder.write("old", "old");
    ASSERT_EQ(chmod((folder.path() / "old").c_str(), 0664), 0);
    if (geteuid() != 0) GTEST_SKIP() << "needs a file of another group";
    ASSERT_EQ(chown((folder.path() / "old").c_str(), 1234, 2345), 0);
    FaultyFileSystem files;
    files.fail("fchown", EPERM);
    EXPECT_TRUE(ReplaceFileW(toWide(folder / "old"), toWide(folder / "new"), nullptr, 0, nullptr, nullptr));
    EXPECT_EQ(modeOf(folder.path() / "old"), 0604U);
}

} // namespace
