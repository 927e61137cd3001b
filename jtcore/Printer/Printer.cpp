#include "jtcore/Printer/Printer.h"

#include "jtcore/AnlXlate/PersistentSettings.h"
#include "jtcore/Capabilities/Capabilities.h"
#include "jtcore/Printer/PrinterDefaults.h"
#include "jtcore/Services/User.h"
#include "jtcore/Services/UserPreferences.h"

Printer::Printer() = default;
Printer::~Printer() = default;

const Capabilities& Printer::getCapabilities() {
    if (!capabilities_) capabilities_ = createCapabilities();
    return *capabilities_;
}

const PrinterModel& Printer::getPrinterModel() {
    if (!model_) model_ = createPrinterModel();
    return *model_;
}

const PrinterDefaults& Printer::getPrinterDefaults() {
    if (!defaults_) defaults_ = std::make_unique<PrinterDefaults>(getPrinterModel(), getTicketForm());
    return *defaults_;
}

bool Printer::applyDefaultSettings(PersistentSettings& settings) {
    settings.setAttrNodeList(getPrinterDefaults().getFeatureSettings().getAttrNodeList());
    return updateUserData(settings);
}

bool Printer::updateUserData(PersistentSettings& settings) {
    const std::u16string userName = User::getLogonName();
    if (userName.empty()) return false;
    const UserPreferences preferences = getUserPreferences();
    if (!preferences.hasJobNamePreference()) return false;
    settings.setUserData(userName, preferences.getJobNamePreference(), preferences.getUseLogonNamePreference(),
                         preferences.getUseLogonNameRecipientPreference());
    return true;
}
