#include "tests/checkedJobs.h"

namespace {

ListBuilder sizes(std::int32_t x, std::int32_t y) {
    return list().integer(u"x-dimension", x).integer(u"y-dimension", y);
}

ListBuilder mediaSize(const ListBuilder& size) {
    return list().collection(u"media-col", list().collection(u"media-size", size));
}

} // namespace

TEST(Validation, aValueIsHeldAgainstTheValuesThatThePrinterNames) {
    const ListBuilder copies = list().range(u"copies-supported", 1, 10);
    const auto sides = [](const ListBuilder& values) { return list().set(u"sides-supported", values); };
    const ListBuilder badRange =
        list().inner(u"copies-supported", u"rangeOfInteger", list().keyword(u"lower-bound", u"x"));
    check({
        {"a number at the lower end", copies, list().integer(u"copies", 1), ""},
        {"a number at the upper end", copies, list().integer(u"copies", 10), ""},
        {"a number below", copies, list().integer(u"copies", 0), "UnsupportedValue copies"},
        {"a number above", copies, list().integer(u"copies", 11), "UnsupportedValue copies"},
        {"an enum is no number of a range", copies, list().enumeration(u"copies", 11), ""},
        {"a range of unreadable bounds holds nothing against a value", badRange, list().integer(u"copies", 11), ""},
        {"several ranges", list().set(u"copies-supported", list().range(u"value", 1, 2).range(u"value", 8, 9)),
         list().integer(u"copies", 8), ""},
        {"between them", list().set(u"copies-supported", list().range(u"value", 1, 2).range(u"value", 8, 9)),
         list().integer(u"copies", 5), "UnsupportedValue copies"},
        {"a keyword of the list", sides(keywords({u"a", u"b"})), list().keyword(u"sides", u"b"), ""},
        {"a keyword that differs in case", sides(keywords({u"a", u"b"})), list().keyword(u"sides", u"B"),
         "UnsupportedValue sides"},
        {"a name equal to a keyword", sides(keywords({u"a"})), list().name(u"sides", u"a"), ""},
        {"a keyword equal to a name", sides(list().name(u"value", u"a")), list().keyword(u"sides", u"a"), ""},
        {"another name", sides(keywords({u"a"})), list().name(u"sides", u"c"), "UnsupportedValue sides"},
        {"a name where the user may write his own",
         ListBuilder(sides(keywords({u"a"}))).set(u"user-defined-values-supported", keywords({u"sides"})),
         list().name(u"sides", u"c"), ""},
        {"and a keyword never",
         ListBuilder(sides(keywords({u"a"}))).set(u"user-defined-values-supported", keywords({u"sides"})),
         list().keyword(u"sides", u"c"), "UnsupportedValue sides"},
        {"an empty list allows nothing", sides(list()), list().keyword(u"sides", u"a"), "UnsupportedValue sides"},
        {"private values do not count", sides(list().keyword(u"value", u"a").hidden()), list().keyword(u"sides", u"a"),
         "UnsupportedValue sides"},
        {"true allows any name", list().boolean(u"job-name-supported", true), list().name(u"job-name", u"a"), ""},
        {"false allows none", list().boolean(u"job-name-supported", false), list().name(u"job-name", u"a"),
         "UnsupportedValue job-name"},
        {"other mismatches are not held against it", sides(list().integer(u"value", 3)), list().keyword(u"sides", u"a"),
         ""},
        {"a value of no known syntax is nothing", sides(keywords({u"a"})), list().value(u"sides", u"octet", u"a"),
         "UnsupportedValue sides"},
        {"and allows everything", sides(list().value(u"value", u"octet", u"")), list().keyword(u"sides", u"a"), ""},
        {"a range within", list().range(u"page-ranges-supported", 1, 9), list().set(u"page-ranges", range(1, 9)), ""},
        {"neither bound is reordered", list().range(u"page-ranges-supported", 1, 9),
         list().set(u"page-ranges", range(5, 2)), ""},
        {"a range beyond", list().range(u"page-ranges-supported", 1, 9), list().set(u"page-ranges", range(1, 10)),
         "UnsupportedValue page-ranges/value"},
        {"each element of a set", list().set(u"finishings-supported", list().enumeration(u"value", 3)),
         list().set(u"finishings", list().enumeration(u"value", 3).enumeration(u"value", 20)),
         "UnsupportedValue finishings/value"},
        {"a resolution of the list",
         list().set(u"printer-resolution-supported",
                    list().resolution(u"value", 300, 300, 3).resolution(u"value", 600, 600, 3)),
         list().resolution(u"printer-resolution", 600, 600, 3), ""},
        {"another resolution", list().set(u"printer-resolution-supported", list().resolution(u"value", 300, 300, 3)),
         list().resolution(u"printer-resolution", 300, 300, 4), "UnsupportedValue printer-resolution"},
    });
}

TEST(Validation, aSizeIsAllowedEitherWayRound) {
    const auto a4 = list().collection(u"value", sizes(21000, 29700));
    const auto ranges =
        list().collection(u"value", list().range(u"x-dimension", 10000, 30000).range(u"y-dimension", 10000, 45000));
    const ListBuilder custom = list().set(u"user-defined-values-supported", keywords({u"media-size"}));
    struct SizeRow {
        const char* what;
        ListBuilder supported;
        bool isCustom;
        ListBuilder size;
        bool isValid;
    };
    ListBuilder both = a4;
    both.collection(u"value", list().range(u"x-dimension", 40000, 50000).range(u"y-dimension", 40000, 50000));
    for (const SizeRow& row : std::initializer_list<SizeRow>{
             {"as named", a4, false, sizes(21000, 29700), true},
             {"rotated", a4, false, sizes(29700, 21000), true},
             {"another", a4, false, sizes(21000, 29800), false},
             {"no dimension", a4, false, list(), true},
             {"one dimension", a4, false, list().integer(u"x-dimension", 29700), true},
             {"one dimension of no size", a4, false, list().integer(u"x-dimension", 1), false},
             {"within a range", ranges, false, sizes(10000, 45000), true},
             {"rotated within a range", ranges, false, sizes(45000, 10000), true},
             {"outside a range", ranges, false, sizes(45000, 45000), false},
             {"custom without a range", a4, true, sizes(1, 1), true},
             {"custom within a range", ranges, true, sizes(20000, 20000), true},
             {"custom outside the range", both, true, sizes(20000, 20000), false},
             {"custom: a fixed size is not looked at", both, true, sizes(21000, 29700), false}}) {
        SCOPED_TRACE(row.what);
        // The first size is the model's, which is made room for: here one that nothing fits into.
        FeatureSettings settings{AttrNodeList(mediaSize(row.size))};
        AttrNodeList all = list()
                               .set(u"job-creation-attributes-supported", jobAttributes())
                               .set(u"media-col-supported", keywords({u"media-size"}))
                               .set(u"media-size-supported", row.supported);
        if (row.isCustom) all.mergeList(custom);
        Capabilities printer(modelOfFamily(1), TicketForm::current, ListCapabilities(all));
        const AttrNode* supported = printer.findSupported(u"media-size");
        const_cast<AttrNode*>(supported)->setAttrValue(std::make_unique<IppList>(row.supported, syntax1setOf));
        SettingsProblemList problems;
        EXPECT_EQ(printer.validateSettings(settings, problems), row.isValid);
        EXPECT_EQ(show(problems), row.isValid ? "" : "UnsupportedValue media-col/media-size");
    }
}

TEST(Validation, thePrintersOwnExtensionsSetLimits) {
    const auto mediaType = [](std::u16string text) {
        return list().collection(u"media-col", list().name(u"media-type", text));
    };
    const ListBuilder media = list()
                                  .set(u"media-col-supported", keywords({u"media-type"}))
                                  .set(u"user-defined-values-supported", keywords({u"media-type"}));
    const std::u16string longName(256, u'x');
    const std::vector<FeatureId> none; // one of the families wants nearly everything told: another test's matter
    struct ExtensionRow {
        const char* what;
        std::int32_t family;
        AttrNodeList capabilities;
        AttrNodeList job;
        const char* problems;
    };
    for (const ExtensionRow& row : std::initializer_list<ExtensionRow>{
             {"a name at its limit", 1, list(), list().name(u"job-name", longName.substr(1)), ""},
             {"a name beyond", 1, list(), list().name(u"job-name", longName), "FailedRange job-name [0,255]"},
             {"an account of no characters", 14, list(), list().name(u"job-account-id", u""), ""},
             {"an account too short", 14, list(), list().name(u"job-account-id", u"ab"),
              "FailedRange job-account-id [3,12]"},
             {"an account too long", 14, list(), list().name(u"job-account-id", longName),
              "FailedRange job-account-id [3,12]"},
             {"pages within", 1, list(), list().set(u"page-ranges", range(1, 99999)), ""},
             {"each bound alone", 1, list(), list().set(u"page-ranges", range(0, 100000)),
              "FailedRange page-ranges/value [1,99999]"},
             {"only the first range", 1, list(),
              list().set(u"page-ranges", list().range(u"value", 1, 2).range(u"value", 0, 9)), ""},
             {"a number", 1, list(), list().set(u"pages-per-subset", list().integer(u"value", 0)),
              "FailedRange pages-per-subset/value [1,99999]"},
             {"a number of another class cannot be judged", 1, list(),
              list().set(u"pages-per-subset", keywords({u"x"})), ""},
             {"spaces", 8, media, mediaType(u"my paper"), "EmbeddedSpaces media-col/media-type"},
             {"spaces where they are allowed", 1, media, mediaType(u"my paper"), ""},
             {"length and spaces", 8, media, mediaType(u"a paper that is much too long for it"),
              "FailedRange media-col/media-type [0,30]; EmbeddedSpaces media-col/media-type"},
         }) {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(problemsOf(row.job, row.capabilities, row.family, TicketForm::current, &none), row.problems);
    }
}
