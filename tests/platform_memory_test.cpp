#include "tests/TemporaryFolder.h"
#include "tests/peBuilder.h"

#include "platform/files.h"
#include "platform/heap.h"
#include "platform/identity.h"
#include "platform/modules.h"
#include "platform/posix/resourceModuleOf.h"
#include "platform/registry.h"
#include "platform/spooler.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <new>

namespace {

// Counts down with each allocation of this thread; the one that reaches 0 fails, and all behind it.
thread_local long allocationsLeft = -1;

void* allocate(std::size_t size) {
    if (allocationsLeft == 0) throw std::bad_alloc();
    if (allocationsLeft > 0) --allocationsLeft;
    void* block = std::malloc(size == 0 ? 1 : size);
    if (block == nullptr) throw std::bad_alloc();
    return block;
}

} // namespace

void* operator new(std::size_t size) { return allocate(size); }
void* operator new[](std::size_t size) { return allocate(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    try {
        return allocate(size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}
// Not inlined, since a compiler that saw malloc in one and free in the other would warn of the pair.
[[gnu::noinline]] void operator delete(void* block) noexcept { std::free(block); }
[[gnu::noinline]] void operator delete[](void* block) noexcept { std::free(block); }
[[gnu::noinline]] void operator delete(void* block, std::size_t) noexcept { std::free(block); }
[[gnu::noinline]] void operator delete(void* block, const std::nothrow_t&) noexcept { std::free(block); }
[[gnu::noinline]] void operator delete[](void* block, std::size_t) noexcept { std::free(block); }

namespace {

// Each service, with no memory from its k-th allocation on, for every k: it says so, and works as soon as there is
// memory again.
TEST(PlatformMemory, noServiceLetsAFailedAllocationOut) {
    TemporaryFolder folder;
    EnvironmentVariable config("XDG_CONFIG_HOME", folder.path().c_str());
    EnvironmentVariable data("XDG_DATA_HOME", folder.path().c_str());
    std::u16string file = folder / "a file with a name that is too long to be kept in place";
    std::u16string other = folder / "another file with a name that is too long to be kept in place";
    std::u16string printerName = u"A printer with a name that is too long to be kept in place";
    std::u16string driver = u"A driver";
    folder.write("a file with a name that is too long to be kept in place", "x");
    PeBuilder::Bytes pe = PeBuilder().add(6, 1, 0, PeBuilder::strings({u"", u"one"})).module();
    PRINTER_INFO_2W info{};
    info.pPrinterName = printerName.data();
    info.pDriverName = driver.data();
    ASSERT_TRUE(ClosePrinter(AddPrinterW(nullptr, 2, reinterpret_cast<LPBYTE>(&info))));

    auto told = [](bool good) { return good ? ERROR_SUCCESS : GetLastError(); };
    struct Row {
        const char* name;
        std::function<DWORD()> run;
    };
    const Row rows[] = {
        {"file",
         [&] {
             HANDLE handle = CreateFileW(toWide(file), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
             if (handle == INVALID_HANDLE_VALUE) return GetLastError();
             return told(CloseHandle(handle));
         }},
        {"move there", [&] { return told(MoveFileExW(toWide(file), toWide(other), MOVEFILE_WRITE_THROUGH)); }},
        {"move back", [&] { return told(MoveFileExW(toWide(other), toWide(file), MOVEFILE_WRITE_THROUGH)); }},
        {"key",
         [&] {
             HKEY key = nullptr;
             LSTATUS error = RegCreateKeyExW(HKEY_CURRENT_USER, u"Software\\A key of this test\\And one below", 0,
                                             nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr);
             BYTE byte = 1;
             if (error == 0) error = RegSetValueExW(key, u"A value of this test", 0, REG_BINARY, &byte, 1);
             DWORD size = 1;
             if (error == 0) error = RegQueryValueExW(key, u"A value of this test", nullptr, nullptr, &byte, &size);
             if (key != nullptr) RegCloseKey(key);
             return static_cast<DWORD>(error);
         }},
        {"printer",
         [&] {
             HANDLE printer = nullptr;
             if (!OpenPrinterW(printerName.data(), &printer, nullptr)) return GetLastError();
             BYTE byte = 1;
             DWORD error = SetPrinterDataW(printer, driver.data(), REG_BINARY, &byte, 1);
             BYTE buffer[2000];
             DWORD needed = 0;
             if (error == 0) error = told(GetPrinterDriverW(printer, nullptr, 2, buffer, sizeof buffer, &needed));
             ClosePrinter(printer);
             return error;
         }},
        {"module",
         [&] {
             HMODULE module = resourceModuleOf(pe.data(), pe.size());
             if (module == nullptr) return GetLastError();
             WCHAR text[10];
             DWORD error = told(LoadStringW(module, 1, text, 10) != 0);
             FreeLibrary(module);
             return error;
         }},
        {"entry",
         [&] {
             HMODULE module = LoadLibraryW(u"userenv.dll");
             if (module == nullptr) return GetLastError();
             DWORD error = told(GetProcAddress(module, "GetUserProfileDirectoryW") != nullptr);
             FreeLibrary(module);
             return error;
         }},
        {"heap",
         [&] {
             HANDLE heap = HeapCreate(0, 0, 0);
             if (heap == nullptr) return GetLastError();
             DWORD error = told(HeapAlloc(heap, 0, 10) != nullptr);
             HeapDestroy(heap);
             return error;
         }},
        {"user",
         [&] {
             LPBYTE buffer = nullptr;
             DWORD error = NetWkstaUserGetInfo(nullptr, 0, &buffer);
             NetApiBufferFree(buffer);
             return error;
         }},
    };
    for (const Row& row : rows) {
        DWORD error = ERROR_NOT_ENOUGH_MEMORY;
        long failures = 0;
        for (long k = 0; error != 0 && k < 10000; ++k) {
            allocationsLeft = k;
            error = row.run();
            allocationsLeft = -1;
            failures += error == 0 ? 0 : 1;
            ASSERT_TRUE(error == 0 || error == ERROR_NOT_ENOUGH_MEMORY) << row.name << " " << k << ": " << error;
        }
        EXPECT_EQ(error, 0U) << row.name;
        EXPECT_GT(failures, 0) << row.name;
    }
}

} // namespace
