// What printers are said to do, asked of lists that are built for the question.
#include "jtcore/FeatureSettings/NestedAttrID.h"
#include "jtcore/Stock/StockList.h"
#include "tests/capabilityBuilder.h"
#include "tests/expectFailure.h"

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;

constexpr auto top = noParentFeature;

} // namespace

TEST(Capabilities, aFeatureIsSupportedByTheJobByItselfOrByItsCollection) {
    const Capabilities capabilities = makeCapabilities(aPrinter());
    const struct {
        Feature feature;
        bool isSupported;
        const char* why;
    } rows[] = {
        {Feature::copies, true, "named at the top of the job"},
        {Feature::finishings, true, "known by its set's name"},
        {Feature::sheetCollate, false, "named nowhere"},
        {Feature::saveName, true, "a statement of its own"},
        {Feature::pageRanges, false, "its statement says no"},
        {Feature::jobPhoneNumber, false, "its statement is no boolean"},
        {Feature::mediaColor, true, "a member of media-col, which the job may have"},
        {Feature::mediaSize, true, "likewise"},
        {Feature::mediaType, false, "media-col does not name it"},
        {Feature::saveDisposition, true, "a member of job-save-disposition"},
        {Feature::saveInfo, true, "likewise"},
        {Feature::separatorSheetsType, false, "its collection is known, and the job may not have it"},
        {Feature::pages, false, "a member of exceptions only, which are jobs of their own"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(capabilities.isFeatureSupported(row.feature), row.isSupported)
            << nameOf(row.feature) << ": " << row.why;
}

TEST(Capabilities, aMemberIsSupportedWhereItOrItsCollectionIsNamed) {
    const Capabilities capabilities = makeCapabilities(aPrinter());
    const struct {
        Feature parent, member;
        bool isSupported;
    } rows[] = {
        {Feature::mediaCol, Feature::mediaColor, true},     {Feature::mediaCol, Feature::mediaKey, true},
        {Feature::mediaCol, Feature::mediaType, false},     {Feature::pageOverrides, Feature::sides, true},
        {Feature::pageOverrides, Feature::copies, false},   {Feature::pageOverrides, Feature::mediaColor, true},
        {Feature::pageOverrides, Feature::mediaType, true}, {Feature::coverFront, Feature::mediaCol, false},
        {Feature::copies, Feature::sides, false},           {Feature::saveInfo, Feature::saveDocumentFormat, true},
    };
    for (const auto& row : rows)
        EXPECT_EQ(capabilities.isMemberSupported(row.parent, row.member), row.isSupported)
            << nameOf(row.parent) << " / " << nameOf(row.member);
}

TEST(Capabilities, questionsOfYesAndNoHaveAnAnswerWhateverTheFileSays) {
    const Capabilities silent = makeCapabilities(list());
    EXPECT_FALSE(silent.isCapabilityTrue(Feature::pageRanges));
    EXPECT_FALSE(silent.isCapabilityTrue(Feature::copies)) << "the table has no such statement";
    EXPECT_TRUE(silent.allowsEmbeddedSpaces(Feature::copies));
    EXPECT_TRUE(silent.isCapabilityTrue(Feature::inputDocuments)) << "the model says so";

    const struct {
        std::int32_t family;
        bool separateCovers, multipleMedia, blanks;
    } rows[] = {{1, true, true, true}, {8, true, false, false}, {14, false, false, true}};
    for (const auto& row : rows) {
        // What a file says of these does not count.
        const AttrNodeList file = list()
                                      .boolean(u"separate-covers-allowed", !row.separateCovers)
                                      .integer(u"insert-multiple-media-allowed", 7)
                                      .boolean(u"media-type-allows-embedded-spaces", !row.blanks);
        const Capabilities capabilities = makeCapabilities(file, modelOfFamily(row.family));
        EXPECT_EQ(capabilities.allowsSeparateCovers(), row.separateCovers) << row.family;
        EXPECT_EQ(capabilities.allowsMultipleInsertMedia(), row.multipleMedia) << row.family;
        EXPECT_EQ(capabilities.allowsEmbeddedSpaces(Feature::mediaType), row.blanks) << row.family;
        EXPECT_EQ(capabilities.allowsEmbeddedSpaces(Feature::mediaColor), row.blanks) << row.family;
    }
}

TEST(Capabilities, theTableDecidesWhatMayBeUnsetAndThenTheModel) {
    const struct {
        std::int32_t family;
        Feature feature, parent;
        TicketForm form;
        bool isAllowed;
    } rows[] = {
        {14, Feature::mediaTooth, top, TicketForm::current, true}, // always
        {1, Feature::media, top, TicketForm::current, false},      // never
        {1, Feature::copies, top, TicketForm::current, true},
        {14, Feature::copies, top, TicketForm::current, false},
        {14, Feature::sides, Feature::pageOverrides, TicketForm::current, true},
        {1, Feature::jobName, top, TicketForm::rendo2x, false},
        {1, Feature::mediaColor, Feature::coverFront, TicketForm::rendo2x, false},
    };
    for (const auto& row : rows)
        EXPECT_EQ(
            makeCapabilities(list(), modelOfFamily(row.family), row.form).isUnspecifiedAllowed(row.feature, row.parent),
            row.isAllowed)
            << row.family << ' ' << nameOf(row.feature);
}

TEST(Capabilities, aRangeIsTheHullOfAllItsParts) {
    const Capabilities capabilities = makeCapabilities(
        list()
            .range(u"copies-supported", 1, 999)
            .set(u"media-hole-count-supported", list().range(u"value", 2, 4).range(u"value", 0, 0))
            .set(u"media-weight-metric-supported", list().range(u"value", 60, 200).range(u"other", 1, 2))
            .range(u"x-side1-image-shift-supported", -300, 300));
    const struct {
        Feature feature;
        std::int32_t lower, upper;
    } rows[] = {{Feature::copies, 1, 999},
                {Feature::mediaHoleCount, 0, 4},
                {Feature::mediaWeightMetric, 60, 200},
                {Feature::xSide1ImageShift, -300, 300},
                {Feature::pages, 1, 99999},
                {Feature::xDimension, 18200, 48800},
                {Feature::yDimension, 18200, 32000},
                {Feature::jobAccountId, 0, 255}};
    for (const auto& row : rows) {
        std::int32_t lower = -1;
        std::int32_t upper = -1;
        capabilities.getFeatureCapabilities(row.feature, lower, upper);
        EXPECT_EQ(std::pair(lower, upper), std::pair(row.lower, row.upper)) << nameOf(row.feature);
    }
}

TEST(Capabilities, whatMustBeThereAndIsNotIsNamed) {
    const Capabilities capabilities =
        makeCapabilities(list()
                             .set(u"copies-supported", list().range(u"value", 1, 9))
                             .set(u"media-hole-count-supported", list())
                             .integer(u"adjust-contrast-supported", 5)
                             .set(u"media-order-count-supported", list().integer(u"value", 1)));
    std::int32_t lower = 7;
    std::int32_t upper = 7;
    const auto range = [&](Feature feature) { capabilities.getFeatureCapabilities(feature, lower, upper); };
    const struct {
        std::function<void()> ask;
        const char* message;
    } missing[] = {
        {[&] { range(Feature::copies); },
         "getFeatureCapabilities(range of integer): Could not find the copies-supported"},
        {[&] { range(Feature::insertCount); },
         "getFeatureCapabilities(range of integer): Could not find the insert-count-supported"},
        {[&] { range(Feature::mediaHoleCount); },
         "getFeatureCapabilities(range of integer): Could not find the media-hole-count-supported"},
    };
    for (const auto& row : missing)
        EXPECT_EQ(messageOf<MissingCapabilityDataException>(row.ask),
                  "Capabilities::" + std::string(row.message) + " capability.\r\n");
    EXPECT_EQ(std::pair(lower, upper), std::pair(7, 7)) << "the outputs are as they were";

    const struct {
        std::function<void()> ask;
        const char* code;
    } others[] = {
        {[&] { range(Feature::adjustContrast); }, "009:000"},  // a number for a range
        {[&] { range(Feature::mediaOrderCount); }, "009:000"}, // the same in a set
        {[&] { range(Feature::sides); }, "012:000"},           // no feature with a range
        {[&] { capabilities.getPrecision(Feature::copies); }, "012:000"},
        {[&] { capabilities.getUpperLimit(Feature::copies); }, "012:000"},
        {[&] { capabilities.getCharacterSetRestriction(Feature::copies); }, "012:000"},
    };
    for (const auto& row : others)
        EXPECT_EQ(errorCodeOf(row.ask), row.code) << &row - others;
}

// Every limit of the tables is written by the model's last step, so only a list that changed under it can lack one.
TEST(Capabilities, everyLimitIsThereWhateverTheFileSays) {
    for (const PrinterFamilyInfo& family : printerFamilies()) {
        const Capabilities capabilities = makeCapabilities(list(), modelOfFamily(family.family));
        for (const CapabilityInfo& row : CapabilityDataBase::rows()) {
            SCOPED_TRACE(nameOf(row.feature == Feature::any ? Feature::copies : row.feature));
            if (row.type == CapabilityType::intUpperLimit) {
                EXPECT_GE(capabilities.getUpperLimit(row.feature), 0);
            } else if (row.type == CapabilityType::precision) {
                EXPECT_EQ(capabilities.getPrecision(row.feature), family.imageShiftPrecision);
            } else if (row.type == CapabilityType::charRestriction) {
                EXPECT_EQ(capabilities.getCharacterSetRestriction(row.feature),
                          row.feature == Feature::jobName ? family.jobNameCharacters : family.accountCharacters);
            }
        }
        EXPECT_EQ(capabilities.getUpperLimit(Feature::jobPhoneNumber), family.phoneNumberLimit);
        EXPECT_EQ(capabilities.getUpperLimit(Feature::mediaColor), family.mediaColorLimit);
    }
}

TEST(Capabilities, theLimitsThatNoFileStatesHaveTheirValues) {
    const Capabilities capabilities = makeCapabilities(list().integer(u"save-name-allowable-char-limit", 7));
    const struct {
        Feature feature;
        std::int32_t limit;
    } rows[] = {{Feature::saveName, 255},         {Feature::undefinedSourceRgbImages, 255},
                {Feature::colorEmulation, 255},   {Feature::colorDestinationProfileBack, 255},
                {Feature::trcName, 30},           {Feature::finishingTemplate, 30},
                {Feature::mediaDescription, 255}, {Feature::media, 255},
                {Feature::mediaKey, 255},         {Feature::mediaType, 30},
                {Feature::jobName, 255},          {Feature::jobSheetMessage, 1000}};
    for (const auto& row : rows)
        EXPECT_EQ(capabilities.getUpperLimit(row.feature), row.limit) << nameOf(row.feature);
}

TEST(Capabilities, valuesComeInTheOrderOfTheTableAndNewNamesBehindThem) {
    const Capabilities capabilities =
        makeCapabilities(list()
                             .set(u"sides-supported", keywords({u"two-sided-long-edge", u"one-sided", u"three-sided"}))
                             .set(u"media-type-supported", list()
                                                               .name(u"value", u"Zebra board")
                                                               .keyword(u"value", u"stationery")
                                                               .name(u"value", u"Bristol of the test")
                                                               .integer(u"value", 12)
                                                               .keyword(u"value", u"stationery"))
                             .set(u"finishings-supported", list().enumeration(u"value", 20).enumeration(u"value", 3))
                             .integer(u"output-bin-supported", 4),
                         modelOfFamily(14));
    EXPECT_THAT(valuesOf(capabilities, Feature::sides), ElementsAre("one-sided", "two-sided-long-edge"))
        << "a keyword that nobody knows is left out";
    EXPECT_THAT(valuesOf(capabilities, Feature::sides, Feature::pageOverrides),
                ElementsAre("(unset)", "one-sided", "two-sided-long-edge"));
    EXPECT_THAT(valuesOf(capabilities, Feature::mediaType),
                ElementsAre("stationery", "stationery", "Bristol of the test", "Zebra board"));
    EXPECT_THAT(valuesOf(capabilities, Feature::finishings), ElementsAre("3", "20"));
    EXPECT_THAT(valuesOf(capabilities, Feature::outputBin), ElementsAre("(unset)")) << "no list";
    EXPECT_THAT(valuesOf(capabilities, Feature::copies), ElementsAre()) << "never has one";

    std::vector<FeatureValue> values{Value::white};
    capabilities.getFeatureCapabilities(Feature::sides, top, values);
    EXPECT_THAT(textsOf(values), ElementsAre("one-sided", "two-sided-long-edge", "white")) << "appended, sorted as one";
}

TEST(Capabilities, sizesAreThoseThatFitEitherWayRoundAndTheCustomOne) {
    const struct {
        std::int32_t family;
        Feature parent;
        std::vector<StockSize::Id> sizes;
    } rows[] = {
        {10,
         top,
         {StockSize::Id::none, StockSize::Id::letter, StockSize::Id::legal, StockSize::Id::folio, StockSize::Id::a4,
          StockSize::Id::custom}},
        {14,
         top,
         {StockSize::Id::letter, StockSize::Id::legal, StockSize::Id::ledger, StockSize::Id::letterCover,
          StockSize::Id::folio, StockSize::Id::a4Wide, StockSize::Id::a4, StockSize::Id::a3, StockSize::Id::isoB4,
          StockSize::Id::jisB4, StockSize::Id::custom}},
    };
    for (const auto& row : rows) {
        std::vector<StockSize> sizes;
        makeCapabilities(list(), modelOfFamily(row.family)).getSupportedStockSizes(row.parent, sizes);
        std::vector<StockSize::Id> ids;
        for (const StockSize& size : sizes)
            ids.push_back(size.getId());
        EXPECT_EQ(ids, row.sizes) << row.family;
    }
}

TEST(Capabilities, resolutionsAreThoseThatAreWhole) {
    AttrNodeList resolutions = list().resolution(u"value", 600, 600, 3).resolution(u"value", 1200, 600, 3);
    resolutions.addListNode(u"value", syntaxResolution); // without its members
    resolutions.addNode(u"value", std::make_unique<IppKeyword>(u"600dpi"));
    AttrNodeList file;
    file.add1setOf(u"printer-resolution-supported") = resolutions;
    std::vector<Resolution> found;
    makeCapabilities(file).getSupportedResolutions(top, found);
    EXPECT_EQ(found, (std::vector<Resolution>{{}, {600, 600, 3}, {1200, 600, 3}}));
}

TEST(Capabilities, theIndexAnswersAsTheListDoes) {
    const Capabilities capabilities = makeCapabilities(aPrinter());
    std::size_t lists = 0;
    for (const AttrNode& node : capabilities.getAttrNodeList()) {
        const std::u16string_view id = node.getAttrID();
        if (id.ends_with(supportedSuffix)) {
            EXPECT_EQ(capabilities.findSupported(id.substr(0, id.size() - supportedSuffix.size())), &node);
        }
        const IppList* inner = node.getAttrValue().asList();
        if (!inner) continue;
        ++lists;
        for (const FeatureInfo& row : FeatureDataBase::rows())
            EXPECT_EQ(capabilities.hasKeyword(&inner->getList(), row.uniqueId()),
                      Capabilities::isKeywordInList(row.uniqueId(), &inner->getList()))
                << toUtf8(node.getAttrID()) << ' ' << nameOf(row.number);
    }
    EXPECT_GT(lists, 7U);
    EXPECT_EQ(capabilities.findSupported(u"sheet-collate"), nullptr);
    EXPECT_EQ(capabilities.findSupported(u""), nullptr);
    EXPECT_FALSE(capabilities.hasKeyword(nullptr, u"copies"));
    EXPECT_FALSE(Capabilities::isKeywordInList(u"copies", nullptr));
}

TEST(Capabilities, aListedKeywordIsAPublicKeywordCalledValue) {
    const struct {
        AttrNodeList set;
        bool isListed;
    } rows[] = {{list().keyword(u"value", u"copies"), true},
                {list().keyword(u"value", u"sides").keyword(u"value", u"copies"), true},
                {list().keyword(u"value", u"copies").hidden(), false},
                {list().name(u"value", u"copies"), false},
                {list().keyword(u"copies", u"copies"), false},
                {list().keyword(u"value", u"Copies"), false},
                {list(), false}};
    for (const auto& row : rows) {
        EXPECT_EQ(Capabilities::isKeywordInList(u"copies", &row.set), row.isListed) << show(row.set);
        AttrNodeList file;
        file.add1setOf(u"job-creation-attributes-supported") = row.set;
        EXPECT_EQ(makeCapabilities(file).isFeatureSupported(Feature::copies), row.isListed) << show(row.set);
    }
}

TEST(Capabilities, fiveCollectionsAreJobsOfTheirOwn) {
    const Capabilities capabilities = makeCapabilities(list());
    for (const auto* id : {u"cover-front", u"cover-back", u"page-overrides", u"insert-sheet", u"separator-sheets"})
        EXPECT_TRUE(capabilities.isNestedFeature(id)) << toUtf8(id);
    for (const auto* id : {u"media-col", u"copies", u"value", u"", u"cover-front-supported"})
        EXPECT_FALSE(capabilities.isNestedFeature(id)) << toUtf8(id);
}

TEST(Capabilities, aPrintersStocksAreThoseOfItsMediaDatabase) {
    const ListBuilder stock = list().keyword(u"media-color", u"white").integer(u"media-weight-metric", 90);
    const Capabilities two = makeCapabilities(
        list().set(u"media-col-database", list().collection(u"value", stock).collection(u"value", stock)));
    EXPECT_EQ(two.getPrinterStocks()->getSize(), 2U);
    EXPECT_EQ(makeCapabilities(list()).getPrinterStocks()->getSize(), 0U);
}
