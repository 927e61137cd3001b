#include "host/PrinterHandle.h"

#include "host/commandFailure.h"
#include "platform/spooler.h"

PrinterHandle::PrinterHandle(std::u16string name) {
    if (OpenPrinterW(toWide(name.data()), &handle_, nullptr)) return;
    const DWORD error = GetLastError();
    if (error == ERROR_INVALID_PRINTER_NAME)
        raise<InWords<InvalidPrinterHandleException>>(
            u"There is no printer \"%s\". \"kolma printer list\" shows those there are.", name);
    raise<InWords<InvalidPrinterHandleException>>(u"The printer \"%s\" could not be opened (error %u).", name, error);
}

PrinterHandle::~PrinterHandle() { ClosePrinter(handle_); }
