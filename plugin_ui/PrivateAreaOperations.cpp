#include "plugin_ui/PrivateAreaOperations.h"

#include "jtcore/AnlXlate/KolmaDevMode.h"
#include "jtcore/Capabilities/Capabilities.h"
#include "jtcore/Capabilities/SettingsProblemFixer.h"
#include "jtcore/Capabilities/SettingsProblemList.h"
#include "jtcore/FeatureSettings/FeatureSettings.h"
#include "jtcore/Printer/Printer.h"
#include "jtcore/Printer/PrinterDefaults.h"

namespace {

// Repairs take their values from the incoming settings themselves; where those are what the printer cannot do, from
// what a job for the printer starts with.
void repair(Printer& printer, const PersistentSettings& incoming, FeatureSettings& settings,
            SettingsProblemList& problems) {
    const auto validate = [&](SettingsProblemList& left) {
        return printer.getCapabilities().validateSettings(settings, left);
    };
    SettingsProblemFixer(incoming).fixProblems(problems);
    problems.clear();
    if (validate(problems)) return;
    const AttrNodeList& defaults = printer.getPrinterDefaults().getFeatureSettings().getAttrNodeList();
    SettingsProblemFixer(defaults).fixUntilValid(problems, validate);
}

} // namespace

void PrivateAreaOperations::makeDefault(void* areaOut) {
    KolmaDevMode settings;
    printer_.applyDefaultSettings(settings);
    settings.exportToDevMode(areaOut);
}

void PrivateAreaOperations::convert(const void* areaIn, void* areaOut) {
    KolmaDevMode settings(areaOut);
    settings.importFromDevMode(areaIn, false);
    settings.exportToDevMode(areaOut);
}

void PrivateAreaOperations::merge(const void* areaIn, void* areaOut) {
    KolmaDevMode incoming(areaIn);
    KolmaDevMode outgoing(areaOut);
    printer_.updateUserData(incoming);
    incoming.validateState();
    outgoing.validateState();
    if (incoming.equals(outgoing)) return;
    FeatureSettings settings;
    incoming.getAttrNodeList(settings.getAttrNodeList());
    SettingsProblemList problems;
    const bool isValid = printer_.getCapabilities().validateSettings(settings, problems);
    outgoing = incoming;
    if (!isValid) {
        repair(printer_, outgoing, settings, problems);
        outgoing.setAttrNodeList(settings.getAttrNodeList());
    }
    outgoing.exportToDevMode(areaOut);
}
