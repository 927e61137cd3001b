// Merging documents for a printer that cannot do what they ask for, through the module.
#include "jtcore/Capabilities/SettingsProblemList.h"
#include "tests/ModuleUnderTest.h"
#include "tests/printersForTests.h"
#include "tests/problemText.h"

#include <gtest/gtest.h>

namespace {

const OwnStores stores;
constexpr char16_t bookletDriver[] = u"Kolma Tarsel 38 PS3 C1"; // family 14
constexpr std::int32_t bookletFamily = 14;

Area areaWith(const AttrNodeList& job) {
    KolmaDevMode settings;
    settings.setAttrNodeList(job);
    return exported(settings);
}

AttrNodeList merge(const Area& in, Area& out) {
    static const ModuleUnderTest module;
    const PlugInObject object(module);
    const TestPrinter printer(bookletDriver);
    EXPECT_EQ(object.devMode(OEMDM_MERGE, printer.handle, in.data(), out.data()), S_OK);
    return listOf(KolmaDevMode(out.data()));
}

std::string problemsOf(const AttrNodeList& job) {
    static const FactoryPrinter printer(bookletFamily);
    FeatureSettings settings(job);
    SettingsProblemList problems;
    printer.capabilities.validateSettings(settings, problems);
    return show(problems);
}

AttrNodeList startWith(const ListBuilder& more) {
    static const FactoryPrinter printer(bookletFamily);
    AttrNodeList job = more;
    job.mergeList(printer.start());
    return job;
}

} // namespace

TEST(Merge, equalAreasLeaveTheOutputBitForBitWhateverTheyAskFor) {
    const Area in = areaWith(list().keyword(u"sides", u"impossible"));
    Area out = in;
    out.at(KolmaDevMode::getDevModeSize() - 1) = 0xAB; // behind the state: means nothing, and stays
    const Area before = out;
    merge(in, out);
    EXPECT_EQ(out, before);
}

TEST(Merge, settingsThatThePrinterCanDoAreTakenOverAsTheyAre) {
    const AttrNodeList job = startWith(list().integer(u"copies", 7));
    ASSERT_EQ(problemsOf(job), "");
    Area out = areaWithCopies(1);
    EXPECT_EQ(merge(areaWith(job), out), job);
}

TEST(Merge, settingsThatThePrinterCannotDoAreRepaired) {
    struct MergeRow {
        const char* what;
        ListBuilder asked;
        const char16_t* attribute;
        const char* afterwards; // of that attribute, "" for none
    };
    for (const MergeRow& row : std::initializer_list<MergeRow>{
             {"a value gets the printer's own", list().keyword(u"sides", u"impossible"), u"sides",
              "sides=keyword:one-sided"},
             {"a number outside its range too", list().integer(u"copies", 0), u"copies", "copies=1"},
             {"an attribute that it does not have goes", list().keyword(u"trapping", u"none"), u"trapping", ""},
             {"a text is cut", list().name(u"job-name", std::u16string(60, u'n')), u"job-name",
              "job-name=name:nnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnn"},
             {"a text that is too short goes", list().name(u"job-account-id", u"a"), u"job-account-id", ""}}) {
        SCOPED_TRACE(row.what);
        const AttrNodeList job = startWith(row.asked);
        ASSERT_NE(problemsOf(job), "");
        Area out = areaWithCopies(3);
        const AttrNodeList merged = merge(areaWith(job), out);
        AttrNodeList found;
        if (const AttrNode* node = merged.getNode(row.attribute)) found.addNode(*node);
        EXPECT_EQ(show(found), row.afterwards);
        EXPECT_EQ(problemsOf(merged), "");
    }
}

TEST(Merge, whatThePrinterNeedsIsAdded) {
    Area out = areaWithCopies(3);
    const AttrNodeList merged = merge(areaWith(list().integer(u"copies", 2)), out);
    EXPECT_EQ(problemsOf(merged), "");
    EXPECT_EQ(show(AttrNodeList(list().integer(u"copies", 2))), "copies=2");
    EXPECT_TRUE(merged.isNodeAt(u"copies", 0));
    EXPECT_NE(merged.getNode(u"sides"), nullptr);
}
