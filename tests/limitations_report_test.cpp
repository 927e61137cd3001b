#include "jtcore/AnlXlate/PersistentSettings.h"
#include "jtcore/Capabilities/JobTicketUserMessage.h"
#include "jtcore/Capabilities/LimitationsDisplay.h"
#include "jtcore/Capabilities/SettingsProblemReporter.h"
#include "jtcore/Services/JtifParseException.h"
#include "resources/ids.h"
#include "tests/MessageBoxes.h"
#include "tests/expectFailure.h"
#include "tests/problemBuilder.h"

#include <gtest/gtest.h>

namespace {

PersistentSettings stateOf(const AttrNodeList& nodes) {
    PersistentSettings state;
    state.setAttrNodeList(nodes);
    return state;
}

// Installs a display that keeps what it was shown, for the time of a test.
class ShownReports {
public:
    explicit ShownReports(int answer)
        : before_(installLimitationsDisplay([this, answer](const LimitationsReport& report) {
              reports.push_back(report);
              return answer;
          })) {}
    ~ShownReports() { installLimitationsDisplay(std::move(before_)); }
    std::vector<LimitationsReport> reports;

private:
    LimitationsDisplay before_;
};

} // namespace

TEST(Reporter, theReportIsComposedByCategoryAndByPartOfTheJob) {
    AttrNodeList job =
        list()
            .keyword(u"trapping", u"x")
            .keyword(u"nobody-knows-me", u"x")
            .keyword(u"sides", u"odd")
            .set(u"force-front-side", list().integer(u"value", 12))
            .collection(u"cover-front", list().keyword(u"sides", u"odd"))
            .set(u"insert-sheet",
                 list().collection(u"value",
                                   list().integer(u"insert-after-page-number", 4).integer(u"insert-count", 99)))
            .set(u"page-overrides",
                 list()
                     .collection(u"value", list().set(u"pages", range(7, 9)).keyword(u"sides", u"a"))
                     .collection(u"value", list().set(u"pages", range(3, 3)).keyword(u"sides", u"b")));
    const auto nested = [&](std::u16string_view path, Feature feature, AttrNode* node) {
        AttrLocation location = locate(job, path);
        location.setNestedFeature(node, feature);
        return location;
    };
    const auto elementsOf = [&](const char16_t* id) -> AttrNodeList& {
        return job.getNode(id)->getAttrValue().asList()->getList();
    };
    AttrNode* first = elementsOf(u"page-overrides").getNode(u"value", 0);
    AttrNode* second = elementsOf(u"page-overrides").getNode(u"value", 1);
    AttrNode* sheet = elementsOf(u"insert-sheet").getNode(u"value");
    AttrLocation secondPlace(&job);
    secondPlace.enter(*job.getNode(u"page-overrides"), false);
    secondPlace.descend();
    secondPlace.enter(*second, false);
    secondPlace.descend();
    AttrLocation inSecond = secondPlace;
    inSecond.enter(*second->getAttrValue().asList()->getList().getNode(u"sides"), false);
    inSecond.setNestedFeature(second, Feature::pageOverrides);
    secondPlace.setNestedFeature(second, Feature::pageOverrides);

    SettingsProblemList problems;
    problems.add(MissingFeatureProblem(secondPlace, Feature::inputDocuments));
    problems.add(MissingFeatureProblem(AttrLocation(&job), Feature::finishings));
    problems.add(UnsupportedValue(nested(u"page-overrides/value/sides", Feature::pageOverrides, first)));
    problems.add(UnsupportedValue(inSecond));
    problems.add(UnsupportedValue(nested(u"cover-front/sides!", Feature::coverFront, job.getNode(u"cover-front"))));
    problems.add(UnsupportedValue(locate(job, u"force-front-side/value")));
    problems.add(FailedRangeCapability(nested(u"insert-sheet/value/insert-count!", Feature::insertSheet, sheet),
                                       {Feature::insertCount, CapabilityType::intRange}, 1, 10));
    problems.add(UnsupportedValue(locate(job, u"sides")));
    problems.add(UnsupportedAttribute(locate(job, u"trapping")));
    problems.add(UnsupportedAttribute(locate(job, u"nobody-knows-me")));

    const SettingsProblemReporter reporter(nullptr, IDS_CAPTION_DRIVER, u"a.jtif", stateOf(defaults()), true, true);
    EXPECT_EQ(toUtf8(reporter.getReportText(problems)),
              "The printer does not have the following features. They will be removed.\r\n\r\nFeature\r\n"
              "\r\n\tWhole job:\r\n"
              "\tTrapping\r\n"
              "\t'nobody-knows-me'\r\n"
              "\r\nThe printer does not have the following values. They will be replaced by what stands behind the "
              "arrow.\r\n\r\nFeature: value\r\n"
              "\tSides printed: 'odd' -> One-sided\r\n"
              "\r\n\tException pages (3):\r\n"
              "\tSides printed: 'b' -> (removed; the setting of the whole job applies)\r\n"
              "\r\n\tException pages (7 - 9):\r\n"
              "\tSides printed: 'a' -> (removed; the setting of the whole job applies)\r\n"
              "\r\n\tWhole job (12):\r\n"
              "\tChapter start: '12' -> (removed; the setting of the whole job applies)\r\n"
              "\r\n\tPage insert (4):\r\n"
              "\tSheets: '99' -> '10'\r\n"
              "\r\n\tFront cover:\r\n"
              "\tSides printed: 'odd' -> One-sided\r\n"
              "\r\nThe printer needs the following features, which are not set. They will be set to the value behind "
              "the arrow.\r\n\r\nFeature\r\n"
              "\r\n\tWhole job:\r\n"
              "\tFinishing -> None\r\n"
              "\r\n\tException pages (3):\r\n"
              "\tDocuments -> (the whole entry is removed)\r\n");

    const SettingsProblemReporter silent(nullptr, IDS_CAPTION_DRIVER, u"", stateOf(defaults()), true, false, 2);
    EXPECT_EQ(silent.getReportText(problems).find(u"->"), std::u16string::npos) << "nothing will be repaired";
}

TEST(Reporter, theAnswerIsTheUsers) {
    AttrNodeList job = list().keyword(u"trapping", u"x");
    SettingsProblemList problems;
    const auto report = [&](bool detailed, bool canCancel, const std::u16string& file = u" a.jtif") {
        return SettingsProblemReporter(nullptr, IDS_CAPTION_DRIVER, file, stateOf(defaults()), detailed, canCancel)
            .report(problems);
    };
    {
        const MessageBoxes boxes;
        const ShownReports shown(IDCANCEL);
        EXPECT_EQ(report(true, true), 1) << "nothing to report";
        EXPECT_EQ(report(false, true), 1);
        EXPECT_TRUE(boxes.shown().empty() && shown.reports.empty());
    }
    problems.add(UnsupportedAttribute(locate(job, u"trapping")));
    for (const auto& [answer, canCancel, result] :
         {std::tuple(IDOK, true, 1), std::tuple(IDCANCEL, true, 2), std::tuple(IDCANCEL, false, 1)}) {
        const ShownReports shown(answer);
        EXPECT_EQ(report(true, canCancel), result);
        ASSERT_EQ(shown.reports.size(), 1U);
        EXPECT_TRUE(shown.reports[0].title.ends_with(u" a.jtif"));
        EXPECT_EQ(shown.reports[0].canCancel, canCancel);
    }
    {
        const ShownReports shown(0);
        EXPECT_EQ(errorCodeOf([&] { report(true, true); }), "005:000") << "no report could be shown";
    }
    {
        const MessageBoxes boxes(IDCANCEL);
        EXPECT_EQ(report(true, true), 2);
        EXPECT_EQ(report(false, true), 2);
        EXPECT_EQ(report(false, true, u""), 2);
        ASSERT_EQ(boxes.shown().size(), 3U);
        EXPECT_NE(boxes.shown()[0].text.find("Trapping"), std::string::npos);
        for (const ShownBox& box : boxes.shown())
            EXPECT_EQ(box.style & 0xFU, MB_OKCANCEL);
    }
}

TEST(JobTicketUserMessage, theTextTellsWhatFailed) {
    for (const auto& [code, id] : {std::pair(1, IDS_TICKET_INVALID), std::pair(2, IDS_TICKET_INVALID),
                                   std::pair(19, IDS_TICKET_WRITE_FAILED), std::pair(5, IDS_TICKET_READ_FAILED),
                                   std::pair(14, IDS_TICKET_READ_FAILED), std::pair(15, IDS_TICKET_OPEN_FAILED),
                                   std::pair(17, IDS_TICKET_CREATE_FAILED), std::pair(16, IDS_TICKET_FAILED)}) {
        const JtifParseException failure(u"x\r\n", static_cast<JtifParseCode>(code));
        const JobTicketUserMessage message(nullptr, IDS_CAPTION_DRIVER, u" a.jtif", failure);
        EXPECT_EQ(JobTicketUserMessage::getTextId(failure), id) << "parse code " << code;
        EXPECT_TRUE(message.getTitle().ends_with(u" a.jtif"));
        EXPECT_EQ(message.clone()->getText(), message.getText());
        EXPECT_NE(message.getText().find(u"\r\n\r\n001:"), std::u16string::npos);
    }
    EXPECT_EQ(JobTicketUserMessage::getTextId(std::bad_alloc()), IDS_TICKET_FAILED);
}
