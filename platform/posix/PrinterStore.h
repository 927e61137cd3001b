// The printers, and an open printer.
#pragma once

#include "platform/posix/HandleTable.h"
#include "platform/posix/StoredValues.h"

#include <cstdint>

// The row of a printer is never used again for another one, so a handle knows when its printer is gone.
struct OpenPrinter {
    std::int64_t row;
    bool mayChange;
};

struct PrinterEntry {
    std::int64_t row;
    std::u16string name;
    std::u16string driverName;

    bool isSmall() const noexcept { return name.size() + driverName.size() <= 1024; }
};

inline HandleTable<OpenPrinter>& openPrinters() { return handleTable<HandleKind::printer, OpenPrinter>(); }

std::optional<Database> readPrinters();
Database changePrinters();

std::optional<PrinterEntry> findPrinter(const Database& database, std::u16string_view name);
// Fails with ERROR_PRINTER_DELETED.
PrinterEntry printerAt(const Database& database, const OpenPrinter& printer);
// The same, without a look into a store that has not been touched since the last one.
PrinterEntry printerBehind(const OpenPrinter& printer);
// In the order of the names.
std::vector<PrinterEntry> listPrinters(const Database& database);
std::int64_t addPrinter(const Database& database, std::u16string_view name, std::u16string_view driverName);
// With its data.
void removePrinter(const Database& database, std::int64_t row);
