#include "platform/posix/PrinterStore.h"

#include "platform/posix/KeptAnswers.h"
#include "platform/posix/userFolders.h"
#include "platform/posix/wideText.h"

#include <utility>

namespace {

constexpr Database::Layout layout = {
    "printers.db",
    "PRAGMA user_version = 1;"
    "CREATE TABLE printer(id INTEGER PRIMARY KEY AUTOINCREMENT, folded TEXT NOT NULL UNIQUE, name TEXT NOT NULL,"
    " driver TEXT NOT NULL);" KOLMA_VALUE_TABLE,
};

// Never destroyed: printers are still asked for while the process ends.
KeptAnswers<PrinterEntry>& keptAnswers() {
    static auto* answers = new KeptAnswers<PrinterEntry>;
    return *answers;
}

PrinterEntry entryOf(const Statement& row) { return {row.integer(0), wideText(row.text(1)), wideText(row.text(2))}; }

} // namespace

std::optional<Database> readPrinters() { return Database::openForReading(dataFolder(), layout); }

Database changePrinters() { return Database::openForWriting(dataFolder(), layout); }

std::optional<PrinterEntry> findPrinter(const Database& database, std::u16string_view name) {
    std::string folded = narrowText(foldCase(name));
    Statement row = database.prepare("SELECT id, name, driver FROM printer WHERE folded = ?");
    if (!row.bind(folded).step()) return std::nullopt;
    return entryOf(row);
}

PrinterEntry printerAt(const Database& database, const OpenPrinter& printer) {
    Statement row = database.prepare("SELECT id, name, driver FROM printer WHERE id = ?");
    require(row.bind(printer.row).step(), ERROR_PRINTER_DELETED);
    return entryOf(row);
}

PrinterEntry printerBehind(const OpenPrinter& printer) {
    auto entry = keptAnswers().ask(dataFolder(), layout, std::to_string(printer.row),
                                   [&](const Database& store) { return printerAt(store, printer); });
    require(entry.has_value(), ERROR_PRINTER_DELETED);
    return std::move(*entry);
}

std::vector<PrinterEntry> listPrinters(const Database& database) {
    std::vector<PrinterEntry> printers;
    for (Statement row = database.prepare("SELECT id, name, driver FROM printer ORDER BY folded"); row.step();)
        printers.push_back(entryOf(row));
    return printers;
}

std::int64_t addPrinter(const Database& database, std::u16string_view name, std::u16string_view driverName) {
    std::string folded = narrowText(foldCase(name));
    std::string given = narrowText(name);
    std::string driver = narrowText(driverName);
    database.prepare("INSERT INTO printer(folded, name, driver) VALUES(?, ?, ?)")
        .bind(folded)
        .bind(given)
        .bind(driver)
        .step();
    return database.lastRow();
}

void removePrinter(const Database& database, std::int64_t row) {
    database.prepare("DELETE FROM value WHERE owner = ?").bind(row).step();
    database.prepare("DELETE FROM printer WHERE id = ?").bind(row).step();
}
