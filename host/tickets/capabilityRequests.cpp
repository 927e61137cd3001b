#include "host/tickets/capabilityRequests.h"

#include "host/ExitCode.h"
#include "host/commandFailure.h"
#include "host/output.h"
#include "host/outputFile.h"
#include "host/tickets/FeatureReport.h"
#include "host/tickets/attributeJson.h"
#include "host/tickets/capabilityText.h"
#include "jtcore/AnlXlate/AbilTranslator.h"
#include "jtcore/Capabilities/ImportedCapabilities.h"
#include "jtcore/Printer/DriverBasedPrinter.h"
#include "jtcore/Services/text.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace {

// A capability file that is at hand.
class GivenCapabilities final : public CapabilitySource {
public:
    explicit GivenCapabilities(ByteBuffer text) noexcept : text_(std::move(text)) {}
    void getCapabilityData(ByteBuffer& out) const override { out = text_; }

private:
    ByteBuffer text_;
};

std::unique_ptr<Capabilities> capabilitiesFrom(const ByteBuffer& text, DriverBasedPrinter& printer) {
    return std::make_unique<Capabilities>(printer.getPrinterModel(), printer.getTicketForm(), GivenCapabilities(text));
}

std::string_view formName(TicketForm form) { return form == TicketForm::rendo2x ? "Rendo 2.x" : "current"; }

std::string sourceName(const ImportedCapabilities& imported) {
    if (!imported.hasImportedCapabilities()) return "built in";
    return "imported from " + toTerminal(imported.getImportedFileName());
}

void printFact(std::string_view name, std::string_view value) { print(fmt::format("{:12}  {}\n", name, value)); }

void printAsText(const TicketRequest& request, DriverBasedPrinter& printer) {
    const Capabilities& capabilities = printer.getCapabilities();
    const PrinterModel& model = capabilities.getPrinterModel();
    printFact("Printer", toTerminal(request.printerName));
    printFact("Driver", toTerminal(printer.getPrinterData().getDriverName()));
    printFact("Model", fmt::format("{}, family {}, {}", model.getModel(), model.getFamily().family,
                                   toUtf8(describe(model.getLanguage()))));
    printFact("Ticket form", formName(capabilities.getTicketForm()));
    printFact("Capabilities", sourceName(*printer.createImportedCapabilities()));
    print(toText(capabilities));
}

void printAsJson(const TicketRequest& request, DriverBasedPrinter& printer) {
    const Capabilities& capabilities = printer.getCapabilities();
    const PrinterModel& model = capabilities.getPrinterModel();
    const auto imported = printer.createImportedCapabilities();
    nlohmann::ordered_json json = {{"printer", toUtf8(request.printerName)},
                                   {"driver", toUtf8(printer.getPrinterData().getDriverName())},
                                   {"model", model.getModel()},
                                   {"family", model.getFamily().family},
                                   {"language", toUtf8(describe(model.getLanguage()))},
                                   {"ticketForm", static_cast<int>(capabilities.getTicketForm())},
                                   {"imported", imported->hasImportedCapabilities()}};
    if (imported->hasImportedCapabilities()) json["file"] = toUtf8(imported->getImportedFileName());
    json["features"] = featuresToJson(capabilities);
    json["attributes"] = toJson(capabilities.getAttrNodeList());
    printJson(json);
}

// The printer's whole list as a file; what no file can hold (a value of an unknown kind, a list without values) makes
// it come out different, and then the file that the list was made from is the better copy.
ByteBuffer makeFile(DriverBasedPrinter& printer) {
    const Capabilities& capabilities = printer.getCapabilities();
    ByteBuffer text;
    AbilTranslator().anlToBuffer(capabilities.getAttrNodeList(), text);
    if (capabilitiesFrom(text, printer)->getAttrNodeList().equals(capabilities.getAttrNodeList())) return text;
    const auto imported = printer.createImportedCapabilities();
    if (imported->hasImportedCapabilities())
        imported->getCapabilityData(text);
    else
        FactoryCapabilities(printer.getPrinterModel(), printer.getTicketForm()).getCapabilityData(text);
    return text;
}

void tellWhatIsMissing(const Capabilities& capabilities) {
    std::u16string names;
    for (const std::u16string& name : findMissingCapabilities(capabilities))
        names.append(names.empty() ? u"" : u", ").append(name);
    if (!names.empty())
        printError(formatMessage(u"The file names features without saying what is allowed: %s is missing. The driver "
                                 u"will fail where these are set.",
                                 names));
}

} // namespace

int showCapabilities(const TicketRequest& request) {
    DriverBasedPrinter printer(request.printer);
    request.json ? printAsJson(request, printer) : printAsText(request, printer);
    return exitDone;
}

int writeCapabilities(TicketRequest& request) {
    DriverBasedPrinter printer(request.printer);
    const ByteBuffer text = makeFile(printer);
    writeOutputFile(request.file, text);
    request.attributes = static_cast<std::uint32_t>(printer.getCapabilities().getAttrNodeList().getNumNodes());
    return exitDone;
}

int importCapabilities(TicketRequest& request) {
    DriverBasedPrinter printer(request.printer);
    const ByteBuffer text = ImportedCapabilities::readCapabilityFile(request.file);
    const auto capabilities = capabilitiesFrom(text, printer);
    tellWhatIsMissing(*capabilities);
    printer.createImportedCapabilities()->storeImportedCapabilities(request.file, text);
    request.attributes = static_cast<std::uint32_t>(capabilities->getAttrNodeList().getNumNodes());
    return exitDone;
}

int clearCapabilities(const TicketRequest& request) {
    const auto imported = DriverBasedPrinter(request.printer).createImportedCapabilities();
    const bool had = imported->hasImportedCapabilities();
    imported->clearImportedCapabilities();
    print(had ? "The printer has its built-in capabilities again.\n" : "No capabilities were imported.\n");
    return exitDone;
}
