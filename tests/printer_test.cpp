#include "jtcore/AnlXlate/PersistentSettings.h"
#include "jtcore/Printer/DriverBasedPrinter.h"
#include "jtcore/Services/User.h"
#include "jtcore/Services/UserPreferences.h"
#include "platform/spooler.h"
#include "tests/TemporaryFolder.h"
#include "tests/expectFailure.h"
#include "tests/serviceDoubles.h"

namespace {

const char16_t* const driverWithChoice = u"Kolma Tarsel 84 PCL5e";
const char16_t* const driverWithoutChoice = u"Kolma Tarsel 77 PCL5e";
const HANDLE nobodysHandle = reinterpret_cast<HANDLE>(0x1234);

PrinterModel modelOfFamily(std::int32_t family, PrinterLanguage language = PrinterLanguage::pcl) {
    for (const PrinterModelInfo& row : printerModels())
        if (row.family == family) return {row.model, language};
    throw std::runtime_error("no such family");
}

// Printers of a store of the test's own.
class PrinterTest : public testing::Test {
protected:
    ~PrinterTest() override {
        for (const HANDLE printer : open_)
            ClosePrinter(printer);
    }

    HANDLE addPrinter(std::u16string driver) {
        std::u16string name = u"printer " + fromUtf8(std::to_string(open_.size()));
        PRINTER_INFO_2W info{};
        info.pPrinterName = toWide(name.data());
        info.pDriverName = toWide(driver.data());
        const HANDLE printer = AddPrinterW(nullptr, 2, reinterpret_cast<LPBYTE>(&info));
        EXPECT_NE(printer, nullptr);
        open_.push_back(printer);
        return printer;
    }

private:
    TemporaryFolder folder_;
    EnvironmentVariable config_{"XDG_CONFIG_HOME", (folder_.path() / "config").c_str()};
    EnvironmentVariable data_{"XDG_DATA_HOME", (folder_.path() / "data").c_str()};
    std::vector<HANDLE> open_;
};

using PrinterDataTest = PrinterTest;
using DriverBasedPrinterTest = PrinterTest;

} // namespace

TEST(PrinterModel, isFoundByTheWholeNameOfItsDriver) {
    const auto model = PrinterModel::createFromDriverName(u"Kolma Tarsel 77 PS3 C3");
    EXPECT_EQ(model->getModel(), 1);
    EXPECT_EQ(model->getLanguage(), PrinterLanguage::postScript);
    EXPECT_EQ(model->getFamily().family, 5);
    EXPECT_EQ(model->clone()->getModel(), 1);
    EXPECT_EQ(PrinterModel(genericPrinterModel, PrinterLanguage::postScript).getFamily().family, 17);
}

TEST(PrinterModel, failuresTellWhatWasLookedFor) {
    const struct {
        void (*lookUp)();
        const char* message;
    } cases[] = {
        {[] { PrinterModel::createFromDriverName(u"Kolma TARSEL 77 PCL5e"); },
         "PrinterModel::getDriverInfoIndex(): Could not find the printer driver name 'Kolma TARSEL 77 PCL5e' in the "
         "table of printer driver information.\r\n"},
        {[] { PrinterModel(46, PrinterLanguage::pcl); },
         "PrinterModel::getModelInfoIndex(): Could not find the model enumeration value (46) in the table of printer "
         "model information.\r\n"},
        {[] { PrinterModel::getFamilyInfoIndex(-1); },
         "PrinterModel::getFamilyInfoIndex(): Could not find the family enumeration value (-1) in the table of printer "
         "family information.\r\n"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(messageOf<IndexOutOfBoundsException>(c.lookUp), c.message);
}

TEST(PrinterModel, knowsItsCapabilityResourceForEachTicketForm) {
    const struct {
        std::int32_t family, current, rendo2x;
        bool tiff;
    } cases[] = {{1, 11512, 11526, false}, {3, 11514, 11528, false}, {4, 11502, 11517, true},
                 {5, 11503, 11518, true},  {6, 11504, 11518, true},  {17, 11515, 11515, true}};
    for (const auto& c : cases) {
        const PrinterModel model = modelOfFamily(c.family);
        EXPECT_EQ(model.getCapabilityResourceId(TicketForm::current), c.current) << c.family;
        EXPECT_EQ(model.getCapabilityResourceId(TicketForm::rendo2x), c.rendo2x) << c.family;
        EXPECT_EQ(model.isTiffAllowedWithPrintSave(), c.tiff) << c.family;
    }
}

TEST(PrinterModel, tellsWhatMayBeLeftUnset) {
    constexpr auto current = TicketForm::current;
    constexpr auto rendo2x = TicketForm::rendo2x;
    const struct {
        std::int32_t family;
        Feature feature, parent;
        TicketForm form;
        bool isAllowed;
    } cases[] = {
        {1, Feature::copies, noParentFeature, current, true},
        {14, Feature::copies, noParentFeature, current, false},
        {14, Feature::sides, noParentFeature, current, false},
        {14, Feature::sides, Feature::pageOverrides, current, true},
        {14, Feature::pageRotation, Feature::pageOverrides, rendo2x, true},
        {1, Feature::jobName, noParentFeature, current, true},
        {1, Feature::jobName, noParentFeature, rendo2x, false},
        {1, Feature::mediaColor, Feature::pageOverrides, current, true},
        {1, Feature::mediaColor, Feature::pageOverrides, rendo2x, false},
        {1, Feature::mediaColor, noParentFeature, rendo2x, true},
        {1, Feature::mediaSize, Feature::coverFront, rendo2x, false},
        {1, Feature::mediaTooth, Feature::coverFront, rendo2x, true},
    };
    for (const auto& c : cases)
        EXPECT_EQ(modelOfFamily(c.family).isUnspecifiedAllowed(c.feature, c.parent, c.form), c.isAllowed)
            << "family " << c.family << ", feature " << static_cast<int>(c.feature);
}

TEST_F(PrinterDataTest, keepsBytesUntilTheyAreRemoved) {
    const PrinterData data(addPrinter(driverWithChoice));
    const PrinterData other(addPrinter(driverWithChoice));
    const ByteBuffer bytes("\0\1\2\377", 4);
    EXPECT_FALSE(data.rawDataExists(u"Block"));
    data.setRawData(u"Block", bytes);
    EXPECT_TRUE(data.rawDataExists(u"Block"));
    EXPECT_EQ(data.getRawData(u"Block"), bytes);
    EXPECT_FALSE(other.rawDataExists(u"Block")) << "each printer has a store of its own";
    data.removeRawData(u"Block");
    EXPECT_FALSE(data.rawDataExists(u"Block"));
    data.setRawData(u"Block", ByteBuffer());
    EXPECT_FALSE(data.rawDataExists(u"Block")) << "an empty value is none";
}

TEST_F(PrinterDataTest, tellsTheDriversName) {
    EXPECT_EQ(PrinterData(addPrinter(driverWithChoice)).getDriverName(), driverWithChoice);
}

TEST_F(PrinterDataTest, failuresTellTheValueAndTheHandle) {
    const struct {
        void (*ask)(const PrinterData&);
        const char* message;
    } cases[] = {
        {[](const PrinterData& data) { data.getRawData(u"Block"); },
         "PrinterData::rawDataExists(): Failed GetPrinterData('Block') for printer with handle '1234' OR data doesn't "
         "exist.\r\n"},
        {[](const PrinterData& data) { data.setRawData(u"Block", ByteBuffer(true)); },
         "PrinterData::setRawData(): Failed SetPrinterData('Block') for printer with handle '1234'.\r\n"},
        {[](const PrinterData& data) { data.removeRawData(u"Block"); },
         "PrinterData::removeRawData(): Failed DeletePrinterData('Block') for printer with handle '1234'.\r\n"},
        {[](const PrinterData& data) { data.getDriverName(); },
         "PrinterData::getPrinterDriverInfo(): Failed to get DRIVER_INFO_1 data for printer with handle '1234'.\r\n"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(messageOf<PrinterRegistryRequestException>([&] { c.ask(PrinterData(nobodysHandle)); }), c.message);
    EXPECT_FALSE(PrinterData(nobodysHandle).rawDataExists(u"Block")) << "a test answers without raising";

    const PrinterData data(addPrinter(driverWithChoice));
    EXPECT_EQ(errorCodeOf([&] { data.getRawData(u"Missing"); }), "004:000");
    EXPECT_EQ(errorCodeOf([&] { data.removeRawData(u"Missing"); }), "004:000");
}

TEST_F(DriverBasedPrinterTest, servesItsOwnHandleAlone) {
    const HANDLE handle = addPrinter(driverWithChoice);
    EXPECT_NO_THROW(DriverBasedPrinter(handle).validatePrinterHandleMatch(handle));
    const std::string message = "DriverBasedPrinter::validatePrinterHandleMatch(): Incoming handle doesn't match "
                                "current printer handle or current handle is NULL!\r\n";
    const struct {
        HANDLE own, incoming;
    } cases[] = {{handle, nobodysHandle}, {handle, nullptr}, {nullptr, handle}, {nullptr, nullptr}};
    for (const auto& c : cases)
        EXPECT_EQ(messageOf<InvalidPrinterHandleException>(
                      [&] { DriverBasedPrinter(c.own).validatePrinterHandleMatch(c.incoming); }),
                  message);
}

TEST_F(DriverBasedPrinterTest, theTicketFormIsTheStoredOneOrTheModels) {
    const struct {
        const char16_t* driver;
        int stored; // -1 for nothing
        bool isRendo2x;
    } cases[] = {
        {driverWithChoice, -1, false},   {driverWithChoice, 1, true},     {driverWithChoice, 0, false},
        {driverWithoutChoice, -1, true}, {driverWithoutChoice, 0, false}, {driverWithoutChoice, 1, true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(toUtf8(c.driver) + " " + std::to_string(c.stored));
        DriverBasedPrinter printer(addPrinter(c.driver));
        if (c.stored >= 0) printer.setRendo2xTicket(c.stored == 1);
        EXPECT_EQ(printer.isRendo2xTicket(), c.isRendo2x);
        EXPECT_EQ(printer.getTicketForm(), c.isRendo2x ? TicketForm::rendo2x : TicketForm::current);
        EXPECT_EQ(printer.getPrinterData().rawDataExists(u"Rendo2xTicket"), c.stored >= 0);
    }
}

TEST_F(DriverBasedPrinterTest, asksForItsModelOnce) {
    const HANDLE handle = addPrinter(driverWithChoice);
    DriverBasedPrinter printer(handle);
    const PrinterModel& model = printer.getPrinterModel();
    EXPECT_EQ(model.getModel(), 2);
    DeletePrinter(handle);
    EXPECT_EQ(&printer.getPrinterModel(), &model);
    DriverBasedPrinter stranger(addPrinter(u"Somebody's Driver"));
    EXPECT_EQ(errorCodeOf([&] { stranger.getPrinterModel(); }), "019:000");
    EXPECT_EQ(errorCodeOf([&] { stranger.isRendo2xTicket(); }), "019:000");
}

TEST_F(DriverBasedPrinterTest, theUsersDataGoIntoTheSettingsOnceThereArePreferences) {
    DriverBasedPrinter printer(addPrinter(driverWithChoice));
    PersistentSettings settings;
    settings.setUserData(u"somebody else", true, true, true);
    EXPECT_FALSE(printer.updateUserData(settings));
    EXPECT_EQ(settings.getStateInfo().userName, u"somebody else");

    UserPreferences preferences = printer.getUserPreferences();
    preferences.setJobNamePreference(false);
    preferences.setUseLogonNamePreference(true);
    preferences.setUseLogonNameRecipientPreference(false);
    EXPECT_TRUE(printer.updateUserData(settings));
    const StateInfo state = settings.getStateInfo();
    EXPECT_EQ(state.userName, User::getLogonName());
    EXPECT_FALSE(state.jobNamePreference);
    EXPECT_TRUE(state.useLogonName);
    EXPECT_FALSE(state.useLogonNameRecipient);

    DriverBasedPrinter other(addPrinter(driverWithoutChoice));
    EXPECT_FALSE(other.updateUserData(settings)) << "another driver, no preferences";
}

TEST_F(DriverBasedPrinterTest, anUnknownUserLeavesTheSettingsAlone) {
    DriverBasedPrinter printer(addPrinter(driverWithChoice));
    printer.getUserPreferences().setJobNamePreference(true);
    PersistentSettings settings;
    settings.setUserData(u"somebody else", true, true, true);
    const ServiceDouble<HMODULE(LPCWSTR)> noModule(doubles::LoadLibraryW, [](LPCWSTR) { return HMODULE(); });
    const ServiceDouble<DWORD(LPCWSTR, LPWSTR, LPDWORD)> noUser(doubles::WNetGetUserW,
                                                                [](LPCWSTR, LPWSTR, LPDWORD) { return DWORD{1}; });
    ASSERT_EQ(User::getLogonName(), u"");
    EXPECT_FALSE(printer.updateUserData(settings));
    EXPECT_EQ(settings.getStateInfo().userName, u"somebody else");
}
