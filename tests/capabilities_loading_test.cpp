// What becomes of a capability file when a printer takes it in.
#include "jtcore/Capabilities/ImportedCapabilities.h"
#include "tests/capabilityBuilder.h"

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;

// What the administrator imported, without a printer behind it.
class ImportedList final : public ImportedCapabilities {
public:
    explicit ImportedList(const AttrNodeList* list) : list_(list) {}
    void getCapabilityData(ByteBuffer&) const override { throw std::logic_error("there is no file"); }
    std::u16string getImportedFileName() const override { return u"printer.abil"; }
    bool hasImportedCapabilities() const override { return list_ != nullptr; }
    void clearImportedCapabilities() override { list_ = nullptr; }
    void storeImportedCapabilities(const std::u16string&, const ByteBuffer&) override {}

protected:
    void translateData(AttrNodeList& target) const override { target = *list_; }

private:
    const AttrNodeList* list_;
};

} // namespace

TEST(Capabilities, anImportedFileTakesThePlaceOfTheFactorysAndNotOfTheModelsLimits) {
    const AttrNodeList imported = list()
                                      .set(u"sides-supported", keywords({u"one-sided"}))
                                      .range(u"page-ranges-allowable-range", 1, 5)
                                      .range(u"x-dimension-supported", 1, 2);
    const PrinterModel model = modelOfFamily(14);
    const Capabilities capabilities(model, TicketForm::current, ImportedList(&imported));
    EXPECT_THAT(valuesOf(capabilities, Feature::sides), ElementsAre("one-sided"));
    EXPECT_EQ(capabilities.findSupported(u"copies"), nullptr) << "of the factory's list nothing is left";
    EXPECT_EQ(show(capabilities, u"page-ranges-allowable-range"),
              "page-ranges-allowable-range=rangeOfInteger[lower-bound=1 upper-bound=9999]");
    EXPECT_EQ(capabilities.getStockSizeRange().xMaximum, 43200);

    const Capabilities factory(model, TicketForm::current, ImportedList(nullptr));
    EXPECT_NE(factory.findSupported(u"copies"), nullptr);
    EXPECT_TRUE(factory.getAttrNodeList().equals(
        Capabilities(model, TicketForm::current, FactoryCapabilities(model, TicketForm::current)).getAttrNodeList()));
}

TEST(Capabilities, aPclDriverLosesWhatItCannotDoFromEveryList) {
    const AttrNodeList file =
        list()
            .set(u"job-creation-attributes-supported", keywords({u"highlight-map", u"copies", u"opi-image-insertion"}))
            .set(u"page-overrides-supported", keywords({u"highlight-map", u"sides"}))
            .set(u"highlight-map-supported", keywords({u"automatic", u"color-table"}))
            .set(u"opi-image-insertion-supported", keywords({u"insert"}));
    for (const auto language : {PrinterLanguage::postScript, PrinterLanguage::pcl}) {
        const bool isPostScript = language == PrinterLanguage::postScript;
        const Capabilities capabilities = makeCapabilities(file, modelOfFamily(1, language));
        for (const Feature feature : {Feature::highlightMap, Feature::opiImageInsertion}) {
            EXPECT_EQ(capabilities.isFeatureSupported(feature), isPostScript) << nameOf(feature);
            EXPECT_EQ(capabilities.findSupported(FeatureId(feature).getUniqueId()) != nullptr, isPostScript)
                << nameOf(feature) << ": its whole list goes";
        }
        EXPECT_EQ(capabilities.isMemberSupported(Feature::pageOverrides, Feature::highlightMap), isPostScript);
        EXPECT_TRUE(capabilities.isFeatureSupported(Feature::copies));
        EXPECT_TRUE(capabilities.isMemberSupported(Feature::pageOverrides, Feature::sides));
    }
}

TEST(Capabilities, aStockHasItsKeyAndASeparatorSheetHasNoStock) {
    const Capabilities completed = makeCapabilities(aPrinter());
    EXPECT_EQ(show(completed, u"media-col-supported"),
              "media-col-supported=1setOf[value=keyword:media-color value=keyword:media-size value=keyword:media-key]");
    EXPECT_EQ(show(completed, u"user-defined-values-supported"),
              "user-defined-values-supported=1setOf[value=keyword:media-type value=keyword:media-key]");
    EXPECT_EQ(show(completed, u"separator-sheets-supported"),
              "separator-sheets-supported=1setOf[value=keyword:separator-sheets-type]");

    const Capabilities again = makeCapabilities(completed.getAttrNodeList());
    EXPECT_TRUE(again.getAttrNodeList().equals(completed.getAttrNodeList())) << "nothing is added twice";
    EXPECT_TRUE(makeCapabilities(list()).isUserDefinedAllowed(Feature::mediaKey)) << "also where there was no list";
}

TEST(Capabilities, theCustomSizesGoInFrontOfAFixedSize) {
    const ListBuilder fixed =
        list().collection(u"value", list().integer(u"x-dimension", 21000).integer(u"y-dimension", 29700));
    const Capabilities capabilities = makeCapabilities(list().set(u"media-size-supported", fixed), modelOfFamily(14));
    EXPECT_EQ(show(capabilities, u"media-size-supported"),
              "media-size-supported=1setOf[value=collection[x-dimension=rangeOfInteger[lower-bound=20300 "
              "upper-bound=43200] y-dimension=rangeOfInteger[lower-bound=25400 upper-bound=36300]] "
              "value=collection[x-dimension=21000 y-dimension=29700]]");
}

TEST(Capabilities, genericOnesHaveWhatTheOtherHasBesidesTheirOwn) {
    const Capabilities narrow =
        makeCapabilities(list()
                             .set(u"media-type-supported", list().name(u"value", u"Felt of the test"))
                             .set(u"media-col-supported", keywords({u"media-tooth"})),
                         modelOfFamily(14, PrinterLanguage::pcl), TicketForm::rendo2x);
    const auto generic = Capabilities::makeGenericCapabilities(narrow);
    EXPECT_EQ(generic->getPrinterModel().getModel(), genericPrinterModel);
    EXPECT_EQ(generic->getTicketForm(), TicketForm::current);
    EXPECT_THAT(valuesOf(*generic, Feature::mediaType), testing::IsSupersetOf({"stationery", "Felt of the test"}));
    EXPECT_TRUE(generic->isMemberSupported(Feature::mediaCol, Feature::mediaTooth));
    EXPECT_TRUE(generic->isFeatureSupported(Feature::copies)) << "its own";
    EXPECT_EQ(generic->getStockSizeRange().yMaximum, 152400) << "its own limits stand";
}
