#include "tests/expectFailure.h"
#include "tests/problemBuilder.h"

#include <gtest/gtest.h>

namespace {

ListBuilder entry(const ListBuilder& members) {
    return list().set(u"page-overrides", list().collection(u"value", members));
}

} // namespace

TEST(Problem, eachHasItsRepair) {
    using enum Kind;
    const auto number = [](std::int32_t value) { return list().integer(u"copies", value); };
    struct RepairRow {
        const char* what;
        Kind kind;
        AttrNodeList job;
        const char16_t* path;
        FixKind fix;
        AttrNodeList repaired;
    };
    for (const RepairRow& row : std::initializer_list<RepairRow>{
             {"an attribute goes", attribute, number(1), u"copies", FixKind::remove, list()},
             {"a required one too, where nothing encloses it", attribute, number(1), u"copies!",
              FixKind::removeEnclosing, list()},
             {"its optional entry goes with it", attribute, entry(number(1)), u"page-overrides/value/copies!",
              FixKind::removeEnclosing, list().set(u"page-overrides", list())},
             {"the innermost that is optional", attribute, entry(list().collection(u"media-col", number(1))),
              u"page-overrides/value/media-col!/copies!", FixKind::removeEnclosing,
              list().set(u"page-overrides", list())},
             {"a value at its place gets the default", value, list().keyword(u"sides", u"x"), u"sides",
              FixKind::replace, list().keyword(u"sides", u"one-sided")},
             {"one in an exception goes", value, entry(list().keyword(u"sides", u"x")), u"page-overrides/value/sides",
              FixKind::remove, entry(list())},
             {"a required one gets the default anywhere", value, entry(list().keyword(u"sides", u"x")),
              u"page-overrides/value/sides!", FixKind::replace, entry(list().keyword(u"sides", u"one-sided"))},
             {"a stock's too", value, entry(list().collection(u"media-col", list().name(u"media-type", u"x"))),
              u"page-overrides/value/media-col/media-type", FixKind::replace,
              entry(list().collection(u"media-col", list().keyword(u"media-type", u"stationery")))},
             {"one that has no default goes", value, number(1), u"copies", FixKind::remove, list()},
             {"one of no feature goes", value, list().keyword(u"odd", u"x"), u"odd", FixKind::remove, list()},
             {"an element of a set", value, list().set(u"finishings", list().enumeration(u"value", 20)),
              u"finishings/value", FixKind::replace, list().set(u"finishings", list().enumeration(u"value", 3))},
             {"a number below its limits", range, number(-7), u"copies", FixKind::replace, number(3)},
             {"a number above", range, number(13), u"copies", FixKind::replace, number(12)},
             {"both bounds", range, list().range(u"a", 1, 99), u"a", FixKind::replace, list().range(u"a", 3, 12)},
             {"bounds that cannot be read", range, list().inner(u"a", u"rangeOfInteger", list()), u"a", FixKind::remove,
              list()},
             {"a text too long", range, list().name(u"a", u"0123456789abcdef"), u"a", FixKind::replace,
              list().name(u"a", u"0123456789ab")},
             {"no half of a character stays", range, list().name(u"a", u"0123456789a\U0001F600"), u"a",
              FixKind::replace, list().name(u"a", u"0123456789a")},
             {"a text too short", range, list().name(u"a", u"01"), u"a", FixKind::remove, list()},
             {"a value without an order", range, list().boolean(u"a", true), u"a", FixKind::remove, list()},
             {"spaces", spaces, list().name(u"a", u" a b "), u"a", FixKind::replace, list().name(u"a", u"_a_b_")},
             {"spaces in no text", spaces, number(1), u"copies", FixKind::remove, list()}}) {
        SCOPED_TRACE(row.what);
        AttrNodeList job = row.job;
        const auto problem = makeProblem(row.kind, locate(job, row.path));
        const AttrNode* node = problem->getNode();
        const auto same = problem->clone();
        EXPECT_TRUE(problem->equals(*same));
        EXPECT_EQ(same->getNode(), node);
        const Fix fix = problem->getFix(defaults());
        EXPECT_EQ(fix.kind, row.fix);
        EXPECT_EQ(fix.node, node);
        EXPECT_EQ(fix.replacement != nullptr, row.fix == FixKind::replace);
        EXPECT_EQ(job, row.job) << "what it would do is told without doing it";
        problem->fix(defaults());
        EXPECT_EQ(job, row.repaired);
        const auto& removed = problem->getRemovedNodes();
        EXPECT_EQ(std::find(removed.begin(), removed.end(), node) != removed.end(), row.fix != FixKind::replace);
    }
}

TEST(Problem, aMissingFeatureComesFromTheDefaultsOrItsEntryGoes) {
    AttrNodeList job = entry(list().keyword(u"sides", u"x"));
    AttrNode* overrides = job.getNode(u"page-overrides");
    AttrNode* first = overrides->getAttrValue().asList()->getList().getNode(u"value");
    AttrLocation inside = locate(job, u"page-overrides/value");
    inside.descend();
    inside.setNestedFeature(first, Feature::pageOverrides);

    MissingFeatureProblem type(inside, Feature::mediaType);
    EXPECT_EQ(type.getFix(defaults()).kind, FixKind::add);
    EXPECT_EQ(type.getFix(defaults()).node, nullptr);
    type.fix(defaults());
    EXPECT_EQ(
        job,
        AttrNodeList(entry(
            list().keyword(u"sides", u"x").collection(u"media-col", list().keyword(u"media-type", u"stationery")))));
    MissingFeatureProblem pages(inside, Feature::pages);
    EXPECT_FALSE(pages.equals(type));
    EXPECT_EQ(pages.getFix(defaults()).kind, FixKind::removeEnclosing);
    pages.fix(defaults());
    EXPECT_EQ(job, AttrNodeList(list().set(u"page-overrides", list())));

    MissingFeatureProblem atTop(AttrLocation(&job), Feature::copies);
    atTop.fix(defaults());
    EXPECT_EQ(job, AttrNodeList(list().set(u"page-overrides", list()))) << "nothing encloses it";
}

TEST(Problem, aLocationGoesOnToTheFeaturesOwnAttribute) {
    AttrNodeList job = list().set(u"pages", range(1, 2)).integer(u"copies", 1);
    AttrLocation location = locate(job, u"pages!");
    location.retarget(FeatureId(Feature::pages).getNestedId());
    EXPECT_EQ(location, locate(job, u"pages!/value!"));
    EXPECT_EQ(location.getAttrName(), u"pages");
    AttrLocation elsewhere = locate(job, u"copies");
    elsewhere.retarget(FeatureId(Feature::pages).getNestedId());
    EXPECT_EQ(elsewhere, locate(job, u"copies"));
}

TEST(Problem, valuesAreShownAsAUserReadsThem) {
    struct ValueRow {
        AttrNodeList node;
        const char16_t* words;
    };
    for (const ValueRow& row : std::initializer_list<ValueRow>{
             {list().keyword(u"sides", u"one-sided"), u"One-sided"},
             {list().keyword(u"sides", u"odd"), u"'odd'"},
             {list().integer(u"copies", 7), u"'7'"},
             {list().name(u"sides", u"one-sided"), u"'one-sided'"},
             {list().range(u"pages", 2, -1), u"(2--1)"},
             {list().resolution(u"printer-resolution", 600, 300, 3), u"(600 x 300, 3)"},
             {list().collection(u"media-size", list().integer(u"x-dimension", 21150).integer(u"y-dimension", 29850)),
              u"(211 x 298)"},
             {list().collection(u"media-size", list().integer(u"y-dimension", 21000).integer(u"x-dimension", 29700)),
              u"A4 (210 x 297 mm)"},
             {list().collection(u"media-size", list().integer(u"x-dimension", 1)), u""},
             {list().set(u"sides", list()), u""},
             {list().inner(u"pages", u"rangeOfInteger", list()), u""}}) {
        AttrNodeList job = row.node;
        AttrNode& node = *job.begin();
        AttrLocation location(&job);
        location.enter(node, false);
        EXPECT_EQ(toUtf8(UnsupportedValue(location).getValueDisplay(node.getAttrValue())), toUtf8(row.words))
            << show(row.node);
    }
}

TEST(ProblemList, itOwnsWhatItHoldsAndIsCopiedWhole) {
    AttrNodeList job = list().integer(u"copies", 1).integer(u"b", 1);
    SettingsProblemList problems;
    problems.setRoot(&job);
    problems.add(UnsupportedAttribute(locate(job, u"copies")));
    problems.add(UnsupportedValue(locate(job, u"b")));
    SettingsProblemList copy(problems);
    problems.clear();
    EXPECT_EQ(show(problems), "");
    EXPECT_EQ(show(copy), "UnsupportedAttribute copies; UnsupportedValue b");
    std::size_t position = 2;
    EXPECT_EQ(messageOf<NodeAccessOutOfBoundsException>([&] { copy.getNextSettingsProblem(position); }),
              "SettingsProblemList::getNextSettingsProblem(): No more SettingsProblems to get. Caller failed to test "
              "with hasMoreSettingsProblems() first!\r\n");
}
