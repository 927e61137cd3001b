#include "host/CommandLine.h"

#include "host/areaCommands.h"
#include "host/capabilityCommands.h"
#include "host/commandFailure.h"
#include "host/driverCommands.h"
#include "host/output.h"
#include "host/printerCommands.h"
#include "host/propertiesCommand.h"
#include "host/stockCommands.h"
#include "host/ticketCommands.h"
#include "jtcore/Services/text.h"
#include "platform/driver_host.h"

#include <utility>

CommandLine::CommandLine() {
    app_.require_subcommand(1);
    app_.set_version_flag("--version", "kolma " KOLMA_VERSION);
    app_.add_flag("-v,--verbose", verbose_, "After a failure, print the technical report too");
    app_.footer("Exit codes: 0 done, 1 the thing asked about is not valid, 2 wrong usage, 3 failure.");
    addDriverCommands();
    addPrinterCommands();
    addDevModeCommands();
    addTicketCommands();
    addCapabilityCommands();
    addStockCommands();
    addPropertiesCommand();
}

int CommandLine::run(int argc, const char* const* argv) {
    try {
        app_.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app_.exit(error) == 0 ? exitDone : exitUsage;
    }
    setVerbose(verbose_);
    return runReporting([this] {
        const int code = chosen_();
        finishOutput();
        return code;
    });
}

CLI::App* CommandLine::addCommand(CLI::App& parent, const std::string& name, const std::string& description,
                                  Command command) {
    CLI::App* added = parent.add_subcommand(name, description);
    added->fallthrough();
    added->callback([this, command = std::move(command)] { chosen_ = command; });
    return added;
}

void CommandLine::addOutput(CLI::App* command) {
    command->add_option("-o,--output", output_, "The file to write")->required()->type_name("FILE");
}

void CommandLine::addJson(CLI::App* command) { command->add_flag("--json", json_, "Print JSON"); }

void CommandLine::addDriverCommands() {
    addJson(addCommand(app_, "drivers", "Show the drivers with model, language and family",
                       [this] { return listDrivers(json_); }));
}

void CommandLine::addPrinterCommands() {
    CLI::App& group = *app_.add_subcommand("printer", "The local printers");
    group.require_subcommand(1)->fallthrough();
    CLI::App* add =
        addCommand(group, "add", "Add a printer", [this] { return addPrinter(fromUtf8(name_), fromUtf8(driver_)); });
    add->add_option("NAME", name_, "The printer's name")->required()->type_name("");
    add->add_option("--driver", driver_, "The driver, as \"kolma drivers\" shows it")->required()->type_name("DRIVER");
    addJson(addCommand(group, "list", "Show the printers", [this] { return listPrinters(json_); }));
    CLI::App* remove =
        addCommand(group, "remove", "Remove a printer and its data", [this] { return removePrinter(fromUtf8(name_)); });
    remove->add_option("NAME", name_, "The printer's name")->required()->type_name("");
}

void CommandLine::addDevModeCommands() {
    CLI::App& group = *app_.add_subcommand("devmode", "Private areas of documents, in files of 4016 bytes");
    group.require_subcommand(1)->fallthrough();
    addAreaCommand(group, "default", "Write the printer's default settings", OEMDM_DEFAULT);
    addAreaCommand(group, "convert", "Carry the settings of an area into another", OEMDM_CONVERT);
    addAreaCommand(group, "merge", "Bring an area into another, checked against the printer", OEMDM_MERGE);
    CLI::App* show = addCommand(group, "show", "Show header, record and attributes of an area",
                                [this] { return showArea(fromUtf8(input_), json_); });
    show->add_option("FILE", input_, "The area")->required()->type_name("");
    addJson(show);
    CLI::App* fromTicket = addCommand(group, "from-ticket", "Make an area of a job ticket",
                                      [this] { return ticketToArea(fromUtf8(input_), fromUtf8(output_)); });
    fromTicket->add_option("TICKET", input_, "The job ticket")->required()->type_name("");
    addOutput(fromTicket);
    CLI::App* toTicket = addCommand(group, "to-ticket", "Write the settings of an area as a job ticket",
                                    [this] { return areaToTicket(fromUtf8(input_), fromUtf8(output_)); });
    toTicket->add_option("FILE", input_, "The area")->required()->type_name("");
    addOutput(toTicket);
}

void CommandLine::addAreaCommand(CLI::App& group, const std::string& name, const std::string& description,
                                 unsigned mode) {
    CLI::App* command = addCommand(group, name, description, [this, mode] {
        return runAreaCommand(mode, fromUtf8(name_), fromUtf8(input_), fromUtf8(output_));
    });
    command->add_option("PRINTER", name_, "The printer's name")->required()->type_name("");
    if (mode != OEMDM_DEFAULT) command->add_option("IN", input_, "The incoming area")->required()->type_name("");
    addOutput(command);
}

void CommandLine::addTicketCommands() {
    CLI::App& group = *app_.add_subcommand("ticket", "Job tickets");
    group.require_subcommand(1)->fallthrough();
    CLI::App* show = addCommand(group, "show", "Show the attributes of a ticket",
                                [this] { return showTicket(fromUtf8(input_), json_); });
    show->add_option("FILE", input_, "The job ticket")->required()->type_name("");
    addJson(show);
    CLI::App* check = addCommand(group, "check", "Show what a printer cannot do of tickets", [this] {
        std::vector<std::u16string> files;
        for (const std::string& file : inputs_)
            files.push_back(fromUtf8(file));
        return checkTickets(files, fromUtf8(name_), json_);
    });
    check->add_option("FILE", inputs_, "The job tickets")->required()->type_name("");
    check->add_option("--printer", name_, "The printer's name")->required()->type_name("PRINTER");
    addJson(check);
    CLI::App* fix = addCommand(group, "fix", "Repair a ticket for a printer", [this] {
        return fixTicket(fromUtf8(input_), fromUtf8(name_), fromUtf8(output_), agrees_);
    });
    fix->add_option("FILE", input_, "The job ticket")->required()->type_name("");
    fix->add_option("--printer", name_, "The printer's name")->required()->type_name("PRINTER");
    fix->add_flag("--yes,!--no", agrees_, "Whether to change the settings as the report says (without either: no)");
    addOutput(fix);
}

void CommandLine::addCapabilityCommands() {
    CLI::App& group = *app_.add_subcommand("capabilities", "What a printer can do");
    group.require_subcommand(1)->fallthrough();
    CLI::App* show = addCommand(group, "show", "Show what the printer can do",
                                [this] { return showCapabilities(fromUtf8(name_), json_, fromUtf8(output_)); });
    show->add_option("PRINTER", name_, "The printer's name")->required()->type_name("");
    addJson(show);
    show->add_option("--abil", output_, "Write it as a capability file instead")
        ->type_name("FILE")
        ->excludes(show->get_option("--json"));
    CLI::App* import = addCommand(group, "import", "Give the printer a capability file",
                                  [this] { return importCapabilities(fromUtf8(name_), fromUtf8(input_)); });
    import->add_option("PRINTER", name_, "The printer's name")->required()->type_name("");
    import->add_option("FILE", input_, "The capability file")->required()->type_name("");
    CLI::App* clear = addCommand(group, "clear", "Take an imported capability file away again",
                                 [this] { return clearCapabilities(fromUtf8(name_)); });
    clear->add_option("PRINTER", name_, "The printer's name")->required()->type_name("");
}

void CommandLine::addStockCommands() {
    CLI::App& group = *app_.add_subcommand("stocks", "The stocks of the user and of a printer");
    group.require_subcommand(1)->fallthrough();
    CLI::App* list = addCommand(group, "list", "Show the stocks that the user of the printer can choose from",
                                [this] { return listStocks(fromUtf8(name_), json_); });
    list->add_option("PRINTER", name_, "The printer's name")->required()->type_name("");
    addJson(list);
}

void CommandLine::addPropertiesCommand() {
    CLI::App* command =
        addCommand(app_, "properties", "Open the sheet of a document or, with --device, of the printer", [this] {
            PropertiesRequest request;
            request.printer = fromUtf8(name_);
            request.area = fromUtf8(input_);
            request.script = fromUtf8(script_);
            request.pictureFolder = fromUtf8(pictures_);
            request.isDevice = device_;
            request.isReadOnly = readOnly_;
            request.isFresh = fresh_;
            request.refusesPage = refusesPage_;
            return openProperties(request);
        });
    command->add_option("PRINTER", name_, "The printer's name; \"demo\" is added when there is none of that name")
        ->required()
        ->type_name("");
    CLI::Option* area = command->add_option("--devmode", input_, "The area to begin with and to write on OK and Apply");
    area->type_name("FILE");
    CLI::Option* device = command->add_flag("--device", device_, "The sheet of the printer in place of a document's");
    CLI::Option* fresh = command->add_flag("--fresh", fresh_, "Begin with the printer's default settings");
    CLI::Option* readOnly =
        command->add_flag("--read-only", readOnly_, "Open the sheet as for a user who may not change anything");
    // Nobody's wish, but a way to see what the driver makes of such a host; the help is silent about it.
    command->add_flag("--refuse-page", refusesPage_, "As a host that does not take the driver's page")->group("");
    for (CLI::Option* ofDocument : {area, fresh, readOnly})
        ofDocument->excludes(device);
    CLI::Option* script = command->add_option("--play", script_, "Play a script on the sheet; no display is needed");
    script->type_name("SCRIPT");
    command->add_option("--shots", pictures_, "Where the script's pictures go")->type_name("DIR")->needs(script);
}
