// A sheet of one printer as the driver interface host opens it: the plug-in's page and a page of the option items that
// it adds to the host's own.
#pragma once

#include "host/sheets/OptionItems.h"
#include "host/sheets/PlugInPage.h"
#include "platform/driver_host.h"

#include <exception>
#include <functional>
#include <optional>
#include <string>

class PrinterSheet {
public:
    enum class Kind { document, device };

    // Called with the first window on the way.
    std::function<void()> onOpen;
    // Called each time that OK or Apply has put settings into the area. When it raises, the sheet stays open.
    std::function<void()> onApplied;
    // For trying out what the plug-in makes of it: its page is not taken.
    bool refusesPage = false;

    // The subject is what the sheet works on, and lives as long.
    PrinterSheet(IPrintOemUI& plugIn, Kind kind, SheetSubject& subject);
    PrinterSheet(const PrinterSheet&) = delete;
    PrinterSheet& operator=(const PrinterSheet&) = delete;

    // Returns when the sheet is closed: true when something was applied. Raises UnknownCaseException, with words, when
    // it cannot be opened, when there is no display, and when the plug-in could not give its settings back the last
    // time it was asked; and what onApplied raised that time. The user has seen in a box what the plug-in or onApplied
    // had to say.
    bool run();

private:
    // What the plug-in's own group is given: the published record, and behind it what this host needs.
    struct PlugInParam {
        OEMUIPSPARAM published{};
        PrinterSheet* sheet = nullptr;
    };

    static LONG CALLBACK onSheet(PPROPSHEETUI_INFO info, LPARAM lParam);
    static LONG CALLBACK onPlugIn(PPROPSHEETUI_INFO info, LPARAM lParam);
    void fillHeader(PROPSHEETUI_INFO_HEADER& header);
    bool addPages(PROPSHEETUI_INFO& info);
    LONG runPlugIn(PROPSHEETUI_INFO& info, LPARAM lParam);
    LONG runDocumentSheet(PROPSHEETUI_INFO& info, LPARAM lParam);
    void takeResult(PROPSHEETUI_INFO& info, const SETRESULT_INFO& result);
    bool endApply(bool isAccepted);
    bool keep();

    IPrintOemUI& plugIn_;
    const Kind kind_;
    SheetSubject& subject_;
    std::u16string title_;
    std::optional<OptionItems> items_;
    PlugInParam plugInParam_;
    PlugInPage page_;
    bool isWaiting_ = false; // for what the plug-in's page says in the end to what it has applied
    bool hasApplied_ = false;
    bool hasNoPage_ = false;
    bool hasNoResult_ = false; // of the last time that it was wanted
    std::exception_ptr failure_;
};
