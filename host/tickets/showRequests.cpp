#include "host/tickets/showRequests.h"

#include "host/ExitCode.h"
#include "host/output.h"
#include "host/tickets/AttributeTree.h"
#include "host/tickets/attributeJson.h"
#include "jtcore/AnlXlate/JtifTranslator.h"
#include "jtcore/AnlXlate/KolmaDevMode.h"
#include "jtcore/Services/text.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace {

std::string yesOrNo(bool isYes) { return isYes ? "yes" : "no"; }

void printFact(std::string_view name, std::string_view value) { print(fmt::format("{:26}  {}\n", name, value)); }

void printAttributes(const AttrNodeList& list) {
    printFact("Attributes", fmt::format("{}, {} with those inside", list.getNumNodes(), countNodes(list)));
    if (!list.isEmpty()) print('\n' + AttributeTree(list).toText());
}

int showForeignArea(const TicketRequest& request) {
    if (request.json) {
        printJson({{"valid", false}});
    } else {
        printFact("Area", toTerminal(request.file));
        printFact("Valid", "no: the header is not that of this driver");
    }
    return exitNotValid;
}

nlohmann::ordered_json toJson(const AreaInfo& area, const StateInfo& state) {
    return {{"valid", true},
            {"areaVersion", area.areaVersion},
            {"stateVersion", area.stateVersion},
            {"stateSize", area.stateSize},
            {"settingsEditable", state.isSettingsEditable},
            {"userName", toUtf8(state.userName)},
            {"jobNamePreference", state.jobNamePreference},
            {"useLogonName", state.useLogonName},
            {"useLogonNameRecipient", state.useLogonNameRecipient}};
}

void printFacts(const AreaInfo& area, const StateInfo& state) {
    printFact("Valid", "yes");
    printFact("Area version", fmt::format("0x{:08X}", area.areaVersion));
    printFact("State version", fmt::format("0x{:08X}", area.stateVersion));
    printFact("State size", fmt::format("{} of {} bytes", area.stateSize, sizeof(KolmaDmType::data)));
    printFact("Settings editable", yesOrNo(state.isSettingsEditable));
    printFact("User name", toTerminal(state.userName));
    printFact("Job name preference", yesOrNo(state.jobNamePreference));
    printFact("Use logon name", yesOrNo(state.useLogonName));
    printFact("Use logon name, recipient", yesOrNo(state.useLogonNameRecipient));
}

} // namespace

int showArea(const TicketRequest& request) {
    if (!KolmaDevMode::isValidArea(request.area)) return showForeignArea(request);
    const AreaInfo area = KolmaDevMode::getAreaInfo(request.area);
    const KolmaDevMode settings(request.area);
    AttrNodeList list;
    settings.getAttrNodeList(list);
    if (request.json) {
        nlohmann::ordered_json json = toJson(area, settings.getStateInfo());
        json["attributes"] = toJson(list);
        printJson(json);
    } else {
        printFact("Area", toTerminal(request.file));
        printFacts(area, settings.getStateInfo());
        printAttributes(list);
    }
    return exitDone;
}

int showTicket(const TicketRequest& request) {
    AttrNodeList list;
    JtifTranslator().fileToAnl(request.file, list);
    if (request.json) {
        printJson({{"attributes", toJson(list)}});
    } else {
        printFact("Ticket", toTerminal(request.file));
        printAttributes(list);
    }
    return exitDone;
}
