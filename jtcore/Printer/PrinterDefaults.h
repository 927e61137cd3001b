// The settings that a job for a printer starts with.
#pragma once

#include "jtcore/FeatureSettings/FeatureSettings.h"
#include "jtcore/Printer/PrinterModel.h"
#include "jtcore/Printer/TicketForm.h"
#include "jtcore/Services/ResourceLibrary.h"

class PrinterDefaults {
public:
    // Finds out the user's name and paper. Raises ResourceLibraryConstructionException and
    // ResourceAcquisitionException: names of jobs and users come of the resource module.
    PrinterDefaults(const PrinterModel& model, TicketForm form);

    const PrinterModel& getPrinterModel() const noexcept { return model_; }
    TicketForm getTicketForm() const noexcept { return form_; }
    const FeatureSettings& getFeatureSettings() const noexcept { return settings_; }

private:
    ResourceLibrary library_;
    PrinterModel model_;
    TicketForm form_;
    FeatureSettings settings_;
};
