#include "host/propertiesCommand.h"

#include "host/AreaFile.h"
#include "host/ExitCode.h"
#include "host/PlugIn.h"
#include "host/PrinterHandle.h"
#include "host/commandFailure.h"
#include "host/conversation/ConversationPlayer.h"
#include "host/output.h"
#include "host/printerCommands.h"
#include "host/sheets/DocumentStore.h"
#include "host/sheets/PrinterSheet.h"
#include "jtcore/Services/File.h"
#include "jtcore/Services/formatMessage.h"
#include "jtcore/Services/text.h"
#include "platform/spooler.h"
#include "platform/unattended.h"

#include <filesystem>
#include <optional>

namespace {

// A printer to look at the sheets with, of the family that has the most to show.
constexpr std::u16string_view demoPrinter = u"demo";
constexpr std::u16string_view demoDriver = u"Kolma Lindor 63 PS3 C3";

// A document's script is a page or two.
constexpr std::size_t mostScript = 1U << 20U;

std::optional<PlayScript> readScript(const std::u16string& path) {
    const ByteBuffer bytes = File(path).read();
    if (bytes.getSize() > mostScript)
        raise<InWords<ReadFileException>>(u"The script \"%s\" is larger than %u bytes.", path, mostScript);
    PlayScript script = parsePlayScript(fromUtf8({reinterpret_cast<const char*>(bytes.getData()), bytes.getSize()}));
    for (const PlayError& error : script.errors)
        printError(formatMessage(u"%s:%u: %s", path, error.line, error.text));
    if (!script.errors.empty()) return std::nullopt;
    return script;
}

DEVMODEW publicPart(const std::u16string& printer) {
    DEVMODEW mode{};
    for (std::size_t i = 0; i < printer.size() && i + 1 < std::size(mode.dmDeviceName); ++i)
        mode.dmDeviceName[i] = static_cast<WCHAR>(printer[i]);
    mode.dmSpecVersion = DM_SPECVERSION;
    mode.dmSize = sizeof mode;
    mode.dmDriverExtra = sizeof(KolmaDmType);
    return mode;
}

class Properties {
public:
    Properties(const PropertiesRequest& request, std::optional<PlayScript> script)
        : request_(request),
          script_(std::move(script)),
          printer_(request.printer),
          store_(printer_.get(), request.area),
          devMode_(publicPart(request.printer)) {}

    int run() {
        area_ = startArea();
        SheetSubject subject{printer_.get(), request_.printer, &devMode_, &area_, flags()};
        const auto kind = request_.isDevice ? PrinterSheet::Kind::device : PrinterSheet::Kind::document;
        PrinterSheet sheet(plugIn_.object(), kind, subject);
        std::optional<ConversationPlayer> player;
        sheet.onOpen = [&] {
            if (script_) player.emplace(std::move(*script_), request_.script, request_.pictureFolder);
        };
        sheet.refusesPage = request_.refusesPage;
        if (isKept()) sheet.onApplied = [this] { store_.save(area_); };
        const std::optional<bool> hasApplied = runReportingFailure(sheet);
        const bool wentAsExpected = !player || player->finish();
        if (!hasApplied) return exitFailure;
        report(*hasApplied);
        return wentAsExpected ? exitDone : exitNotValid;
    }

private:
    // Who may not change anything gets no result either.
    DWORD flags() const { return request_.isReadOnly ? DM_NOPERMISSION : DM_UPDATE | DM_COPY; }
    bool isKept() const { return !request_.isDevice && !request_.isReadOnly; }

    // A sheet that fails does not spare the script what is left of it.
    static std::optional<bool> runReportingFailure(PrinterSheet& sheet) {
        try {
            return sheet.run();
        } catch (const std::exception& failure) {
            printFailure(failure);
            return std::nullopt;
        }
    }

    KolmaDmType startArea() {
        std::optional<KolmaDmType> kept = request_.isFresh ? std::nullopt : store_.load();
        if (kept && !hasOurHeader(*kept))
            printError(formatMessage(u"What is kept %s is not of this driver; the sheet begins without settings.",
                                     store_.describe()));
        if (kept) return *kept;
        KolmaDmType area = absentArea();
        plugIn_.runDevMode(OEMDM_DEFAULT, printer_.get(), nullptr, area);
        return area;
    }

    void report(bool hasApplied) const {
        std::u16string line = u"Nothing was applied.";
        if (hasApplied && request_.isDevice) line = u"Applied.";
        if (hasApplied && isKept()) line = formatMessage(u"Applied; the settings are kept %s.", store_.describe());
        print(toTerminal(line) + '\n');
    }

    const PropertiesRequest& request_;
    std::optional<PlayScript> script_;
    PrinterHandle printer_;
    PlugIn plugIn_;
    DocumentStore store_;
    DEVMODEW devMode_;
    KolmaDmType area_{};
};

bool isMissing(const std::u16string& printer) {
    HANDLE handle = nullptr;
    if (!OpenPrinterW(toWide(std::u16string(printer).data()), &handle, nullptr)) return true;
    ClosePrinter(handle);
    return false;
}

// A folder that cannot be made is told of by the first picture.
void makeFolder(const std::u16string& folder) {
    std::error_code failure;
    std::filesystem::create_directories(folder, failure);
}

void addDemoPrinter() {
    addPrinter(std::u16string(demoPrinter), std::u16string(demoDriver));
    print(toUtf8(formatMessage(u"Added the printer \"%s\" with the driver \"%s\".\n", demoPrinter, demoDriver)));
}

} // namespace

int openProperties(const PropertiesRequest& request) {
    std::optional<PlayScript> script;
    if (!request.script.empty()) {
        script = readScript(request.script);
        if (!script) return exitUsage;
        AllowWindowsWithoutDisplay();
        if (!request.pictureFolder.empty()) makeFolder(request.pictureFolder);
    }
    if (request.printer == demoPrinter && isMissing(request.printer)) addDemoPrinter();
    return Properties(request, std::move(script)).run();
}
