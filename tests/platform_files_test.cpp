#include "platform/files.h"

#include "tests/FaultyFileSystem.h"
#include "tests/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr DWORD readWrite = GENERIC_READ | GENERIC_WRITE;
constexpr DWORD untouched = 0xABCD;

HANDLE open(const std::u16string& path, DWORD access, DWORD disposition) {
    SetLastError(untouched);
    return CreateFileW(toWide(path), access, FILE_SHARE_READ, nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
}

// Writes, flushes and closes, as one that saves does. The first error, 0 when all went well.
DWORD save(const std::u16string& path, const std::string& content, DWORD disposition = CREATE_ALWAYS) {
    HANDLE file = open(path, GENERIC_WRITE, disposition);
    if (file == INVALID_HANDLE_VALUE) return GetLastError();
    DWORD written = 0;
    bool good = WriteFile(file, content.data(), static_cast<DWORD>(content.size()), &written, nullptr) != FALSE &&
                FlushFileBuffers(file) != FALSE;
    DWORD error = good ? 0 : GetLastError();
    bool closed = CloseHandle(file) != FALSE;
    return good && !closed ? GetLastError() : error;
}

DWORD load(const std::u16string& path, std::string& content) {
    HANDLE file = open(path, GENERIC_READ, OPEN_EXISTING);
    if (file == INVALID_HANDLE_VALUE) return GetLastError();
    DWORD size = GetFileSize(file, nullptr);
    DWORD error = size == INVALID_FILE_SIZE ? GetLastError() : 0;
    content.resize(error == 0 ? size : 0);
    DWORD count = 0;
    if (error == 0 && !ReadFile(file, content.data(), size, &count, nullptr)) error = GetLastError();
    CloseHandle(file);
    return error;
}

TEST(Files, everyDispositionMeetsAFileThatIsThereAndOneThatIsNot) {
    struct Row {
        const char* name;
        DWORD disposition;
        bool isThere;
        DWORD access;
        DWORD error;
        const char* after;
    };
    const Row rows[] = {
        {"CREATE_NEW", CREATE_NEW, false, readWrite, 0, ""},
        {"CREATE_NEW", CREATE_NEW, true, readWrite, ERROR_FILE_EXISTS, "old"},
        {"CREATE_ALWAYS", CREATE_ALWAYS, false, readWrite, 0, ""},
        {"CREATE_ALWAYS", CREATE_ALWAYS, true, readWrite, 0, ""},
        {"CREATE_ALWAYS to read", CREATE_ALWAYS, true, GENERIC_READ, ERROR_INVALID_PARAMETER, "old"},
        {"OPEN_EXISTING", OPEN_EXISTING, false, readWrite, ERROR_FILE_NOT_FOUND, "(missing)"},
        {"OPEN_EXISTING", OPEN_EXISTING, true, readWrite, 0, "old"},
        {"OPEN_ALWAYS", OPEN_ALWAYS, false, readWrite, 0, ""},
        {"OPEN_ALWAYS", OPEN_ALWAYS, true, readWrite, 0, "old"},
        {"TRUNCATE_EXISTING", TRUNCATE_EXISTING, false, readWrite, ERROR_FILE_NOT_FOUND, "(missing)"},
        {"TRUNCATE_EXISTING", TRUNCATE_EXISTING, true, readWrite, 0, ""},
        {"TRUNCATE_EXISTING to read", TRUNCATE_EXISTING, true, GENERIC_READ, ERROR_INVALID_PARAMETER, "old"},
        {"none", 0, true, readWrite, ERROR_INVALID_PARAMETER, "old"},
        {"none", 6, true, readWrite, ERROR_INVALID_PARAMETER, "old"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(std::string(row.name) + (row.isThere ? " there" : " not there"));
        TemporaryFolder folder;
        if (row.isThere) folder.write("file", "old");
        HANDLE file = open(folder / "file", row.access, row.disposition);
        EXPECT_EQ(file == INVALID_HANDLE_VALUE, row.error != 0);
        EXPECT_EQ(GetLastError(), row.error == 0 ? untouched : row.error);
        EXPECT_EQ(CloseHandle(file) != FALSE, row.error == 0);
        EXPECT_EQ(folder.content("file"), row.after);
    }
}

TEST(Files, whatIsNoPathToAFileIsRefusedAtOnce) {
    TemporaryFolder folder;
    folder.write("file", "x");
    std::filesystem::create_directory(folder.path() / "folder");
    ASSERT_EQ(mkfifo((folder.path() / "pipe").c_str(), 0600), 0);
    std::filesystem::create_symlink("nowhere", folder.path() / "dangling");
    std::filesystem::create_symlink("circle", folder.path() / "circle");
    struct Row {
        const char* name;
        std::u16string path;
        DWORD disposition;
        DWORD error;
    };
    const Row rows[] = {
        {"empty", u"", OPEN_EXISTING, ERROR_PATH_NOT_FOUND},
        {"unpaired surrogate", folder / "a" + u'\xD800', CREATE_ALWAYS, ERROR_INVALID_NAME},
        {"reversed surrogates", folder / "a" + u'\xDC00' + u'\xD800', CREATE_ALWAYS, ERROR_INVALID_NAME},
        {"missing", folder / "missing", OPEN_EXISTING, ERROR_FILE_NOT_FOUND},
        {"missing folder", folder / "missing/file", CREATE_ALWAYS, ERROR_PATH_NOT_FOUND},
        {"file as a folder", folder / "file/file", OPEN_EXISTING, ERROR_PATH_NOT_FOUND},
        {"folder", folder / "folder", OPEN_EXISTING, ERROR_ACCESS_DENIED},
        {"folder to write", folder / "folder", CREATE_ALWAYS, ERROR_ACCESS_DENIED},
        {"pipe", folder / "pipe", OPEN_EXISTING, ERROR_ACCESS_DENIED},
        {"device", u"/dev/null", CREATE_ALWAYS, ERROR_ACCESS_DENIED},
        {"dangling link", folder / "dangling", OPEN_EXISTING, ERROR_FILE_NOT_FOUND},
        {"dangling link, new", folder / "dangling", CREATE_NEW, ERROR_FILE_EXISTS},
        {"circle", folder / "circle", OPEN_EXISTING, ERROR_CANT_RESOLVE_FILENAME},
        {"long name", folder / std::string(300, 'n'), CREATE_ALWAYS, ERROR_FILENAME_EXCED_RANGE},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        DWORD access = row.disposition == OPEN_EXISTING ? GENERIC_READ : readWrite;
        EXPECT_EQ(open(row.path, access, row.disposition), INVALID_HANDLE_VALUE);
        EXPECT_EQ(GetLastError(), row.error);
    }
    EXPECT_EQ(CreateFileW(nullptr, GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr), INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
}

TEST(Files, bothSeparatorsAndAllOfUnicodeNameOneFile) {
    TemporaryFolder folder;
    std::filesystem::create_directory(folder.path() / "größe");
    EXPECT_EQ(save(folder / "größe" + u"\\\U0001F5A8.jtif", "text"), 0U);
    EXPECT_EQ(folder.content("größe/\U0001F5A8.jtif"), "text");
    std::u16string mixed = folder / "größe/\U0001F5A8.jtif";
    mixed[mixed.find_last_of(u'/')] = u'\\';
    std::string content;
    EXPECT_EQ(load(mixed, content), 0U);
    EXPECT_EQ(content, "text");
}

TEST(Files, sizesBeyondThirtyTwoBitsComeInTwoHalves) {
    TemporaryFolder folder;
    folder.write("file", "");
    for (std::uint64_t size :
         {std::uint64_t{0}, std::uint64_t{5}, std::uint64_t{0xFFFFFFFF}, std::uint64_t{0x300000007}}) {
        std::filesystem::resize_file(folder.path() / "file", size);
        HANDLE file = open(folder / "file", GENERIC_READ, OPEN_EXISTING);
        DWORD high = 77;
        EXPECT_EQ(GetFileSize(file, &high), static_cast<DWORD>(size)) << size;
        EXPECT_EQ(high, size >> 32U);
        // The size that looks like the failure is told apart from it by the last error.
        EXPECT_EQ(GetLastError(), size == 0xFFFFFFFF ? ERROR_SUCCESS : untouched);
        LARGE_INTEGER whole{};
        EXPECT_TRUE(GetFileSizeEx(file, &whole));
        EXPECT_EQ(static_cast<std::uint64_t>(whole.QuadPart), size);
        CloseHandle(file);
    }
}

TEST(Files, aHandleWorksUntilItIsClosedAndInItsDirectionOnly) {
    TemporaryFolder folder;
    folder.write("file", "content");
    HANDLE file = open(folder / "file", GENERIC_READ, OPEN_EXISTING);
    char bytes[20] = {};
    DWORD count = 77;
    EXPECT_FALSE(WriteFile(file, "x", 1, &count, nullptr));
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    EXPECT_EQ(count, 0U);
    EXPECT_TRUE(ReadFile(file, bytes, 4, &count, nullptr));
    EXPECT_EQ(std::string(bytes, count), "cont");
    EXPECT_TRUE(ReadFile(file, bytes, sizeof bytes, &count, nullptr));
    EXPECT_EQ(std::string(bytes, count), "ent");
    EXPECT_TRUE(ReadFile(file, bytes, sizeof bytes, &count, nullptr));
    EXPECT_EQ(count, 0U);
    EXPECT_TRUE(CloseHandle(file));
    for (HANDLE bad : {file, HANDLE{nullptr}, INVALID_HANDLE_VALUE, HANDLE{&folder}}) {
        SetLastError(0);
        EXPECT_FALSE(ReadFile(bad, bytes, 1, &count, nullptr));
        EXPECT_FALSE(FlushFileBuffers(bad));
        EXPECT_EQ(GetFileSize(bad, nullptr), INVALID_FILE_SIZE);
        EXPECT_FALSE(CloseHandle(bad));
        EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
    }
}

TEST(Files, partialAndInterruptedTransfersComeOutWhole) {
    TemporaryFolder folder;
    FaultyFileSystem files;
    files.transferInBits();
    EXPECT_EQ(save(folder / "file", "a longer text"), 0U);
    std::string content;
    EXPECT_EQ(load(folder / "file", content), 0U);
    EXPECT_EQ(content, "a longer text");
}

TEST(Files, everyFailingCallIsToldWithItsNumber) {
    struct Row {
        const char* call;
        int error;
        DWORD told;
    };
    const Row saving[] = {
        {"open", EACCES, ERROR_ACCESS_DENIED},  {"open", EROFS, ERROR_WRITE_PROTECT},
        {"open", ENOSPC, ERROR_DISK_FULL},      {"open", EMFILE, ERROR_TOO_MANY_OPEN_FILES},
        {"open", EIO, ERROR_GEN_FAILURE},       {"fstat", EIO, ERROR_GEN_FAILURE},
        {"ftruncate", EIO, ERROR_WRITE_FAULT},  {"write", EIO, ERROR_WRITE_FAULT},
        {"write", ENOSPC, ERROR_DISK_FULL},     {"write", EDQUOT, ERROR_DISK_FULL},
        {"write", EFBIG, ERROR_FILE_TOO_LARGE}, {"fsync", EIO, ERROR_WRITE_FAULT},
        {"fsync", ENOSPC, ERROR_DISK_FULL},     {"close", EIO, ERROR_WRITE_FAULT},
    };
    for (const Row& row : saving) {
        TemporaryFolder folder;
        FaultyFileSystem files;
        files.fail(row.call, row.error);
        EXPECT_EQ(save(folder / "file", "text"), row.told) << row.call << " " << row.error;
    }
    const Row loading[] = {
        {"open", EACCES, ERROR_ACCESS_DENIED},
        {"fstat", EIO, ERROR_GEN_FAILURE},
        {"read", EIO, ERROR_READ_FAULT},
    };
    for (const Row& row : loading) {
        TemporaryFolder folder;
        folder.write("file", "text");
        FaultyFileSystem files;
        files.fail(row.call, row.error);
        std::string content;
        EXPECT_EQ(load(folder / "file", content), row.told) << row.call << " " << row.error;
    }
}

TEST(Files, aFileNewlyMadeThatCannotBeHandedOutDoesNotStay) {
    TemporaryFolder folder;
    folder.write("old", "content");
    FaultyFileSystem files;
    files.fail("ftruncate", EIO);
    EXPECT_EQ(save(folder / "old", "text", TRUNCATE_EXISTING), ERROR_WRITE_FAULT);
    EXPECT_EQ(folder.content("old"), "content");
}

TEST(Files, attributesAndDeletionTellWhatIsThere) {
    TemporaryFolder folder;
    folder.write("file", "x");
    folder.write("locked", "x");
    ASSERT_EQ(chmod((folder.path() / "locked").c_str(), 0444), 0);
    EXPECT_EQ(GetFileAttributesW(toWide(folder / "file")), FILE_ATTRIBUTE_NORMAL);
    EXPECT_EQ(GetFileAttributesW(toWide(folder / "locked")), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(GetFileAttributesW(toWide(folder / ".")) & FILE_ATTRIBUTE_DIRECTORY, FILE_ATTRIBUTE_DIRECTORY);
    EXPECT_TRUE(DeleteFileW(toWide(folder / "file")));
    EXPECT_FALSE(DeleteFileW(toWide(folder / "file")));
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(GetFileAttributesW(toWide(folder / "file")), INVALID_FILE_ATTRIBUTES);
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
    EXPECT_FALSE(DeleteFileW(toWide(folder / ".")));
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
}

} // namespace
