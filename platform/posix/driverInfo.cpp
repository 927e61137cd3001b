#include "platform/posix/InfoBuffer.h"
#include "platform/posix/PrinterStore.h"
#include "platform/posix/driverFolder.h"
#include "platform/posix/path.h"
#include "platform/posix/wideText.h"
#include "platform/spooler.h"

#include <algorithm>
#include <array>
#include <dlfcn.h>

namespace {

constexpr DWORD driverVersion = 3;
constexpr std::array<std::u16string_view, 2> environments = {u"Windows NT x86", u"Windows x64"};
constexpr const char* driverFile = "/libjtui37.so";
constexpr const char* resourceFile = "/jtres37.dll";

std::u16string environmentOf(LPCWSTR environment) {
    if (environment == nullptr || *environment == 0) return std::u16string(environments.back());
    require(std::find(environments.begin(), environments.end(), environment) != environments.end(),
            ERROR_INVALID_ENVIRONMENT);
    return environment;
}

// Asking for the size is how nearly every question begins, and is not worth a throw.
BOOL answer(bool fits) noexcept {
    if (!fits) SetLastError(ERROR_INSUFFICIENT_BUFFER);
    return fits ? TRUE : FALSE;
}

} // namespace

std::string driverFolder() {
    Dl_info own{};
    require(::dladdr(reinterpret_cast<void*>(&driverFolder), &own) != 0 && own.dli_fname != nullptr,
            ERROR_MOD_NOT_FOUND);
    return folderOf(resolvedPath(own.dli_fname));
}

BOOL WINAPI GetPrinterDriverW(HANDLE hPrinter, LPWSTR pEnvironment, DWORD Level, LPBYTE pDriverInfo, DWORD cbBuf,
                              LPDWORD pcbNeeded) {
    return service<BOOL>(FALSE, [&] {
        require(Level == 1 || Level == 2, ERROR_INVALID_LEVEL);
        std::u16string environment = environmentOf(pEnvironment);
        PrinterEntry printer = printerBehind(*openPrinters().get(hPrinter));
        if (Level == 1) {
            InfoBuffer<DRIVER_INFO_1W> infos;
            infos.add([&](DRIVER_INFO_1W& info, auto& texts) { info.pName = texts.text(printer.driverName); });
            return answer(infos.write(pDriverInfo, cbBuf, pcbNeeded, &DRIVER_INFO_1W::pName));
        }
        std::u16string folder = wideText(driverFolder());
        InfoBuffer<DRIVER_INFO_2W> infos;
        infos.add([&](DRIVER_INFO_2W& info, auto& texts) {
            info.cVersion = driverVersion;
            info.pName = texts.text(printer.driverName);
            info.pEnvironment = texts.text(environment);
            info.pDriverPath = texts.text(folder + wideText(driverFile));
            info.pDataFile = texts.text(folder + wideText(resourceFile));
            info.pConfigFile = texts.text(folder + wideText(driverFile));
        });
        return answer(infos.write(pDriverInfo, cbBuf, pcbNeeded, &DRIVER_INFO_2W::pName, &DRIVER_INFO_2W::pEnvironment,
                                  &DRIVER_INFO_2W::pDriverPath, &DRIVER_INFO_2W::pDataFile,
                                  &DRIVER_INFO_2W::pConfigFile));
    });
}

BOOL WINAPI GetPrinterDriverDirectoryW(LPWSTR pName, LPWSTR pEnvironment, DWORD Level, LPBYTE pDriverDirectory,
                                       DWORD cbBuf, LPDWORD pcbNeeded) {
    return service<BOOL>(FALSE, [&] {
        require(Level == 1, ERROR_INVALID_LEVEL);
        require(pcbNeeded != nullptr && (pName == nullptr || *pName == 0), ERROR_INVALID_PARAMETER);
        environmentOf(pEnvironment);
        std::u16string folder = wideText(folderOf(driverFolder()));
        std::size_t size = (folder.size() + 1) * sizeof(WCHAR);
        *pcbNeeded = static_cast<DWORD>(size);
        require(pDriverDirectory != nullptr && cbBuf >= size, ERROR_INSUFFICIENT_BUFFER);
        std::memcpy(pDriverDirectory, folder.c_str(), size);
        return TRUE;
    });
}
