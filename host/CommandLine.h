// The command line of kolma: what may be typed, and which function it runs.
#pragma once

#include <CLI/CLI.hpp>

#include <functional>
#include <string>
#include <vector>

class CommandLine {
public:
    CommandLine();

    // Parses, and runs the command. Returns the exit code of the program.
    int run(int argc, const char* const* argv);

private:
    using Command = std::function<int()>;

    // A command that runs when it is the one typed.
    CLI::App* addCommand(CLI::App& parent, const std::string& name, const std::string& description, Command command);
    void addOutput(CLI::App* command);
    void addJson(CLI::App* command);

    void addDriverCommands();
    void addPrinterCommands();
    void addDevModeCommands();
    void addAreaCommand(CLI::App& group, const std::string& name, const std::string& description, unsigned mode);
    void addTicketCommands();
    void addCapabilityCommands();
    void addStockCommands();
    void addPropertiesCommand();

    CLI::App app_{"Driver interface host of the Kolma printer driver", "kolma"};
    Command chosen_;

    // What was typed, in UTF-8.
    std::string name_;
    std::string driver_;
    std::string input_;
    std::vector<std::string> inputs_;
    std::string output_;
    std::string script_;
    std::string pictures_;
    bool agrees_ = false;
    bool device_ = false;
    bool readOnly_ = false;
    bool fresh_ = false;
    bool refusesPage_ = false;
    bool json_ = false;
    bool verbose_ = false;
};
