#include "tests/FaultyFileSystem.h"
#include "tests/TemporaryFolder.h"
#include "tests/peBuilder.h"

#include "platform/identity.h"
#include "platform/modules.h"
#include "platform/posix/icons.h"
#include "platform/posix/resourceModuleOf.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <unistd.h>

namespace {

using Bytes = PeBuilder::Bytes;

Bytes iconGroup(std::size_t count, int id) {
    Bytes group;
    PeBuilder::put(group, 0x10000, 4);
    PeBuilder::put(group, count, 2);
    group.insert(group.end(), {16, 0, 0, 0, 1, 0, 32, 0, 3, 0, 0, 0});
    PeBuilder::put(group, static_cast<std::size_t>(id), 2);
    return group;
}

PeBuilder sample() {
    PeBuilder builder;
    builder.add(6, 1, 0, PeBuilder::strings({u"", u"one", u"two words", u"\x4E00\xD83D\xDE00"}))
        .add(6, 4096, 0,
             PeBuilder::strings({u"", u"", u"", u"", u"", u"", u"", u"", u"", u"", u"", u"", u"", u"", u"", u"last"}))
        .add(10, 7, 0x407, {'d', 'e'})
        .add(10, 7, 0, {'n'})
        .add(10, 8, 0x409, {'e', 'n'})
        .add(10, 8, 0x407, {'d', 'e'})
        .add(10, 9, 0, {})
        .add(u"PICTURE", u"LOGO", 0, {1, 2, 3})
        .add(3, 1, 0, {5, 6, 7})
        .add(14, 100, 0, iconGroup(1, 1))
        .add(14, 101, 0, iconGroup(1, 2))
        .add(14, 102, 0, iconGroup(9, 1));
    return builder;
}

class ModuleOwner {
public:
    explicit ModuleOwner(HMODULE module) : module_(module) {}
    explicit ModuleOwner(const Bytes& bytes) : module_(resourceModuleOf(bytes.data(), bytes.size())) {}
    ~ModuleOwner() {
        if (module_ != nullptr) FreeLibrary(module_);
    }
    ModuleOwner(const ModuleOwner&) = delete;
    ModuleOwner& operator=(const ModuleOwner&) = delete;
    operator HMODULE() const { return module_; }

private:
    HMODULE module_;
};

std::string resource(HMODULE module, LPCWSTR name, LPCWSTR type) {
    SetLastError(0);
    HRSRC found = FindResourceW(module, name, type);
    if (found == nullptr) return "error " + std::to_string(GetLastError());
    const void* data = LockResource(LoadResource(module, found));
    return data == nullptr ? "no data" : std::string(static_cast<const char*>(data), SizeofResource(module, found));
}

std::string string(HMODULE module, UINT id, int maximum = 100) {
    WCHAR buffer[100] = {u'?'};
    SetLastError(0);
    int length = LoadStringW(module, id, buffer, maximum);
    if (length == 0) return "error " + std::to_string(GetLastError());
    return toUtf8({buffer, static_cast<std::size_t>(length)}) + (buffer[length] == 0 ? "" : " unterminated");
}

// Asks for everything that a module may be asked for. Its answers are looked at only so far that they can be read.
void askForEverything(HMODULE module) {
    for (UINT id : {0U, 1U, 3U, 15U, 16U, 65535U}) {
        LPCWSTR text = nullptr;
        int length = LoadStringW(module, id, reinterpret_cast<LPWSTR>(&text), 0);
        std::u16string copied(text == nullptr ? u"" : text, static_cast<std::size_t>(length));
        string(module, id);
    }
    for (int type : {3, 6, 10, 14})
        for (int name : {1, 7, 8, 100, 4096})
            resource(module, MAKEINTRESOURCEW(static_cast<ULONG_PTR>(name)),
                     MAKEINTRESOURCEW(static_cast<ULONG_PTR>(type)));
    resource(module, u"logo", u"picture");
    iconImages(LoadIconW(module, MAKEINTRESOURCEW(100)));
}

TEST(Modules, stringsComeOutAsThePublishedCallGivesThem) {
    ModuleOwner module(sample().module());
    struct Row {
        UINT id;
        int maximum;
        const char* text;
    };
    const Row rows[] = {
        {1, 100, "one"},         {2, 100, "two words"},      {3, 100, "\u4E00\U0001F600"}, {65535, 100, "last"},
        {2, 4, "two"},           {2, 1, "error 0"},          {0, 100, "error 1814"},       {4, 100, "error 1814"},
        {16, 100, "error 1814"}, {70000, 100, "error 1814"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(string(module, row.id, row.maximum), row.text) << row.id << " in " << row.maximum;

    LPCWSTR inside = nullptr;
    EXPECT_EQ(LoadStringW(module, 2, reinterpret_cast<LPWSTR>(&inside), 0), 9);
    EXPECT_EQ(std::u16string(inside, 9), u"two words");
    ModuleOwner empty(PeBuilder().add(10, 1, 0, {1}).module());
    EXPECT_EQ(string(empty, 1), "error 1813");
}

TEST(Modules, resourcesAreFoundByNumberAndTextTheNeutralFirst) {
    ModuleOwner module(sample().module());
    EXPECT_EQ(resource(module, MAKEINTRESOURCEW(7), RT_RCDATA), "n");
    EXPECT_EQ(resource(module, MAKEINTRESOURCEW(8), RT_RCDATA), "en");
    EXPECT_EQ(resource(module, u"#7", u"#10"), "n");
    EXPECT_EQ(resource(module, MAKEINTRESOURCEW(9), RT_RCDATA), "");
    EXPECT_EQ(resource(module, u"Logo", u"picture"), "\1\2\3");
    EXPECT_EQ(resource(module, MAKEINTRESOURCEW(99), RT_RCDATA), "error 1814");
    EXPECT_EQ(resource(module, MAKEINTRESOURCEW(7), RT_BITMAP), "error 1813");
    EXPECT_EQ(resource(module, u"#99999", RT_RCDATA), "error 1814");
    EXPECT_EQ(resource(ModuleOwner(Bytes()), MAKEINTRESOURCEW(7), RT_RCDATA), "error 6");
}

TEST(Modules, iconsBringTheirPictures) {
    ModuleOwner module(sample().module());
    HICON icon = LoadIconW(module, MAKEINTRESOURCEW(100));
    auto images = iconImages(icon);
    ASSERT_EQ(images.size(), 1U);
    EXPECT_EQ(images[0].width, 16);
    EXPECT_EQ(images[0].height, 256);
    EXPECT_EQ(images[0].bytes, Bytes({5, 6, 7}));
    EXPECT_EQ(LoadIconW(module, MAKEINTRESOURCEW(100)), icon);
    const std::pair<int, DWORD> bad[] = {{101, ERROR_RESOURCE_NAME_NOT_FOUND},
                                         {102, ERROR_RESOURCE_DATA_NOT_FOUND},
                                         {103, ERROR_RESOURCE_NAME_NOT_FOUND}};
    for (auto [id, error] : bad) {
        EXPECT_EQ(LoadIconW(module, MAKEINTRESOURCEW(static_cast<ULONG_PTR>(id))), nullptr);
        EXPECT_EQ(GetLastError(), error) << id;
    }
}

TEST(Modules, aModuleIsCountedAndItsHandleEndsWithTheLastUse) {
    TemporaryFolder folder;
    Bytes bytes = sample().module();
    folder.write("r.dll", {bytes.begin(), bytes.end()});
    HMODULE first = LoadLibraryExW(toWide(folder / "r.dll"), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(LoadLibraryW(toWide(folder / "r.dll")), first);
    EXPECT_TRUE(FreeLibrary(first));
    EXPECT_EQ(string(first, 1), "one");
    HRSRC found = FindResourceW(first, MAKEINTRESOURCEW(7), RT_RCDATA);
    EXPECT_EQ(SizeofResource(first, reinterpret_cast<HRSRC>(&folder)), 0U);
    EXPECT_EQ(LoadResource(first, reinterpret_cast<HRSRC>(reinterpret_cast<char*>(found) + 1)), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
    EXPECT_TRUE(FreeLibrary(first));
    EXPECT_FALSE(FreeLibrary(first));
    EXPECT_EQ(string(first, 1), "error 6");
    HMODULE again = LoadLibraryW(toWide(folder / "r.dll"));
    EXPECT_NE(again, first);
    EXPECT_TRUE(FreeLibrary(again));
}

TEST(Modules, whatHappensToTheFileLaterDoesNoHarm) {
    TemporaryFolder folder;
    Bytes bytes = sample().module();
    folder.write("read.dll", {bytes.begin(), bytes.end()});
    folder.write("unread.dll", {bytes.begin(), bytes.end()});
    ModuleOwner read(LoadLibraryW(toWide(folder / "read.dll")));
    EXPECT_EQ(string(read, 1), "one");
    ModuleOwner unread(LoadLibraryW(toWide(folder / "unread.dll")));
    folder.write("read.dll", "");
    folder.write("unread.dll", "");
    EXPECT_EQ(string(read, 2), "two words");
    EXPECT_EQ(string(unread, 1), "error 1812");
}

TEST(Modules, whatIsNoModuleIsRefusedByItsReason) {
    TemporaryFolder folder;
    folder.write("text.dll", "MZ and no more");
    folder.write("broken.so", "\177ELF");
    folder.write("empty.dll", "");
    struct Row {
        std::u16string path;
        DWORD error;
    };
    const Row rows[] = {
        {folder / "missing.dll", ERROR_MOD_NOT_FOUND},
        {folder / "missing/r.dll", ERROR_MOD_NOT_FOUND},
        {u"\\jtres37.dll", ERROR_MOD_NOT_FOUND},
        {u"no-such-module.dll", ERROR_MOD_NOT_FOUND},
        {u"", ERROR_MOD_NOT_FOUND},
        {folder / ".", ERROR_ACCESS_DENIED},
        {folder / "text.dll", ERROR_BAD_EXE_FORMAT},
        {folder / "broken.so", ERROR_BAD_EXE_FORMAT},
        {folder / "empty.dll", ERROR_BAD_EXE_FORMAT},
        {u"a\xD800.dll", ERROR_INVALID_NAME},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(LoadLibraryW(row.path.c_str()), nullptr);
        EXPECT_EQ(GetLastError(), row.error) << toUtf8(row.path);
    }
    Bytes bytes = sample().module();
    folder.write("good.dll", {bytes.begin(), bytes.end()});
    FaultyFileSystem files;
    files.fail("pread", EIO);
    EXPECT_EQ(LoadLibraryW(toWide(folder / "good.dll")), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_READ_FAULT);
}

TEST(Modules, entriesAreReachedByName) {
    ModuleOwner environment(LoadLibraryW(u"UserEnv.dll"));
    ModuleOwner network(LoadLibraryW(u"netapi32.dll"));
    ModuleOwner own(LoadLibraryW(u"libkolmaplatform.so"));
    EXPECT_EQ(GetProcAddress(environment, "GetUserProfileDirectoryW"),
              reinterpret_cast<FARPROC>(&GetUserProfileDirectoryW));
    EXPECT_EQ(GetProcAddress(network, "NetApiBufferFree"), reinterpret_cast<FARPROC>(&NetApiBufferFree));
    EXPECT_EQ(GetProcAddress(own, "GetLastError"), reinterpret_cast<FARPROC>(&GetLastError));
    for (HMODULE module : {HMODULE(environment), HMODULE(network), HMODULE(own)})
        for (const char* name : {"NetNothing", "", static_cast<const char*>(nullptr)}) {
            EXPECT_EQ(GetProcAddress(module, name), nullptr);
            EXPECT_EQ(GetLastError(), ERROR_PROC_NOT_FOUND);
        }
    EXPECT_EQ(GetProcAddress(environment, "NetApiBufferFree"), nullptr);
    EXPECT_EQ(string(environment, 1), "error 1812");
}

TEST(Modules, aModuleCutShortAnywhereIsNoModule) {
    const Bytes whole = sample().module();
    for (std::size_t size = 0; size < whole.size(); ++size) {
        EXPECT_EQ(resourceModuleOf(whole.data(), size), nullptr) << size;
        EXPECT_EQ(GetLastError(), ERROR_BAD_EXE_FORMAT) << size;
    }
    EXPECT_EQ(string(ModuleOwner(whole), 1), "one");
}

TEST(Modules, noSingleByteOfAModuleCanDoHarm) {
    const Bytes whole = sample().module();
    std::size_t loaded = 0;
    for (std::size_t at = 0; at < whole.size(); ++at)
        for (int change : {0x01, 0x80, 0xFF, static_cast<int>(whole[at])}) {
            Bytes changed = whole;
            changed[at] = static_cast<std::uint8_t>(changed[at] ^ change);
            ModuleOwner module(changed);
            if (module == nullptr) continue;
            ++loaded;
            askForEverything(module);
        }
    EXPECT_GT(loaded, whole.size());
}

TEST(Modules, aDirectoryThatDoesNotHoldIsRefused) {
    const Bytes good = PeBuilder().add(6, 1, 0, PeBuilder::strings({u"", u"one"})).section();
    // One table of one entry each for types, names and languages, then the entry of the data.
    constexpr std::size_t typeEntry = 16;
    constexpr std::size_t nameEntry = typeEntry + 24;
    constexpr std::size_t languageEntry = nameEntry + 24;
    constexpr std::size_t dataEntry = languageEntry + 8;
    struct Row {
        const char* name;
        std::size_t at;
        std::uint32_t value;
        const char* answer;
    };
    const Row rows[] = {
        {"as it was", typeEntry, 6, "one"},
        {"a type that is data", typeEntry + 4, dataEntry, "error 1812"},
        {"a name that is data", nameEntry + 4, dataEntry, "error 1812"},
        {"a language that is a table", languageEntry + 4, 0x80000000, "error 1812"},
        {"names that are the types", typeEntry + 4, 0x80000000, "error 1812"},
        {"languages that are the names", nameEntry + 4, 0x80000000 + typeEntry + 8, "error 1812"},
        {"names behind the end", typeEntry + 4, 0x8000FFFF, "error 1812"},
        {"a text name behind the end", typeEntry, 0x80FFFFFF, "error 1812"},
        {"too many types", 12, 0xFFFFFFFF, "error 1812"},
        {"data behind the end", dataEntry, 0xFFFFFFF0, "error 1812"},
        {"data before the section", dataEntry, 0, "error 1812"},
        {"data too long", dataEntry + 4, 0x7FFFFFFF, "error 1812"},
        {"data of no size", dataEntry + 4, 0, "error 1812"},
        {"data of half a string", dataEntry + 4, 5, "error 1812"},
        {"data at an odd address", dataEntry, PeBuilder::address + dataEntry + 17, "error 1812"},
        {"another type", typeEntry, 7, "error 1813"},
        {"another block", nameEntry, 2, "error 1814"},
    };
    for (const Row& row : rows) {
        Bytes section = good;
        std::memcpy(section.data() + row.at, &row.value, 4);
        EXPECT_EQ(string(ModuleOwner(PeBuilder::module(section)), 1), row.answer) << row.name;
    }
}

// A directory of tables that all lead to one another has more paths than bytes.
TEST(Modules, aDirectoryThatSpreadsWithoutEndIsRefusedAtOnce) {
    constexpr std::size_t count = 60000;
    Bytes section;
    PeBuilder::put(section, 0, 14);
    PeBuilder::put(section, count, 2);
    for (std::size_t i = 0; i < count; ++i) {
        PeBuilder::put(section, 6, 4);
        PeBuilder::put(section, 0x80000000U, 4);
    }
    EXPECT_EQ(string(ModuleOwner(PeBuilder::module(section)), 1), "error 1812");
}

TEST(Modules, severalThreadsLoadReadAndFreeAtOnce) {
    TemporaryFolder folder;
    Bytes bytes = sample().module();
    folder.write("r.dll", {bytes.begin(), bytes.end()});
    std::u16string path = folder / "r.dll";
    std::atomic<int> good = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([&] {
            for (int round = 0; round < 100; ++round) {
                ModuleOwner module(LoadLibraryW(toWide(path)));
                good += string(module, 1) == "one" && !iconImages(LoadIconW(module, MAKEINTRESOURCEW(100))).empty();
            }
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(good, 400);
}

} // namespace
