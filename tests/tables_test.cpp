#include "jtcore/Attributes/PrimitiveString.h"
#include "jtcore/FeatureSettings/CapabilityId.h"
#include "jtcore/FeatureSettings/FeatureValue.h"
#include "jtcore/FeatureSettings/NestedAttrID.h"
#include "jtcore/Printer/PrinterTables.h"
#include "resources/ids.h"
#include "tests/expectFailure.h"
#include "tests/listBuilder.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <thread>
#include <vector>

namespace {

std::uint32_t numberOf(Feature feature) { return static_cast<std::uint32_t>(feature); }
std::uint32_t numberOf(ValueEnum value) { return static_cast<std::uint32_t>(value); }

// A text that no earlier test has made a value of.
std::u16string newText() {
    static int count = 0;
    return u"made by a test " + fromUtf8(std::to_string(++count));
}

} // namespace

TEST(FeatureTable, everyRowIsFoundByEachOfItsKeys) {
    EXPECT_EQ(FeatureDataBase::rows().size(), 106U);
    for (const FeatureInfo& row : FeatureDataBase::rows()) {
        SCOPED_TRACE(toUtf8(row.uniqueId()));
        EXPECT_EQ(FeatureDataBase::find(row.number), &row);
        EXPECT_EQ(FeatureDataBase::find(row.uniqueId()), &row);
        EXPECT_EQ(FeatureDataBase::findByAbbreviation(row.abbreviation), &row);
        EXPECT_EQ(row.nestedId().getUniqueId(), row.uniqueId());
        EXPECT_EQ(row.nestedId().getName(), row.path.leaf);
        EXPECT_EQ(row.nestedId().getPathLength(), row.path.steps.size());
        EXPECT_TRUE(FeatureId(row.number) == FeatureId::fromAbbreviation(row.abbreviation));
    }
}

TEST(FeatureTable, knowsNothingThatIsOnlyNearAKey) {
    for (const std::uint32_t number : {0U, 1U, 108U, 1000U, 0xFFFFFFFFU})
        EXPECT_FALSE(FeatureDataBase::isFeature(Feature{number})) << number;
    for (const char16_t* id : {u"", u"copie", u"copies ", u"Copies", u"value", u"collection"})
        EXPECT_FALSE(FeatureDataBase::isFeature(id)) << toUtf8(id);
    for (const char16_t* text : {u"", u"C", u"abc", u"a ", u"1", u"\u0141", u"a\u0131"})
        EXPECT_FALSE(FeatureDataBase::isFeatureAbbreviation(text)) << toUtf8(text);
}

TEST(FeatureTable, tellsWhereAnAttributeStands) {
    struct Case {
        Feature feature;
        const char16_t *leaf, *unique, *outermost;
        bool isSetMember;
        Feature parent;
    };
    const Case cases[] = {
        {Feature::copies, u"copies", u"copies", u"copies", false, noParentFeature},
        {Feature::pageRanges, u"value", u"page-ranges", u"page-ranges", true, noParentFeature},
        {Feature::saveDisposition, u"save-disposition", u"save-disposition", u"job-save-disposition", false,
         Feature::jobSaveDisposition},
        {Feature::saveDocumentFormat, u"save-document-format", u"save-document-format", u"job-save-disposition", false,
         Feature::saveInfo},
        {Feature::saveInfo, u"value", u"save-info", u"job-save-disposition", true, Feature::jobSaveDisposition},
        {Feature::xDimension, u"x-dimension", u"x-dimension", u"media-col", false, Feature::mediaSize},
        {Feature::mediaSize, u"media-size", u"media-size", u"media-col", false, Feature::mediaCol},
        {Feature::finishings, u"value", u"finishings", u"finishings", true, noParentFeature},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(toUtf8(c.unique));
        const FeatureId id(c.feature);
        EXPECT_EQ(id.getAttrName(), c.leaf);
        EXPECT_EQ(id.getUniqueId(), c.unique);
        EXPECT_EQ(id.getNestedId().getOutermostId(), c.outermost);
        EXPECT_EQ(id.is1setOfMember(), c.isSetMember);
        Feature parent = noParentFeature;
        EXPECT_EQ(id.getParentFeature(parent), c.parent != noParentFeature);
        EXPECT_EQ(parent, c.parent);
    }
}

TEST(FeatureTable, aUsersOwnValueNeedsANameOrAUri) {
    std::set<Feature> definable;
    for (const FeatureInfo& row : FeatureDataBase::rows())
        if (FeatureId(row.number).isUserDefinable()) definable.insert(row.number);
    EXPECT_TRUE(definable.contains(Feature::media));
    EXPECT_TRUE(definable.contains(Feature::saveLocation));
    EXPECT_FALSE(definable.contains(Feature::sides));
    EXPECT_FALSE(definable.contains(Feature::jobSheetMessage)) << "a text is no user-defined value";
    EXPECT_EQ(FeatureId(Feature::media).getUserDefinedSyntaxName(), u"name");
    EXPECT_EQ(FeatureId(Feature::saveLocation).getUserDefinedSyntaxName(), u"uri");
    EXPECT_EQ(FeatureId(Feature::media).getSyntaxName(0), u"keyword") << "the syntax of a new value";
}

TEST(NestedAttrID, startsAtTopLevelAndIsNamedByItsMarkedStep) {
    EXPECT_EQ(NestedAttrID().getName(), u"NAID_TEMPORARY");
    NestedAttrID id(u"value");
    EXPECT_TRUE(id.isTopLevel());
    EXPECT_EQ(id.getUniqueId(), u"value");
    id.addPathEntry(u"outer", u"collection", StepKind::feature);
    id.addPathEntry(u"inner", u"1setOf", StepKind::plain);
    EXPECT_FALSE(id.isTopLevel());
    EXPECT_EQ(id.getUniqueId(), u"outer");
    EXPECT_EQ(id.getPathEntryId(0), u"inner") << "0 is the innermost";
    EXPECT_EQ(id.getPathEntrySyntax(1), u"collection");
    EXPECT_TRUE(id.hasPathEntry(u"outer"));
    EXPECT_FALSE(id.hasPathEntry(u"value"));
    EXPECT_FALSE(id == NestedAttrID(u"value"));
    EXPECT_EQ(errorCodeOf([&] { id.getPathEntryId(2); }), "019:000");
}

TEST(NestedAttrID, findsWithoutTouchingMakesOnceAndTakesEmptyListsAway) {
    const NestedAttrID& id = FeatureId(Feature::saveName).getNestedId();
    AttrNodeList job = list().integer(u"copies", 2);
    EXPECT_EQ(id.findList(job), nullptr);
    EXPECT_EQ(show(job), "copies=2");

    AttrNodeList& made = id.makeList(job);
    EXPECT_EQ(show(job), "copies=2 job-save-disposition=collection[save-info=1setOf[value=collection[]]]");
    EXPECT_EQ(&id.makeList(job), &made);
    EXPECT_EQ(id.findList(job), &made);

    made.setNode(u"save-name", IppName(u"n"));
    id.removeEmptyLists(job);
    EXPECT_EQ(id.findList(job), &made) << "a list with a member stays";
    made.clear();
    job.getNode(u"job-save-disposition")->getAttrValue().asList()->getList().setNode(u"other", IppName(u"o"));
    id.removeEmptyLists(job);
    EXPECT_EQ(show(job), "copies=2 job-save-disposition=collection[other=name:o]");
    id.removeEmptyLists(job);
    EXPECT_EQ(show(job), "copies=2 job-save-disposition=collection[other=name:o]") << "stops where a step is missing";
}

TEST(NestedAttrID, theOccurrenceCountsTheInnermostLists) {
    NestedAttrID id(u"value");
    id.addPathEntry(u"outer", u"collection", StepKind::plain);
    id.addPathEntry(u"inner", u"1setOf", StepKind::plain);
    AttrNodeList root = list().collection(u"outer", list().set(u"inner", list().integer(u"value", 1)));
    EXPECT_EQ(id.findList(root, 1), nullptr);
    id.makeList(root, 1).addNode(u"value", std::make_unique<IppInteger>(2));
    EXPECT_EQ(show(root), "outer=collection[inner=1setOf[value=1] inner=1setOf[value=2]]");
    EXPECT_EQ(show(*id.findList(root, 1)), "value=2");

    AttrNodeList plain = list().integer(u"outer", 1);
    EXPECT_EQ(errorCodeOf([&] { id.findList(plain); }), "009:000") << "a number stands where a list should";
}

TEST(ValueTable, everyRowIsFoundByEachOfItsKeys) {
    std::size_t abbreviations = 0;
    for (const FeatureValueInfo& row : FeatureValueDataBase::fixedRows()) {
        SCOPED_TRACE(toUtf8(row.text) + " " + std::to_string(numberOf(row.number)));
        EXPECT_EQ(FeatureValueDataBase::find(row.number), &row);
        if (!row.abbreviation.empty()) {
            ++abbreviations;
            EXPECT_EQ(FeatureValueDataBase::findByAbbreviation(row.abbreviation), &row);
        }
        for (const Feature feature : row.features) {
            EXPECT_EQ(FeatureValueDataBase::find(feature, row.text), &row);
            EXPECT_TRUE(feature == Feature::any || FeatureDataBase::isFeature(feature)) << numberOf(feature);
        }
    }
    EXPECT_EQ(FeatureValueDataBase::fixedRows().size(), 515U);
    EXPECT_EQ(abbreviations, 482U);
    EXPECT_FALSE(FeatureValueDataBase::isAbbreviation(u""));
    EXPECT_FALSE(FeatureValueDataBase::isValue(Value{140}));
    EXPECT_FALSE(FeatureValueDataBase::isValue(Value{0}));
}

TEST(ValueTable, everyRowHasASyntaxOfItsFeatures) {
    for (const FeatureValueInfo& row : FeatureValueDataBase::fixedRows()) {
        EXPECT_EQ(row.syntax.type, syntaxTypeOf(row.syntax.name));
        for (const Feature feature : row.features) {
            // A description is always a name; it shares the keywords of the media for their labels.
            if (feature == Feature::any || feature == Feature::mediaDescription) continue;
            EXPECT_TRUE(FeatureId(feature).hasSyntax(row.syntax.type))
                << toUtf8(row.text) << " of " << toUtf8(FeatureDataBase::describe(feature));
        }
    }
}

TEST(ValueTable, labelsAndPicturesHaveIdsOfTheirOwn) {
    std::set<std::uint16_t> labels;
    std::set<std::uint16_t> pictures;
    for (const FeatureValueInfo& row : FeatureValueDataBase::fixedRows()) {
        if (row.labelId != 0) {
            EXPECT_TRUE(labels.insert(row.labelId).second) << toUtf8(row.text);
            EXPECT_EQ(row.labelId, 20000U + numberOf(row.number));
        }
        if (row.bitmapId != 0) {
            EXPECT_TRUE(pictures.insert(row.bitmapId).second) << toUtf8(row.text);
        }
    }
    EXPECT_EQ(pictures.size(), 29U);
}

TEST(ValueTable, oneTextIsAnotherValueForAnotherFeature) {
    EXPECT_EQ(FeatureValue(Feature::impositionTemplate, u"none").getNumber(), Value::impositionTemplateNone);
    EXPECT_EQ(FeatureValue(Feature::saveDisposition, u"none").getNumber(), Value::saveDispositionNone);
    EXPECT_EQ(FeatureValue(Feature::media, u"iso-a4-white"), FeatureValue(Feature::mediaKey, u"iso-a4-white"));
    EXPECT_EQ(FeatureValueDataBase::find(Feature::any, u"")->number, Value::notSet);
    EXPECT_FALSE(FeatureValue::isKnown(Feature::copies, u"")) << "'not set' is known by no single feature";

    EXPECT_EQ(FeatureValue(Value::mediaTypeStationery).translateTo(Feature::media), Value::mediaStationery);
    EXPECT_EQ(FeatureValue(Value::oneSided).translateTo(Feature::media), Value::notSet);
    EXPECT_EQ(FeatureValue().translateTo(Feature::media), Value::notSet);
}

TEST(ValueTable, failuresTellWhatWasLookedFor) {
    using Unknown = UnknownFeatureRequestException;
    const struct {
        void (*lookUp)();
        const char* message;
    } cases[] = {
        {[] { FeatureDataBase::getFeatureInfo(Feature::any); },
         "FeatureDataBase::getFeatureInfo( FeatureEnum ) could not find requested FeatureEnum 1\r\n"},
        {[] { FeatureDataBase::getFeatureInfo(u"no-such"); },
         "FeatureDataBase::getFeatureInfo( UniqueID ) could not find requested ID 'no-such'\r\n"},
        {[] { FeatureDataBase::getFeatureInfoByAbbreviation(u"zz"); },
         "FeatureDataBase::getFeatureInfoByAbbreviation() could not find requested ID 'zz'\r\n"},
        {[] { FeatureValue(Value{140}).getValueText(); },
         "FeatureValueDataBase::getFeatureValueInfo( ValueEnum ) could not find requested ValueEnum 140\r\n"},
        {[] { FeatureValue(Feature::sides, u"three"); },
         "FeatureValueDataBase::getFeatureValueInfo( Feature, Value ) could not find requested value 'three' for "
         "feature '4' (sides).\r\n"},
        {[] { FeatureValue(Feature{500}, u"x"); },
         "FeatureValueDataBase::getFeatureValueInfo( Feature, Value ) could not find requested value 'x' for feature "
         "'500' (<unknown>!).\r\n"},
        {[] { FeatureValue::fromAbbreviation(u"ZZ"); },
         "FeatureValueDataBase::getFeatureValueInfoByAbbreviation() could not find requested value for abbreviation "
         "'ZZ'.\r\n"},
        {[] { CapabilityDataBase::getCapabilityInfo(Feature::copies, CapabilityType::isSupported); },
         "CapabilityDataBase::getCapabilityInfo( Feature, Capability type ) could not find requested capability type "
         "'2' for feature '2' (copies).\r\n"},
        {[] { CapabilityDataBase::getCapabilityInfo(Feature::any, CapabilityType::precision); },
         "CapabilityDataBase::getCapabilityInfo( Feature, Capability type ) could not find requested capability type "
         "'6' for feature '1' (<unknown>!).\r\n"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(messageOf<Unknown>(c.lookUp), c.message);
}

TEST(RunTimeValues, aUsersNameBecomesAValueOfAllRelatedFeatures) {
    const std::u16string text = newText();
    const FeatureValue made = FeatureValue::fromAttrValue(Feature::mediaKey, IppName(text));
    EXPECT_GE(numberOf(made.getNumber()), 517U);
    EXPECT_EQ(made.getValueText(), text);
    EXPECT_EQ(made.getDisplayString(), text);
    EXPECT_EQ(made.getSyntaxName(), u"name");
    EXPECT_EQ(made.getAbbreviation(), u"");
    EXPECT_EQ(FeatureValue::fromAttrValue(Feature::mediaKey, IppName(text)), made) << "read again";
    EXPECT_EQ(FeatureValue::fromString(Feature::media, text), made);
    EXPECT_EQ(made.translateTo(Feature::mediaDescription), made);
    EXPECT_FALSE(FeatureValue::isKnown(Feature::mediaColor, text));
    EXPECT_EQ(messageOf<DuplicateFeatureValueDBEntryException>(
                  [&] { FeatureValue::createNewValueEnum(Feature::mediaDescription, text, u"name"); }),
              "FeatureValue::createNewValueEnum(): duplicate FVDB entry for feature 83 and value '" + toUtf8(text) +
                  "'.\r\n");
}

TEST(RunTimeValues, aKeywordOfItsOwnIsNoUsersValue) {
    EXPECT_EQ(errorCodeOf([] { FeatureValue::fromAttrValue(Feature::media, IppKeyword(u"unheard-of")); }), "012:000");
    EXPECT_EQ(errorCodeOf([] { FeatureValue::fromAttrValue(Feature::sides, IppName(u"unheard-of")); }), "012:000");
    EXPECT_EQ(errorCodeOf([] { FeatureValue::fromString(Feature::sides, u"unheard-of"); }), "012:000");
    EXPECT_EQ(FeatureValue::fromAttrValue(Feature::sides, IppName(u"one-sided")), Value::oneSided);
}

TEST(RunTimeValues, aValueMadeByTheProgramKeepsWhatItWasGiven) {
    const ValueEnum made =
        FeatureValue::createNewValueEnum(Feature::finishingTemplate, newText(), u"name", AVTE{}, 10603, 77);
    EXPECT_EQ(FeatureValue(made).getSyntax(), AVTE::name) << "found from the syntax name";
    EXPECT_EQ(FeatureValue(made).getLabelId(), 10603);
    EXPECT_EQ(FeatureValue(made).getBitmapId(), 77);
    EXPECT_EQ(errorCodeOf([] { FeatureValue::createNewValueEnum(Feature::any, newText(), u"name"); }), "012:000");
}

TEST(RunTimeValues, aRowIsRefusedWhenOneOfItsKeysIsTakenAndLeavesNothingBehind) {
    const std::u16string text = newText();
    const struct {
        const char* name;
        FeatureValueInfo row;
    } cases[] = {
        {"number", {Value::oneSided, text, u"", syntax::name, 0, 0, {Feature::mediaTooth}}},
        {"text of the second feature",
         {Value{900001}, u"glossy", u"", syntax::name, 0, 0, {Feature::mediaTooth, Feature::mediaFrontCoating}}},
        {"abbreviation", {Value{900002}, text, u"aa", syntax::name, 0, 0, {Feature::mediaTooth}}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(errorCodeOf([&] { FeatureValueDataBase::addValue(c.row); }), "013:000");
        EXPECT_FALSE(FeatureValue::isKnown(Feature::mediaTooth, c.row.text));
    }
    FeatureValueDataBase::addValue({Value{900003}, text, u"ZY", syntax::name, 0, 0, {Feature::mediaTooth}});
    EXPECT_EQ(FeatureValue::fromAbbreviation(u"ZY").getNumber(), Value{900003});
    EXPECT_EQ(FeatureValue(Value{900003}).getValueText(), text);
}

TEST(RunTimeValues, sortBehindTheFixedOnesByWhatTheUserReads) {
    const FeatureValue later = FeatureValue::fromString(Feature::mediaGrain, u"b of sorting");
    const FeatureValue sooner = FeatureValue::fromString(Feature::mediaGrain, u"a of sorting");
    std::vector<FeatureValue> values = {later, sooner, Value::xGrain, Value::notSet, Value::yGrain};
    std::sort(values.begin(), values.end());
    EXPECT_EQ(values, (std::vector<FeatureValue>{Value::notSet, Value::yGrain, Value::xGrain, sooner, later}));
}

TEST(RunTimeValues, threadsThatReadTheSameNewTextsGetTheSameValues) {
    constexpr std::size_t threadCount = 4;
    constexpr std::size_t textCount = 200;
    const std::u16string common = newText() + u" common ";
    std::array<std::vector<FeatureValue>, threadCount> seen;
    std::vector<std::thread> threads;
    for (std::vector<FeatureValue>& mine : seen)
        threads.emplace_back([&mine, &common] {
            for (std::size_t i = 0; i < textCount; ++i) {
                const std::u16string text = common + fromUtf8(std::to_string(i));
                mine.push_back(FeatureValue::fromString(Feature::mediaColor, text));
                EXPECT_EQ(FeatureValue(Feature::mediaColor, text), mine.back());
                EXPECT_EQ(mine.back().getValueText(), text);
                EXPECT_TRUE(FeatureValue::isKnown(Feature::mediaColor, u"white"));
            }
        });
    for (std::thread& thread : threads)
        thread.join();
    for (const auto& other : seen)
        EXPECT_EQ(other, seen[0]);
}

// The last one here: it fills the table.
TEST(RunTimeValues, whatDocumentsCanAddIsBounded) {
    const std::u16string tooLong(FeatureValueDataBase::maximumTextLength + 1, u'x');
    EXPECT_EQ(errorCodeOf([&] { FeatureValue::fromString(Feature::mediaType, tooLong); }), "012:000");
    EXPECT_TRUE(FeatureValue::fromString(Feature::mediaType, tooLong.substr(1)).isSet());

    std::size_t made = 0;
    while (errorCodeOf([] { FeatureValue::fromString(Feature::mediaType, newText()); }).empty())
        ASSERT_LE(++made, FeatureValueDataBase::maximumRunTimeRows);
    EXPECT_FALSE(FeatureValue::fromString(Feature::mediaType, tooLong.substr(1)).getValueText().empty())
        << "what is there stays";
    EXPECT_TRUE(FeatureValue::isKnown(Feature::mediaType, u"stationery"));
}

TEST(CapabilityTable, everyRowIsFoundAndIsNamedLikeItsFeature) {
    EXPECT_EQ(CapabilityDataBase::rows().size(), 146U);
    for (const CapabilityInfo& row : CapabilityDataBase::rows()) {
        const std::string id = toUtf8(row.nestedId().getOutermostId());
        SCOPED_TRACE(id);
        EXPECT_EQ(CapabilityDataBase::find(row.feature, row.type), &row);
        EXPECT_TRUE(row.feature == Feature::any || FeatureDataBase::isFeature(row.feature));
        for (std::size_t i = 0; i < row.nestedId().getPathLength(); ++i)
            EXPECT_TRUE(row.nestedId().getPathEntrySyntax(i) == syntax1setOf ||
                        row.nestedId().getPathEntrySyntax(i) == syntaxCollection);
        // The accounting features share one statement, and a size is told of both its edges at once.
        const std::string feature(toUtf8(FeatureDataBase::describe(row.feature)));
        const bool isShared =
            row.feature == Feature::any || id == "job-account-chars-restricted" || id == "media-size-supported";
        EXPECT_TRUE(isShared || id.starts_with(feature + "-")) << feature;
    }
}

TEST(CapabilityTable, listsTheTypesOfAFeatureInTheirOrder) {
    const auto typesOf = [](Feature feature, auto... category) {
        const CapabilityTypeList types = CapabilityId::getCapabilityTypes(feature, category...);
        return std::vector<CapabilityType>(types.begin(), types.end());
    };
    using Types = std::vector<CapabilityType>;
    EXPECT_EQ(typesOf(Feature::pageRanges), (Types{CapabilityType::intRange, CapabilityType::isSupported}));
    EXPECT_EQ(typesOf(Feature::pageRanges, CapabilityCategory::extension), Types{CapabilityType::intRange});
    EXPECT_EQ(typesOf(Feature::mediaSize), Types{});
    EXPECT_EQ(typesOf(Feature{5000}), Types{});
    EXPECT_EQ(CapabilityId(Feature::copies, CapabilityType::intRange).getAttrName(), u"copies-supported");
    EXPECT_EQ(CapabilityId(Feature::jobAccountId, CapabilityType::charRestriction).getNestedId(),
              CapabilityId(Feature::jobAccountingData, CapabilityType::charRestriction).getNestedId());
    EXPECT_FALSE(CapabilityId(Feature::copies, CapabilityType::intRange) == FeatureId(Feature::copies));
    EXPECT_FALSE(CapabilityId(Feature::copies, CapabilityType::intRange) ==
                 CapabilityId(Feature::copies, CapabilityType::isSupported));
    EXPECT_EQ(describe(CapabilityCategory{7}), u"[UNKNOWN!]");
}

TEST(PrinterTables, everyModelHasADriverForEachLanguageButForTwo) {
    std::map<std::int32_t, std::multiset<PrinterLanguage>> languages;
    for (const PrinterDriverInfo& row : printerDrivers()) {
        languages[row.model].insert(row.language);
        EXPECT_EQ(findPrinterDriver(row.name), &row);
        EXPECT_EQ(row.name.find(u"PCL5") != row.name.npos, row.language == PrinterLanguage::pcl) << toUtf8(row.name);
        EXPECT_EQ(row.name.find(u"PS3") != row.name.npos, row.language == PrinterLanguage::postScript);
    }
    std::size_t both = 0;
    std::size_t postScriptOnly = 0;
    for (const auto& [model, spoken] : languages) {
        EXPECT_NE(findPrinterModel(model), nullptr) << model;
        both += spoken == std::multiset{PrinterLanguage::postScript, PrinterLanguage::pcl};
        postScriptOnly += spoken == std::multiset{PrinterLanguage::postScript};
    }
    EXPECT_EQ(both, 43U);
    EXPECT_EQ(postScriptOnly, 1U);
    EXPECT_FALSE(languages.contains(genericPrinterModel));
    EXPECT_EQ(findPrinterDriver(u"kolma Tarsel 77 PCL5e"), nullptr) << "names have a case";
}

TEST(PrinterTables, limitsAreRangesThatHoldSomething) {
    for (const PrinterFamilyInfo& row : printerFamilies()) {
        SCOPED_TRACE(row.family);
        EXPECT_LT(row.mediaSizeXLower, row.mediaSizeXUpper);
        EXPECT_LT(row.mediaSizeYLower, row.mediaSizeYUpper);
        EXPECT_LT(row.accountMinimum, row.accountLimit);
        EXPECT_GE(row.pageLimit, 9999);
        EXPECT_TRUE(std::any_of(printerModels().begin(), printerModels().end(),
                                [&](const PrinterModelInfo& model) { return model.family == row.family; }));
    }
}
