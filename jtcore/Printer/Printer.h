// The printer that the host is working with. What it knows is found out when first asked for and kept for its life.
// A printer is used by one plug-in object and has no lock.
#pragma once

#include "jtcore/Printer/PrinterModel.h"
#include "jtcore/Printer/TicketForm.h"

#include <memory>

class Capabilities;
class PersistentSettings;
class PrinterDefaults;
class UserPreferences;

class Printer {
public:
    virtual ~Printer();
    Printer(const Printer&) = delete;
    Printer& operator=(const Printer&) = delete;

    // What the user has set for this printer's driver.
    virtual UserPreferences getUserPreferences() = 0;
    virtual TicketForm getTicketForm() = 0;

    // Always the same object, each of them. Raises what making it raises; the next call tries again.
    const Capabilities& getCapabilities();
    const PrinterModel& getPrinterModel();
    const PrinterDefaults& getPrinterDefaults();
    bool hasTicketFormChoice() { return getPrinterModel().hasTicketFormChoice(); }

    // Stores the settings that a job starts with, then the user's data: the result is that of updateUserData(). Raises
    // what making the defaults raises, and what the settings raise that cannot hold them.
    bool applyDefaultSettings(PersistentSettings& settings);

    // Writes the user's name and the name preferences into the settings. False, and the settings untouched, when the
    // user is unknown or has never saved preferences for this driver.
    bool updateUserData(PersistentSettings& settings);

protected:
    Printer();
    // The results are the caller's. What the printer can do as it is set up now: raises what the model and the source
    // of its capabilities raise.
    virtual std::unique_ptr<Capabilities> createCapabilities() = 0;
    virtual std::unique_ptr<PrinterModel> createPrinterModel() = 0;

private:
    std::unique_ptr<Capabilities> capabilities_;
    std::unique_ptr<PrinterDefaults> defaults_;
    std::unique_ptr<PrinterModel> model_;
};
