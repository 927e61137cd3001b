// Published calls that fail as a conversation tells: a library that is loaded before the program's own, so that calls
// come here first. KOLMA_FAULTS has a fault a line:
//
//     CALL NUMBER answers VALUE        the call gives that value and does nothing
//     CALL NUMBER throws failure       it throws what derives from std::exception
//     CALL NUMBER throws anything      it throws something that nobody knows
//
// The number tells which call: a string's id, a control's, a message's. * stands for every one. Only the calls of the
// plug-in module fail, whose features these are.
#include "platform/modules.h"
#include "platform/registry.h"
#include "platform/spooler.h"
#include "platform/windows.h"

#include <cstdlib>
#include <dlfcn.h>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr std::string_view moduleName = "libjtui37.so";

struct Fault {
    std::string call;
    std::string number;
    std::string kind;
    std::string value;
};

std::vector<Fault> readFaults() {
    const char* text = std::getenv("KOLMA_FAULTS");
    std::istringstream stream(text ? text : "");
    std::vector<Fault> faults;
    for (Fault fault; stream >> fault.call >> fault.number >> fault.kind >> fault.value;)
        faults.push_back(fault);
    return faults;
}

const Fault* findFault(std::string_view call, const std::string& number, void* caller) {
    static const std::vector<Fault> faults = readFaults();
    Dl_info from{};
    if (::dladdr(caller, &from) == 0 || !from.dli_fname || !std::string_view(from.dli_fname).ends_with(moduleName))
        return nullptr;
    for (const Fault& fault : faults)
        if (fault.call == call && (fault.number == "*" || fault.number == number)) return &fault;
    return nullptr;
}

long answerOf(const Fault& fault) {
    if (fault.kind == "answers") return std::stol(fault.value);
    if (fault.value == "failure") throw std::runtime_error("as the conversation tells");
    throw 5; // NOLINT: what nobody knows
}

template <typename Function>
Function* published(const char* name) {
    void* found = ::dlsym(RTLD_NEXT, name);
    if (!found) found = ::dlsym(::dlopen("libz.so.1", RTLD_LAZY | RTLD_NOLOAD), name); // not every library is global
    return reinterpret_cast<Function*>(found);
}

// The platform that the program has loaded is not linked here: there may be several of them on the machine.
std::string idOf(HWND window) {
    static auto* const ask = reinterpret_cast<int(WINAPI*)(HWND)>(::dlsym(RTLD_DEFAULT, "GetDlgCtrlID"));
    return std::to_string(ask(window));
}

} // namespace

#define FAULTY_CALL(Result, name, parameters, arguments, number)                                                       \
    extern "C" __attribute__((visibility("default"))) Result name parameters {                                         \
        if (const Fault* fault = findFault(#name, number, __builtin_return_address(0)))                                \
            return static_cast<Result>(answerOf(*fault));                                                              \
        static auto* const next = published<Result parameters>(#name);                                                 \
        return next arguments;                                                                                         \
    }

FAULTY_CALL(int, LoadStringW, (HINSTANCE module, UINT id, LPWSTR buffer, int size), (module, id, buffer, size),
            std::to_string(id))
FAULTY_CALL(DWORD, SetPrinterDataW, (HANDLE printer, LPWSTR name, DWORD type, LPBYTE data, DWORD size),
            (printer, name, type, data, size), "*")
FAULTY_CALL(DWORD, DeletePrinterDataW, (HANDLE printer, LPWSTR name), (printer, name), "*")
FAULTY_CALL(LSTATUS, RegQueryValueExW,
            (HKEY key, LPCWSTR name, LPDWORD reserved, LPDWORD type, LPBYTE data, LPDWORD size),
            (key, name, reserved, type, data, size), "*")

// What features do to their controls: at the beginning, when they show them, lock them, write into them and read them.
FAULTY_CALL(BOOL, SetPropW, (HWND window, LPCWSTR name, HANDLE data), (window, name, data), idOf(window))
FAULTY_CALL(BOOL, ShowWindow, (HWND window, int command), (window, command), idOf(window))
FAULTY_CALL(BOOL, EnableWindow, (HWND window, BOOL enable), (window, enable), idOf(window))
FAULTY_CALL(BOOL, SetDlgItemTextW, (HWND dialog, int id, LPCWSTR text), (dialog, id, text), std::to_string(id))
FAULTY_CALL(int, GetWindowTextLengthW, (HWND window), (window), idOf(window))

FAULTY_CALL(LRESULT, SendMessageW, (HWND window, UINT message, WPARAM wParam, LPARAM lParam),
            (window, message, wParam, lParam), std::to_string(message))
FAULTY_CALL(LRESULT, SendDlgItemMessageW, (HWND dialog, int id, UINT message, WPARAM wParam, LPARAM lParam),
            (dialog, id, message, wParam, lParam), std::to_string(message))

// What judging the settings needs.
FAULTY_CALL(int, deflate, (void* stream, int flush), (stream, flush), "*")
