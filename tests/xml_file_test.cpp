// XML files: a save that fails leaves the earlier file whole, and every failure says which step it was.

#include "expectFailure.h"
#include "listBuilder.h"
#include "xmlDocuments.h"

#include "jtcore/JtifParse/KolmaXmlFile.h"
#include "jtcore/Services/JtifParseException.h"
#include "platform/posix/fileSystem.h"

#include <cerrno>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <sstream>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

constexpr auto abil = XmlDataType::capabilityFile;

const AttrNodeList oldList = list().integer(u"copies", 1);
const AttrNodeList newList = list().integer(u"copies", 2).keyword(u"sides", u"one-sided");

std::string contentOf(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

class XmlFile : public testing::Test {
protected:
    XmlFile() { fs::create_directories(folder_); }
    ~XmlFile() override { fs::remove_all(folder_); }

    std::u16string pathOf(const char* name) const { return (folder_ / name).u16string(); }
    void put(const char* name, const std::string& content) const {
        std::ofstream(folder_ / name, std::ios::binary) << content;
    }
    std::size_t countFiles() const {
        return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder_), fs::directory_iterator()));
    }
    static std::string readCode(const std::u16string& path) {
        return errorCodeOf([&] {
            AttrNodeList out;
            KolmaXmlFile(abil, path).read(out);
        });
    }

    const fs::path folder_ = fs::temp_directory_path() / ("xmlfile" + std::to_string(getpid()));
};

// Fails one call of one operation.
class FaultyFileSystem final : public FileSystem {
public:
    enum class Operation { open, read, write, shortWrite, fsync, close, rename };

    FaultyFileSystem(Operation operation, int nth, int error) : operation_(operation), nth_(nth), error_(error) {
        earlier_ = installFileSystem(this);
    }
    ~FaultyFileSystem() override { installFileSystem(earlier_); }

    bool hasFailed() const noexcept { return nth_ < 0; }

    int open(const char* path, int flags, mode_t mode) override {
        return fails(Operation::open) ? -1 : FileSystem::open(path, flags, mode);
    }
    ssize_t read(int file, void* bytes, std::size_t size) override {
        return fails(Operation::read) ? -1 : FileSystem::read(file, bytes, size);
    }
    ssize_t pread(int file, void* bytes, std::size_t size, off_t offset) override {
        return fails(Operation::read) ? -1 : FileSystem::pread(file, bytes, size, offset);
    }
    ssize_t write(int file, const void* bytes, std::size_t size) override {
        if (fails(Operation::write)) return -1;
        if (fails(Operation::shortWrite)) {
            operation_ = Operation::write; // half of it, and the rest fails
            nth_ = 0;
            return FileSystem::write(file, bytes, size / 2);
        }
        return FileSystem::write(file, bytes, size);
    }
    int fsync(int file) override { return fails(Operation::fsync) ? -1 : FileSystem::fsync(file); }
    int close(int file) override {
        int result = FileSystem::close(file);
        return fails(Operation::close) ? -1 : result;
    }
    int rename(const char* from, const char* to) override {
        return fails(Operation::rename) ? -1 : FileSystem::rename(from, to);
    }

private:
    bool fails(Operation operation) {
        if (operation != operation_ || nth_-- != 0) return false;
        errno = error_;
        return true;
    }

    Operation operation_;
    int nth_;
    int error_;
    FileSystem* earlier_;
};

} // namespace

TEST_F(XmlFile, whatIsWrittenIsRead) {
    KolmaXmlFile(abil, pathOf("a.xml")).write(newList);
    AttrNodeList out;
    KolmaXmlFile(abil, pathOf("a.xml")).read(out);
    EXPECT_EQ(out, newList);
    EXPECT_EQ(contentOf(folder_ / "a.xml"), writeXml(abil, newList));
    EXPECT_EQ(KolmaXmlFile(abil, u"name").getBufferId(), u"name");
    EXPECT_EQ(KolmaXmlFile(abil, u"name", u"dtd").getBufferId(), u"dtd");
    EXPECT_EQ(KolmaXmlFile(abil, u"").getBufferId(), u"XmlStream");
}

TEST_F(XmlFile, aFileThatCannotBeReadSaysWhichStepFailed) {
    put("empty.xml", "");
    fs::create_directory(folder_ / "folder.xml");
    EXPECT_EQ(readCode(u""), "001:016");
    EXPECT_EQ(readCode(pathOf("missing.xml")), "001:015");
    EXPECT_EQ(readCode(pathOf("folder.xml")), "001:015");
    EXPECT_EQ(readCode(pathOf("empty.xml")), "001:002");
    put("good.xml", capabilityFile("<copies syntax='integer'>2</copies>"));
    FaultyFileSystem faulty(FaultyFileSystem::Operation::read, 0, EIO);
    EXPECT_EQ(readCode(pathOf("good.xml")), "001:012");
    EXPECT_TRUE(faulty.hasFailed());
}

TEST_F(XmlFile, aHugeFileIsRefusedBeforeItIsRead) {
    put("huge.xml", "<abil>");
    for (std::uintmax_t size : {KolmaXmlFile::maximumSize + 1, std::size_t{100} << 20U, (std::size_t{1} << 32U) + 6}) {
        fs::resize_file(folder_ / "huge.xml", size);
        auto start = std::chrono::steady_clock::now();
        EXPECT_EQ(readCode(pathOf("huge.xml")), "001:013") << size;
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(500)) << size;
    }
    AttrNodeList out;
    EXPECT_EQ(messageOf<JtifParseException>([&] { KolmaXmlFile(abil, pathOf("huge.xml")).read(out); }),
              "KolmaXmlFile::read(): Failed to allocate enough space. Needed 4294967302\r\n");
}

TEST_F(XmlFile, aFailedSaveLeavesTheEarlierFileAndNothingElse) {
    using Operation = FaultyFileSystem::Operation;
    KolmaXmlFile(abil, pathOf("a.xml")).write(oldList);
    const std::string before = contentOf(folder_ / "a.xml");
    struct {
        const char* what;
        Operation operation;
        const char* code;
    } rows[] = {
        {"open", Operation::open, "001:017"},
        {"write", Operation::write, "001:019"},
        {"short write", Operation::shortWrite, "001:019"},
        {"fsync", Operation::fsync, "001:019"},
        {"close", Operation::close, ""},
        {"rename", Operation::rename, "001:019"},
    };
    for (const auto& row : rows)
        for (int error : {EIO, ENOSPC, EACCES})
            for (int nth = 0; nth < 3; ++nth) {
                std::string code;
                {
                    FaultyFileSystem faulty(row.operation, nth, error);
                    code = errorCodeOf([&] { KolmaXmlFile(abil, pathOf("a.xml")).write(newList); });
                    if (!faulty.hasFailed()) code = "no fault";
                }
                std::string after = contentOf(folder_ / "a.xml");
                std::string where =
                    std::string(row.what) + " " + std::to_string(nth) + " errno " + std::to_string(error);
                EXPECT_TRUE(after == before || after == writeXml(abil, newList)) << where;
                EXPECT_EQ(countFiles(), 1U) << where;
                if (nth == 0 && *row.code != 0) {
                    EXPECT_EQ(code, row.code) << where;
                    EXPECT_EQ(after, before) << where;
                }
                KolmaXmlFile(abil, pathOf("a.xml")).write(oldList);
            }
}

TEST_F(XmlFile, aListThatCannotBeWrittenLeavesTheEarlierFile) {
    KolmaXmlFile(abil, pathOf("a.xml")).write(oldList);
    const std::string before = contentOf(folder_ / "a.xml");
    EXPECT_EQ(errorCodeOf([&] { KolmaXmlFile(abil, pathOf("a.xml")).write(list().name(u"a", u"\x1")); }), "001:003");
    EXPECT_EQ(contentOf(folder_ / "a.xml"), before);
    EXPECT_EQ(countFiles(), 1U);
    EXPECT_EQ(errorCodeOf([&] { KolmaXmlFile(abil, pathOf("new.xml")).write(list().name(u"a", u"\x1")); }), "001:003");
    EXPECT_FALSE(fs::exists(folder_ / "new.xml"));
    EXPECT_EQ(errorCodeOf([&] { KolmaXmlFile(abil, pathOf("no/folder.xml")).write(oldList); }), "001:017");
    EXPECT_EQ(errorCodeOf([&] { KolmaXmlFile(abil, u"").write(oldList); }), "001:018");
}
