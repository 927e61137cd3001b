// The spooler's data store of one printer: named blocks of bytes that outlive every job, and the printer's driver.
#pragma once

#include "jtcore/Services/ByteBuffer.h"
#include "platform/types.h"

#include <cstdint>
#include <string>

class PrinterData {
public:
    // The handle is the host's and stays open for the life of this object.
    explicit PrinterData(HANDLE printer) noexcept : printer_(printer) {}

    // False when there is no such value, it is empty, or the store cannot be asked.
    bool rawDataExists(const char16_t* name) const;
    // Each raises PrinterRegistryRequestException on any failure of the store. A value that is missing or empty is a
    // failure of getRawData.
    ByteBuffer getRawData(const char16_t* name) const;
    void setRawData(const char16_t* name, const ByteBuffer& data) const;
    void removeRawData(const char16_t* name) const;

    // The DRIVER_INFO_n structure of that level with what it points to. The pointers point into the buffer's own
    // storage: they hold for the result itself and not for a copy. Raises PrinterRegistryRequestException.
    ByteBuffer getPrinterDriverInfo(DWORD level) const;
    // Raises PrinterRegistryRequestException.
    std::u16string getDriverName() const;

private:
    // The size of the value in bytes, 0 when there is nothing to read.
    DWORD getRawDataSize(const char16_t* name) const;

    HANDLE printer_;
};

namespace printerdata {
// One byte; non-zero when the printer's server takes the older form of ticket.
inline constexpr const char16_t* rendo2xTicket = u"Rendo2xTicket";
} // namespace printerdata
