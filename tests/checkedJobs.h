// Checks jobs against capabilities that a test writes, and tells the problems as text.
#pragma once

#include "tests/printersForTests.h"
#include "tests/problemText.h"

#include <gtest/gtest.h>

// Allows at the top of a job what the cases below set there.
inline ListBuilder jobAttributes() {
    return keywords({u"copies", u"sides", u"finishings", u"page-ranges", u"job-name", u"media-col", u"cover-front",
                     u"page-overrides", u"printer-resolution", u"pages-per-subset", u"trc", u"halftone-graphics",
                     u"job-account-id", u"unheard-of", u"save-location"});
}

struct RuleRow {
    const char* rule;
    AttrNodeList capabilities; // beside the attributes that the job may have
    AttrNodeList job;
    const char* problems;
};

inline std::string problemsOf(const AttrNodeList& job, const AttrNodeList& capabilities, std::int32_t family = 1,
                              TicketForm form = TicketForm::current, const std::vector<FeatureId>* required = nullptr) {
    AttrNodeList all = list().set(u"job-creation-attributes-supported", jobAttributes());
    all.mergeList(capabilities);
    const Capabilities printer(modelOfFamily(family), form, ListCapabilities(all));
    FeatureSettings settings(job);
    SettingsProblemList problems;
    const bool isValid = printer.validateSettings(settings, problems, noParentFeature, required);
    EXPECT_EQ(isValid, problems.isEmpty());
    EXPECT_EQ(problems.getRoot(), &settings.getAttrNodeList());
    EXPECT_EQ(settings.getAttrNodeList(), job) << "a check changes nothing";
    return show(problems);
}

inline void check(std::initializer_list<RuleRow> rows) {
    for (const RuleRow& row : rows) {
        SCOPED_TRACE(row.rule);
        EXPECT_EQ(problemsOf(row.job, row.capabilities), row.problems);
    }
}

inline ListBuilder range(std::int32_t lower, std::int32_t upper) { return list().range(u"value", lower, upper); }
