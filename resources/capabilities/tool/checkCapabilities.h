// Holds a composed resource against the tables and the printer model: what a printer states must be possible, and a job
// that the user has not touched must be printable.
#pragma once

#include "resources/capabilities/tool/StockDatabase.h"

#include "jtcore/Printer/TicketForm.h"

#include <vector>

struct ComposedData {
    const Composition& composition;
    const SupportedFeatures& supported;
    const std::vector<ListedStock>& stocks;
    const FamilyFile& family;
    TicketForm form;
};

// Tells every fault, under the family's file and the capability or stock.
void checkCapabilities(const ComposedData& data, FaultList& faults);
