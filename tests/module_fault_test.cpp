// The edge of the module, with every service of the platform failing in every way: each service in turn throws, and
// whatever it throws, nothing leaves the module, every operation returns, and the area is usable.
//
// The services defined here stand in front of the platform's for the module and for the platform itself. Each case runs
// in a process of its own, since much is found out once only.
#include "jtcore/Services/KolmaException.h"
#include "jtcore/Services/UserPreferences.h"
#include "platform/common_dialogs.h"
#include "platform/controls.h"
#include "platform/files.h"
#include "platform/gdi.h"
#include "platform/heap.h"
#include "platform/identity.h"
#include "platform/modules.h"
#include "platform/registry.h"
#include "platform/spooler.h"
#include "platform/windows.h"
#include "tests/ElfSymbols.h"
#include "tests/FakeWindows.h"
#include "tests/ModuleUnderTest.h"
#include "tests/fakeWindowCalls.h"
#include "tests/replacedNew.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>

namespace {

// What a service throws: something of each kind.
enum class Thrown { number, text, runtimeError, noMemory, ofTheFamily };
constexpr Thrown allKinds[] = {Thrown::number, Thrown::text, Thrown::runtimeError, Thrown::noMemory,
                               Thrown::ofTheFamily};
constexpr const char* kindNames[] = {"int", "const char*", "std::runtime_error", "std::bad_alloc", "KolmaException"};

[[noreturn]] void throwOne(Thrown kind) {
    switch (kind) {
    case Thrown::number:
        throw 42;
    case Thrown::text:
        throw "something";
    case Thrown::runtimeError:
        throw std::runtime_error("something");
    case Thrown::noMemory:
        throw std::bad_alloc();
    case Thrown::ofTheFamily:
        raise<RegistryRequestException>(u"Service::call(): no.\r\n");
    }
    std::abort();
}

// Which service throws, from which of its calls on, and whether only that once.
struct Fault {
    const char* service = nullptr;
    Thrown kind = Thrown::number;
    int firstCall = 1;
    bool onlyOnce = false;
    int calls = 0;
};
Fault fault;

// The module's calls alone count: what the platform's services make of each other is no throw of the system's.
bool isOfModule(const void* caller) {
    Dl_info info{};
    return dladdr(caller, &info) != 0 && std::strstr(info.dli_fname, "libjtui37") != nullptr;
}

void maybeThrow(const char* service) {
    if (!fault.service || std::strcmp(fault.service, service) != 0) return;
    ++fault.calls;
    if (fault.onlyOnce ? fault.calls == fault.firstCall : fault.calls >= fault.firstCall) throwOne(fault.kind);
}

} // namespace

// Result, name, parameters, arguments: every service that the module calls.
#define SERVICES(ROW)                                                                                                  \
    ROW(BOOL, CloseHandle, (HANDLE a), (a))                                                                            \
    ROW(HANDLE, CreateFileW, (LPCWSTR a, DWORD b, DWORD c, LPSECURITY_ATTRIBUTES d, DWORD e, DWORD f, HANDLE g),       \
        (a, b, c, d, e, f, g))                                                                                         \
    ROW(BOOL, DeleteFileW, (LPCWSTR a), (a))                                                                           \
    ROW(DWORD, DeletePrinterDataW, (HANDLE a, LPWSTR b), (a, b))                                                       \
    ROW(HRSRC, FindResourceW, (HMODULE a, LPCWSTR b, LPCWSTR c), (a, b, c))                                            \
    ROW(BOOL, FlushFileBuffers, (HANDLE a), (a))                                                                       \
    ROW(BOOL, FreeLibrary, (HMODULE a), (a))                                                                           \
    ROW(HANDLE, GetCurrentProcess, (), ())                                                                             \
    ROW(DWORD, GetFileAttributesW, (LPCWSTR a), (a))                                                                   \
    ROW(DWORD, GetFileSize, (HANDLE a, LPDWORD b), (a, b))                                                             \
    ROW(DWORD, GetLastError, (), ())                                                                                   \
    ROW(BOOL, GetVersionExW, (LPOSVERSIONINFOW a), (a))                                                                \
    ROW(LPVOID, HeapAlloc, (HANDLE a, DWORD b, SIZE_T c), (a, b, c))                                                   \
    ROW(int, GetLocaleInfoW, (LCID a, LCTYPE b, LPWSTR c, int d), (a, b, c, d))                                        \
    ROW(DWORD, GetPrinterDataW, (HANDLE a, LPWSTR b, LPDWORD c, LPBYTE d, DWORD e, LPDWORD f), (a, b, c, d, e, f))     \
    ROW(BOOL, GetPrinterDriverDirectoryW, (LPWSTR a, LPWSTR b, DWORD c, LPBYTE d, DWORD e, LPDWORD f),                 \
        (a, b, c, d, e, f))                                                                                            \
    ROW(BOOL, GetPrinterDriverW, (HANDLE a, LPWSTR b, DWORD c, LPBYTE d, DWORD e, LPDWORD f), (a, b, c, d, e, f))      \
    ROW(FARPROC, GetProcAddress, (HMODULE a, LPCSTR b), (a, b))                                                        \
    ROW(UINT, GetWindowsDirectoryW, (LPWSTR a, UINT b), (a, b))                                                        \
    ROW(HICON, LoadIconW, (HINSTANCE a, LPCWSTR b), (a, b))                                                            \
    ROW(HMODULE, LoadLibraryExW, (LPCWSTR a, HANDLE b, DWORD c), (a, b, c))                                            \
    ROW(HMODULE, LoadLibraryW, (LPCWSTR a), (a))                                                                       \
    ROW(HGLOBAL, LoadResource, (HMODULE a, HRSRC b), (a, b))                                                           \
    ROW(int, LoadStringW, (HINSTANCE a, UINT b, LPWSTR c, int d), (a, b, c, d))                                        \
    ROW(LPVOID, LockResource, (HGLOBAL a), (a))                                                                        \
    ROW(BOOL, MoveFileExW, (LPCWSTR a, LPCWSTR b, DWORD c), (a, b, c))                                                 \
    ROW(int, MulDiv, (int a, int b, int c), (a, b, c))                                                                 \
    ROW(BOOL, OpenProcessToken, (HANDLE a, DWORD b, PHANDLE c), (a, b, c))                                             \
    ROW(BOOL, ReadFile, (HANDLE a, LPVOID b, DWORD c, LPDWORD d, LPOVERLAPPED e), (a, b, c, d, e))                     \
    ROW(LSTATUS, RegCloseKey, (HKEY a), (a))                                                                           \
    ROW(LSTATUS, RegCreateKeyExW,                                                                                      \
        (HKEY a, LPCWSTR b, DWORD c, LPWSTR d, DWORD e, REGSAM f, LPSECURITY_ATTRIBUTES g, PHKEY h, LPDWORD i),        \
        (a, b, c, d, e, f, g, h, i))                                                                                   \
    ROW(LSTATUS, RegOpenKeyExW, (HKEY a, LPCWSTR b, DWORD c, REGSAM d, PHKEY e), (a, b, c, d, e))                      \
    ROW(LSTATUS, RegQueryValueExW, (HKEY a, LPCWSTR b, LPDWORD c, LPDWORD d, LPBYTE e, LPDWORD f), (a, b, c, d, e, f)) \
    ROW(LSTATUS, RegSetValueExW, (HKEY a, LPCWSTR b, DWORD c, DWORD d, const BYTE* e, DWORD f), (a, b, c, d, e, f))    \
    ROW(BOOL, ReplaceFileW, (LPCWSTR a, LPCWSTR b, LPCWSTR c, DWORD d, LPVOID e, LPVOID f), (a, b, c, d, e, f))        \
    ROW(void, SetLastError, (DWORD a), (a))                                                                            \
    ROW(DWORD, SetPrinterDataW, (HANDLE a, LPWSTR b, DWORD c, LPBYTE d, DWORD e), (a, b, c, d, e))                     \
    ROW(DWORD, SizeofResource, (HMODULE a, HRSRC b), (a, b))                                                           \
    ROW(DWORD, WNetGetUserW, (LPCWSTR a, LPWSTR b, LPDWORD c), (a, b, c))                                              \
    ROW(BOOL, WriteFile, (HANDLE a, LPCVOID b, DWORD c, LPDWORD d, LPOVERLAPPED e), (a, b, c, d, e))

#define SERVICE(Result, Name, Parameters, Arguments)                                                                   \
    Result Name Parameters {                                                                                           \
        if (isOfModule(__builtin_return_address(0))) maybeThrow(#Name);                                                \
        static auto* real = reinterpret_cast<Result(*) Parameters>(dlsym(RTLD_NEXT, #Name));                           \
        return real Arguments;                                                                                         \
    }
SERVICES(SERVICE)

// No window layer is wanted here: what is not played is answered as where there is none.
#define WINDOW_SERVICE(Result, Name, Parameters, Arguments, none)                                                      \
    Result Name Parameters {                                                                                           \
        if (isOfModule(__builtin_return_address(0))) maybeThrow(#Name);                                                \
        static auto* played = reinterpret_cast<Result(*) Parameters>(fakes::find(#Name));                              \
        return played ? played Arguments : static_cast<Result>(none);                                                  \
    }
#define WINDOW_CALL(...) WINDOW_SERVICE(__VA_ARGS__)
#define WINDOW_HOOKED(Result, Name, Parameters, Arguments, none) SERVICE(Result, Name, Parameters, Arguments)
#include "platform/posix/windowCalls.def"

namespace {

constexpr const char* allServices[] = {
#define SERVICE_NAME(Result, Name, Parameters, Arguments) #Name,
    SERVICES(SERVICE_NAME)};

constexpr const char* windowServices[] = {
#define WINDOW_CALL(Result, Name, Parameters, Arguments, none) #Name,
#include "platform/posix/windowCalls.def"
};

const OwnStores stores;

// What the host lends the module may throw as well.
struct ThrowingHost final : IPrintOemDriverUI {
    HRESULT QueryInterface(REFIID, void** object) override {
        maybeThrow("host QueryInterface");
        *object = this;
        return S_OK;
    }
    ULONG AddRef() override { return 2; }
    ULONG Release() override {
        maybeThrow("host Release");
        return 1;
    }
    HRESULT DrvGetDriverSetting(PVOID, LPCSTR, PVOID, DWORD, PDWORD, PDWORD) override { return E_NOTIMPL; }
    HRESULT DrvUpgradeRegistrySetting(HANDLE, LPCSTR, LPCSTR) override { return E_NOTIMPL; }
    HRESULT DrvUpdateUISetting(PVOID, PVOID, DWORD, DWORD) override { return E_NOTIMPL; }
};

// Everything a host does with a plug-in, in one conversation. The steps say which of them stood when a case ended.
class Conversation {
public:
    Conversation(const ModuleUnderTest& module, HANDLE printer, int report)
        : module_(module), printer_(printer), report_(report) {}

    void run() {
        step("create");
        IPrintOemUI* object = module_.createObject();
        if (object) talkTo(*object);
        step("unload");
        module_.canUnloadNow();
    }

    // Areas that were not usable after a call.
    const std::string& faults() const { return faults_; }

private:
    void talkTo(IPrintOemUI& object) {
        step("GetInfo");
        DWORD value = 0;
        DWORD needed = 0;
        object.GetInfo(OEMGI_GETSIGNATURE, &value, sizeof value, &needed);
        object.GetInfo(OEMGI_GETSIGNATURE, &value, 0, &needed);
        step("PublishDriverInterface");
        object.PublishDriverInterface(&host_);
        devMode(object, "default", OEMDM_DEFAULT, areas_.good, areas_.absent);
        devMode(object, "convert", OEMDM_CONVERT, areas_.good, areas_.absent);
        devMode(object, "convert into corrupt", OEMDM_CONVERT, areas_.good, areas_.corrupt);
        devMode(object, "convert of corrupt", OEMDM_CONVERT, areas_.corrupt, areas_.good);
        devMode(object, "merge", OEMDM_MERGE, areas_.good, areas_.other);
        devMode(object, "merge of equals", OEMDM_MERGE, areas_.good, areas_.good);
        sheets(object);
        step("QueryColorProfile");
        ULONG room = 0;
        FLONG kind = 0;
        object.QueryColorProfile(nullptr, nullptr, nullptr, nullptr, QCP_DEVICEPROFILE, nullptr, &room, &kind);
        step("Release");
        object.Release();
    }

    void devMode(IPrintOemUI& object, const char* what, DWORD mode, const Area& in, Area out) {
        step(what);
        Area incoming = in;
        OEMDMPARAM param{};
        param.hPrinter = printer_;
        param.pOEMDMIn = incoming.data();
        param.pOEMDMOut = out.data();
        const bool succeeded = object.DevMode(mode, &param) == S_OK;
        const Fault before = std::exchange(fault, Fault());
        if (!succeeded || copiesOf(out) < 0) faults_ += std::string(" no usable area after ") + what;
        fault = before;
    }

    // The items in the host's sheets: counted, filled, and applied.
    void items(IPrintOemUI& object, DWORD mode) {
        const HANDLE heap = HeapCreate(0, 0, 0);
        OPTITEM filled[2]{};
        OEMCUIPPARAM param{};
        param.hPrinter = printer_;
        param.hOEMHeap = heap;
        param.pOEMDM = areas_.document.data();
        object.CommonUIProp(mode, &param);
        param.pOEMOptItems = filled;
        object.CommonUIProp(mode, &param);
        if (param.cOEMOptItems != 0 && param.OEMCUIPCallback)
            for (const WORD reason : {CPSUICB_REASON_SEL_CHANGED, CPSUICB_REASON_APPLYNOW, CPSUICB_REASON_KILLACTIVE}) {
                CPSUICBPARAM callback{};
                callback.Reason = reason;
                callback.pCurItem = filled;
                filled[0].Sel = 1;
                param.OEMCUIPCallback(&callback, &param);
            }
        HeapDestroy(heap);
    }

    static LONG_PTR CALLBACK addPage(HANDLE sheet, UINT function, LPARAM first, LPARAM) {
        if (function == CPSFUNC_ADD_PROPSHEETPAGEW)
            *static_cast<PROPSHEETPAGEW*>(sheet) = *reinterpret_cast<const PROPSHEETPAGEW*>(first);
        return 1;
    }

    // The document's sheet: its page opened in a window, used, applied and accepted.
    void sheet(IPrintOemUI& object) {
        FakeWindows windows;
        PROPSHEETPAGEW page{};
        OEMUIPSPARAM param{};
        param.hPrinter = printer_;
        param.pOEMDM = areas_.document.data();
        param.dwFlags = DM_UPDATE;
        PROPSHEETUI_INFO info{};
        info.Version = PROPSHEETUI_INFO_VERSION;
        info.hComPropSheet = &page;
        info.pfnComPropSheet = addPage;
        info.lParamInit = reinterpret_cast<LPARAM>(&param);
        object.DocumentPropertySheets(&info, reinterpret_cast<LPARAM>(&param));
        if (page.pfnDlgProc) {
            const HWND window = windows.openPage(page);
            windows.send(window, WM_COMMAND, 1, 0);
            windows.notify(window, PSN_APPLY);
            windows.close(window);
        }
        SETRESULT_INFO result{sizeof result, 0, nullptr, CPSUI_OK};
        info.Reason = PROPSHEETUI_REASON_SET_RESULT;
        object.DocumentPropertySheets(&info, reinterpret_cast<LPARAM>(&result));
        info.Reason = PROPSHEETUI_REASON_DESTROY;
        object.DocumentPropertySheets(&info, 0);
        object.DocumentPropertySheets(nullptr, 0);
        object.DevicePropertySheets(nullptr, 0);
        const Fault before = std::exchange(fault, Fault());
        if (copiesOf(areas_.document) != 3) faults_ += " the document lost its settings";
        fault = before;
    }

    void sheets(IPrintOemUI& object) {
        step("CommonUIProp, document");
        items(object, OEMCUIP_DOCPROP);
        step("CommonUIProp, printer");
        items(object, OEMCUIP_PRNPROP);
        step("DocumentPropertySheets");
        sheet(object);
    }

    void step(const char* what) const {
        const std::string line = std::string(what) + '\n';
        if (write(report_, line.data(), line.size()) < 0) std::abort();
    }

    struct Areas {
        Area good = areaWithCopies(3);
        Area other = areaWithCopies(8);
        Area corrupt = corruptArea();
        Area absent = absentArea();
        Area document = areaWithCopies(3);
    };

    const ModuleUnderTest& module_;
    HANDLE printer_;
    int report_;
    ThrowingHost host_;
    Areas areas_;
    std::string faults_;
};

class ModuleFaults : public testing::Test {
protected:
    // With preferences stored, more of the services have something to do.
    ModuleFaults() {
        UserPreferences().setJobNamePreference(false);
        UserPreferences(driver).setJobNamePreference(false);
    }

    // Holds the conversation with the fault in a process of its own. Returns what went wrong, empty when nothing
    // did.
    std::string talkWith(const Fault& armed) {
        int report[2];
        if (pipe(report) != 0) return "no pipe";
        const pid_t child = fork();
        if (child == 0) talkAsChild(armed, report[1]);
        close(report[1]);
        const std::string steps = readAll(report[0]);
        close(report[0]);
        int status = 0;
        waitpid(child, &status, 0);
        if (WIFSIGNALED(status))
            return "ended by signal " + std::to_string(WTERMSIG(status)) + " in " + lastLine(steps);
        if (WEXITSTATUS(status) != 0) return lastLine(steps);
        return "";
    }

private:
    [[noreturn]] void talkAsChild(const Fault& armed, int report) {
        const int nowhere = open("/dev/null", O_WRONLY);
        dup2(nowhere, STDERR_FILENO);
        std::string wrong;
        try {
            Conversation conversation(module_, printer_.handle, report);
            fault = armed;
            conversation.run();
            fault = Fault();
            wrong = conversation.faults();
        } catch (...) {
            wrong = "something escaped";
        }
        if (!wrong.empty() && write(report, wrong.data(), wrong.size()) < 0) _exit(2);
        _exit(wrong.empty() ? 0 : 1);
    }

    static std::string readAll(int pipe) {
        std::string all;
        char buffer[4096];
        for (ssize_t count; (count = read(pipe, buffer, sizeof buffer)) > 0;)
            all.append(buffer, static_cast<std::size_t>(count));
        return all;
    }

    static std::string lastLine(std::string steps) {
        while (steps.ends_with('\n'))
            steps.pop_back();
        return steps.substr(steps.rfind('\n') + 1);
    }

    static constexpr char16_t driver[] = u"Kolma Tarsel 77 PS3 C3";
    TestPrinter printer_{driver};
    ModuleUnderTest module_;
};

} // namespace

TEST_F(ModuleFaults, theDoublesCoverEveryServiceThatTheModuleCalls) {
    std::set<std::string> ours(std::begin(allServices), std::end(allServices));
    ours.insert(std::begin(windowServices), std::end(windowServices));
    const ElfSymbols platform(KOLMA_BUILD_DIR "/lib/kolma/3/libkolmaplatform.so");
    const ElfSymbols module(ModuleUnderTest::path());
    for (const std::string& imported : module.imported()) {
        EXPECT_TRUE(!platform.exported().contains(imported) || ours.contains(imported)) << imported << " has no double";
    }
}

TEST_F(ModuleFaults, nothingEscapesWhateverAServiceThrows) {
    EXPECT_EQ(talkWith(Fault()), "") << "with no fault at all";
    for (const char* service : allServices)
        for (const Thrown kind : allKinds) {
            Fault armed;
            armed.service = service;
            armed.kind = kind;
            EXPECT_EQ(talkWith(armed), "") << service << " throws " << kindNames[static_cast<int>(kind)];
        }
}

TEST_F(ModuleFaults, nothingEscapesWhicheverCallOfAServiceThrows) {
    for (const char* service : allServices)
        for (int call = 1; call <= 6; ++call) {
            Fault armed;
            armed.service = service;
            armed.kind = call % 2 ? Thrown::runtimeError : Thrown::number;
            armed.firstCall = call;
            armed.onlyOnce = true;
            EXPECT_EQ(talkWith(armed), "") << "call " << call << " of " << service << " throws";
        }
}

// Of the window calls those that the module makes, each failing from its first call on and at a later one.
TEST_F(ModuleFaults, nothingEscapesWhateverAWindowCallThrows) {
    const auto imported = ElfSymbols(ModuleUnderTest::path()).imported();
    for (const char* service : windowServices) {
        if (!imported.contains(service)) continue;
        for (const int call : {1, 4}) {
            Fault armed;
            armed.service = service;
            armed.kind = call == 1 ? Thrown::number : Thrown::runtimeError;
            armed.firstCall = call;
            armed.onlyOnce = call != 1;
            EXPECT_EQ(talkWith(armed), "") << "call " << call << " of " << service << " throws";
        }
    }
}

TEST_F(ModuleFaults, nothingEscapesWhateverTheHostsOwnObjectsThrow) {
    for (const char* operation : {"host QueryInterface", "host Release"})
        for (const Thrown kind : allKinds) {
            Fault armed;
            armed.service = operation;
            armed.kind = kind;
            EXPECT_EQ(talkWith(armed), "") << operation << " throws " << kindNames[static_cast<int>(kind)];
        }
}

// Each operation with its first allocation failing, then its second, and so on until it needs no more; once with that
// one alone, once with all that follow.
TEST_F(ModuleFaults, everyAllocationOfAnOperationMayFail) {
    // The areas are new to the process each time: one that it knows is not read again.
    struct Operation {
        const char* what;
        DWORD mode;
        Area (*in)(std::int32_t copies);
        Area (*out)(std::int32_t copies);
    };
    const auto good = [](std::int32_t copies) { return areaWithCopies(copies); };
    const auto other = [](std::int32_t copies) { return areaWithCopies(copies + 500'000); };
    const auto corrupt = [](std::int32_t) { return corruptArea(); };
    const auto absent = [](std::int32_t) { return absentArea(); };
    std::int32_t copies = 0;
    const TestPrinter printer(u"Kolma Tarsel 77 PS3 C3", u"Press 2");
    const ModuleUnderTest module;
    const PlugInObject object(module);
    for (const Operation& operation :
         {Operation{"convert", OEMDM_CONVERT, good, absent},
          Operation{"convert of corrupt", OEMDM_CONVERT, corrupt, other},
          Operation{"convert into corrupt", OEMDM_CONVERT, good, corrupt}, Operation{"merge", OEMDM_MERGE, good, other},
          Operation{"default", OEMDM_DEFAULT, absent, absent}})
        for (const bool onlyOne : {true, false}) {
            bool hasFailed = true;
            long point = 0;
            for (; hasFailed; ++point) {
                Area in = operation.in(++copies);
                Area out = operation.out(copies);
                OEMDMPARAM param{};
                param.hPrinter = printer.handle;
                param.pOEMDMIn = in.data();
                param.pOEMDMOut = out.data();
                allocations::onlyOneFails = onlyOne;
                allocations::left = point;
                const HRESULT result = object->DevMode(operation.mode, &param);
                hasFailed = allocations::left.exchange(-1) <= 0;
                ASSERT_EQ(result, S_OK) << operation.what << ", allocation " << point;
                ASSERT_GE(copiesOf(out), 0) << operation.what << ", allocation " << point;
            }
            EXPECT_GT(point, 3) << operation.what << ": its allocations are counted";
        }
    for (const bool onlyOne : {true, false}) {
        bool isMade = false;
        for (long point = 0; !isMade; ++point) {
            allocations::onlyOneFails = onlyOne;
            allocations::left = point;
            IPrintOemUI* made = module.createObject();
            isMade = allocations::left.exchange(-1) > 0;
            if (made) made->Release();
        }
    }
}

// A double that never threw would let every test above pass.
TEST_F(ModuleFaults, anArmedServiceIsCalledByTheModuleAndThrows) {
    fault = {"LoadLibraryExW", Thrown::text};
    PlugInObject(ModuleUnderTest()).get();
    const int calls = std::exchange(fault, Fault()).calls;
    EXPECT_GT(calls, 0);
    EXPECT_THROW(throwOne(Thrown::text), const char*);
}
