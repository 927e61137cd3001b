#include "jtcore/Services/getDriverFilePath.h"

#include "jtcore/Services/ByteBuffer.h"
#include "platform/spooler.h"

#include <cstring>

namespace {

std::u16string askForDriverDirectory(HANDLE printer) {
    std::u16string environment = u"Windows NT x86";
    DWORD needed = 0;
    GetPrinterDriverW(printer, toWide(environment.data()), 2, nullptr, 0, &needed);
    // Two zero bytes behind what the spooler writes end its last text in any case.
    ByteBuffer buffer;
    buffer.resize(needed + 2);
    if (needed < sizeof(DRIVER_INFO_2W) ||
        !GetPrinterDriverW(printer, toWide(environment.data()), 2, buffer.getData(), needed, &needed))
        return {};
    DRIVER_INFO_2W info;
    std::memcpy(&info, buffer.getData(), sizeof info);
    if (info.pDriverPath == nullptr) return {};
    std::u16string path = fromWide(info.pDriverPath);
    std::size_t separator = path.find_last_of(u"\\/");
    return separator == std::u16string::npos ? std::u16string() : path.substr(0, separator);
}

std::u16string askForSystemDirectory() {
    std::u16string buffer(260, u'\0');
    auto ask = [&buffer](DWORD& needed) {
        auto size = static_cast<DWORD>(buffer.size() * sizeof(char16_t));
        return GetPrinterDriverDirectoryW(nullptr, nullptr, 1, reinterpret_cast<BYTE*>(buffer.data()), size, &needed);
    };
    DWORD needed = 0;
    if (!ask(needed)) {
        // Some systems lie deeper than a path used to.
        if (needed <= buffer.size() * sizeof(char16_t)) return {};
        buffer.resize(needed / sizeof(char16_t) + 1);
        if (!ask(needed)) return {};
    }
    std::u16string directory = buffer.c_str();
    // The drivers' third version lies in a folder of its own.
    if (!directory.ends_with(u'3')) directory += u"\\3";
    return directory;
}

} // namespace

std::u16string getDriverFilePath(HANDLE printer, std::u16string_view fileName) {
    std::u16string directory;
    if (printer != nullptr) directory = askForDriverDirectory(printer);
    if (directory.empty()) directory = askForSystemDirectory();
    return directory.append(u"\\").append(fileName);
}
