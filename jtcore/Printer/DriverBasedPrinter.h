// A printer behind a spooler handle, which takes its model from the name of the printer's driver.
#pragma once

#include "jtcore/Printer/Printer.h"
#include "jtcore/Printer/PrinterData.h"

class ImportedCapabilities;

class DriverBasedPrinter final : public Printer {
public:
    // The handle is borrowed: the host closes it, after the life of this object.
    explicit DriverBasedPrinter(HANDLE printer) noexcept : printer_(printer), data_(printer) {}

    // Raises InvalidPrinterHandleException unless the handle is this printer's, and not null.
    void validatePrinterHandleMatch(HANDLE printer) const;

    // Each of these raises PrinterRegistryRequestException when the spooler does not tell the driver's name.
    UserPreferences getUserPreferences() override;
    TicketForm getTicketForm() override;
    // Whether the printer's server takes the older form of ticket: what was stored, and where nothing was, whether the
    // model has no choice.
    bool isRendo2xTicket();
    // Raises PrinterRegistryRequestException.
    void setRendo2xTicket(bool isRendo2x);

    // The capability file that was imported for this printer, if any, as a new object of the caller's.
    std::unique_ptr<ImportedCapabilities> createImportedCapabilities() const;

    const PrinterData& getPrinterData() const noexcept { return data_; }

protected:
    std::unique_ptr<Capabilities> createCapabilities() override;
    // Raises IndexOutOfBoundsException when the driver is none of ours.
    std::unique_ptr<PrinterModel> createPrinterModel() override;

private:
    HANDLE printer_;
    PrinterData data_;
};
