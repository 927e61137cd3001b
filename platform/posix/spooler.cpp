#include "platform/spooler.h"

#include "platform/posix/InfoBuffer.h"
#include "platform/posix/PrinterStore.h"

#include <algorithm>
#include <utility>

namespace {

constexpr std::size_t longestPrinterName = 220;

bool isPrinterName(std::u16string_view name) {
    return !name.empty() && name.size() <= longestPrinterName &&
           name.find_first_of(u"\\,!") == std::u16string_view::npos;
}

HANDLE openPrinter(std::int64_t row, bool mayChange) {
    return openPrinters().add(std::make_shared<OpenPrinter>(OpenPrinter{row, mayChange}));
}

// The store with the printer in it.
Database readPrinter(const OpenPrinter& printer) {
    auto store = readPrinters();
    require(store.has_value(), ERROR_PRINTER_DELETED);
    printerAt(*store, printer);
    return std::move(*store);
}

Database changePrinter(const OpenPrinter& printer) {
    require(printer.mayChange, ERROR_ACCESS_DENIED);
    Database store = changePrinters();
    printerAt(store, printer);
    return store;
}

void enumerate(const std::vector<PrinterEntry>& printers, InfoBuffer<PRINTER_INFO_1W>& infos) {
    for (const PrinterEntry& printer : printers)
        infos.add([&](PRINTER_INFO_1W& info, auto& texts) {
            info.Flags = PRINTER_ENUM_ICON8;
            info.pDescription = texts.text(printer.name + u"," + printer.driverName + u",");
            info.pName = texts.text(printer.name);
            info.pComment = texts.text(u"");
        });
}

void enumerate(const std::vector<PrinterEntry>& printers, InfoBuffer<PRINTER_INFO_2W>& infos) {
    for (const PrinterEntry& printer : printers)
        infos.add([&](PRINTER_INFO_2W& info, auto& texts) {
            info.pPrinterName = texts.text(printer.name);
            info.pDriverName = texts.text(printer.driverName);
            info.Attributes = PRINTER_ATTRIBUTE_LOCAL;
        });
}

void enumerate(const std::vector<PrinterEntry>& printers, InfoBuffer<PRINTER_INFO_4W>& infos) {
    for (const PrinterEntry& printer : printers)
        infos.add([&](PRINTER_INFO_4W& info, auto& texts) {
            info.pPrinterName = texts.text(printer.name);
            info.Attributes = PRINTER_ATTRIBUTE_LOCAL;
        });
}

template <typename Info, typename... Members>
DWORD answerEnumeration(DWORD flags, LPBYTE buffer, DWORD size, LPDWORD needed, Members... members) {
    InfoBuffer<Info> infos;
    if ((flags & PRINTER_ENUM_LOCAL) != 0)
        if (auto store = readPrinters()) enumerate(listPrinters(*store), infos);
    require(infos.write(buffer, size, needed, members...), ERROR_INSUFFICIENT_BUFFER);
    return static_cast<DWORD>(infos.count());
}

} // namespace

BOOL WINAPI OpenPrinterW(LPWSTR pPrinterName, LPHANDLE phPrinter, LPPRINTER_DEFAULTSW pDefault) {
    return service<BOOL>(FALSE, [&] {
        require(phPrinter != nullptr, ERROR_INVALID_PARAMETER);
        require(pPrinterName != nullptr, ERROR_INVALID_PRINTER_NAME);
        auto store = readPrinters();
        auto printer = store ? findPrinter(*store, pPrinterName) : std::nullopt;
        require(printer.has_value(), ERROR_INVALID_PRINTER_NAME);
        DWORD access = pDefault == nullptr ? 0 : pDefault->DesiredAccess;
        *phPrinter = openPrinter(printer->row, access == 0 || (access & PRINTER_ACCESS_ADMINISTER) != 0);
        return TRUE;
    });
}

BOOL WINAPI ClosePrinter(HANDLE hPrinter) {
    return service<BOOL>(FALSE, [&] {
        require(openPrinters().remove(hPrinter) != nullptr, ERROR_INVALID_HANDLE);
        return TRUE;
    });
}

DWORD WINAPI GetPrinterDataW(HANDLE hPrinter, LPWSTR pValueName, LPDWORD pType, LPBYTE pData, DWORD nSize,
                             LPDWORD pcbNeeded) {
    return errorNumberOf([&] {
        require(pValueName != nullptr && pcbNeeded != nullptr, ERROR_INVALID_PARAMETER);
        *pcbNeeded = 0;
        auto printer = openPrinters().get(hPrinter);
        Database store = readPrinter(*printer);
        StoredValue value = readValue(store, printer->row, pValueName);
        if (pType != nullptr) *pType = value.type;
        *pcbNeeded = static_cast<DWORD>(value.data.size());
        require(value.data.empty() || (pData != nullptr && nSize >= value.data.size()), ERROR_MORE_DATA);
        std::copy(value.data.begin(), value.data.end(), pData);
    });
}

DWORD WINAPI SetPrinterDataW(HANDLE hPrinter, LPWSTR pValueName, DWORD Type, LPBYTE pData, DWORD cbData) {
    return errorNumberOf([&] {
        require(pValueName != nullptr && (pData != nullptr || cbData == 0), ERROR_INVALID_PARAMETER);
        auto printer = openPrinters().get(hPrinter);
        Database store = changePrinter(*printer);
        writeValue(store, printer->row, pValueName, Type, {pData, cbData});
        store.commit();
    });
}

DWORD WINAPI DeletePrinterDataW(HANDLE hPrinter, LPWSTR pValueName) {
    return errorNumberOf([&] {
        require(pValueName != nullptr, ERROR_INVALID_PARAMETER);
        auto printer = openPrinters().get(hPrinter);
        Database store = changePrinter(*printer);
        deleteValue(store, printer->row, pValueName);
        store.commit();
    });
}

HANDLE WINAPI AddPrinterW(LPWSTR pName, DWORD Level, LPBYTE pPrinter) {
    return service<HANDLE>(nullptr, [&] {
        require(Level == 2, ERROR_INVALID_LEVEL);
        require(pName == nullptr && pPrinter != nullptr, ERROR_INVALID_PARAMETER);
        PRINTER_INFO_2W info;
        std::memcpy(&info, pPrinter, sizeof info);
        require(info.pPrinterName != nullptr && isPrinterName(info.pPrinterName), ERROR_INVALID_PRINTER_NAME);
        require(info.pDriverName != nullptr && *info.pDriverName != 0, ERROR_UNKNOWN_PRINTER_DRIVER);
        Database store = changePrinters();
        require(!findPrinter(store, info.pPrinterName), ERROR_PRINTER_ALREADY_EXISTS);
        // The handle first: when it cannot be had, nothing has been added.
        HANDLE handle = openPrinter(addPrinter(store, info.pPrinterName, info.pDriverName), true);
        try {
            store.commit();
        } catch (...) {
            openPrinters().remove(handle);
            throw;
        }
        return handle;
    });
}

BOOL WINAPI DeletePrinter(HANDLE hPrinter) {
    return service<BOOL>(FALSE, [&] {
        auto printer = openPrinters().get(hPrinter);
        Database store = changePrinter(*printer);
        removePrinter(store, printer->row);
        store.commit();
        return TRUE;
    });
}

BOOL WINAPI EnumPrintersW(DWORD Flags, LPWSTR, DWORD Level, LPBYTE pPrinterEnum, DWORD cbBuf, LPDWORD pcbNeeded,
                          LPDWORD pcReturned) {
    return service<BOOL>(FALSE, [&] {
        require(pcReturned != nullptr && pcbNeeded != nullptr, ERROR_INVALID_PARAMETER);
        *pcReturned = 0;
        switch (Level) {
        case 1:
            *pcReturned = answerEnumeration<PRINTER_INFO_1W>(Flags, pPrinterEnum, cbBuf, pcbNeeded,
                                                             &PRINTER_INFO_1W::pDescription, &PRINTER_INFO_1W::pName,
                                                             &PRINTER_INFO_1W::pComment);
            return TRUE;
        case 2:
            *pcReturned = answerEnumeration<PRINTER_INFO_2W>(
                Flags, pPrinterEnum, cbBuf, pcbNeeded, &PRINTER_INFO_2W::pPrinterName, &PRINTER_INFO_2W::pDriverName);
            return TRUE;
        case 4:
            *pcReturned = answerEnumeration<PRINTER_INFO_4W>(Flags, pPrinterEnum, cbBuf, pcbNeeded,
                                                             &PRINTER_INFO_4W::pPrinterName);
            return TRUE;
        default:
            throw PlatformError{ERROR_INVALID_LEVEL};
        }
    });
}
