// Where capabilities come from: the resource module, and what was imported into a printer's store.
#include "jtcore/AnlXlate/AbilTranslator.h"
#include "jtcore/Capabilities/DriverImportedCapabilities.h"
#include "jtcore/Compress/CompressedBuffer.h"
#include "jtcore/FeatureSettings/NestedAttrID.h"
#include "jtcore/Printer/DriverBasedPrinter.h"
#include "platform/spooler.h"
#include "tests/MessageBoxes.h"
#include "tests/TemporaryFolder.h"
#include "tests/capabilityBuilder.h"
#include "tests/capabilityText.h"
#include "tests/expectFailure.h"
#include "tests/serviceDoubles.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <functional>
#include <set>

namespace {

// Resources that no printer of these tests uses in any other way.
constexpr std::int32_t countedResource = 11533;

ByteBuffer bytesOf(const std::string& text) { return {text.data(), text.size()}; }

ByteBuffer compressed(const ByteBuffer& original) {
    CompressedBuffer block;
    block.store(original);
    return block.getStoredData();
}

class PrinterStoreTest : public testing::Test {
protected:
    PrinterStoreTest() {
        std::u16string name = u"printer";
        std::u16string driver = u"Kolma Tarsel 84 PCL5e";
        PRINTER_INFO_2W info{};
        info.pPrinterName = toWide(name.data());
        info.pDriverName = toWide(driver.data());
        handle = AddPrinterW(nullptr, 2, reinterpret_cast<LPBYTE>(&info));
        EXPECT_NE(handle, nullptr);
    }
    ~PrinterStoreTest() override { ClosePrinter(handle); }

    DriverImportedCapabilities imported() const { return DriverImportedCapabilities(PrinterData(handle)); }

    TemporaryFolder folder;
    EnvironmentVariable config{"XDG_CONFIG_HOME", (folder.path() / "config").c_str()};
    EnvironmentVariable dataHome{"XDG_DATA_HOME", (folder.path() / "data").c_str()};
    HANDLE handle;
};

using ImportedCapabilitiesTest = PrinterStoreTest;
using PrinterTest = PrinterStoreTest;

} // namespace

TEST_F(ImportedCapabilitiesTest, aPrinterThatNeverImportedHasNone) {
    DriverImportedCapabilities none = imported();
    EXPECT_FALSE(none.hasImportedCapabilities());
    EXPECT_EQ(none.getImportedFileName(), u"");
    EXPECT_NO_THROW(none.clearImportedCapabilities());
    ByteBuffer out("before", 6);
    EXPECT_EQ(errorCodeOf([&] { none.getCapabilityData(out); }), "004:000");
    EXPECT_EQ(out, ByteBuffer("before", 6));
}

TEST_F(ImportedCapabilitiesTest, anImportedFileIsKeptWithThePrinterAndNotReadAgain) {
    folder.write("a.abil", goodFile);
    const std::u16string path = folder / "a.abil";
    imported().importPrinterCapabilityFile(path);
    std::filesystem::remove(folder.path() / "a.abil");

    const DriverImportedCapabilities kept = imported();
    EXPECT_TRUE(kept.hasImportedCapabilities());
    EXPECT_EQ(kept.getImportedFileName(), path);
    ByteBuffer text;
    kept.getCapabilityData(text);
    EXPECT_EQ(text, bytesOf(goodFile));
    EXPECT_EQ(PrinterData(handle).getRawData(u"ImportedPrintCapData"), compressed(bytesOf(goodFile)));

    imported().clearImportedCapabilities();
    EXPECT_FALSE(kept.hasImportedCapabilities());
    EXPECT_EQ(kept.getImportedFileName(), u"");
}

TEST_F(ImportedCapabilitiesTest, clearingTakesWhicheverOfTheTwoValuesIsThere) {
    const PrinterData data(handle);
    for (const auto* only : {u"ImportedPrintCapData", u"ImportedPrintCapFileName"}) {
        data.setRawData(only, ByteBuffer(true));
        imported().clearImportedCapabilities();
        EXPECT_FALSE(data.rawDataExists(only)) << toUtf8(only);
    }
}

TEST_F(ImportedCapabilitiesTest, whatCouldNotBeReadBackIsNotStored) {
    ByteBuffer tooLarge;
    tooLarge.resize(capabilityDataLimit + 1);
    EXPECT_EQ(errorCodeOf([&] { imported().storeImportedCapabilities(u"a", tooLarge); }), "018:000");
    folder.write("large.abil", std::string(capabilityDataLimit + 1, ' '));
    EXPECT_EQ(errorCodeOf([&] { imported().importPrinterCapabilityFile(folder / "large.abil"); }), "022:002");
    EXPECT_EQ(errorCodeOf([&] { imported().importPrinterCapabilityFile(folder / "missing.abil"); }), "022:001");
    EXPECT_FALSE(imported().hasImportedCapabilities());
    tooLarge.resize(capabilityDataLimit);
    imported().storeImportedCapabilities(u"a", tooLarge);
    ByteBuffer back;
    imported().getCapabilityData(back);
    EXPECT_EQ(back, tooLarge);
}

TEST_F(ImportedCapabilitiesTest, storedDataThatWereTamperedWithAreRefused) {
    const ByteBuffer good = compressed(bytesOf(goodFile));
    const auto changed = [&](std::size_t fromEnd, std::uint8_t byte) {
        ByteBuffer data = good;
        data.getData()[data.getSize() - fromEnd] = byte;
        return data;
    };
    const auto claiming = [&](std::uint32_t size) {
        ByteBuffer data = good;
        for (int i = 0; i < 4; ++i)
            data.getData()[data.getSize() - 8 + static_cast<std::size_t>(i)] =
                static_cast<std::uint8_t>(size >> (24 - 8 * i));
        return data;
    };
    ByteBuffer cut(good.getData() + 3, good.getSize() - 3);
    ByteBuffer flipped = good;
    flipped.getData()[good.getSize() / 2] ^= 0x10;
    ByteBuffer longer(good.getData(), good.getSize() - 12);
    longer.appendData("more", 4);
    longer.appendData(good.getData() + good.getSize() - 12, 12);
    const struct {
        const char* what;
        ByteBuffer stored;
        const char* code;
    } rows[] = {
        {"good", good, ""},
        {"one byte", ByteBuffer(true), "017:000"},
        {"no footer", ByteBuffer(good.getData(), good.getSize() - 12), "017:000"},
        {"another signature", changed(1, '9'), "017:000"},
        {"the file itself, not compressed", bytesOf(goodFile), "017:000"},
        {"the stream's start is gone", cut, "018:000"},
        {"a bit of the stream is turned", flipped, "018:000"},
        {"more behind the stream", longer, "018:000"},
        {"claims one byte less", claiming(static_cast<std::uint32_t>(goodFile.size() - 1)), "018:000"},
        {"claims one byte more", claiming(static_cast<std::uint32_t>(goodFile.size() + 1)), "018:000"},
        {"claims more than there may be", claiming(capabilityDataLimit + 1), "018:000"},
        {"claims 4 GB", claiming(0xFFFFFFFF), "018:000"},
        {"nothing, compressed", compressed(ByteBuffer()), "001:008"},
        {"no capability file, compressed", compressed(bytesOf("copies: 1-999")), "001:002"},
        {"a job ticket, compressed", compressed(bytesOf("<jtif><copies syntax=\"integer\">1</copies></jtif>")),
         "001:002"},
    };
    for (const auto& row : rows) {
        PrinterData(handle).setRawData(u"ImportedPrintCapData", row.stored);
        EXPECT_EQ(errorCodeOf([&] { DriverBasedPrinter(handle).getCapabilities(); }), row.code) << row.what;
    }
    imported().clearImportedCapabilities();
    EXPECT_EQ(errorCodeOf([&] { DriverBasedPrinter(handle).getCapabilities(); }), "") << "the way out";
}

TEST_F(ImportedCapabilitiesTest, theUserChoosesAFileThatIsOne) {
    folder.write("good.abil", goodFile);
    folder.write("bad.abil", "<abil>");
    const struct {
        const char* choice; // null: the user cancels
        bool isTaken;
        UINT icon; // of the box that is shown; 0 for none
        const char* code;
    } rows[] = {{nullptr, false, 0, ""},
                {"good.abil", true, MB_ICONINFORMATION, ""},
                {"bad.abil", false, MB_ICONERROR, "001:002:"},
                {"missing.abil", false, MB_ICONERROR, "001:015:"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.choice ? row.choice : "cancel");
        const MessageBoxes boxes;
        std::u16string name = u"before";
        const auto choose = [&](HWND, std::u16string& fileName) {
            EXPECT_EQ(fileName, u"before") << "the dialog is preset";
            if (row.choice) fileName = folder / row.choice;
            return row.choice != nullptr;
        };
        EXPECT_EQ(ImportedCapabilities::selectPrinterCapabilityFile(nullptr, name, choose), row.isTaken);
        EXPECT_EQ(name, row.isTaken ? folder / row.choice : u"before");
        EXPECT_EQ(boxes.shown().size(), row.icon == 0 ? 0U : 1U);
        EXPECT_EQ(boxes.onlyOne().style & 0xF0U, row.icon);
        EXPECT_THAT(boxes.onlyOne().text, testing::HasSubstr(row.code));
    }
    EXPECT_FALSE(imported().hasImportedCapabilities()) << "choosing stores nothing";
}

TEST_F(PrinterTest, builtCapabilitiesStayUntilTheNextPrinter) {
    DriverBasedPrinter printer(handle);
    const Capabilities& capabilities = printer.getCapabilities();
    imported().storeImportedCapabilities(u"good.abil", bytesOf(goodFile));
    EXPECT_EQ(&printer.getCapabilities(), &capabilities);
    std::int32_t lower = 0;
    std::int32_t upper = 0;
    DriverBasedPrinter(handle).getCapabilities().getFeatureCapabilities(Feature::copies, lower, upper);
    EXPECT_EQ(upper, 77);
}

TEST(ResourceCapabilities, aResourceIsDecodedOnceInTheProcess) {
    int loads = 0;
    const ServiceDouble<LPVOID(HGLOBAL)> counting(doubles::LockResource, [&](HGLOBAL data) -> LPVOID {
        ++loads;
        return data; // what locking a resource comes to
    });
    AttrNodeList first;
    AttrNodeList second = list().integer(u"before", 1);
    ResourceCapabilities(countedResource).loadCapabilities(first);
    ResourceCapabilities(countedResource).loadCapabilities(second);
    EXPECT_EQ(loads, 1);
    ASSERT_FALSE(first.isEmpty());
    EXPECT_EQ(second.getNumNodes(), first.getNumNodes() + 1) << "appended";
    second.deleteNode(u"before");
    EXPECT_TRUE(second.equals(first));
    second.clear();
    AttrNodeList third;
    ResourceCapabilities(countedResource).loadCapabilities(third);
    EXPECT_TRUE(third.equals(first)) << "whoever has a list has it alone";
}

TEST(ResourceCapabilities, aResourceThatFailedIsTriedAgain) {
    constexpr std::int32_t id = 11534;
    AttrNodeList target;
    {
        const ServiceDouble<HRSRC(HMODULE, LPCWSTR, LPCWSTR)> missing(doubles::FindResourceW,
                                                                      [](auto...) { return HRSRC(); });
        EXPECT_EQ(errorCodeOf([&] { ResourceCapabilities(id).loadCapabilities(target); }), "005:000");
    }
    EXPECT_EQ(errorCodeOf([&] { ResourceCapabilities(id).loadCapabilities(target); }), "");
    EXPECT_EQ(errorCodeOf([&] { ResourceCapabilities(1).loadCapabilities(target); }), "005:000") << "no such resource";
}

TEST(FactoryCapabilities, everyResourceAnswersEveryQuestion) {
    for (const PrinterFamilyInfo& family : printerFamilies())
        for (const TicketForm form : {TicketForm::current, TicketForm::rendo2x})
            for (const PrinterLanguage language : {PrinterLanguage::postScript, PrinterLanguage::pcl}) {
                SCOPED_TRACE(testing::Message() << "family " << family.family << ", form " << static_cast<int>(form)
                                                << ", " << toUtf8(describe(language)));
                const PrinterModel model = modelOfFamily(family.family, language);
                const Capabilities capabilities(model, form, FactoryCapabilities(model, form));
                EXPECT_NO_THROW(askEverything(capabilities));
                EXPECT_TRUE(capabilities.isFeatureSupported(Feature::copies));
                EXPECT_TRUE(capabilities.isFeatureSupported(Feature::sides));
                EXPECT_TRUE(capabilities.isMemberSupported(Feature::mediaCol, Feature::mediaKey));
                const StockSizeRange sizes = capabilities.getStockSizeRange();
                EXPECT_EQ(std::tuple(sizes.xMinimum, sizes.xMaximum, sizes.yMinimum, sizes.yMaximum),
                          std::tuple(family.mediaSizeXLower, family.mediaSizeXUpper, family.mediaSizeYLower,
                                     family.mediaSizeYUpper));
                EXPECT_FALSE(language == PrinterLanguage::pcl &&
                             capabilities.isFeatureSupported(Feature::highlightMap));
            }
}

TEST(FactoryCapabilities, asAFileTheyGiveTheSameAnswersAgain) {
    for (const PrinterFamilyInfo& family : printerFamilies()) {
        const PrinterModel model = modelOfFamily(family.family);
        const Capabilities capabilities(model, TicketForm::current, FactoryCapabilities(model, TicketForm::current));
        ByteBuffer text;
        AbilTranslator().anlToBuffer(capabilities.getAttrNodeList(), text);
        const Capabilities again(model, TicketForm::current,
                                 CapabilityText({reinterpret_cast<const char*>(text.getData()), text.getSize()}));
        EXPECT_TRUE(again.getAttrNodeList().equals(capabilities.getAttrNodeList())) << family.family;
    }
}
