#include "jtcore/Printer/DriverBasedPrinter.h"

#include "jtcore/Capabilities/Capabilities.h"
#include "jtcore/Capabilities/DriverImportedCapabilities.h"
#include "jtcore/Services/KolmaException.h"
#include "jtcore/Services/UserPreferences.h"

void DriverBasedPrinter::validatePrinterHandleMatch(HANDLE printer) const {
    if (printer_ != nullptr && printer == printer_) return;
    raise<InvalidPrinterHandleException>(u"DriverBasedPrinter::validatePrinterHandleMatch(): Incoming handle doesn't "
                                         u"match current printer handle or current handle is NULL!\r\n");
}

UserPreferences DriverBasedPrinter::getUserPreferences() { return UserPreferences(data_.getDriverName()); }

TicketForm DriverBasedPrinter::getTicketForm() { return isRendo2xTicket() ? TicketForm::rendo2x : TicketForm::current; }

bool DriverBasedPrinter::isRendo2xTicket() {
    const bool isRendo2xByModel = !hasTicketFormChoice();
    if (!data_.rawDataExists(printerdata::rendo2xTicket)) return isRendo2xByModel;
    return data_.getRawData(printerdata::rendo2xTicket).getAsBoolValue();
}

void DriverBasedPrinter::setRendo2xTicket(bool isRendo2x) {
    data_.setRawData(printerdata::rendo2xTicket, ByteBuffer(isRendo2x));
}

std::unique_ptr<ImportedCapabilities> DriverBasedPrinter::createImportedCapabilities() const {
    return std::make_unique<DriverImportedCapabilities>(data_);
}

std::unique_ptr<Capabilities> DriverBasedPrinter::createCapabilities() {
    return std::make_unique<Capabilities>(getPrinterModel(), getTicketForm(), DriverImportedCapabilities(data_));
}

std::unique_ptr<PrinterModel> DriverBasedPrinter::createPrinterModel() {
    return PrinterModel::createFromDriverName(data_.getDriverName());
}
