// The settings that a job starts with.
#include "jtcore/AnlXlate/PersistentSettings.h"
#include "jtcore/Printer/DriverBasedPrinter.h"
#include "jtcore/Printer/PrinterDefaults.h"
#include "jtcore/Services/User.h"
#include "jtcore/Services/UserPreferences.h"
#include "platform/spooler.h"
#include "tests/TemporaryFolder.h"
#include "tests/capabilityBuilder.h"
#include "tests/serviceDoubles.h"

#include <gtest/gtest.h>

namespace {

using PlayLocale = ServiceDouble<int(LCID, LCTYPE, LPWSTR, int)>;

const std::string shifts = " x-side1-image-shift=0 y-side1-image-shift=0 x-side2-image-shift=0 y-side2-image-shift=0";
const std::string oneShift = " x-side1-image-shift=0 y-side1-image-shift=0";
const std::string rotation = " page-rotation=keyword:rotate-0";

std::string expectedJob(const std::string& user, std::int32_t weight, const std::string& rest) {
    const StockSize size(static_cast<StockSize::Id>(User::getDefaultStockSize()));
    return "copies=1 finishings=1setOf[value=enum:3] sheet-collate=keyword:collated sides=keyword:one-sided "
           "job-name=name:Document job-save-disposition=collection[save-disposition=keyword:none] "
           "media-col=collection[media-color=keyword:white media-type=keyword:stationery media-hole-count=0" +
           (weight ? " media-weight-metric=" + std::to_string(weight) : std::string()) +
           " media-size=collection[x-dimension=" + std::to_string(size.getMin()) +
           " y-dimension=" + std::to_string(size.getMax()) + "]]" + rest + " requesting-user-name=name:" + user +
           " job-recipient-name=name:" + user;
}

std::string shownDefaults(const PrinterModel& model, TicketForm form) {
    return show(PrinterDefaults(model, form).getFeatureSettings().getAttrNodeList());
}

} // namespace

TEST(PrinterDefaults, everyFamilyStartsAsTold) {
    const std::string user = toUtf8(User::getLogonName());
    ASSERT_NE(user, "");
    const struct {
        std::int32_t family, weight;
        std::string rest;
    } rows[] = {
        {1, 90, shifts + rotation},
        {2, 90, shifts + rotation},
        {3, 120, shifts + rotation},
        {4, 75, shifts + rotation},
        {5, 75, shifts + rotation},
        {6, 75, shifts + rotation},
        {7, 75, shifts},
        {8, 75, shifts},
        {9, 75, shifts},
        {10, 75, shifts},
        {11, 75, shifts},
        {12, 75, shifts + rotation},
        {13, 75, shifts + rotation},
        {14, 0, oneShift + rotation + " imposition-template=keyword:none"},
        {15, 75, shifts + rotation},
        {16, 75, shifts + rotation},
        {17, 90, shifts + rotation},
        {18, 75, shifts + rotation},
    };
    for (const auto& row : rows)
        for (const TicketForm form : {TicketForm::current, TicketForm::rendo2x})
            for (const PrinterLanguage language : {PrinterLanguage::postScript, PrinterLanguage::pcl}) {
                const bool insertsImages =
                    row.family == 17 && form == TicketForm::current && language == PrinterLanguage::postScript;
                const std::string rest =
                    insertsImages
                        ? shifts + " opi-image-insertion=keyword:insert opi-image-pre-scan=keyword:no-pre-scan" +
                              rotation
                        : row.rest;
                EXPECT_EQ(shownDefaults(modelOfFamily(row.family, language), form), expectedJob(user, row.weight, rest))
                    << "family " << row.family << ", form " << static_cast<int>(form);
            }
}

TEST(PrinterDefaults, anUnknownUserHasTheNameOfTheResourceModule) {
    const ServiceDouble<HMODULE(LPCWSTR)> noModule(doubles::LoadLibraryW, [](LPCWSTR) { return HMODULE(); });
    const ServiceDouble<DWORD(LPCWSTR, LPWSTR, LPDWORD)> noUser(doubles::WNetGetUserW,
                                                                [](LPCWSTR, LPWSTR, LPDWORD) { return DWORD{1}; });
    ASSERT_EQ(User::getLogonName(), u"");
    const std::string standIn = toUtf8(ResourceLibrary().getString(6201));
    EXPECT_EQ(shownDefaults(modelOfFamily(7), TicketForm::current), expectedJob(standIn, 75, shifts));
}

TEST(PrinterDefaults, thePaperIsTheLocalesWithItsShortEdgeFirst) {
    const struct {
        const char16_t* paper;
        std::int32_t x, y;
    } rows[] = {{u"1", 21600, 27900}, {u"5", 21600, 35600}, {u"8", 29700, 42000}, {u"9", 21000, 29700}};
    for (const auto& row : rows) {
        const PlayLocale locale(doubles::GetLocaleInfoW, [&](LCID, LCTYPE, LPWSTR data, int size) {
            if (size >= 2) data[0] = static_cast<WCHAR>(row.paper[0]), data[1] = 0;
            return 2;
        });
        const PrinterDefaults defaults(modelOfFamily(1), TicketForm::current);
        std::int32_t x = 0;
        std::int32_t y = 0;
        defaults.getFeatureSettings().getLong(FeatureId(Feature::xDimension), x);
        defaults.getFeatureSettings().getLong(FeatureId(Feature::yDimension), y);
        EXPECT_EQ(std::pair(x, y), std::pair(row.x, row.y)) << toUtf8(row.paper);
    }
}

TEST(Printer, itsDefaultsGoIntoASheetsSettingsWithTheUsersData) {
    const TemporaryFolder folder;
    const EnvironmentVariable config("XDG_CONFIG_HOME", (folder.path() / "config").c_str());
    const EnvironmentVariable data("XDG_DATA_HOME", (folder.path() / "data").c_str());
    std::u16string name = u"printer";
    std::u16string driver = u"Kolma Tarsel 84 PCL5e";
    PRINTER_INFO_2W info{};
    info.pPrinterName = toWide(name.data());
    info.pDriverName = toWide(driver.data());
    const HANDLE handle = AddPrinterW(nullptr, 2, reinterpret_cast<LPBYTE>(&info));
    ASSERT_NE(handle, nullptr);

    DriverBasedPrinter printer(handle);
    PersistentSettings settings;
    settings.setAttrNodeList(list().integer(u"copies", 12).keyword(u"job-offset", u"none"));
    EXPECT_FALSE(printer.applyDefaultSettings(settings)) << "the user has saved no preferences";
    const AttrNodeList& defaults = printer.getPrinterDefaults().getFeatureSettings().getAttrNodeList();
    EXPECT_EQ(show(*settings.createAttrNodeList()), show(defaults));
    EXPECT_EQ(&printer.getPrinterDefaults(), &printer.getPrinterDefaults());

    printer.getUserPreferences().setJobNamePreference(true);
    EXPECT_TRUE(printer.applyDefaultSettings(settings));
    EXPECT_TRUE(settings.getStateInfo().jobNamePreference);
    ClosePrinter(handle);
}
