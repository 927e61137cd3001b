#include "host/printerCommands.h"

#include "host/ExitCode.h"
#include "host/PrinterHandle.h"
#include "host/commandFailure.h"
#include "host/output.h"
#include "jtcore/Printer/PrinterTables.h"
#include "jtcore/Services/text.h"
#include "platform/spooler.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <vector>

namespace {

struct Printers {
    std::vector<std::uint64_t> buffer; // the structures, then their strings
    DWORD count = 0;

    const PRINTER_INFO_2W* begin() const { return reinterpret_cast<const PRINTER_INFO_2W*>(buffer.data()); }
    const PRINTER_INFO_2W* end() const { return begin() + count; }
};

Printers enumerate() {
    Printers printers;
    DWORD needed = 0;
    for (;;) {
        const auto room = static_cast<DWORD>(printers.buffer.size() * sizeof printers.buffer[0]);
        auto* bytes = reinterpret_cast<BYTE*>(printers.buffer.data());
        if (EnumPrintersW(PRINTER_ENUM_LOCAL, nullptr, 2, bytes, room, &needed, &printers.count)) return printers;
        const DWORD error = GetLastError();
        if (error != ERROR_INSUFFICIENT_BUFFER || needed <= room)
            raise<InWords<PrinterRegistryRequestException>>(u"The printers could not be listed (error %u).", error);
        printers.buffer.resize(needed / sizeof printers.buffer[0] + 1);
    }
}

} // namespace

int addPrinter(std::u16string name, std::u16string driver) {
    if (!findPrinterDriver(driver))
        raise<InWords<IndexOutOfBoundsException>>(
            u"There is no driver \"%s\". \"kolma drivers\" shows those there are.", driver);
    PRINTER_INFO_2W info{};
    info.pPrinterName = toWide(name.data());
    info.pDriverName = toWide(driver.data());
    const HANDLE printer = AddPrinterW(nullptr, 2, reinterpret_cast<BYTE*>(&info));
    if (printer) return ClosePrinter(printer), exitDone;
    const DWORD error = GetLastError();
    if (error == ERROR_PRINTER_ALREADY_EXISTS)
        raise<InWords<PrinterRegistryRequestException>>(u"There is a printer \"%s\" already.", name);
    raise<InWords<PrinterRegistryRequestException>>(u"The printer \"%s\" could not be added (error %u).", name, error);
}

int removePrinter(const std::u16string& name) {
    const PrinterHandle printer(name);
    if (!DeletePrinter(printer.get()))
        raise<InWords<PrinterRegistryRequestException>>(u"The printer \"%s\" could not be removed (error %u).", name,
                                                        GetLastError());
    return exitDone;
}

int listPrinters(bool json) {
    nlohmann::ordered_json array = nlohmann::ordered_json::array();
    std::size_t width = 0;
    const Printers printers = enumerate();
    for (const PRINTER_INFO_2W& info : printers) {
        array.push_back(
            {{"name", toUtf8(fromWide(info.pPrinterName))}, {"driver", toUtf8(fromWide(info.pDriverName))}});
        width = std::max(width, columnsOf(toTerminal(fromWide(info.pPrinterName))));
    }
    if (json) {
        printJson({{"printers", array}});
        return exitDone;
    }
    for (const PRINTER_INFO_2W& info : printers) {
        const std::string name = toTerminal(fromWide(info.pPrinterName));
        print(
            fmt::format("{}{:{}}{}\n", name, "", width - columnsOf(name) + 2, toTerminal(fromWide(info.pDriverName))));
    }
    if (printers.count == 0) print("There are no printers. \"kolma printer add NAME --driver DRIVER\" adds one.\n");
    return exitDone;
}
