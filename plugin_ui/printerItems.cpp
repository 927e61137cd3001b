#include "plugin_ui/printerItems.h"

#include "jtcore/Capabilities/ImportedCapabilities.h"
#include "jtcore/Printer/DriverBasedPrinter.h"
#include "jtcore/Services/trace.h"
#include "plugin_ui/OptionItemBuilder.h"
#include "plugin_ui/chooseCapabilityFile.h"
#include "plugin_ui/hostBoundary.h"
#include "plugin_ui/sheetSite.h"
#include "resources/ids.h"

#include <algorithm>
#include <exception>

namespace {

constexpr OptionRow capabilitiesRow{IDS_ITEM_CAPABILITIES,
                                    TVOT_COMBOBOX,
                                    OTS_LBCB_NO_ICON16_IN_ITEM,
                                    {{IDS_ITEM_CAPABILITIES_BUILT_IN, 0}, {IDS_ITEM_CAPABILITIES_FILE, 0}}};
constexpr OptionRow ticketRow{IDS_ITEM_RENDO_TICKET,
                              TVOT_2STATES,
                              0,
                              {{IDS_ITEM_RENDO_TICKET_YES, IDI_CPSUI_YES}, {IDS_ITEM_RENDO_TICKET_NO, IDI_CPSUI_NO}}};
constexpr LONG selectionBuiltIn = 0;
constexpr LONG selectionFile = 1;
constexpr LONG selectionYes = 0;
constexpr LONG selectionNo = 1;

constexpr std::size_t capabilitiesIndex = 0;
constexpr std::size_t ticketIndex = 1;

constexpr char16_t fillMethod[] = u"IKolmaUI::CommonUIProp()";
constexpr char16_t applyMethod[] = u"IKolmaUI::KolmaPrinterPropertyUICallback(): CPSUICB_REASON_APPLYNOW";
constexpr char16_t selectMethod[] = u"IKolmaUI::KolmaPrinterPropertyUICallback(): CPSUICB_REASON_SEL_CHANGED";
constexpr char16_t wholeMethod[] = u"IKolmaUI::KolmaPrinterPropertyUICallback()";

// What the host keeps for the sheet; it lies in the host's heap.
struct PrinterItemData {
    char16_t name[maximumCapabilityPath + 1]; // the chosen capability file, empty for none
    DriverBasedPrinter* printer;
};

PrinterItemData& dataOf(const OEMCUIPPARAM& param) { return *static_cast<PrinterItemData*>(param.pOEMUserData); }

// A name that does not fit stays away: what is stored under it stays in force when the user applies.
void keepName(PrinterItemData& data, const std::u16string& name) {
    std::fill(std::begin(data.name), std::end(data.name), u'\0');
    if (name.size() <= maximumCapabilityPath) name.copy(data.name, name.size());
}

template <typename Read>
LONG readSelection(LONG otherwise, std::u16string_view trace, Read&& read) {
    try {
        return read();
    } catch (...) {
        traceText(fillMethod, trace);
        return otherwise;
    }
}

LONG readCapabilitiesSelection(DriverBasedPrinter& printer, PrinterItemData& data) {
    constexpr char16_t trace[] =
        u"Exception thrown while trying to determine the default selection for the printer capability file UI item.";
    return readSelection(selectionBuiltIn, trace, [&] {
        const auto imported = printer.createImportedCapabilities();
        if (!imported->hasImportedCapabilities()) return selectionBuiltIn;
        keepName(data, imported->getImportedFileName());
        return selectionFile;
    });
}

LONG readTicketSelection(DriverBasedPrinter& printer) {
    constexpr char16_t trace[] =
        u"Exception thrown while trying to determine the default selection for the 'Rendo 2.x' item.";
    return readSelection(selectionNo, trace, [&] { return printer.isRendo2xTicket() ? selectionYes : selectionNo; });
}

bool chooseFile(const CPSUICBPARAM& callback, PrinterItemData& data) {
    std::u16string name = data.name;
    if (!ImportedCapabilities::selectPrinterCapabilityFile(callback.hDlg, name, chooseCapabilityFile)) return false;
    keepName(data, name);
    return true;
}

// The selection goes back at once and forward again when a file was chosen: whatever happens in between it is true.
LONG changeSelection(const CPSUICBPARAM& callback, const OEMCUIPPARAM& param) {
    OPTITEM* item = callback.pCurItem;
    if (item != &param.pOEMOptItems[capabilitiesIndex] || item->Sel == selectionBuiltIn) return CPSUICB_ACTION_NONE;
    if (item->Sel != selectionFile) {
        item->Sel = selectionBuiltIn;
        return CPSUICB_ACTION_OPTIF_CHANGED;
    }
    item->Sel = callback.OldSel;
    const CatchSite site{callback.hDlg, IDS_CAPTION_PRINTER_PROPERTIES, selectMethod,
                         IDS_CONTEXT_SELECT_CAPABILITY_FILE};
    if (!runAtSheetSite(site, false, [&] { return chooseFile(callback, dataOf(param)); }))
        return CPSUICB_ACTION_OPTIF_CHANGED;
    item->Sel = selectionFile;
    return CPSUICB_ACTION_NONE;
}

// Apply, one step after the other; the result is what the sheet is told in the end.
class PrinterApply {
public:
    PrinterApply(HWND window, OEMCUIPPARAM& param) noexcept
        : window_(window), items_(param.pOEMOptItems), itemCount_(param.cOEMOptItems), data_(dataOf(param)) {}

    LONG run() {
        const bool isDone = runAtSheetSite(site(applyMethod, IDS_CONTEXT_APPLY_PRINTER_PROPERTIES), false, [this] {
            const auto imported = data_.printer->createImportedCapabilities();
            applyCapabilities(*imported);
            if (!passedOn_) applyTicketForm();
            return true;
        });
        if (passedOn_) std::rethrow_exception(passedOn_);
        return isDone ? result_ : CPSUICB_ACTION_NO_APPLY_EXIT;
    }

private:
    CatchSite site(std::u16string_view method, std::uint16_t contextId, std::u16string_view extraText = {}) const {
        return {window_, IDS_CAPTION_PRINTER_PROPERTIES, method, contextId, extraText};
    }

    // A failure is shown, and one that the user passes on is kept for the end: nobody is asked of it twice.
    template <typename Step>
    bool attempt(const CatchSite& where, Step&& step) {
        try {
            return runAtSheetSite(where, false, [&] {
                step();
                return true;
            });
        } catch (...) {
            passedOn_ = std::current_exception();
            return false;
        }
    }

    void applyCapabilities(ImportedCapabilities& imported) {
        OPTITEM& item = items_[capabilitiesIndex];
        switch (item.Sel) {
        case selectionBuiltIn:
            attempt(site(wholeMethod, IDS_CONTEXT_CLEAR_CAPABILITIES), [&] { imported.clearImportedCapabilities(); });
            break;
        case selectionFile:
            if (data_.name[0] != u'\0') importFile(imported);
            break;
        default:
            item.Sel = selectionBuiltIn;
            result_ = CPSUICB_ACTION_OPTIF_CHANGED;
            break;
        }
    }

    void importFile(ImportedCapabilities& imported) {
        const CatchSite importSite = site(applyMethod, IDS_CONTEXT_IMPORT_CAPABILITIES,
                                          u"importPrinterCapabilityFile() threw an exception. Use the default "
                                          u"setting.");
        const bool isImported = attempt(importSite, [&] { imported.importPrinterCapabilityFile(data_.name); });
        if (!isImported) recoverFromImport(imported);
    }

    void recoverFromImport(ImportedCapabilities& imported) {
        result_ = CPSUICB_ACTION_NO_APPLY_EXIT;
        items_[capabilitiesIndex].Sel = selectionBuiltIn;
        try {
            imported.clearImportedCapabilities();
        } catch (...) {
            traceText(applyMethod, u"Failed while trying to remove the imported capabilities data. Already in recovery "
                                   u"mode. Nothing else we can do.");
        }
    }

    void applyTicketForm() {
        if (itemCount_ <= ticketIndex || !data_.printer->hasTicketFormChoice()) return;
        const LONG selection = items_[ticketIndex].Sel;
        if (selection == selectionYes || selection == selectionNo)
            data_.printer->setRendo2xTicket(selection == selectionYes);
    }

    HWND window_;
    OPTITEM* items_;
    DWORD itemCount_;
    PrinterItemData& data_;
    LONG result_ = CPSUICB_ACTION_NONE;
    std::exception_ptr passedOn_; // at the box of an unknown failure; what is left is not done then
};

LONG answer(const CPSUICBPARAM& callback, OEMCUIPPARAM& param) {
    switch (callback.Reason) {
    case CPSUICB_REASON_SEL_CHANGED:
        return changeSelection(callback, param);
    case CPSUICB_REASON_APPLYNOW:
        return PrinterApply(callback.hDlg, param).run();
    default:
        return CPSUICB_ACTION_NONE;
    }
}

// What the sheet is told when a failure is passed on.
LONG failureOf(const CPSUICBPARAM* callback) noexcept {
    if (!callback) return CPSUICB_ACTION_NONE;
    return callback->Reason == CPSUICB_REASON_APPLYNOW ? CPSUICB_ACTION_NO_APPLY_EXIT : CPSUICB_ACTION_OPTIF_CHANGED;
}

} // namespace

void tellPrinterItems(OEMCUIPPARAM& param, DriverBasedPrinter& printer) {
    if (!param.pOEMOptItems) {
        param.cOEMOptItems = printer.hasTicketFormChoice() ? 2 : 1;
        return;
    }
    if (param.cOEMOptItems == 0) return;
    const OptionItemBuilder builder(param.hOEMHeap);
    auto* data = builder.allocate<PrinterItemData>();
    data->printer = &printer;
    param.pOEMUserData = data;
    param.OEMCUIPCallback = KolmaPrinterPropertyUICallback;
    builder.fill(param.pOEMOptItems[capabilitiesIndex], capabilitiesRow, readCapabilitiesSelection(printer, *data));
    if (param.cOEMOptItems > ticketIndex && printer.hasTicketFormChoice())
        builder.fill(param.pOEMOptItems[ticketIndex], ticketRow, readTicketSelection(printer));
}

LONG APIENTRY KolmaPrinterPropertyUICallback(PCPSUICBPARAM callback, POEMCUIPPARAM param) {
    return hostBoundary(failureOf(callback), [&] {
        if (!callback || !param || !param->pOEMOptItems || !param->pOEMUserData) return LONG{CPSUICB_ACTION_NONE};
        return answer(*callback, *param);
    });
}
