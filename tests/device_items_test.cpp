// The items in the host's own sheets, as the host fills and calls them; printers and their stores are real ones.
#include "plugin_ui/PageLock.h"
#include "plugin_ui/documentItems.h"
#include "plugin_ui/printerItems.h"

#include "jtcore/Capabilities/ImportedCapabilities.h"
#include "jtcore/Printer/DriverBasedPrinter.h"
#include "platform/common_dialogs.h"
#include "platform/heap.h"
#include "resources/ids.h"
#include "tests/MessageBoxes.h"
#include "tests/ModuleUnderTest.h"
#include "tests/capabilityText.h"
#include "tests/expectFailure.h"

#include <dlfcn.h>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdexcept>
#include <vector>

using testing::HasSubstr;

using testing::SizeIs;

namespace {

const OwnStores ownStores;

// What the user does in the file dialog; null for Cancel.
std::function<BOOL(OPENFILENAMEW&)> fileDialog;
DWORD fileDialogError = 0;

// The store of printer data refuses to write, or ends in something that nobody knows.
bool isStoreSealed = false;
bool isStoreBroken = false;

template <typename Function>
Function platforms(const char* name) {
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

} // namespace

BOOL WINAPI GetOpenFileNameW(LPOPENFILENAMEW lpofn) { return fileDialog ? fileDialog(*lpofn) : FALSE; }

DWORD WINAPI CommDlgExtendedError() { return fileDialogError; }

DWORD WINAPI SetPrinterDataW(HANDLE printer, LPWSTR name, DWORD type, LPBYTE data, DWORD size) {
    if (isStoreBroken) throw 5;
    if (isStoreSealed) return ERROR_ACCESS_DENIED;
    return platforms<decltype(&SetPrinterDataW)>("SetPrinterDataW")(printer, name, type, data, size);
}

DWORD WINAPI DeletePrinterDataW(HANDLE printer, LPWSTR name) {
    if (isStoreBroken) throw 5;
    if (isStoreSealed) return ERROR_ACCESS_DENIED;
    return platforms<decltype(&DeletePrinterDataW)>("DeletePrinterDataW")(printer, name);
}

namespace {

void chooses(const std::u16string& path) {
    fileDialog = [path](OPENFILENAMEW& dialog) {
        if (path.size() >= dialog.nMaxFile) return FALSE;
        path.copy(const_cast<char16_t*>(fromWide(dialog.lpstrFile)), path.size());
        dialog.lpstrFile[path.size()] = 0;
        return TRUE;
    };
}

// The host's side of one sheet: a heap, and the items as the plug-in filled them.
class ItemSheet {
public:
    explicit ItemSheet(DWORD room) : items(room) {
        param.cbSize = sizeof param;
        param.hOEMHeap = heap_;
        param.pOEMOptItems = items.data();
        param.cOEMOptItems = room;
    }
    ~ItemSheet() { HeapDestroy(heap_); }
    ItemSheet(const ItemSheet&) = delete;
    ItemSheet& operator=(const ItemSheet&) = delete;

    // The user chooses in one item, and the host tells.
    LONG choose(std::size_t item, LONG selection) {
        CPSUICBPARAM callback{};
        callback.cbSize = sizeof callback;
        callback.Reason = CPSUICB_REASON_SEL_CHANGED;
        callback.pCurItem = &items.at(item);
        callback.OldSel = std::exchange(items.at(item).Sel, selection);
        return param.OEMCUIPCallback(&callback, &param);
    }
    LONG tell(WORD reason) {
        CPSUICBPARAM callback{};
        callback.cbSize = sizeof callback;
        callback.Reason = reason;
        return param.OEMCUIPCallback(&callback, &param);
    }

    std::vector<OPTITEM> items;
    OEMCUIPPARAM param{};

private:
    HANDLE heap_ = HeapCreate(0, 0, 0);
};

// "name: first/second"
std::string wordsOf(const OPTITEM& item) {
    const auto text = [](LPCWSTR wide) { return toUtf8(fromWide(wide)); };
    const OPTPARAM* params = item.pOptType->pOptParam;
    return text(item.pName) + ": " + text(params[0].pData) + "/" + text(params[1].pData);
}

class Lock final : public PageLock {
public:
    void lockPage() override { calls += "lock "; }
    void unlockPage() override { calls += "unlock "; }
    std::string calls;
};

Area areaThat(bool isEditable) {
    KolmaDevMode settings;
    settings.setAttrNodeList(list().integer(u"copies", 3));
    settings.setSettingsEditable(isEditable);
    return exported(settings);
}

bool isEditable(const Area& area) { return KolmaDevMode(area.data()).isSettingsEditable(); }

// The first driver of the table that has the choice of ticket form, or that has it not.
std::u16string driverThat(bool hasChoice) {
    for (const PrinterDriverInfo& row : printerDrivers())
        if (PrinterModel(row.model, row.language).hasTicketFormChoice() == hasChoice) return std::u16string(row.name);
    throw std::runtime_error("no such driver");
}

// A printer of the store, the plug-in's printer on it, and its sheet with the items filled.
struct PrinterSheet {
    explicit PrinterSheet(bool hasChoice)
        : store(driverThat(hasChoice)), printer(store.handle), sheet(hasChoice ? 2 : 1) {
        tellPrinterItems(sheet.param, printer);
    }
    bool isImported() const { return printer.createImportedCapabilities()->hasImportedCapabilities(); }
    // Opened again, as the next user would.
    void reopen() {
        sheet.items.assign(sheet.items.size(), OPTITEM{});
        tellPrinterItems(sheet.param, printer);
    }

    TestPrinter store;
    DriverBasedPrinter printer;
    ItemSheet sheet;
};

// The user has chosen a good file, and nothing is applied yet.
class ChosenFile {
public:
    explicit ChosenFile(PrinterSheet& printer) {
        folder_.write("good.abil", goodFile);
        chooses(path());
        const MessageBoxes boxes;
        EXPECT_EQ(printer.sheet.choose(0, 1), CPSUICB_ACTION_NONE);
        EXPECT_THAT(boxes.onlyOne().text, HasSubstr("valid printer capability file"));
    }
    ~ChosenFile() { fileDialog = nullptr; }
    ChosenFile(const ChosenFile&) = delete;
    ChosenFile& operator=(const ChosenFile&) = delete;

    std::u16string path() const { return folder_ / "good.abil"; }

    void remove() const { std::filesystem::remove(folder_.path() / "good.abil"); }

private:
    TemporaryFolder folder_;
};

class Sealed {
public:
    Sealed() { isStoreSealed = true; }
    ~Sealed() { isStoreSealed = false; }
    Sealed(const Sealed&) = delete;
    Sealed& operator=(const Sealed&) = delete;
};

} // namespace

TEST(DocumentItems, oneItemSaysWhetherTheSettingsMayBeEdited) {
    Lock lock;
    OEMCUIPPARAM count{};
    tellDocumentItems(count, lock);
    EXPECT_EQ(count.cOEMOptItems, 1U);
    for (const bool editable : {true, false}) {
        Area area = areaThat(editable);
        ItemSheet sheet(1);
        sheet.param.pOEMDM = area.data();
        tellDocumentItems(sheet.param, lock);
        const OPTITEM& item = sheet.items[0];
        EXPECT_EQ(item.Sel, editable ? 0 : 1);
        EXPECT_EQ(wordsOf(item), "Allow editing of the Kolma job settings: Yes/No");
        EXPECT_EQ(item.cbSize, sizeof(OPTITEM));
        EXPECT_EQ(item.Level, 1);
        EXPECT_EQ(item.Flags, OPTIF_CALLBACK);
        EXPECT_EQ(item.pOptType->Type, TVOT_2STATES);
        EXPECT_EQ(item.pOptType->Count, 2);
        EXPECT_EQ(item.pOptType->pOptParam[0].IconID, IDI_CPSUI_YES);
        EXPECT_EQ(item.pOptType->pOptParam[1].IconID, IDI_CPSUI_NO);
    }
}

TEST(DocumentItems, theChoiceReachesTheAreaAtOnceAndThePageWhenTheUserLeaves) {
    struct Row {
        bool before;
        LONG selection;
        const char* calls;
    };
    for (const Row& row : {Row{true, 1, "lock "}, Row{false, 0, "unlock "}, Row{true, 0, "unlock "}}) {
        Lock lock;
        Area area = areaThat(row.before);
        ItemSheet sheet(1);
        sheet.param.pOEMDM = area.data();
        tellDocumentItems(sheet.param, lock);
        EXPECT_EQ(sheet.choose(0, row.selection), CPSUICB_ACTION_NONE);
        EXPECT_EQ(isEditable(area), row.selection == 0);
        EXPECT_EQ(copiesOf(area), 3) << "the settings stay";
        EXPECT_EQ(lock.calls, "");
        EXPECT_EQ(sheet.tell(CPSUICB_REASON_KILLACTIVE), CPSUICB_ACTION_NONE);
        EXPECT_EQ(lock.calls, row.calls);
        EXPECT_EQ(sheet.tell(CPSUICB_REASON_APPLYNOW), CPSUICB_ACTION_ITEMS_APPLIED);
        EXPECT_EQ(sheet.tell(CPSUICB_REASON_ABOUT), CPSUICB_ACTION_NONE);
    }
}

TEST(DocumentItems, anAreaThatCannotBeReadIsReportedAndAllStaysAsItIs) {
    Lock lock;
    Area area = areaThat(true);
    ItemSheet sheet(1);
    sheet.param.pOEMDM = area.data();
    tellDocumentItems(sheet.param, lock);
    const Area corrupt = corruptArea();
    area = corrupt;
    sheet.param.pOEMDM = area.data();
    const MessageBoxes boxes;
    EXPECT_EQ(sheet.choose(0, 1), CPSUICB_ACTION_OPTIF_CHANGED);
    EXPECT_EQ(sheet.items[0].Sel, 0) << "the box shows what the area has";
    EXPECT_EQ(sheet.tell(CPSUICB_REASON_KILLACTIVE), CPSUICB_ACTION_NONE);
    EXPECT_EQ(lock.calls, "unlock ");
    ASSERT_THAT(boxes.shown(), SizeIs(2));
    EXPECT_EQ(boxes.shown()[0].title, "Kolma Job Settings");
    EXPECT_THAT(boxes.shown()[0].text, testing::ContainsRegex("\r\n[0-9]{3}:[0-9]{3}:[0-9]{4}$"));
    EXPECT_EQ(area, corrupt);
    EXPECT_EQ(KolmaDocumentPropertyUICallback(nullptr, nullptr), CPSUICB_ACTION_NONE);
}

TEST(PrinterItems, areOneOrTwoAsTheModelHasTheChoice) {
    for (const bool hasChoice : {false, true}) {
        PrinterSheet printer(hasChoice);
        OEMCUIPPARAM count{};
        tellPrinterItems(count, printer.printer);
        EXPECT_EQ(count.cOEMOptItems, hasChoice ? 2U : 1U);
        const OPTITEM& file = printer.sheet.items[0];
        EXPECT_EQ(wordsOf(file), "Printer capabilities: Built-in/From a capability file");
        EXPECT_EQ(file.Sel, 0);
        EXPECT_EQ(file.pOptType->Type, TVOT_COMBOBOX);
        EXPECT_EQ(file.pOptType->Style, OTS_LBCB_NO_ICON16_IN_ITEM);
        EXPECT_EQ(file.pOptType->pOptParam[0].IconID, 0U);
        if (hasChoice) {
            EXPECT_EQ(wordsOf(printer.sheet.items[1]), "Print server needs Rendo 2.x job tickets: Yes/No");
        }
    }
}

TEST(PrinterItems, aFileIsStoredWhenTheUserAppliesAndNotBefore) {
    PrinterSheet printer(true);
    const ChosenFile file(printer);
    EXPECT_EQ(printer.sheet.items[0].Sel, 1);
    EXPECT_FALSE(printer.isImported());
    EXPECT_EQ(printer.sheet.tell(CPSUICB_REASON_APPLYNOW), CPSUICB_ACTION_NONE);
    EXPECT_EQ(printer.printer.createImportedCapabilities()->getImportedFileName(), file.path());

    printer.reopen();
    EXPECT_EQ(printer.sheet.items[0].Sel, 1) << "the next sheet shows it";
    EXPECT_EQ(printer.sheet.tell(CPSUICB_REASON_APPLYNOW), CPSUICB_ACTION_NONE) << "and applies it again";
    EXPECT_TRUE(printer.isImported());

    printer.sheet.choose(0, 0);
    EXPECT_TRUE(printer.isImported());
    EXPECT_EQ(printer.sheet.tell(CPSUICB_REASON_APPLYNOW), CPSUICB_ACTION_NONE);
    EXPECT_FALSE(printer.isImported());
    EXPECT_EQ(printer.sheet.tell(CPSUICB_REASON_APPLYNOW), CPSUICB_ACTION_NONE) << "nothing is left to clear";
}

TEST(PrinterItems, aChoiceThatComesToNothingPutsTheBoxBack) {
    TemporaryFolder folder;
    folder.write("bad.abil", "not a capability file");
    folder.write("good.abil", goodFile);
    struct Row {
        const char* what;
        std::function<void()> user;
        const char* text; // of the box, empty for none
    };
    const Row rows[] = {
        {"cancel", [] { fileDialog = nullptr; }, ""},
        {"not a capability file", [&] { chooses(folder / "bad.abil"); }, "\r\n\r\n001:002:"},
        {"no such file", [&] { chooses(folder / "none.abil"); }, "\r\n\r\n022:001:|\r\n\r\n001:0"},
        {"a path of 260 characters", [] { chooses(u"/" + std::u16string(259, u'x')); }, "more than 259 characters"},
        {"no dialog can be shown",
         [] {
             fileDialog = nullptr;
             fileDialogError = CDERR_INITIALIZATION;
         },
         "chosen. The earlier selection stays in force.\r\n\r\n005:000:"},
    };
    for (const Row& row : rows) {
        PrinterSheet printer(false);
        row.user();
        const MessageBoxes boxes;
        EXPECT_EQ(printer.sheet.choose(0, 1), CPSUICB_ACTION_OPTIF_CHANGED) << row.what;
        EXPECT_EQ(printer.sheet.items[0].Sel, 0) << row.what;
        EXPECT_THAT(boxes.shown(), SizeIs(*row.text ? 1 : 0)) << row.what;
        if (*row.text) {
            EXPECT_THAT(boxes.onlyOne().text, testing::ContainsRegex(row.text)) << row.what;
            EXPECT_EQ(boxes.onlyOne().title, "Kolma Printer Properties") << row.what;
        }
        EXPECT_EQ(printer.sheet.tell(CPSUICB_REASON_APPLYNOW), CPSUICB_ACTION_NONE) << row.what;
        EXPECT_FALSE(printer.isImported()) << row.what;
        fileDialogError = 0;
    }
    fileDialog = nullptr;
}

TEST(PrinterItems, selectionsThatAreNoneGoBackToTheFirst) {
    PrinterSheet printer(true);
    EXPECT_EQ(printer.sheet.choose(0, 7), CPSUICB_ACTION_OPTIF_CHANGED);
    EXPECT_EQ(printer.sheet.items[0].Sel, 0);
    printer.sheet.items[0].Sel = 9;
    EXPECT_EQ(printer.sheet.tell(CPSUICB_REASON_APPLYNOW), CPSUICB_ACTION_OPTIF_CHANGED);
    EXPECT_EQ(printer.sheet.items[0].Sel, 0);
    EXPECT_EQ(printer.sheet.choose(1, 0), CPSUICB_ACTION_NONE) << "the other item asks for nothing";
    printer.sheet.items[0].Sel = 1;
    EXPECT_EQ(printer.sheet.tell(CPSUICB_REASON_APPLYNOW), CPSUICB_ACTION_NONE) << "a file without a name";
    EXPECT_FALSE(printer.isImported());
}

TEST(PrinterItems, theTicketFormIsStoredOnlyWhereThereIsTheChoice) {
    PrinterSheet with(true);
    for (const LONG selection : {0, 1, 5, 0, 5}) {
        const bool before = with.printer.isRendo2xTicket();
        with.sheet.items[1].Sel = selection;
        EXPECT_EQ(with.sheet.tell(CPSUICB_REASON_APPLYNOW), CPSUICB_ACTION_NONE);
        EXPECT_EQ(with.printer.isRendo2xTicket(), selection == 5 ? before : selection == 0) << selection;
    }
}

TEST(PrinterItems, withoutTheChoiceTheTicketFormIsNotTouched) {
    PrinterSheet without(false);
    const bool before = without.printer.isRendo2xTicket();
    without.sheet.tell(CPSUICB_REASON_APPLYNOW);
    EXPECT_EQ(without.printer.isRendo2xTicket(), before);
}

TEST(PrinterItems, aFailedImportKeepsTheSheetOpenAndGoesBackToTheBuiltIn) {
    for (const bool isGone : {true, false}) {
        PrinterSheet printer(true);
        const ChosenFile file(printer);
        EXPECT_EQ(printer.sheet.tell(CPSUICB_REASON_APPLYNOW), CPSUICB_ACTION_NONE);
        printer.reopen();
        file.remove();
        if (!isGone) std::filesystem::create_directory(toUtf8(file.path()));
        printer.sheet.items[1].Sel = 0;
        const MessageBoxes boxes;
        EXPECT_EQ(printer.sheet.tell(CPSUICB_REASON_APPLYNOW), CPSUICB_ACTION_NO_APPLY_EXIT);
        EXPECT_THAT(boxes.onlyOne().text, HasSubstr("The selection goes back to the built-in capabilities."));
        EXPECT_THAT(boxes.onlyOne().text, HasSubstr("\r\n022:00"));
        EXPECT_EQ(printer.sheet.items[0].Sel, 0);
        EXPECT_FALSE(printer.isImported());
        EXPECT_TRUE(printer.printer.isRendo2xTicket()) << "what stands behind it is applied";
        fileDialog = nullptr;
    }
}

TEST(PrinterItems, aStoreThatRefusesToWriteKeepsTheSheetOpen) {
    PrinterSheet printer(true);
    const ChosenFile file(printer);
    {
        const Sealed sealed;
        const MessageBoxes boxes;
        EXPECT_EQ(printer.sheet.tell(CPSUICB_REASON_APPLYNOW), CPSUICB_ACTION_NO_APPLY_EXIT);
        ASSERT_THAT(boxes.shown(), SizeIs(2)) << "the import, then the ticket form; the clearing in between is silent";
        EXPECT_THAT(boxes.shown()[0].text, HasSubstr("being imported"));
        EXPECT_THAT(boxes.shown()[1].text, HasSubstr("being applied"));
        EXPECT_THAT(boxes.shown()[1].text, HasSubstr("\r\n004:000:"));
    }
    printer.sheet.choose(0, 1);
    const MessageBoxes boxes;
    EXPECT_EQ(printer.sheet.tell(CPSUICB_REASON_APPLYNOW), CPSUICB_ACTION_NONE);
    EXPECT_TRUE(printer.isImported()) << "the next try works";
    const Sealed sealed;
    printer.sheet.choose(0, 0);
    printer.sheet.param.cOEMOptItems = 1;
    const MessageBoxes clearing;
    EXPECT_EQ(printer.sheet.tell(CPSUICB_REASON_APPLYNOW), CPSUICB_ACTION_NONE) << "the apply goes on";
    EXPECT_THAT(clearing.onlyOne().text, HasSubstr("being removed"));
    EXPECT_TRUE(printer.isImported());
}

TEST(PrinterItems, aFailureThatIsPassedOnIsAskedAboutOnceAndEndsTheApply) {
    for (const LONG selection : {0, 1}) {
        PrinterSheet printer(true);
        const ChosenFile file(printer);
        printer.sheet.tell(CPSUICB_REASON_APPLYNOW);
        const bool before = printer.printer.isRendo2xTicket();
        printer.sheet.items[0].Sel = selection;
        printer.sheet.items[1].Sel = before ? 1 : 0;
        isStoreBroken = true;
        const MessageBoxes boxes(IDCANCEL);
        EXPECT_EQ(printer.sheet.tell(CPSUICB_REASON_APPLYNOW), CPSUICB_ACTION_NO_APPLY_EXIT) << selection;
        isStoreBroken = false;
        EXPECT_THAT(boxes.onlyOne().text, HasSubstr("unexpected failure")) << selection;
        EXPECT_EQ(printer.printer.isRendo2xTicket(), before) << selection;
    }
}

TEST(PrinterItems, aStoredNameThatDoesNotFitStaysInForceWhenTheUserApplies) {
    PrinterSheet printer(false);
    const ByteBuffer data(goodFile.data(), goodFile.size());
    const std::u16string longName = u"/" + std::u16string(300, u'n');
    printer.printer.createImportedCapabilities()->storeImportedCapabilities(longName, data);
    printer.reopen();
    EXPECT_EQ(printer.sheet.items[0].Sel, 1);
    EXPECT_EQ(printer.sheet.tell(CPSUICB_REASON_APPLYNOW), CPSUICB_ACTION_NONE);
    EXPECT_EQ(printer.printer.createImportedCapabilities()->getImportedFileName(), longName);
}
