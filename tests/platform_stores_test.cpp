#include "tests/TemporaryFolder.h"

#include "platform/registry.h"
#include "platform/spooler.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <sqlite3.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

using Bytes = std::vector<BYTE>;

class Stores : public testing::Test {
protected:
    static HKEY create(const char16_t* path, REGSAM access = KEY_ALL_ACCESS) {
        HKEY key = nullptr;
        EXPECT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, path, 0, nullptr, 0, access, nullptr, &key, nullptr), 0);
        return key;
    }
    static LSTATUS open(const char16_t* path, HKEY& key) {
        return RegOpenKeyExW(HKEY_CURRENT_USER, path, 0, KEY_READ, &key);
    }
    static LSTATUS set(HKEY key, const char16_t* name, DWORD type, const Bytes& data) {
        return RegSetValueExW(key, name, 0, type, data.data(), static_cast<DWORD>(data.size()));
    }
    // The value as the two calls of the published manner give it.
    static LSTATUS get(HKEY key, const char16_t* name, DWORD& type, Bytes& data) {
        DWORD size = 0;
        if (LSTATUS error = RegQueryValueExW(key, name, nullptr, &type, nullptr, &size); error != 0) return error;
        data.assign(size, 0);
        return RegQueryValueExW(key, name, nullptr, &type, data.data(), &size);
    }
    static HANDLE addPrinter(std::u16string name, std::u16string driver = u"Kolma Driver") {
        PRINTER_INFO_2W info{};
        info.pPrinterName = name.data();
        info.pDriverName = driver.data();
        return AddPrinterW(nullptr, 2, reinterpret_cast<LPBYTE>(&info));
    }
    static HANDLE openPrinter(std::u16string name, DWORD access = 0) {
        PRINTER_DEFAULTSW defaults{nullptr, nullptr, access};
        HANDLE printer = nullptr;
        return OpenPrinterW(name.data(), &printer, &defaults) ? printer : nullptr;
    }
    static DWORD setData(HANDLE printer, std::u16string name, Bytes data) {
        return SetPrinterDataW(printer, name.data(), REG_BINARY, data.data(), static_cast<DWORD>(data.size()));
    }
    static DWORD getData(HANDLE printer, std::u16string name, DWORD room, DWORD& needed, Bytes& data) {
        data.assign(room, 0xEE);
        DWORD type = 0;
        return GetPrinterDataW(printer, name.data(), &type, data.data(), room, &needed);
    }

    std::filesystem::path preferences() const { return folder.path() / "config/kolma/preferences.db"; }

    TemporaryFolder folder;
    EnvironmentVariable config{"XDG_CONFIG_HOME", (folder.path() / "config").c_str()};
    EnvironmentVariable data{"XDG_DATA_HOME", (folder.path() / "data").c_str()};
};

TEST_F(Stores, valuesComeBackInTypeAndSizeExactly) {
    struct Row {
        const char16_t* name;
        DWORD type;
        Bytes data;
    };
    const Row rows[] = {
        {u"NUMBER", REG_DWORD, {1, 2, 3, 4}},     {u"TEXT", REG_SZ, {0x61, 0, 0x62, 0}},
        {u"TERMINATED", REG_SZ, {0x61, 0, 0, 0}}, {u"EMPTY", REG_SZ, {}},
        {u"ODD", REG_BINARY, {0, 0, 0}},          {u"LARGE", REG_BINARY, Bytes(300000, 7)},
        {u"", REG_DWORD, {9, 9, 9, 9}},           {u"\u00DCber-Gr\u00F6\u00DFe", REG_DWORD, {5, 0, 0, 0}},
    };
    HKEY key = create(u"SOFTWARE\\Kolma\\Test");
    for (const Row& row : rows) {
        EXPECT_EQ(set(key, row.name, REG_BINARY, {42}), 0);
        EXPECT_EQ(set(key, row.name, row.type, row.data), 0);
    }
    for (const Row& row : rows) {
        DWORD type = 0;
        Bytes data;
        EXPECT_EQ(get(key, row.name, type, data), 0);
        EXPECT_EQ(type, row.type);
        EXPECT_EQ(data, row.data);
    }
    EXPECT_EQ(RegCloseKey(key), 0);
}

TEST_F(Stores, aBufferTooSmallIsLeftAloneAndToldTheSize) {
    HKEY key = create(u"Test");
    ASSERT_EQ(set(key, u"V", REG_BINARY, {1, 2, 3, 4}), 0);
    BYTE buffer[4] = {9, 9, 9, 9};
    DWORD size = 3;
    EXPECT_EQ(RegQueryValueExW(key, u"V", nullptr, nullptr, buffer, &size), LSTATUS(ERROR_MORE_DATA));
    EXPECT_EQ(size, 4U);
    EXPECT_EQ(buffer[0], 9);
    EXPECT_EQ(RegQueryValueExW(key, u"V", nullptr, nullptr, nullptr, nullptr), 0);
    EXPECT_EQ(RegQueryValueExW(key, u"W", nullptr, nullptr, nullptr, &size), LSTATUS(ERROR_FILE_NOT_FOUND));
    EXPECT_EQ(RegQueryValueExW(key, u"V", nullptr, nullptr, buffer, nullptr), LSTATUS(ERROR_INVALID_PARAMETER));
}

TEST_F(Stores, namesCompareWithoutCaseAndKeysComeWithTheirParents) {
    HKEY key = create(u"Software\\Kolma\\\xC4rger\\\x441\x442\x43E\x43F\\");
    ASSERT_EQ(set(key, u"Stra\xDF\x65n-\xE9", REG_DWORD, {1, 0, 0, 0}), 0);
    struct Row {
        const char16_t* path;
        bool exists;
    };
    const Row rows[] = {
        {u"", true},
        {u"SOFTWARE", true},
        {u"software\\KOLMA", true},
        {u"\\software\\\\kolma\\\xE4RGER\\\x421\x422\x41E\x41F", true},
        {u"software\\kolm", false},
        {u"software\\kolma\\arger", false},
        {u"software/kolma", false},
    };
    for (const Row& row : rows) {
        HKEY found = nullptr;
        EXPECT_EQ(open(row.path, found), row.exists ? 0 : LSTATUS(ERROR_FILE_NOT_FOUND))
            << testing::PrintToString(row.path);
    }
    HKEY again = nullptr;
    DWORD disposition = 0;
    EXPECT_EQ(
        RegCreateKeyExW(HKEY_CURRENT_USER, u"SOFTWARE\\kolma", 0, nullptr, 0, KEY_READ, nullptr, &again, &disposition),
        0);
    EXPECT_EQ(disposition, REG_OPENED_EXISTING_KEY);
    HKEY below = nullptr;
    EXPECT_EQ(RegOpenKeyExW(again, u"\xE4rger\\\x421\x442\x43E\x43F", 0, KEY_READ, &below), 0);
    DWORD type = 0;
    Bytes data;
    EXPECT_EQ(get(below, u"STRA\xDF\x45N-\xC9", type, data), 0);
}

TEST_F(Stores, readingCreatesNothing) {
    HKEY key = nullptr;
    EXPECT_EQ(open(u"SOFTWARE", key), LSTATUS(ERROR_FILE_NOT_FOUND));
    EXPECT_EQ(open(u"", key), 0);
    DWORD needed = 0;
    DWORD count = 7;
    EXPECT_TRUE(EnumPrintersW(PRINTER_ENUM_LOCAL, nullptr, 2, nullptr, 0, &needed, &count));
    EXPECT_EQ(needed + count, 0U);
    EXPECT_EQ(openPrinter(u"none"), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PRINTER_NAME);
    EXPECT_EQ(folder.entries(), 0U);
}

TEST_F(Stores, aBadKeyOrOneWithoutTheRightIsRefused) {
    HKEY key = create(u"Test", KEY_READ);
    EXPECT_EQ(set(key, u"V", REG_BINARY, {1}), LSTATUS(ERROR_ACCESS_DENIED));
    EXPECT_EQ(RegCloseKey(key), 0);
    HKEY writer = create(u"Test", KEY_SET_VALUE);
    EXPECT_EQ(RegQueryValueExW(writer, u"V", nullptr, nullptr, nullptr, nullptr), LSTATUS(ERROR_ACCESS_DENIED));
    HANDLE printer = addPrinter(u"P");
    for (HKEY bad : {key, HKEY{nullptr}, reinterpret_cast<HKEY>(printer), reinterpret_cast<HKEY>(this)}) {
        HKEY result = nullptr;
        EXPECT_EQ(set(bad, u"V", REG_BINARY, {1}), LSTATUS(ERROR_INVALID_HANDLE));
        EXPECT_EQ(RegQueryValueExW(bad, u"V", nullptr, nullptr, nullptr, nullptr), LSTATUS(ERROR_INVALID_HANDLE));
        EXPECT_EQ(RegOpenKeyExW(bad, u"x", 0, KEY_READ, &result), LSTATUS(ERROR_INVALID_HANDLE));
        EXPECT_EQ(RegCloseKey(bad), LSTATUS(ERROR_INVALID_HANDLE));
    }
}

TEST_F(Stores, aKeyOutlivesAStoreThatWasTakenAway) {
    HKEY key = create(u"Test");
    std::filesystem::remove_all(folder.path() / "config");
    DWORD type = 0;
    Bytes data;
    EXPECT_EQ(get(key, u"V", type, data), LSTATUS(ERROR_FILE_NOT_FOUND));
    EXPECT_EQ(set(key, u"V", REG_BINARY, {1}), 0);
    EXPECT_EQ(get(key, u"V", type, data), 0);
}

// Every write of both is kept, and none waits for ever.
TEST_F(Stores, twoProcessesWriteAtOnce) {
    constexpr int writes = 25;
    auto writeAll = [](int base) {
        HKEY key = create(u"Test\\Shared");
        for (int i = 0; i < writes; ++i)
            if (set(key, (u"V" + std::u16string(1, static_cast<char16_t>(base + i))).c_str(), REG_BINARY, {1}) != 0)
                return false;
        return true;
    };
    pid_t child = fork();
    if (child == 0) _exit(writeAll(0x4000) ? 0 : 1);
    EXPECT_TRUE(writeAll(0x5000));
    int status = -1;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
    HKEY key = create(u"Test\\Shared");
    for (int i = 0; i < 2 * writes; ++i) {
        int unit = i < writes ? 0x4000 + i : 0x5000 + i - writes;
        EXPECT_EQ(RegQueryValueExW(key, (u"V" + std::u16string(1, static_cast<char16_t>(unit))).c_str(), nullptr,
                                   nullptr, nullptr, nullptr),
                  0)
            << i;
    }
}

// What was read is kept, and must never be told when it is no longer so: whoever changed the store, and however.
TEST_F(Stores, aChangeIsSeenByTheNextRead) {
    HKEY key = create(u"Test");
    BYTE number = 0;
    const auto read = [&] {
        DWORD type = 0;
        Bytes data;
        LSTATUS error = get(key, u"V", type, data);
        return error == 0 ? std::to_string(data.at(0)) : "error " + std::to_string(error);
    };
    const auto write = [&] { return set(key, u"V", REG_BINARY, {++number}); };
    const auto inAnotherProcess = [](auto change) {
        pid_t child = fork();
        if (child == 0) _exit(change() == 0 ? 0 : 1);
        int status = -1;
        waitpid(child, &status, 0);
        return status;
    };
    const auto letItBeKept = [&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(150));
        std::string before = read();
        EXPECT_EQ(read(), before);
        return before;
    };
    ASSERT_EQ(write(), 0);
    const std::string missing = "error " + std::to_string(ERROR_FILE_NOT_FOUND);
    const std::filesystem::path file = preferences();
    const std::filesystem::path copy = folder.path() / "copy";

    EXPECT_EQ(letItBeKept(), "1");
    std::filesystem::copy_file(file, copy);
    for (int round = 0; round < 50; ++round) {
        ASSERT_EQ(write(), 0);
        ASSERT_EQ(read(), std::to_string(number));
        ASSERT_EQ(inAnotherProcess(write), 0);
        ASSERT_EQ(read(), std::to_string(++number)) << "round " << round;
    }
    letItBeKept();
    ASSERT_EQ(inAnotherProcess(write), 0);
    EXPECT_EQ(read(), std::to_string(++number)) << "after it was kept";

    letItBeKept();
    std::filesystem::copy_file(copy, file, std::filesystem::copy_options::overwrite_existing);
    EXPECT_EQ(read(), "1") << "written over in place";
    letItBeKept();
    ASSERT_EQ(write(), 0);
    std::filesystem::rename(copy, file);
    EXPECT_EQ(read(), "1") << "another file in its place";
    letItBeKept();
    std::filesystem::rename(folder.path() / "config", folder.path() / "elsewhere");
    EXPECT_EQ(read(), missing) << "its folder moved away";
    std::filesystem::rename(folder.path() / "elsewhere", folder.path() / "config");
    EXPECT_EQ(read(), "1");
    letItBeKept();
    std::filesystem::remove(file);
    EXPECT_EQ(read(), missing) << "taken away";

    ASSERT_EQ(write(), 0);
    letItBeKept();
    const EnvironmentVariable other("XDG_CONFIG_HOME", (folder.path() / "other").c_str());
    EXPECT_EQ(read(), missing) << "the user's folder is another";
}

TEST_F(Stores, theDriverOfAPrinterThatIsRemovedIsNotTold) {
    HANDLE printer = addPrinter(u"Press");
    const auto askDriver = [printer] {
        BYTE info[256];
        DWORD needed = 0;
        return GetPrinterDriverW(printer, nullptr, 1, info, sizeof info, &needed);
    };
    std::this_thread::sleep_for(std::chrono::milliseconds(150));
    EXPECT_TRUE(askDriver());
    EXPECT_TRUE(askDriver());
    pid_t child = fork();
    if (child == 0) _exit(DeletePrinter(openPrinter(u"Press")) ? 0 : 1);
    int status = -1;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_EQ(status, 0);
    EXPECT_FALSE(askDriver());
    EXPECT_EQ(GetLastError(), ERROR_PRINTER_DELETED);
}

// A store of another kind of journal, which only another program can have made of it: its file stays as it is while it
// changes.
TEST_F(Stores, aStoreWithAWriteAheadLogIsReadEachTime) {
    HKEY key = create(u"Test");
    ASSERT_EQ(set(key, u"V", REG_BINARY, {1}), 0);
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(preferences().c_str(), &other), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(other, "PRAGMA journal_mode = WAL", nullptr, nullptr, nullptr), SQLITE_OK);
    std::this_thread::sleep_for(std::chrono::milliseconds(150));
    for (const char* number : {"01", "02", "03"}) {
        std::string change = std::string("UPDATE value SET data = x'") + number + "'";
        ASSERT_EQ(sqlite3_exec(other, change.c_str(), nullptr, nullptr, nullptr), SQLITE_OK);
        DWORD type = 0;
        Bytes data;
        EXPECT_EQ(get(key, u"V", type, data), 0);
        EXPECT_EQ(data, Bytes{static_cast<BYTE>(number[1] - '0')});
        EXPECT_EQ(get(key, u"V", type, data), 0);
    }
    sqlite3_close(other);
}

TEST_F(Stores, aDamagedStoreIsAnErrorNumber) {
    HANDLE printer = addPrinter(u"Printer");
    HKEY key = create(u"Test");
    ASSERT_EQ(set(key, u"V", REG_BINARY, Bytes(5000, 1)), 0);
    std::string good = folder.content("config/kolma/preferences.db");
    std::string goodPrinters = folder.content("data/kolma/printers.db");
    struct Row {
        const char* name;
        std::string content;
        std::string ofPrinters;
    };
    const Row rows[] = {
        {"no store", std::string(4096, 'x'), std::string(4096, 'x')},
        {"a short text", "text", "text"},
        {"cut short", good.substr(0, 5000), goodPrinters.substr(0, 5000)},
        {"damaged", good.substr(0, 100) + std::string(8000, '\xFF'),
         goodPrinters.substr(0, 100) + std::string(8000, '\xFF')},
        {"of a later layout", std::string(good).replace(60, 4, std::string("\0\0\0\2", 4)),
         std::string(goodPrinters).replace(60, 4, std::string("\0\0\0\2", 4))},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        folder.write("config/kolma/preferences.db", row.content);
        folder.write("data/kolma/printers.db", row.ofPrinters);
        EXPECT_EQ(RegQueryValueExW(key, u"V", nullptr, nullptr, nullptr, nullptr), LSTATUS(ERROR_REGISTRY_CORRUPT));
        EXPECT_EQ(set(key, u"V", REG_BINARY, {1}), LSTATUS(ERROR_REGISTRY_CORRUPT));
        EXPECT_EQ(openPrinter(u"Printer"), nullptr);
        EXPECT_EQ(GetLastError(), ERROR_REGISTRY_CORRUPT);
        EXPECT_EQ(setData(printer, u"V", {1}), ERROR_REGISTRY_CORRUPT);
    }
    // What a killed first write may leave: a file without content is a store without content.
    folder.write("config/kolma/preferences.db", "");
    EXPECT_EQ(RegQueryValueExW(key, u"V", nullptr, nullptr, nullptr, nullptr), LSTATUS(ERROR_FILE_NOT_FOUND));
    EXPECT_EQ(set(key, u"V", REG_BINARY, {1}), 0);
}

TEST_F(Stores, noSingleByteOfAStoreCanDoHarm) {
    HKEY key = create(u"A\\B");
    ASSERT_EQ(set(key, u"V", REG_BINARY, {1, 2, 3}), 0);
    const std::string good = folder.content("config/kolma/preferences.db");
    auto put = [this](std::size_t at, char byte) {
        std::fstream file(preferences(), std::ios::in | std::ios::out | std::ios::binary);
        file.seekp(static_cast<std::streamoff>(at)).put(byte);
    };
    for (std::size_t at = 0; at < good.size(); at += at < 200 ? 1 : 7) {
        put(at, static_cast<char>(~good[at]));
        DWORD type = 0;
        Bytes data;
        LSTATUS result = get(key, u"V", type, data);
        EXPECT_TRUE(result != 0 || data.size() <= 1000) << at;
        put(at, good[at]);
    }
}

TEST_F(Stores, aFolderThatCannotBeMadeIsTold) {
    folder.write("config", "a file where a folder should be");
    HKEY key = nullptr;
    EXPECT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, u"T", 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr),
              LSTATUS(ERROR_PATH_NOT_FOUND));
    EXPECT_EQ(key, nullptr);
    std::u16string broken = u"T\xD800";
    EXPECT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, broken.c_str(), 0, nullptr, 0, KEY_READ, nullptr, &key, nullptr),
              LSTATUS(ERROR_INVALID_NAME));
}

TEST_F(Stores, printersAreAddedFoundListedAndRemoved) {
    HANDLE zebra = addPrinter(u"zebra", u"Driver Z");
    HANDLE anton = addPrinter(u"Anton", u"Driver A");
    EXPECT_NE(zebra, nullptr);
    struct Row {
        std::u16string name;
        std::u16string driver;
        DWORD error;
    };
    const Row bad[] = {
        {u"ZEBRA", u"D", ERROR_PRINTER_ALREADY_EXISTS},
        {u"", u"D", ERROR_INVALID_PRINTER_NAME},
        {u"\\\\server\\p", u"D", ERROR_INVALID_PRINTER_NAME},
        {std::u16string(221, u'p'), u"D", ERROR_INVALID_PRINTER_NAME},
        {u"new", u"", ERROR_UNKNOWN_PRINTER_DRIVER},
        {u"new\xD800", u"D", ERROR_INVALID_NAME},
    };
    for (const Row& row : bad) {
        EXPECT_EQ(addPrinter(row.name, row.driver), nullptr);
        EXPECT_EQ(GetLastError(), row.error);
    }
    DWORD needed = 0;
    DWORD count = 0;
    EXPECT_FALSE(EnumPrintersW(PRINTER_ENUM_LOCAL, nullptr, 2, nullptr, 0, &needed, &count));
    EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
    Bytes buffer(needed);
    EXPECT_FALSE(EnumPrintersW(PRINTER_ENUM_LOCAL, nullptr, 2, buffer.data(), needed - 1, &needed, &count));
    ASSERT_TRUE(EnumPrintersW(PRINTER_ENUM_LOCAL, nullptr, 2, buffer.data(), needed, &needed, &count));
    ASSERT_EQ(count, 2U);
    auto* infos = reinterpret_cast<PRINTER_INFO_2W*>(buffer.data());
    EXPECT_EQ(infos[0].pPrinterName, std::u16string(u"Anton"));
    EXPECT_EQ(infos[1].pDriverName, std::u16string(u"Driver Z"));
    EXPECT_TRUE(DeletePrinter(anton));
    EXPECT_EQ(openPrinter(u"anton"), nullptr);
    EXPECT_NE(openPrinter(u"ZEBRA"), nullptr);
    EXPECT_TRUE(ClosePrinter(anton));
    EXPECT_FALSE(ClosePrinter(anton));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
}

TEST_F(Stores, printerDataFollowThePublishedAnswers) {
    HANDLE printer = addPrinter(u"Printer");
    DWORD needed = 77;
    Bytes data;
    EXPECT_EQ(getData(printer, u"Rendo2xTicket", 4, needed, data), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(needed, 0U);
    ASSERT_EQ(setData(printer, u"Rendo2xTicket", {1, 2, 3}), 0U);
    EXPECT_EQ(getData(printer, u"rendo2xticket", 2, needed, data), ERROR_MORE_DATA);
    EXPECT_EQ(data, Bytes({0xEE, 0xEE}));
    EXPECT_EQ(needed, 3U);
    EXPECT_EQ(getData(printer, u"Rendo2xTicket", 3, needed, data), 0U);
    EXPECT_EQ(data, Bytes({1, 2, 3}));
    std::u16string name = u"Rendo2xTicket";
    EXPECT_EQ(GetPrinterDataW(printer, name.data(), nullptr, nullptr, 0, &needed), ERROR_MORE_DATA);
    EXPECT_EQ(needed, 3U);
    HANDLE reader = openPrinter(u"Printer", PRINTER_ACCESS_USE);
    EXPECT_EQ(setData(reader, name, {1}), ERROR_ACCESS_DENIED);
    EXPECT_FALSE(DeletePrinter(reader));
    EXPECT_EQ(DeletePrinterDataW(printer, name.data()), 0U);
    EXPECT_EQ(DeletePrinterDataW(printer, name.data()), ERROR_FILE_NOT_FOUND);
}

TEST_F(Stores, aHandleToAPrinterThatIsGoneNeverMeansAnother) {
    HANDLE old = addPrinter(u"Printer", u"Old Driver");
    ASSERT_EQ(setData(old, u"V", {1}), 0U);
    ASSERT_TRUE(DeletePrinter(old));
    HANDLE fresh = addPrinter(u"Printer", u"New Driver");
    DWORD needed = 0;
    Bytes data;
    EXPECT_EQ(getData(fresh, u"V", 4, needed, data), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(getData(old, u"V", 4, needed, data), ERROR_PRINTER_DELETED);
    EXPECT_EQ(setData(old, u"V", {1}), ERROR_PRINTER_DELETED);
    EXPECT_FALSE(GetPrinterDriverW(old, nullptr, 1, nullptr, 0, &needed));
    EXPECT_EQ(GetLastError(), ERROR_PRINTER_DELETED);
    for (HANDLE bad : {HANDLE{nullptr}, INVALID_HANDLE_VALUE, HANDLE{this}})
        EXPECT_EQ(setData(bad, u"V", {1}), ERROR_INVALID_HANDLE);
}

TEST_F(Stores, theDriverIsToldWithItsFilesBesideThisLibrary) {
    HANDLE printer = addPrinter(u"Printer", u"Kolma Lindor 75");
    DWORD needed = 0;
    EXPECT_FALSE(GetPrinterDriverW(printer, nullptr, 1, nullptr, 0, &needed));
    EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
    EXPECT_EQ(needed, sizeof(DRIVER_INFO_1W) + sizeof u"Kolma Lindor 75");
    Bytes buffer(needed);
    ASSERT_TRUE(GetPrinterDriverW(printer, nullptr, 1, buffer.data(), needed, &needed));
    EXPECT_EQ(reinterpret_cast<DRIVER_INFO_1W*>(buffer.data())->pName, std::u16string(u"Kolma Lindor 75"));

    std::u16string environment = u"Windows NT x86";
    EXPECT_FALSE(GetPrinterDriverW(printer, environment.data(), 2, nullptr, 0, &needed));
    buffer.resize(needed);
    ASSERT_TRUE(GetPrinterDriverW(printer, environment.data(), 2, buffer.data(), needed, &needed));
    auto* info = reinterpret_cast<DRIVER_INFO_2W*>(buffer.data());
    std::u16string home = fromUtf8(std::filesystem::canonical(KOLMA_BUILD_DIR).string()) + u"/lib/kolma";
    EXPECT_EQ(info->cVersion, 3U);
    EXPECT_EQ(info->pEnvironment, environment);
    EXPECT_EQ(info->pDriverPath, home + u"/3/libjtui37.so");
    WCHAR directory[260];
    ASSERT_TRUE(GetPrinterDriverDirectoryW(nullptr, nullptr, 1, reinterpret_cast<LPBYTE>(directory), sizeof directory,
                                           &needed));
    EXPECT_EQ(directory, home);
    EXPECT_FALSE(
        GetPrinterDriverDirectoryW(nullptr, nullptr, 1, reinterpret_cast<LPBYTE>(directory), needed - 1, &needed));
    EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
    environment = u"Other";
    EXPECT_FALSE(GetPrinterDriverW(printer, environment.data(), 2, nullptr, 0, &needed));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_ENVIRONMENT);
}

} // namespace
