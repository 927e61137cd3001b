#include "host/tickets/checkRequests.h"

#include "host/ExitCode.h"
#include "host/commandFailure.h"
#include "host/output.h"
#include "host/tickets/problemJson.h"
#include "host/tickets/ticketFile.h"
#include "jtcore/AnlXlate/PersistentSettings.h"
#include "jtcore/Capabilities/Capabilities.h"
#include "jtcore/Capabilities/LimitationsDisplay.h"
#include "jtcore/Capabilities/SettingsProblemReporter.h"
#include "jtcore/Printer/DriverBasedPrinter.h"
#include "jtcore/Printer/PrinterDefaults.h"
#include "jtcore/Services/text.h"
#include "platform/windows.h"
#include "resources/ids.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <algorithm>

namespace {

using nlohmann::ordered_json;

// As a sheet loads a ticket: older ones get today's form.
FeatureSettings loadTicket(const std::u16string& file) {
    FeatureSettings settings;
    settings.getAttrNodeList() = readTicket(file);
    settings.normalizeImageShift();
    settings.normalizePageOverrides();
    return settings;
}

// A report as a terminal shows it, line by line.
std::string toLines(std::u16string_view report) {
    constexpr std::u16string_view lineEnd = u"\r\n";
    std::string lines;
    while (report.starts_with(lineEnd))
        report.remove_prefix(lineEnd.size());
    while (!report.empty()) {
        const std::size_t length = std::min(report.find(lineEnd), report.size());
        std::u16string_view line = report.substr(0, length);
        const bool isIndented = line.starts_with(u'\t');
        if (isIndented) line.remove_prefix(1);
        lines += (isIndented ? "    " : "") + toTerminal(line) + '\n';
        report.remove_prefix(std::min(length + lineEnd.size(), report.size()));
    }
    return lines;
}

std::string countOf(std::size_t problems) { return fmt::format("{} problem{}", problems, problems == 1 ? "" : "s"); }

class Checker {
public:
    explicit Checker(HANDLE handle) : printer_(handle), capabilities_(printer_.getCapabilities()) {
        defaults_.setAttrNodeList(defaults().getFeatureSettings().getAttrNodeList());
    }

    const PrinterDefaults& defaults() { return printer_.getPrinterDefaults(); }
    const Capabilities& capabilities() const { return capabilities_; }

    SettingsProblemReporter makeReporter(const std::u16string& file) const {
        return {nullptr, IDS_CAPTION_DRIVER, file, defaults_, true, true};
    }

    bool validate(FeatureSettings& settings, SettingsProblemList& problems) const {
        return capabilities_.validateSettings(settings, problems);
    }

    std::string describe(const std::u16string& file, const SettingsProblemList& problems) const {
        if (problems.isEmpty()) return fmt::format("{}: no problems\n", toTerminal(file));
        return fmt::format("{}: {}\n\n{}", toTerminal(file), countOf(problems.getSize()),
                           toLines(makeReporter(file).getReportText(problems)));
    }

    ordered_json toJson(const SettingsProblemList& problems) {
        return {{"valid", problems.isEmpty()},
                {"problems", ::toJson(problems, defaults().getFeatureSettings().getAttrNodeList())}};
    }

private:
    DriverBasedPrinter printer_;
    const Capabilities& capabilities_;
    PersistentSettings defaults_;
};

// One file's answer, added to the JSON or printed.
int checkOne(Checker& checker, const TicketRequest& request, const std::u16string& file, ordered_json& answers) {
    FeatureSettings settings = loadTicket(file);
    SettingsProblemList problems;
    const bool isValid = checker.validate(settings, problems);
    if (request.json) {
        ordered_json answer = checker.toJson(problems);
        if (request.fileCount > 1) answer["file"] = toUtf8(file);
        answers.push_back(std::move(answer));
    } else {
        print(checker.describe(file, problems));
    }
    return isValid ? exitDone : exitNotValid;
}

// Prints the report where a sheet would ask, and answers as the command line says. For the time of one request.
class TerminalDisplay {
public:
    explicit TerminalDisplay(bool agrees)
        : before_(installLimitationsDisplay([agrees](const LimitationsReport& report) {
              print(toLines(report.headline) + '\n' + toLines(report.text));
              return agrees ? IDOK : IDCANCEL;
          })) {}
    ~TerminalDisplay() { installLimitationsDisplay(std::move(before_)); }
    TerminalDisplay(const TerminalDisplay&) = delete;
    TerminalDisplay& operator=(const TerminalDisplay&) = delete;

private:
    LimitationsDisplay before_;
};

} // namespace

int checkTickets(const TicketRequest& request) {
    Checker checker(request.printer);
    auto answers = ordered_json::array();
    int worst = exitDone;
    for (std::size_t i = 0; i < request.fileCount; ++i) {
        const std::u16string file = request.files[i];
        const auto check = [&] { return checkOne(checker, request, file, answers); };
        if (!request.json && i > 0) print("\n");
        if (request.fileCount == 1) {
            worst = check();
            continue;
        }
        const int code = runReporting(check);
        if (code == exitFailure) printError(formatMessage(u"The file was \"%s\".", file));
        worst = std::max(worst, code);
    }
    if (request.json) printJson(request.fileCount == 1 ? answers.front() : answers);
    return worst;
}

int fixTicket(const TicketRequest& request) {
    Checker checker(request.printer);
    FeatureSettings settings = loadTicket(request.file);
    const TerminalDisplay display(request.agrees);
    bool hadProblems = false;
    SettingsProblemReporter reporter = checker.makeReporter(request.file);
    if (!checker.capabilities().validateAndResolve(settings, checker.defaults(), hadProblems, reporter)) {
        print("\nNothing was written. Say --yes to have the settings changed.\n");
        return exitNotValid;
    }
    SettingsProblemList left;
    if (!checker.validate(settings, left)) {
        print("\nNot everything can be repaired. Nothing was written. This is left:\n\n" +
              checker.describe(request.file, left));
        return exitNotValid;
    }
    writeTicket(request.output, settings.getAttrNodeList());
    print(hadProblems ? "\nThe settings were changed, and the ticket was written.\n"
                      : "No problems. The ticket was written as it is.\n");
    return exitDone;
}
