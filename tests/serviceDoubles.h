// Services of the platform that a test may play itself: a call goes to the double while one is set, else to the
// platform. Only the calls of code that is linked into the test program are caught.
#pragma once

#include "platform/files.h"
#include "platform/identity.h"
#include "platform/modules.h"
#include "platform/registry.h"
#include "platform/spooler.h"

#include <functional>
#include <utility>

// One row a service: result, name, parameters, arguments.
#define SERVICE_DOUBLES(ROW)                                                                                           \
    ROW(DWORD, GetFileSize, (HANDLE file, LPDWORD high), (file, high))                                                 \
    ROW(LSTATUS, RegCreateKeyExW,                                                                                      \
        (HKEY key, LPCWSTR path, DWORD reserved, LPWSTR kind, DWORD options, REGSAM access,                            \
         LPSECURITY_ATTRIBUTES security, PHKEY result, LPDWORD disposition),                                           \
        (key, path, reserved, kind, options, access, security, result, disposition))                                   \
    ROW(LSTATUS, RegQueryValueExW,                                                                                     \
        (HKEY key, LPCWSTR name, LPDWORD reserved, LPDWORD type, LPBYTE data, LPDWORD size),                           \
        (key, name, reserved, type, data, size))                                                                       \
    ROW(LSTATUS, RegSetValueExW, (HKEY key, LPCWSTR name, DWORD reserved, DWORD type, const BYTE* data, DWORD size),   \
        (key, name, reserved, type, data, size))                                                                       \
    ROW(BOOL, OpenProcessToken, (HANDLE process, DWORD access, PHANDLE token), (process, access, token))               \
    ROW(UINT, GetWindowsDirectoryW, (LPWSTR buffer, UINT size), (buffer, size))                                        \
    ROW(DWORD, WNetGetUserW, (LPCWSTR name, LPWSTR user, LPDWORD size), (name, user, size))                            \
    ROW(int, GetLocaleInfoW, (LCID locale, LCTYPE type, LPWSTR data, int size), (locale, type, data, size))            \
    ROW(BOOL, GetPrinterDriverW,                                                                                       \
        (HANDLE printer, LPWSTR environment, DWORD level, LPBYTE info, DWORD size, LPDWORD needed),                    \
        (printer, environment, level, info, size, needed))                                                             \
    ROW(BOOL, GetPrinterDriverDirectoryW,                                                                              \
        (LPWSTR server, LPWSTR environment, DWORD level, LPBYTE directory, DWORD size, LPDWORD needed),                \
        (server, environment, level, directory, size, needed))                                                         \
    ROW(HMODULE, LoadLibraryExW, (LPCWSTR name, HANDLE file, DWORD flags), (name, file, flags))                        \
    ROW(HMODULE, LoadLibraryW, (LPCWSTR name), (name))                                                                 \
    ROW(BOOL, FreeLibrary, (HMODULE module), (module))                                                                 \
    ROW(FARPROC, GetProcAddress, (HMODULE module, LPCSTR name), (module, name))                                        \
    ROW(HRSRC, FindResourceW, (HMODULE module, LPCWSTR name, LPCWSTR type), (module, name, type))                      \
    ROW(HGLOBAL, LoadResource, (HMODULE module, HRSRC resource), (module, resource))                                   \
    ROW(LPVOID, LockResource, (HGLOBAL data), (data))                                                                  \
    ROW(int, LoadStringW, (HINSTANCE module, UINT id, LPWSTR buffer, int size), (module, id, buffer, size))            \
    ROW(HICON, LoadIconW, (HINSTANCE module, LPCWSTR name), (module, name))

namespace doubles {
#define SERVICE_DOUBLE(Result, Name, Parameters, Arguments) extern std::function<Result Parameters> Name;
SERVICE_DOUBLES(SERVICE_DOUBLE)
#undef SERVICE_DOUBLE
} // namespace doubles

// Sets a double for as long as the object lives.
template <typename Signature>
class ServiceDouble {
public:
    template <typename Play>
    ServiceDouble(std::function<Signature>& slot, Play&& play) : slot_(slot) {
        slot_ = std::forward<Play>(play);
    }
    ~ServiceDouble() { slot_ = nullptr; }
    ServiceDouble(const ServiceDouble&) = delete;
    ServiceDouble& operator=(const ServiceDouble&) = delete;

private:
    std::function<Signature>& slot_;
};
