#include "jtcore/Printer/PrinterData.h"

#include "jtcore/Services/KolmaException.h"
#include "platform/registry.h"
#include "platform/spooler.h"

namespace {

// The store's calls take the name as if they wrote to it, and do not.
LPWSTR asArgument(const char16_t* name) noexcept { return const_cast<LPWSTR>(toWide(name)); }

} // namespace

DWORD PrinterData::getRawDataSize(const char16_t* name) const {
    DWORD type = 0;
    DWORD size = 0;
    GetPrinterDataW(printer_, asArgument(name), &type, nullptr, 0, &size);
    return size;
}

bool PrinterData::rawDataExists(const char16_t* name) const { return getRawDataSize(name) > 0; }

ByteBuffer PrinterData::getRawData(const char16_t* name) const {
    ByteBuffer data;
    DWORD size = getRawDataSize(name);
    if (size > 0) {
        DWORD type = 0;
        data.resize(size);
        const DWORD result = GetPrinterDataW(printer_, asArgument(name), &type, data.getData(), size, &size);
        if (result == ERROR_SUCCESS) {
            data.resize(size); // another process may have shortened it meanwhile
            return data;
        }
    }
    raise<PrinterRegistryRequestException>(
        u"PrinterData::rawDataExists(): Failed GetPrinterData('%s') for printer with "
        u"handle '%lx' OR data doesn't exist.\r\n",
        name, static_cast<const void*>(printer_));
}

void PrinterData::setRawData(const char16_t* name, const ByteBuffer& data) const {
    auto* const bytes = const_cast<LPBYTE>(data.getData());
    if (SetPrinterDataW(printer_, asArgument(name), REG_BINARY, bytes, static_cast<DWORD>(data.getSize())) !=
        ERROR_SUCCESS)
        raise<PrinterRegistryRequestException>(
            u"PrinterData::setRawData(): Failed SetPrinterData('%s') for printer with handle '%lx'.\r\n", name,
            static_cast<const void*>(printer_));
}

void PrinterData::removeRawData(const char16_t* name) const {
    if (DeletePrinterDataW(printer_, asArgument(name)) != ERROR_SUCCESS)
        raise<PrinterRegistryRequestException>(
            u"PrinterData::removeRawData(): Failed DeletePrinterData('%s') for printer with handle '%lx'.\r\n", name,
            static_cast<const void*>(printer_));
}

ByteBuffer PrinterData::getPrinterDriverInfo(DWORD level) const {
    DWORD size = 0;
    if (!GetPrinterDriverW(printer_, nullptr, level, nullptr, 0, &size) &&
        GetLastError() == ERROR_INSUFFICIENT_BUFFER) {
        ByteBuffer info;
        info.resize(size);
        if (GetPrinterDriverW(printer_, nullptr, level, info.getData(), size, &size)) return info;
    }
    raise<PrinterRegistryRequestException>(u"PrinterData::getPrinterDriverInfo(): Failed to get DRIVER_INFO_%ld data "
                                           u"for printer with handle '%lx'.\r\n",
                                           level, static_cast<const void*>(printer_));
}

std::u16string PrinterData::getDriverName() const {
    const ByteBuffer info = getPrinterDriverInfo(1);
    const WCHAR* const name = reinterpret_cast<const DRIVER_INFO_1W*>(info.getData())->pName;
    return name ? fromWide(name) : u"";
}
