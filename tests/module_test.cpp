#include "plugin_ui/EmptyArea.h"
#include "tests/ElfSymbols.h"
#include "tests/MessageBoxes.h"
#include "tests/ModuleUnderTest.h"
#include "tests/replacedNew.h"

#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <random>
#include <thread>

namespace {

const OwnStores stores;
constexpr char16_t postScriptDriver[] = u"Kolma Tarsel 77 PS3 C3";

const ModuleUnderTest& module() {
    static const ModuleUnderTest loaded;
    return loaded;
}

bool isXmlUp() {
    void* library = dlopen("libxerces-c-3.2.so", RTLD_NOW | RTLD_NOLOAD);
    auto** manager =
        library ? static_cast<void**>(dlsym(library, "_ZN11xercesc_3_216XMLPlatformUtils15fgMemoryManagerE")) : nullptr;
    return manager && *manager;
}

} // namespace

TEST(Module, itExportsItsTwoEntriesAndNothingElse) {
    EXPECT_THAT(ElfSymbols(ModuleUnderTest::path()).exported(),
                testing::UnorderedElementsAre("DllGetClassObject", "DllCanUnloadNow"));
}

TEST(Module, loadingItAndAskingForInfoBringsUpNoXmlLibrary) {
    const pid_t child = fork();
    if (child == 0) {
        const PlugInObject object(module());
        DWORD value = 0;
        DWORD needed = 0;
        object->GetInfo(OEMGI_GETSIGNATURE, &value, sizeof value, &needed);
        OEMDMPARAM size{};
        object->DevMode(OEMDM_SIZE, &size);
        const bool before = isXmlUp();
        Area out = absentArea();
        const Area older = areaOf(state37(1, list().integer(u"copies", 2))); // its settings are a whole ticket
        object.devMode(OEMDM_CONVERT, nullptr, older.data(), out.data());
        _exit(before ? 1 : isXmlUp() ? 0 : 2); // 2: this test could not have failed
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_EQ(WIFEXITED(status) ? WEXITSTATUS(status) : -1, 0);
}

TEST(Factory, itIsMadeForItsClassAloneAndAnswersItsInterfacesAlone) {
    struct Row {
        const char* what;
        CLSID classId;
        IID interface;
        HRESULT result;
    };
    CLSID nearly = CLSID_OEMUI;
    nearly.Data4[7] ^= 1;
    for (const Row& row :
         {Row{"as unknown", CLSID_OEMUI, IID_IUnknown, S_OK}, Row{"as factory", CLSID_OEMUI, IID_IClassFactory, S_OK},
          Row{"another class", nearly, IID_IClassFactory, CLASS_E_CLASSNOTAVAILABLE},
          Row{"another interface", CLSID_OEMUI, IID_IPrintOemUI, E_NOINTERFACE}}) {
        SCOPED_TRACE(row.what);
        void* factory = &factory;
        EXPECT_EQ(module().getClassObject(row.classId, row.interface, &factory), row.result);
        EXPECT_EQ(factory != nullptr, row.result == S_OK);
        const ULONG left = factory ? static_cast<IUnknown*>(factory)->Release() : 0;
        EXPECT_EQ(left, 0U);
    }
    EXPECT_EQ(module().getClassObject(CLSID_OEMUI, IID_IClassFactory, nullptr), E_POINTER);
}

TEST(Factory, whatIsAliveOrLockedKeepsTheModuleLoaded) {
    EXPECT_EQ(module().canUnloadNow(), S_OK);
    IClassFactory* factory = module().createFactory();
    EXPECT_EQ(factory->AddRef(), 2U);
    EXPECT_EQ(factory->Release(), 1U);
    void* object = &object;
    EXPECT_EQ(factory->CreateInstance(factory, IID_IPrintOemUI, &object), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IPrintOemDriverUI, &object), E_NOINTERFACE);
    EXPECT_EQ(module().canUnloadNow(), S_OK) << "a failed query leaves no object";

    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IPrintOemUI, &object), S_OK);
    EXPECT_EQ(module().canUnloadNow(), S_FALSE);
    auto* plugIn = static_cast<IPrintOemUI*>(object);
    void* same = nullptr;
    EXPECT_EQ(plugIn->QueryInterface(IID_IUnknown, &same), S_OK);
    EXPECT_EQ(same, object);
    EXPECT_EQ(plugIn->Release(), 1U);
    EXPECT_EQ(plugIn->QueryInterface(IID_IClassFactory, &same), E_NOINTERFACE);
    EXPECT_EQ(same, nullptr);
    EXPECT_EQ(plugIn->Release(), 0U);
    EXPECT_EQ(module().canUnloadNow(), S_OK);

    EXPECT_EQ(factory->LockServer(TRUE), S_OK);
    EXPECT_EQ(module().canUnloadNow(), S_FALSE);
    EXPECT_EQ(factory->LockServer(FALSE), S_OK);
    EXPECT_EQ(module().canUnloadNow(), S_OK);
    EXPECT_EQ(factory->Release(), 0U);
}

// The table as a host written in C sees it: by slot, not by name.
TEST(PlugIn, everyOperationStandsInItsPublishedSlot) {
    const PlugInObject object(module());
    IPrintOemUI* self = object.get();
    void** table = *reinterpret_cast<void***>(self);
    auto call = [&](std::size_t slot, auto... arguments) {
        return reinterpret_cast<HRESULT (*)(void*, decltype(arguments)...)>(table[slot])(self, arguments...);
    };
    void* const none = nullptr;
    DWORD version = 0;
    DWORD needed = 0;
    OEMDMPARAM size{};
    PROPSHEETUI_INFO info{};
    info.Version = PROPSHEETUI_INFO_VERSION;
    std::uint8_t profile[32] = {};
    ULONG room = sizeof profile;
    FLONG kind = 0;

    EXPECT_EQ(call(1), 2) << "AddRef";
    EXPECT_EQ(call(2), 1) << "Release";
    EXPECT_EQ(call(3, DWORD{3}, static_cast<void*>(&version), DWORD{4}, &needed), S_OK) << "GetInfo";
    EXPECT_EQ(version, 0x03070001U);
    EXPECT_EQ(call(4, DWORD{1}, &size), S_OK) << "DevMode";
    EXPECT_EQ(size.cbBufSize, 4016U);
    EXPECT_EQ(call(5, none), E_FAIL) << "PublishDriverInterface";
    EXPECT_EQ(call(6, DWORD{9}, none), E_FAIL) << "CommonUIProp";
    EXPECT_EQ(call(7, none, LPARAM{0}), E_FAIL) << "DocumentPropertySheets";
    EXPECT_EQ(call(8, &info, LPARAM{0}), S_OK) << "DevicePropertySheets";
    EXPECT_EQ(call(9, none, none, none, none), E_NOTIMPL) << "DevQueryPrintEx";
    EXPECT_EQ(call(10, none, none, none, WORD{0}, none, none, none, DWORD{0}, none), E_NOTIMPL) << "DeviceCapabilities";
    EXPECT_EQ(call(11, DWORD{0}, none), E_NOTIMPL) << "UpgradePrinter";
    EXPECT_EQ(call(12, none, INT{1}, DWORD{0}, LPARAM{0}), S_OK) << "PrinterEvent";
    EXPECT_EQ(call(13, DWORD{0}, DWORD{0}, none, LPARAM{0}), E_NOTIMPL) << "DriverEvent";
    EXPECT_EQ(call(14, none, none, none, none, ULONG{0}, static_cast<void*>(profile), &room, &kind), S_OK)
        << "QueryColorProfile";
    EXPECT_EQ(kind, QCP_PROFILEDISK);
    EXPECT_EQ(call(15, none, UINT{0}, WPARAM{0}, LPARAM{0}), E_NOTIMPL) << "FontInstallerDlgProc";
    EXPECT_EQ(call(16, none, none, none), E_NOTIMPL) << "UpdateExternalFonts";
}

TEST(PlugIn, infoIsGivenAsItWasAskedFor) {
    struct Row {
        const char* what;
        DWORD mode;
        bool hasBuffer;
        DWORD size;
        HRESULT result;
        DWORD lastError; // 1234 when it stays untouched
        DWORD needed;
        DWORD value;
    };
    const PlugInObject object(module());
    for (const Row& row : {Row{"signature", 1, true, 4, S_OK, 1234, 4, 0x4B4C4D41},
                           Row{"version, roomy", 3, true, 64, S_OK, 1234, 4, 0x03070001},
                           Row{"three bytes", 1, true, 3, E_FAIL, 122, 4, 0xEEEEEEEE},
                           Row{"no buffer", 3, false, 4, E_FAIL, 122, 4, 0xEEEEEEEE},
                           Row{"interface version", 2, true, 4, E_FAIL, 87, 77, 0xEEEEEEEE},
                           Row{"publisher", 4, true, 64, E_FAIL, 1234, 8, 0xEEEEEEEE},
                           Row{"mode 0", 0, true, 4, E_FAIL, 87, 77, 0xEEEEEEEE},
                           Row{"mode 5", 5, true, 4, E_FAIL, 87, 77, 0xEEEEEEEE}}) {
        SCOPED_TRACE(row.what);
        DWORD value = 0xEEEEEEEE;
        DWORD needed = 77;
        SetLastError(1234);
        EXPECT_EQ(object->GetInfo(row.mode, row.hasBuffer ? &value : nullptr, row.size, &needed), row.result);
        EXPECT_EQ(GetLastError(), row.lastError);
        EXPECT_EQ(needed, row.needed);
        EXPECT_EQ(value, row.value);
    }
    EXPECT_EQ(object->GetInfo(1, nullptr, 0, nullptr), E_FAIL);
    EXPECT_EQ(GetLastError(), 87U);
}

TEST(PlugIn, aDevModeCallWithoutWhatItNeedsIsRefused) {
    struct Row {
        const char* what;
        DWORD mode;
        bool hasIn;
        bool hasOut;
    };
    const PlugInObject object(module());
    Area area = areaWithCopies(1);
    for (const Row& row :
         {Row{"mode 0", 0, true, true}, Row{"mode 5", 5, true, true},
          Row{"default, no out", OEMDM_DEFAULT, true, false}, Row{"convert, no in", OEMDM_CONVERT, false, true},
          Row{"convert, no out", OEMDM_CONVERT, true, false}, Row{"merge, no in", OEMDM_MERGE, false, true}}) {
        SCOPED_TRACE(row.what);
        SetLastError(1234);
        EXPECT_EQ(
            object.devMode(row.mode, nullptr, row.hasIn ? area.data() : nullptr, row.hasOut ? area.data() : nullptr),
            E_FAIL);
        EXPECT_EQ(GetLastError(), 87U);
    }
    EXPECT_EQ(object->DevMode(OEMDM_SIZE, nullptr), E_FAIL);
    EXPECT_EQ(area, areaWithCopies(1));
}

TEST(PlugIn, theSizeIsReportedWithoutAnAllocation) {
    const PlugInObject object(module());
    OEMDMPARAM size{};
    const long before = allocations::made;
    EXPECT_EQ(object->DevMode(OEMDM_SIZE, &size), S_OK);
    EXPECT_EQ(allocations::made, before);
    EXPECT_EQ(size.cbBufSize, 4016U);
    Area out = absentArea();
    object.devMode(OEMDM_CONVERT, nullptr, areaWithCopies(2).data(), out.data());
    EXPECT_GT(allocations::made, before) << "allocations of the module are counted";
}

TEST(PlugIn, theColorProfileIsNamedInABufferThatIsLargeEnough) {
    struct Row {
        const char* what;
        ULONG mode;
        bool hasBuffer;
        ULONG size;
        HRESULT result;
        DWORD lastError;
        ULONG sizeAfter;
    };
    const PlugInObject object(module());
    for (const Row& row :
         {Row{"device profile", 0, true, 32, S_OK, 1234, 32}, Row{"31 bytes", 0, true, 31, E_FAIL, 122, 32},
          Row{"no buffer", 0, false, 400, E_FAIL, 122, 32}, Row{"source profile", 1, true, 32, E_FAIL, 1234, 32}}) {
        SCOPED_TRACE(row.what);
        char16_t name[200] = {};
        ULONG size = row.size;
        FLONG kind = 77;
        SetLastError(1234);
        EXPECT_EQ(object->QueryColorProfile(nullptr, nullptr, nullptr, nullptr, row.mode,
                                            row.hasBuffer ? name : nullptr, &size, &kind),
                  row.result);
        EXPECT_EQ(GetLastError(), row.lastError);
        EXPECT_EQ(size, row.sizeAfter);
        EXPECT_EQ(kind, row.result == S_OK ? QCP_PROFILEDISK : 77U);
        EXPECT_EQ(std::u16string(name), row.result == S_OK ? u"OEMPROFILE.icm" : u"");
    }
}

TEST(PlugIn, aSheetIsRefusedWithoutAnInfoOfTheKnownVersion) {
    const PlugInObject object(module());
    PROPSHEETUI_INFO info{};
    info.Version = 0x0101;
    for (PROPSHEETUI_INFO* bad : {static_cast<PROPSHEETUI_INFO*>(nullptr), &info}) {
        SetLastError(0);
        EXPECT_EQ(object->DocumentPropertySheets(bad, 0), E_FAIL);
        EXPECT_EQ(GetLastError(), 87U);
        SetLastError(0);
        EXPECT_EQ(object->DevicePropertySheets(bad, 0), E_FAIL);
        EXPECT_EQ(GetLastError(), 87U);
    }
    OEMCUIPPARAM items{};
    EXPECT_EQ(object->CommonUIProp(3, &items), E_FAIL);
}

TEST(PlugIn, aFailureOfASheetIsShownWithItsCaptionAndCode) {
    const PlugInObject object(module());
    const TestPrinter printer(postScriptDriver);
    PROPSHEETUI_INFO info{};
    info.Version = PROPSHEETUI_INFO_VERSION;
    OEMUIPSPARAM sheet{};
    sheet.hPrinter = printer.handle;
    OEMCUIPPARAM items{};
    {
        const MessageBoxes boxes;
        EXPECT_EQ(object->DocumentPropertySheets(&info, reinterpret_cast<LPARAM>(&sheet)), -1);
        EXPECT_EQ(boxes.onlyOne().title, "Kolma Job Settings");
        EXPECT_THAT(boxes.onlyOne().text, testing::ContainsRegex("\r\n\r\n006:000:[0-9]{4}$")) << "no page is taken";
    }
    info.Reason = PROPSHEETUI_REASON_DESTROY;
    EXPECT_EQ(object->DocumentPropertySheets(&info, 0), 1) << "DESTROY closes it in silence";
    for (const bool isFill : {false, true}) {
        OPTITEM filled{};
        const TestPrinter stranger(u"Nobody's Driver", u"Press 2");
        const PlugInObject other(module());
        items.hPrinter = stranger.handle;
        items.pOEMOptItems = isFill ? &filled : nullptr;
        items.cOEMOptItems = 1; // and no heap to fill it from
        const MessageBoxes boxes;
        EXPECT_EQ(other->CommonUIProp(OEMCUIP_PRNPROP, &items), S_OK);
        EXPECT_THAT(boxes.onlyOne().text, testing::HasSubstr(isFill ? "not enough memory" : "\r\n019:000:"));
        EXPECT_EQ(items.cOEMOptItems, 0U) << "no items rather than some that were not filled";
    }
    {
        const MessageBoxes boxes;
        HANDLE other = &info;
        sheet.hPrinter = other;
        info.Reason = PROPSHEETUI_REASON_INIT;
        EXPECT_EQ(object->DocumentPropertySheets(&info, reinterpret_cast<LPARAM>(&sheet)), -1);
        EXPECT_THAT(boxes.onlyOne().text, testing::HasSubstr("003:000:"));
        for (const WORD reason : {PROPSHEETUI_REASON_GET_INFO_HEADER, PROPSHEETUI_REASON_DESTROY}) {
            info.Reason = reason;
            EXPECT_EQ(object->DocumentPropertySheets(&info, 0), 1);
        }
        EXPECT_EQ(boxes.shown().size(), 1U) << "what is not open closes in silence";
    }
}

struct DevModeRow {
    const char* what;
    DWORD mode;
    Area in;
    Area out;
    std::int32_t copies; // of the area out afterwards
};

TEST(DevMode, convertAndMergeAlwaysGiveAUsableArea) {
    const TestPrinter printer(postScriptDriver);
    const Area good = areaWithCopies(3);
    const Area other = areaWithCopies(8);
    Area foreign = good;
    foreign[4] = 'X';
    Area older = good;
    older[8] = 0x02;
    older[10] = 0x07;
    older[11] = 0x03;
    for (const DevModeRow& row :
         {DevModeRow{"convert into nothing", OEMDM_CONVERT, good, absentArea(), 3},
          DevModeRow{"convert over settings", OEMDM_CONVERT, good, other, 3},
          DevModeRow{"convert of an older area", OEMDM_CONVERT, older, absentArea(), 3},
          DevModeRow{"convert of a corrupt area keeps what was", OEMDM_CONVERT, corruptArea(), other, 8},
          DevModeRow{"convert of a corrupt area into nothing", OEMDM_CONVERT, corruptArea(), absentArea(), 0},
          DevModeRow{"convert of a foreign area", OEMDM_CONVERT, foreign, other, 8},
          DevModeRow{"convert into a corrupt area recovers to the incoming", OEMDM_CONVERT, good, corruptArea(), 3},
          DevModeRow{"convert of corrupt into corrupt recovers to empty", OEMDM_CONVERT, corruptArea(), corruptArea(),
                     0},
          DevModeRow{"convert of foreign into corrupt recovers to empty", OEMDM_CONVERT, foreign, corruptArea(), 0},
          DevModeRow{"merge of equal settings", OEMDM_MERGE, good, good, 3},
          DevModeRow{"merge into a corrupt area recovers to the incoming", OEMDM_MERGE, good, corruptArea(), 3},
          DevModeRow{"merge of a corrupt area recovers to empty", OEMDM_MERGE, corruptArea(), other, 0},
          DevModeRow{"merge of two absent areas", OEMDM_MERGE, absentArea(), absentArea(), -1}}) {
        SCOPED_TRACE(row.what);
        const PlugInObject object(module());
        Area out = row.out;
        EXPECT_EQ(object.devMode(row.mode, printer.handle, row.in.data(), out.data()), S_OK);
        EXPECT_EQ(copiesOf(out), row.copies);
        Area same = row.in;
        EXPECT_EQ(object.devMode(row.mode, printer.handle, same.data(), same.data()), S_OK);
        EXPECT_GE(copiesOf(same), row.mode == OEMDM_MERGE ? -1 : 0) << "one area for both";
    }
}

TEST(DevMode, aMergeOfEqualAreasLeavesTheOutputBitForBit) {
    const PlugInObject object(module());
    const TestPrinter printer(postScriptDriver);
    Area out = areaWithCopies(5);
    out.back() = 0xAB; // behind the state: means nothing, and stays
    const Area before = out;
    EXPECT_EQ(object.devMode(OEMDM_MERGE, printer.handle, areaWithCopies(5).data(), out.data()), S_OK);
    EXPECT_EQ(out, before);
}

TEST(DevMode, aConvertedAreaHasTheCurrentVersionAndZerosBehindItsState) {
    const PlugInObject object(module());
    const Area in = areaOf(state37(0, list().integer(u"copies", 7)), 0x03070002);
    Area out(KolmaDevMode::getDevModeSize(), 0xEE);
    EXPECT_EQ(object.devMode(OEMDM_CONVERT, nullptr, in.data(), out.data()), S_OK);
    const AreaInfo info = KolmaDevMode::getAreaInfo(out.data());
    EXPECT_EQ(info.areaVersion, 0x04000001U);
    EXPECT_EQ(info.stateVersion, 0x03080001U);
    EXPECT_FALSE(KolmaDevMode(out.data()).isSettingsEditable());
    EXPECT_EQ(copiesOf(out), 7);
    EXPECT_THAT(Area(out.begin() + 16 + static_cast<std::ptrdiff_t>(info.stateSize), out.end()), testing::Each(0));
}

TEST(DevMode, everyDefaultIsAValidArea) {
    for (const char16_t* driver : {postScriptDriver, u"A driver that nobody knows"}) {
        const PlugInObject object(module());
        const TestPrinter printer(driver);
        Area out(KolmaDevMode::getDevModeSize(), 0xEE);
        EXPECT_EQ(object.devMode(OEMDM_DEFAULT, printer.handle, nullptr, out.data()), S_OK);
        ASSERT_TRUE(KolmaDevMode::isValidArea(out.data()));
        EXPECT_TRUE(KolmaDevMode(out.data()).isSettingsEditable());
    }
}

TEST(DevMode, aSecondPrinterOnOneObjectIsRecoveredFrom) {
    const PlugInObject object(module());
    const TestPrinter first(postScriptDriver);
    const TestPrinter second(postScriptDriver, u"Press 2");
    Area out = absentArea();
    EXPECT_EQ(object.devMode(OEMDM_CONVERT, first.handle, areaWithCopies(3).data(), out.data()), S_OK);
    EXPECT_EQ(object.devMode(OEMDM_CONVERT, second.handle, corruptArea().data(), out.data()), S_OK);
    EXPECT_EQ(copiesOf(out), 0) << "convert itself would have kept the 3";
    EXPECT_EQ(object.devMode(OEMDM_CONVERT, first.handle, areaWithCopies(4).data(), out.data()), S_OK);
    EXPECT_EQ(copiesOf(out), 4) << "the first printer is served as before";
}

TEST(DevMode, theAreaOfLastResortIsAReadableOneWithoutSettings) {
    const KolmaDevMode settings(emptyArea.data());
    EXPECT_TRUE(KolmaDevMode::isValidArea(emptyArea.data()));
    EXPECT_NO_THROW(settings.validateState());
    EXPECT_TRUE(listOf(settings).isEmpty());
    const StateInfo info = settings.getStateInfo();
    EXPECT_TRUE(info.isSettingsEditable);
    EXPECT_EQ(info.userName, u"");
    EXPECT_EQ(info.size, KolmaDevMode::getAreaInfo(emptyArea.data()).stateSize);
}

// A sample of damaged areas: the generator's seed is fixed.
TEST(DevMode, anyDamageToAnAreaEndsInAUsableOne) {
    const PlugInObject object(module());
    const TestPrinter printer(postScriptDriver);
    const Area good = areaWithCopies(3);
    const std::size_t used = 16 + KolmaDevMode::getAreaInfo(good.data()).stateSize;
    std::mt19937 random(37);
    for (int round = 0; round < 1500; ++round) {
        Area damaged = good;
        const std::size_t offset = random() % used;
        damaged[offset] ^= static_cast<std::uint8_t>(1 + random() % 255);
        for (const DWORD mode : {OEMDM_CONVERT, OEMDM_MERGE}) {
            Area out = areaWithCopies(8);
            ASSERT_EQ(object.devMode(mode, printer.handle, damaged.data(), out.data()), S_OK);
            ASSERT_GE(copiesOf(out), 0) << "damage at " << offset << ", mode " << mode;
            Area same = damaged;
            ASSERT_EQ(object.devMode(mode, printer.handle, same.data(), same.data()), S_OK);
            ASSERT_NE(copiesOf(same), -2) << "one area for both, damage at " << offset << ", mode " << mode;
        }
    }
}

TEST(DevMode, objectsOfSeveralThreadsDoNotDisturbEachOther) {
    const TestPrinter printer(postScriptDriver);
    std::atomic<int> wrong{0};
    auto work = [&](std::int32_t copies) {
        const Area in = areaWithCopies(copies);
        for (int round = 0; round < 60; ++round) {
            const PlugInObject object(module());
            Area out = round % 2 ? corruptArea() : absentArea();
            object.devMode(OEMDM_CONVERT, printer.handle, in.data(), out.data());
            if (copiesOf(out) != copies) ++wrong;
        }
    };
    std::vector<std::thread> threads;
    for (std::int32_t i = 1; i <= 4; ++i)
        threads.emplace_back(work, i);
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(wrong, 0);
    EXPECT_EQ(module().canUnloadNow(), S_OK);
}

// Equal areas, different ones and ones that want repair, all threads at the same few documents of one printer.
TEST(DevMode, mergesOfSeveralThreadsDoNotDisturbEachOther) {
    const TestPrinter printer(postScriptDriver);
    const auto mergedInto = [&](const Area& in, Area out) {
        const PlugInObject object(module());
        object.devMode(OEMDM_MERGE, printer.handle, in.data(), out.data());
        return out;
    };
    std::vector<Area> documents;
    std::vector<Area> expected;
    for (std::int32_t copies = 0; copies < 12; ++copies) {
        documents.push_back(areaWithCopies(copies)); // 0 copies is no job that a printer takes
        expected.push_back(mergedInto(documents.back(), areaWithCopies(100)));
    }
    std::atomic<int> wrong{0};
    const auto work = [&](unsigned seed) {
        std::mt19937 random(seed);
        for (int round = 0; round < 60; ++round) {
            const std::size_t at = random() % documents.size();
            if (mergedInto(documents[at], areaWithCopies(100)) != expected[at]) ++wrong;
            if (mergedInto(expected[at], expected[at]) != expected[at]) ++wrong;
        }
    };
    std::vector<std::thread> threads;
    for (unsigned seed = 1; seed <= 8; ++seed)
        threads.emplace_back(work, seed);
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(wrong, 0);
    EXPECT_EQ(module().canUnloadNow(), S_OK);
}
