// Reading whole files and replacing them in one step, with every fault that a file system can make of it.
#include "jtcore/Services/AtomicFileWriter.h"
#include "jtcore/Services/File.h"
#include "platform/posix/fileSystem.h"
#include "tests/TemporaryFolder.h"
#include "tests/expectFailure.h"
#include "tests/serviceDoubles.h"

#include <cerrno>
#include <functional>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

std::string textOf(const ByteBuffer& bytes) {
    return {reinterpret_cast<const char*>(bytes.getData()), bytes.getSize()};
}

ByteBuffer bytesOf(const std::string& text) { return ByteBuffer(text.data(), text.size()); }

// Lets chosen calls fail. A failing write has taken half of its bytes before.
class FaultyFileSystem : public FileSystem {
public:
    // Called before each call with its name; a number that is not 0 is the errno of its failure.
    explicit FaultyFileSystem(std::function<int(const std::string&)> fault) : fault_(std::move(fault)) {
        before_ = installFileSystem(this);
    }
    ~FaultyFileSystem() override { installFileSystem(before_); }

#define FAULTY_CALL(name, parameters, arguments)                                                                       \
    int name parameters override { return fails(#name) ? -1 : FileSystem::name arguments; }
    FAULTY_CALL(open, (const char* path, int flags, mode_t mode), (path, flags, mode))
    FAULTY_CALL(fsync, (int file), (file))
    FAULTY_CALL(fstat, (int file, struct stat* status), (file, status))
    FAULTY_CALL(fchmod, (int file, mode_t mode), (file, mode))
    FAULTY_CALL(fchown, (int file, uid_t owner, gid_t group), (file, owner, group))
    FAULTY_CALL(stat, (const char* path, struct stat* status), (path, status))
    FAULTY_CALL(lstat, (const char* path, struct stat* status), (path, status))
    FAULTY_CALL(rename, (const char* from, const char* to), (from, to))
    FAULTY_CALL(renameNew, (const char* from, const char* to), (from, to))
    FAULTY_CALL(link, (const char* from, const char* to), (from, to))
    FAULTY_CALL(unlink, (const char* path), (path))
    FAULTY_CALL(access, (const char* path, int mode), (path, mode))
#undef FAULTY_CALL

    char* realpath(const char* path, char* resolved) override {
        return fails("realpath") ? nullptr : FileSystem::realpath(path, resolved);
    }
    ssize_t read(int file, void* bytes, std::size_t size) override {
        return fails("read") ? -1 : FileSystem::read(file, bytes, size);
    }
    ssize_t write(int file, const void* bytes, std::size_t size) override {
        if (!fails("write")) return FileSystem::write(file, bytes, size);
        int number = errno;
        (void)FileSystem::write(file, bytes, size / 2);
        errno = number;
        return -1;
    }
    int close(int file) override {
        bool failing = fails("close");
        int number = errno;
        int result = FileSystem::close(file);
        if (!failing) return result;
        errno = number;
        return -1;
    }

private:
    bool fails(const char* name) {
        int number = fault_(name);
        if (number != 0) errno = number;
        return number != 0;
    }

    std::function<int(const std::string&)> fault_;
    FileSystem* before_;
};

struct Fault {
    int number;
    bool lasts;
};

// Saves over "old" with the call number `at` failing; the name of that call, empty when the save made fewer calls.
std::string saveWithFault(const TemporaryFolder& folder, int at, const Fault& fault, DWORD& error) {
    std::string failed;
    int calls = 0;
    FaultyFileSystem faulty([&](const std::string& name) {
        ++calls;
        if (calls == at) failed = name;
        return calls == at || (fault.lasts && calls > at) ? fault.number : 0;
    });
    error = replaceFile(folder / "ticket.jtif", bytesOf("new content"));
    return failed;
}

using Save = std::function<void(const std::u16string& path, const std::string& content)>;

void saveInOneStep(const std::u16string& path, const std::string& content) { replaceFile(path, bytesOf(content)); }

// What nobody should do.
void saveInPlace(const std::u16string& path, const std::string& content) {
    FileHandle file(
        CreateFileW(toWide(path), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    DWORD written = 0;
    WriteFile(file.get(), content.data(), static_cast<DWORD>(content.size()), &written, nullptr);
}

// Runs the save in a process of its own that ends before its call number `at`; a write has then taken half of its
// bytes. False when the save made fewer calls.
bool saveAndDie(const Save& save, const std::u16string& path, int at) {
    pid_t child = fork();
    if (child == 0) {
        int calls = 0;
        bool dies = false;
        FaultyFileSystem faulty([&](const std::string& name) {
            if (dies || (++calls == at && name != "write")) _exit(1);
            dies = calls == at;
            return dies ? EIO : 0;
        });
        save(path, "new content");
        _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WEXITSTATUS(status) == 1;
}

// How many of all such deaths leave neither the old file nor the new one.
int countTornFiles(const Save& save) {
    int torn = 0;
    bool died = true;
    for (int at = 1; died; ++at) {
        TemporaryFolder folder;
        folder.write("ticket.jtif", "old content");
        died = saveAndDie(save, folder / "ticket.jtif", at);
        std::string content = folder.content("ticket.jtif");
        if (content != "old content" && content != "new content") ++torn;
    }
    return torn;
}

} // namespace

TEST(File, aFileIsReadWhole) {
    TemporaryFolder folder;
    std::string content(100000, '\0');
    for (std::size_t i = 0; i < content.size(); ++i)
        content[i] = static_cast<char>(i * 7);
    folder.write("some", content);
    folder.write("empty", "");
    EXPECT_EQ(textOf(File(folder / "some").read()), content);
    EXPECT_TRUE(File(folder / "empty").read().isEmpty());
    EXPECT_TRUE(File(folder / "some").exists());
    EXPECT_FALSE(File(folder / "other").exists());
    EXPECT_FALSE(File(folder / "").exists());
}

TEST(File, whatIsNoFileIsRefusedAtOnce) {
    TemporaryFolder folder;
    ASSERT_EQ(mkfifo((folder.path() / "pipe").c_str(), 0600), 0);
    for (const std::u16string& path : {folder / "missing", folder / "", folder / "pipe", folder / "missing/x",
                                       std::u16string(u"/dev/zero"), std::u16string(), std::u16string(u"\xD800")}) {
        EXPECT_EQ(messageOf<CreateFileForReadingException>([&] { File(path).read(); }),
                  "File::read(): CreateFile() failed to open file " + toUtf8(path) + ".\r\n");
    }
}

TEST(File, aFileThatCannotBeMeasuredOrReadIsRefused) {
    TemporaryFolder folder;
    folder.write("some", "content");
    std::u16string path = folder / "some";
    const std::string tail = " for file " + toUtf8(path) + " with handle 0x";
    {
        ServiceDouble size(doubles::GetFileSize, [](HANDLE, LPDWORD) { return INVALID_FILE_SIZE; });
        EXPECT_TRUE(messageOf<CreateFileForReadingException>([&] {
                        File(path).read();
                    }).starts_with("File::read(): GetFileSize() failed" + tail));
    }
    const std::string unread = "File::read(): ReadFile() failed or didn't read the expected number of bytes" + tail;
    {
        FaultyFileSystem faulty([](const std::string& name) { return name == "read" ? EIO : 0; });
        EXPECT_TRUE(messageOf<ReadFileException>([&] { File(path).read(); }).starts_with(unread));
    }
    {
        // It has become shorter since it was measured.
        FaultyFileSystem faulty([&](const std::string& name) {
            if (name == "read") fs::resize_file(folder.path() / "some", 3);
            return 0;
        });
        EXPECT_TRUE(messageOf<ReadFileException>([&] { File(path).read(); }).starts_with(unread));
    }
    FaultyFileSystem faulty([&](const std::string& name) {
        if (name == "read") folder.write("some", "content and more");
        return 0;
    });
    folder.write("some", "content");
    EXPECT_EQ(textOf(File(path).read()), "content");
}

TEST(File, aHugeFileIsRefusedBeforeItTakesMemory) {
    TemporaryFolder folder;
    folder.write("huge", "");
    for (std::uint64_t size : {std::uint64_t{64} << 20U | 1U, std::uint64_t{3} << 40U, (std::uint64_t{1} << 32U) + 5}) {
        fs::resize_file(folder.path() / "huge", size);
        EXPECT_EQ(messageOf<ReadFileException>([&] { File(folder / "huge").read(); }),
                  "File::read(): The file " + toUtf8(folder / "huge") + " has " + std::to_string(size) +
                      " bytes, which is above the limit of 67108864 bytes.\r\n");
    }
}

TEST(AtomicFileWriter, aSaveMakesOrReplacesTheFileAndLeavesNothingElse) {
    TemporaryFolder folder;
    const std::string longName(255, 'n');
    for (const std::string& name : {std::string("ticket.jtif"), longName}) {
        EXPECT_EQ(replaceFile(folder / name, bytesOf("first")), ERROR_SUCCESS);
        EXPECT_EQ(folder.content(name), "first");
        fs::permissions(folder.path() / name, fs::perms(0640));
        EXPECT_EQ(replaceFile(folder / name, bytesOf("")), ERROR_SUCCESS);
        EXPECT_EQ(folder.content(name), "");
        EXPECT_EQ(fs::status(folder.path() / name).permissions(), fs::perms(0640));
    }
    EXPECT_EQ(folder.entries(), 2U);
}

TEST(AtomicFileWriter, aSaveThroughALinkReachesTheFileBehindIt) {
    TemporaryFolder folder;
    folder.write("real", "old");
    fs::create_symlink("real", folder.path() / "link");
    EXPECT_EQ(replaceFile(folder / "link", bytesOf("new")), ERROR_SUCCESS);
    EXPECT_EQ(folder.content("real"), "new");
    EXPECT_TRUE(fs::is_symlink(folder.path() / "link"));
}

TEST(AtomicFileWriter, withoutACommitTheEarlierFileStays) {
    TemporaryFolder folder;
    folder.write("ticket.jtif", "old");
    {
        AtomicFileWriter writer(folder / "ticket.jtif");
        ASSERT_TRUE(writer.open());
        EXPECT_TRUE(writer.write("half of ", 8));
        EXPECT_EQ(writer.lastWritten(), 8U);
        EXPECT_EQ(folder.content("ticket.jtif"), "old");
    }
    EXPECT_EQ(folder.content("ticket.jtif"), "old");
    EXPECT_EQ(folder.entries(), 1U);
}

TEST(AtomicFileWriter, whatMayNotBeWrittenIsRefusedBeforeAnyWork) {
    TemporaryFolder folder;
    folder.write("readonly", "old");
    fs::permissions(folder.path() / "readonly", fs::perms(0444));
    fs::create_directory(folder.path() / "folder");
    struct Row {
        const char* name;
        DWORD error;
    };
    const Row rows[] = {{"readonly", ERROR_ACCESS_DENIED},
                        {"folder", ERROR_ACCESS_DENIED},
                        {"missing/ticket.jtif", ERROR_PATH_NOT_FOUND}};
    for (const Row& row : rows) {
        AtomicFileWriter writer(folder / row.name);
        EXPECT_FALSE(writer.open()) << row.name;
        EXPECT_EQ(writer.lastError(), row.error) << row.name;
        EXPECT_FALSE(writer.commit()) << row.name;
    }
    EXPECT_EQ(folder.content("readonly"), "old");
    EXPECT_EQ(folder.entries(), 2U);
}

TEST(AtomicFileWriter, afterAFailedWriteNothingIsCommitted) {
    TemporaryFolder folder;
    folder.write("ticket.jtif", "old");
    AtomicFileWriter writer(folder / "ticket.jtif");
    ASSERT_TRUE(writer.open());
    {
        FaultyFileSystem faulty([](const std::string& name) { return name == "write" ? ENOSPC : 0; });
        EXPECT_FALSE(writer.write("new content", 11));
    }
    EXPECT_EQ(writer.lastError(), ERROR_DISK_FULL);
    EXPECT_LT(writer.lastWritten(), 11U);
    EXPECT_FALSE(writer.write("more", 4));
    EXPECT_FALSE(writer.commit());
    EXPECT_EQ(folder.content("ticket.jtif"), "old");
}

TEST(AtomicFileWriter, anyFailedCallLeavesTheEarlierFileWhole) {
    const Fault faults[] = {{EIO, false}, {ENOSPC, false}, {EACCES, false}, {EPERM, false},
                            {EIO, true},  {ENOSPC, true},  {EACCES, true},  {EPERM, true}};
    int tried = 0;
    for (const Fault& fault : faults) {
        for (int at = 1; at < 100; ++at) {
            TemporaryFolder folder;
            folder.write("ticket.jtif", "old content");
            DWORD error = 0;
            std::string failed = saveWithFault(folder, at, fault, error);
            if (failed.empty()) break;
            ++tried;
            SCOPED_TRACE(failed + " is call " + std::to_string(at) + ", errno " + std::to_string(fault.number) +
                         (fault.lasts ? " from there on" : ""));
            std::string content = folder.content("ticket.jtif");
            // A file system that refuses everything once the new file stands cannot give the old one back either.
            bool isNew = content == "new content";
            EXPECT_TRUE(isNew || content == "old content") << content;
            EXPECT_TRUE(error == ERROR_SUCCESS ? isNew : !isNew || fault.lasts) << error;
            // What could not be looked at or removed may lie about.
            bool mayLeave = fault.lasts || failed == "unlink" || failed == "stat";
            EXPECT_TRUE(mayLeave || folder.entries() == 1) << folder.entries();
            EXPECT_EQ(replaceFile(folder / "ticket.jtif", bytesOf("next")), ERROR_SUCCESS);
            EXPECT_EQ(folder.content("ticket.jtif"), "next");
        }
    }
    EXPECT_GT(tried, 100);
}

TEST(AtomicFileWriter, halfACopyOfTheOldFileNeverTakesItsPlace) {
    TemporaryFolder folder;
    folder.write("ticket.jtif", "old content");
    int writes = 0;
    DWORD error = ERROR_SUCCESS;
    {
        // A file system with one name for a file, and room for the new one alone.
        FaultyFileSystem faulty([&writes](const std::string& name) {
            if (name == "link") return EPERM;
            return name == "write" && ++writes == 2 ? ENOSPC : 0;
        });
        error = replaceFile(folder / "ticket.jtif", bytesOf("new content"));
    }
    EXPECT_EQ(error, ERROR_DISK_FULL);
    EXPECT_EQ(folder.content("ticket.jtif"), "old content");
    EXPECT_EQ(folder.entries(), 1U);
}

TEST(AtomicFileWriter, aProcessThatDiesInASaveLeavesTheOldFileOrTheNewOne) {
    EXPECT_EQ(countTornFiles(saveInOneStep), 0);
    EXPECT_GT(countTornFiles(saveInPlace), 0);
}

TEST(AtomicFileWriter, aFileThatIsNotThereYetIsMadeWholeOrNotAtAll) {
    for (int at = 1; at < 100; ++at) {
        TemporaryFolder folder;
        DWORD error = 0;
        std::string failed = saveWithFault(folder, at, {EIO, false}, error);
        if (failed.empty()) break;
        SCOPED_TRACE(failed + " is call " + std::to_string(at));
        std::string content = folder.content("ticket.jtif");
        EXPECT_TRUE(content == "new content" || (content == "(missing)" && error != ERROR_SUCCESS)) << content;
    }
}
