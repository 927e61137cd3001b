#include "tests/checkedJobs.h"

namespace {

ListBuilder override(const ListBuilder& members) {
    return list().set(u"page-overrides", list().collection(u"value", members));
}

const ListBuilder overrides =
    list().set(u"page-overrides-supported", keywords({u"input-documents", u"pages", u"sides", u"media-col",
                                                      u"media-size", u"media-type", u"media-weight-metric"}));

} // namespace

TEST(Validation, anAttributeIsHeldAgainstItsLevel) {
    check({
        {"an empty job", list(), list(), ""},
        {"a list that the job may not have", list(), list().collection(u"trapping-col", list()),
         "UnsupportedAttribute trapping-col"},
        {"and what is inside is not looked at", list(),
         list().collection(u"cover-back", list().keyword(u"sides", u"x")), "UnsupportedAttribute cover-back"},
        {"a single value without a statement", list(), list().keyword(u"trapping", u"x"),
         "UnsupportedAttribute trapping"},
        {"an attribute of no feature that the level allows", list(), list().keyword(u"unheard-of", u"x"), ""},
        {"one of a value list that the printer does not tell", list(), list().keyword(u"halftone-graphics", u"none"),
         "UnsupportedValue halftone-graphics"},
        {"and the same where the user may write his own",
         list().set(u"user-defined-values-supported", keywords({u"halftone-graphics"})),
         list().keyword(u"halftone-graphics", u"x"), ""},
        {"one of no value list", list(), list().name(u"job-name", u"x"), ""},
        {"a statement allows what no list names", list().range(u"insert-count-supported", 1, 9),
         list().integer(u"insert-count", 2), ""},
        {"a private attribute is nobody's business", list(),
         list().keyword(u"trapping", u"x").hidden().collection(u"media-col", list().keyword(u"y", u"z").hidden()), ""},
        {"a range is a list that the level must allow", list(), list().range(u"pages-range", 1, 2),
         "UnsupportedAttribute pages-range"},
        {"a resolution too", list().set(u"job-creation-attributes-supported", list()), // merged: stays allowed
         list().resolution(u"printer-resolution", 600, 600, 3), "UnsupportedValue printer-resolution"},
    });
}

TEST(Validation, aLevelInsideAListIsJudgedByTheOutermostListOfMembers) {
    const ListBuilder trc = list().set(u"trc-supported", keywords({u"trc-name"}));
    const ListBuilder covers = list()
                                   .set(u"cover-front-supported", keywords({u"sides", u"media-col"}))
                                   .set(u"media-col-supported", keywords({u"media-size", u"odd"}));
    check({
        {"a member", trc, list().collection(u"trc", list().name(u"trc-name", u"x")), "UnsupportedValue trc/trc-name"},
        {"no member", trc, list().collection(u"trc", list().name(u"trc-other", u"x")),
         "UnsupportedAttribute trc/trc-other"},
        {"without a list the job's decides", list(),
         list().collection(u"trc", list().integer(u"unheard-of", 1).integer(u"odd", 1)),
         "UnsupportedAttribute trc/odd"},
        {"the outermost list decides, though the inner one says yes", covers,
         list().collection(u"cover-front", list().collection(u"media-col", list().keyword(u"odd", u"x"))),
         "UnsupportedAttribute cover-front/media-col/odd"},
        {"and an inner list says yes where it is the outermost", covers,
         list().collection(u"media-col", list().keyword(u"odd", u"x")), ""},
        {"an element of a set goes by the name of the set", list(),
         list().set(u"unheard-of", list().integer(u"value", 1)), ""},
        {"a collection that the user may define passes whole",
         list().set(u"user-defined-values-supported", keywords({u"media-col"})),
         list().collection(u"media-col", list().keyword(u"rubbish", u"x")), ""},
    });
}

TEST(Validation, aFeatureThatALevelNeedsIsMissedThereOnce) {
    const ListBuilder media = list()
                                  .set(u"media-col-supported", keywords({u"media-color", u"media", u"media-key"}))
                                  .set(u"media-color-supported", keywords({u"white"}));
    ListBuilder needed = media;
    needed.set(u"cover-front-supported", keywords({u"cover-type", u"media-col", u"sides"}))
        .set(u"cover-type-supported", keywords({u"print-none"}))
        .set(u"input-documents-supported", list().range(u"value", 1, 1));
    ListBuilder pages = needed;
    pages.set(u"page-overrides-supported", keywords({u"input-documents", u"pages", u"sides", u"media-col"}))
        .boolean(u"pages-supported", true)
        .set(u"sides-supported", keywords({u"one-sided"}));
    const ListBuilder documents = list().set(u"input-documents", range(1, 1));
    struct NeedRow {
        const char* what;
        TicketForm form;
        AttrNodeList job;
        const char* problems;
    };
    for (const NeedRow& row : std::initializer_list<NeedRow>{
             {"a cover's own", TicketForm::current, list().collection(u"cover-front", list()),
              "MissingFeature cover-type in cover-front/"},
             {"and nothing of the stock in today's form", TicketForm::current,
              list().collection(u"cover-front",
                                list().keyword(u"cover-type", u"print-none").collection(u"media-col", list())),
              ""},
             {"in the older form a stock inside an entry is told in full", TicketForm::rendo2x,
              list()
                  .name(u"job-name", u"x")
                  .collection(u"cover-front",
                              list().keyword(u"cover-type", u"print-none").collection(u"media-col", list())),
              "MissingFeature media-color in cover-front/media-col/"},
             {"at the top of a job in the older form", TicketForm::rendo2x, list().collection(u"media-col", list()),
              "MissingFeature job-name in "},
             {"each entry, and not the set", TicketForm::current,
              list().set(u"page-overrides", list()
                                                .collection(u"value", ListBuilder(documents))
                                                .collection(u"value", list().set(u"pages", range(1, 2)))),
              "MissingFeature pages in page-overrides/value/; "
              "MissingFeature input-documents in page-overrides/value/"},
             {"the same feature at the top of the job helps no entry", TicketForm::current,
              ListBuilder(documents).set(u"page-overrides",
                                         list().collection(u"value", list().set(u"pages", range(1, 2)))),
              "UnsupportedAttribute input-documents; MissingFeature input-documents in page-overrides/value/"},
             {"a required member is marked", TicketForm::current,
              override(ListBuilder(documents).set(u"pages", range(0, 2))),
              "FailedRange page-overrides/value/pages/value! [1,99999]"},
         }) {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(problemsOf(row.job, pages, 1, row.form), row.problems);
    }
}

TEST(Validation, anEntryIsASmallJobOfItsOwn) {
    ListBuilder capabilities = overrides;
    capabilities.set(u"sides-supported", keywords({u"one-sided"}))
        .set(u"media-col-supported", keywords({u"media-type"}))
        .set(u"user-defined-values-supported", keywords({u"media-type"}))
        .boolean(u"pages-supported", true);
    const std::u16string tooLong(31, u'x');
    const auto type = [](std::u16string text) {
        return list().collection(u"media-col", list().name(u"media-type", text));
    };
    ListBuilder job = type(tooLong);
    job.set(u"page-overrides",
            list().collection(
                u"value", ListBuilder(type(u"short")).set(u"pages", range(1, 1)).set(u"input-documents", range(1, 1))));
    EXPECT_EQ(problemsOf(job, capabilities), "FailedRange media-col/media-type [0,30]")
        << "the limit is read from the entry's own stock";

    FeatureSettings settings{AttrNodeList(list().set(
        u"page-overrides",
        list().collection(
            u"value",
            list().set(u"pages", range(3, 5)).set(u"input-documents", range(1, 1)).keyword(u"sides", u"x"))))};
    AttrNodeList all = list().set(u"job-creation-attributes-supported", jobAttributes());
    all.mergeList(capabilities);
    SettingsProblemList problems;
    Capabilities(modelOfFamily(1), TicketForm::current, ListCapabilities(all)).validateSettings(settings, problems);
    ASSERT_EQ(show(problems), "UnsupportedValue page-overrides/value/sides");
    std::size_t position = 0;
    const SettingsProblem& problem = problems.getNextSettingsProblem(position);
    EXPECT_EQ(problem.getLocation().getNestedFeature(), Feature::pageOverrides);
    std::int32_t first = 0;
    std::int32_t last = 0;
    EXPECT_EQ(problem.getContext(first, last), ProblemContext::exception);
    EXPECT_EQ(first, 3);
    EXPECT_EQ(last, 5);
}

TEST(Validation, theInsideOfACollectionIsCheckedByTheCollectionsMembers) {
    AttrNodeList all = list()
                           .set(u"job-creation-attributes-supported", keywords({u"copies", u"media-col"}))
                           .set(u"cover-front-supported", keywords({u"cover-type", u"media-col"}));
    const Capabilities printer(modelOfFamily(14), TicketForm::current, ListCapabilities(all));
    FeatureSettings settings;
    const std::vector<FeatureId> none;
    SettingsProblemList problems;
    EXPECT_FALSE(printer.validateSettings(settings, problems));
    EXPECT_FALSE(printer.validateSettings(settings, problems, Feature::coverFront));
    EXPECT_EQ(show(problems), "MissingFeature copies in ; MissingFeature cover-type in ");
    problems.clear();
    EXPECT_TRUE(printer.validateSettings(settings, problems, noParentFeature, &none));
    EXPECT_TRUE(printer.validateStock(settings, problems, Feature::coverFront)) << "a stock has no cover type";
}

TEST(Validation, thePrintersStartingSettingsAreWithinItsCapabilities) {
    for (const PrinterFamilyInfo& family : printerFamilies())
        for (const TicketForm form : {TicketForm::current, TicketForm::rendo2x}) {
            const FactoryPrinter printer(family.family, form);
            FeatureSettings settings(printer.start());
            SettingsProblemList problems;
            EXPECT_TRUE(printer.capabilities.validateSettings(settings, problems))
                << "family " << family.family << ": " << show(problems);
        }
}
