#include "jtcore/Capabilities/SettingsProblemFixer.h"
#include "tests/printersForTests.h"
#include "tests/problemBuilder.h"
#include "tests/randomJob.h"

#include <gtest/gtest.h>

TEST(Fixer, laterRepairsLeaveAloneWhatEarlierOnesTookAway) {
    AttrNodeList job = list()
                           .set(u"page-ranges", range(0, 9))
                           .collection(u"media-col", list().name(u"media-type", u"a name that is too long for it"))
                           .collection(u"trc", list().name(u"trc-name", u"x"));
    SettingsProblemList problems;
    problems.setRoot(&job);
    problems.add(*makeProblem(Kind::range, locate(job, u"page-ranges/value")));
    problems.add(*makeProblem(Kind::range, locate(job, u"media-col/media-type")));
    problems.add(UnsupportedValue(locate(job, u"media-col/media-type")));
    problems.add(UnsupportedAttribute(locate(job, u"page-ranges")));
    problems.add(UnsupportedAttribute(locate(job, u"trc/trc-name")));
    SettingsProblemFixer(defaults()).fixProblems(problems);
    EXPECT_EQ(job, AttrNodeList(list().collection(u"media-col", list().keyword(u"media-type", u"stationery"))))
        << "the default is not cut, and emptied collections are gone";
}

TEST(Fixer, aDefaultThatThePrinterCannotDoEitherIsGivenUp) {
    const AttrNodeList all = list()
                                 .set(u"job-creation-attributes-supported", keywords({u"sides", u"copies"}))
                                 .set(u"sides-supported", keywords({u"two-sided-long-edge"}));
    const Capabilities printer(modelOfFamily(1), TicketForm::current, ListCapabilities(all));
    FeatureSettings settings{AttrNodeList(list().keyword(u"sides", u"odd").integer(u"copies", 1))};
    const auto validate = [&](SettingsProblemList& left) { return printer.validateSettings(settings, left); };
    SettingsProblemList problems;
    ASSERT_FALSE(validate(problems));
    EXPECT_TRUE(SettingsProblemFixer(defaults()).fixUntilValid(problems, validate));
    EXPECT_EQ(settings.getAttrNodeList(), AttrNodeList(list().integer(u"copies", 1)));
}

// The seed stands in the failure; the jobs are the same in every run.
TEST(Fixer, afterARepairACheckFindsNothingMore) {
    constexpr unsigned jobs = 2000;
    for (const auto& [family, form] : {std::pair(1, TicketForm::current), std::pair(4, TicketForm::rendo2x),
                                       std::pair(14, TicketForm::current), std::pair(18, TicketForm::current)}) {
        const FactoryPrinter printer(family, form);
        unsigned repaired = 0;
        for (unsigned seed = 0; seed < jobs; ++seed) {
            FeatureSettings settings(RandomJob(seed).make());
            const auto validate = [&](SettingsProblemList& left) {
                return printer.capabilities.validateSettings(settings, left);
            };
            SettingsProblemList problems;
            if (validate(problems)) continue;
            ++repaired;
            ASSERT_TRUE(SettingsProblemFixer(printer.start()).fixUntilValid(problems, validate))
                << "family " << family << ", seed " << seed << ": " << show(problems);
        }
        EXPECT_GT(repaired, jobs / 2);
    }
}
