// The capabilities that a printer comes with, and the limits that its model puts on any capability file.
#pragma once

#include "jtcore/Capabilities/ResourceCapabilities.h"
#include "jtcore/FeatureSettings/FeatureId.h"
#include "jtcore/FeatureSettings/Settings.h"
#include "jtcore/Printer/PrinterModel.h"
#include "jtcore/Printer/TicketForm.h"

#include <vector>

class FactoryCapabilities final : public ResourceCapabilities {
public:
    // Raises ResourceLibraryConstructionException.
    FactoryCapabilities(const PrinterModel& model, TicketForm form)
        : ResourceCapabilities(model.getCapabilityResourceId(form)), model_(model) {}

    // The last step of every load, whatever the source: writes the character limits that no capability file states and
    // what the model says, over what stands there, and appends the features that the model does not have at all.
    // Raises AttributeTypeMismatchException when a statement to be written stands there in another shape.
    void applyModelLimits(Settings& capabilities, std::vector<FeatureId>& unsupported) const;

private:
    PrinterModel model_;
};
