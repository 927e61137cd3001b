// Failures, their words, and what a user sees of them.
#include "jtcore/Services/JtifParseException.h"
#include "jtcore/Services/UserMessage.h"
#include "jtcore/Services/catchSite.h"
#include "resources/ids.h"
#include "tests/FakeResources.h"
#include "tests/MessageBoxes.h"
#include "tests/expectFailure.h"

#include <algorithm>
#include <functional>
#include <new>
#include <set>
#include <stdexcept>
#include <thread>

namespace {

const HWND someWindow = reinterpret_cast<HWND>(0x1234); // NOLINT

// Every digit as a "d".
std::string shapeOf(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; }, 'd');
    return text;
}

} // namespace

TEST(Failure, aRaiseTakesDownItsPlaceAndResetsWhatWasPending) {
    int line = 0;
    try {
        line = __LINE__ + 1;
        raiseTraced<RegistryRequestException>(traceClassPrinter, u"A::b(): %s %d.\r\n", u"x", 5);
    } catch (const KolmaException& failure) {
        EXPECT_EQ(toUtf8(failure.getFile()), "tests/services_test.cpp");
        EXPECT_EQ(failure.getLine(), line);
        EXPECT_EQ(failure.getTraceClass(), traceClassPrinter);
        EXPECT_EQ(toUtf8(failure.getMessage()), "A::b(): x 5.\r\n");
        EXPECT_STREQ(failure.what(), "A::b(): x 5.\r\n");
    }
    RegistryRequestException bare(u"made, not raised\r\n");
    EXPECT_EQ(bare.getFile(), u"");
    EXPECT_EQ(bare.getLine(), 0);
    EXPECT_EQ(bare.getTraceClass(), traceClassDefault);
}

TEST(Failure, twoThreadsThatRaiseAtOnceKeepTheirOwnPlaces) {
    auto raiseManyTimes = [](int line) {
        int wrong = 0;
        for (int i = 0; i < 2000; ++i) {
            KolmaException::setFileAndLine("file", line);
            if (UnknownCaseException(u"").getLine() != line) ++wrong;
        }
        return wrong;
    };
    int wrong[2] = {};
    std::thread first([&] { wrong[0] = raiseManyTimes(1); });
    std::thread second([&] { wrong[1] = raiseManyTimes(2); });
    first.join();
    second.join();
    EXPECT_EQ(wrong[0] + wrong[1], 0);
}

TEST(Failure, everyClassHasACodeOfItsOwn) {
    std::set<std::string> codes;
    auto check = [&codes](const char* name, const std::u16string& code) {
        EXPECT_EQ(shapeOf(toUtf8(code)), "ddd:ddd") << name;
        EXPECT_TRUE(codes.insert(toUtf8(code)).second) << name << " bears the code of another class";
    };
#define KOLMA_EXCEPTION(Name, Base, code) check(#Name, Name(u"").getErrorCode());
#define KOLMA_EXCEPTION_MIDDLE(Name, Base)
#include "jtcore/Services/KolmaException.def"
#undef KOLMA_EXCEPTION
#undef KOLMA_EXCEPTION_MIDDLE
#define JTIF_PARSE_CODE(number, name) check(#name, JtifParseException(u"", JtifParseCode::name).getErrorCode());
#include "jtcore/Services/JtifParseCode.def"
#undef JTIF_PARSE_CODE
    EXPECT_EQ(codes.size(), 24U + 24U);
    EXPECT_TRUE(codes.contains("001:023"));
    EXPECT_TRUE(codes.contains("022:002"));
    EXPECT_STREQ(getParseCodeName(static_cast<JtifParseCode>(19)), "WRITEFILE_FAILED");
    EXPECT_STREQ(getParseCodeName(static_cast<JtifParseCode>(-1)), "ILLEGAL_JTIFPARSE_EXCEPTION_CODE");
}

TEST(FormatMessage, directivesComeOutAsPrintfWritesThem) {
    struct Row {
        std::u16string result;
        const char* expected;
    };
    const Row rows[] = {
        {formatMessage(u"plain"), "plain"},
        {formatMessage("narrow %S", "\xC3\xA4"), "narrow \xC3\xA4"},
        {formatMessage(u"%s|%10s|%-6s|%.2s", u"a", u"b", u"c", u"defg"), "a|         b|c     |de"},
        {formatMessage(u"%d %ld %i %u", -1, 2L, short{-3}, 4000000000U), "-1 2 -3 4000000000"},
        {formatMessage(u"%04d|%-5d|%5d|%.3d|%+d", -12, 3, -4, 5, 6), "-012|3    |   -4|005|%+d"},
        {formatMessage(u"%x %X %#x %#08x %#x", 255, 0xabcdefU, 255, 255, 0), "ff ABCDEF 0xff 0x0000ff 0"},
        {formatMessage(u"0x%lx 0x%llx", -1, std::int64_t{-1}), "0xffffffff 0xffffffffffffffff"},
        {formatMessage(u"%c%c %%", u'A', 66), "AB %"},
        {formatMessage(u"%d", INT64_MIN), "-9223372036854775808"},
        {formatMessage(u"%s", static_cast<const char16_t*>(nullptr)), "(null)"},
        // Whatever does not fit stands as it is.
        {formatMessage(u"%d and %s", u"text", 5), "%d and %s"},
        {formatMessage(u"%s", std::u16string(u"%d")), "%d"},
        {formatMessage(u"%d %d", 1), "1 %d"},
        {formatMessage(u"%n %*d %", 1, 2), "%n %*d %"},
        {formatMessage(u"100%"), "100%"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(toUtf8(row.result), row.expected);
}

TEST(FormatMessage, theResultIsCutAtSixRoundsOfItsBuffer) {
    EXPECT_EQ(formatMessage(u"%s", std::u16string(100000, u'x')), std::u16string(12288, u'x'));
    EXPECT_EQ(formatMessage(u"%S%d", std::string(100000, 'x'), 5), std::u16string(12288, u'x'));
    EXPECT_EQ(formatMessage(u"%999999999d", 1).size(), 12288U);
    std::string threeBytes;
    for (int i = 0; i < 20000; ++i)
        threeBytes += "\xE2\x82\xAC";
    EXPECT_EQ(formatMessage(u"%S", threeBytes), std::u16string(12288, u'\u20AC'));
}

TEST(FormatMessage, theFormatMayBeAStringOfTheResourceModule) {
    FakeResources resources;
    EXPECT_EQ(toUtf8(formatMessage(IDS_FAILURE_BODY)), "#11602");
}

TEST(UserMessage, severityAndOwnerShapeTheStyleAndLeaveItsOtherBits) {
    struct Row {
        Severity severity;
        HWND owner;
        UINT style;
        UINT expected;
    };
    const Row rows[] = {
        {Severity::information, someWindow, 0, 0x40},    {Severity::warning, someWindow, 0, 0x30},
        {Severity::error, someWindow, 0, 0x10},          {Severity::question, someWindow, 3, 0x23},
        {static_cast<Severity>(9), someWindow, 0, 0x10}, {Severity::information, someWindow, 0x30, 0x40},
        {Severity::warning, someWindow, 0x40, 0x30},     {Severity::question, someWindow, 0x50, 0x20},
        {Severity::error, someWindow, 0x60, 0x10},       {Severity::warning, nullptr, 0, 0x2030},
        {Severity::error, someWindow, 0x2104, 0x0114},
    };
    for (const Row& row : rows) {
        UserMessage message(row.owner, u"t", u"x", row.style, row.severity);
        EXPECT_EQ(message.getStyle(), row.expected) << static_cast<int>(row.severity) << " with " << row.style;
    }
    UserMessage message(u"title", u"text", 0, Severity::warning);
    message.setOwner(someWindow);
    EXPECT_EQ(message.getStyle(), 0x30U);
    message.setSeverity(Severity::question);
    message.setStyle(MB_YESNO);
    EXPECT_EQ(message.getStyle(), 0x24U);
}

TEST(UserMessage, isShownAsItStandsAndReturnsTheButton) {
    MessageBoxes boxes(IDNO);
    FakeResources resources;
    UserMessage message(someWindow, 7350, 7400, MB_YESNO, Severity::question);
    message.setException(nullptr);
    auto copy = message.clone();
    copy->setTextById(7401);
    EXPECT_EQ(message.show() + copy->show(), 2 * IDNO);
    ASSERT_EQ(boxes.shown().size(), 2U);
    EXPECT_EQ(boxes.shown()[0].title, "#7350");
    EXPECT_EQ(boxes.shown()[0].text, "#7400");
    EXPECT_EQ(boxes.shown()[0].owner, someWindow);
    EXPECT_EQ(boxes.shown()[0].style, 0x24U);
    EXPECT_EQ(boxes.shown()[1].text, "#7401");
    std::runtime_error foreign("x");
    message.setException(&foreign);
    EXPECT_EQ(message.getText(), u"#7400\r\n\r\n000:000:000");
    EXPECT_EQ(message.getException(), &foreign);
}

TEST(ReportException, eachKindOfFailureHasItsWordsAndItsCode) {
    const int line = 47;
    auto raiseAtLine = [](auto&& make) {
        return [make] {
            KolmaException::setFileAndLine("file.cpp", line);
            throw make();
        };
    };
    struct Row {
        const char* what;
        std::function<void()> fail;
        std::uint16_t context;
        const char* text;
    };
    const Row rows[] = {
        {"settings too large", raiseAtLine([] { return DevModeOverflowException(u""); }), 0,
         "#11608\r\n\r\n#11609\r\n\r\n015:000:0047"},
        {"resource", raiseAtLine([] { return ResourceAcquisitionException(u""); }), 0,
         "#11610\r\n\r\n#11611\r\n\r\n005:000:0047"},
        {"registry", raiseAtLine([] { return RegistryRequestException(u""); }), 0,
         "#11614\r\n\r\n#11602\r\n\r\n020:000:0047"},
        {"XML", raiseAtLine([] { return JtifParseException(u"", JtifParseCode::WRITEFILE_FAILED); }), 0,
         "#11615\r\n\r\n#11616\r\n\r\n001:019:0047"},
        {"file", raiseAtLine([] { return CreateFileForReadingException(u""); }), 0,
         "#11617\r\n\r\n#11618\r\n\r\n022:001:0047"},
        {"another of the family", raiseAtLine([] { return CompressionException(u""); }), 11569,
         "#11601\r\n\r\n#11602\r\n\r\n#11569\r\n\r\n018:000:0047"},
        {"foreign", [] { throw std::runtime_error("x"); }, 0, "#11601\r\n\r\n#11602\r\n\r\n000:000:000"},
        {"out of memory", [] { throw std::bad_alloc(); }, 11569, "#11607"},
    };
    FakeResources resources;
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        MessageBoxes boxes;
        CatchSite site{someWindow, IDS_CAPTION_DOCUMENT_PROPERTIES, u"Some::site()", row.context};
        EXPECT_EQ(runAtCatchSite(site, -1, [&row] { return row.fail(), 1; }), -1);
        ShownBox box = boxes.onlyOne();
        EXPECT_EQ(box.title, std::string(row.text) == "#11607" ? "#11606" : "#11604");
        EXPECT_EQ(box.text, row.text);
        EXPECT_EQ(box.style, static_cast<UINT>(MB_ICONERROR));
        EXPECT_EQ(box.owner, someWindow);
    }
    EXPECT_EQ(resources.loaded, 0);
}

TEST(ReportException, theCaptionFallsBackOnTheOwnerAndThenOnTheDriver) {
    FakeResources resources;
    struct Row {
        HWND owner;
        std::uint16_t caption;
        std::u16string ownerText;
        std::string title;
    };
    const Row rows[] = {
        {someWindow, 11563, u"Owner", "#11563"},
        {someWindow, 0, u"Owner", "Owner"},
        {someWindow, 0, std::u16string(300, u'o'), std::string(255, 'o')},
        {someWindow, 0, u"", "#11606"},
        {nullptr, 0, u"Owner", "#11606"},
    };
    for (const Row& row : rows) {
        MessageBoxes boxes;
        boxes.ownerText = row.ownerText;
        reportException(row.owner, std::runtime_error("x"), row.caption, u"Some::site()");
        EXPECT_EQ(boxes.onlyOne().title, row.title);
    }
    UserMessage message;
    MessageBoxes boxes;
    boxes.ownerText = u"Owner";
    composeFailureText(message, someWindow, u"", 1, 2, true, u"code", 3);
    EXPECT_EQ(toUtf8(message.getTitle() + u": " + message.getText()),
              "Owner: #1\r\n\r\n#2\r\n\r\n#3\r\n\r\n#11620\r\n\r\ncode");
    EXPECT_EQ(message.getStyle() & MB_TYPEMASK, MB_OKCANCEL);
}

TEST(ReportException, withoutTheResourceModuleTheWordsStandInTheCode) {
    FakeResources resources;
    resources.isAbsent = true;
    MessageBoxes boxes;
    bool done = runAtCatchSite({someWindow, 11604, u"Some::site()"}, false, [] {
        UserMessage message(nullptr, std::uint16_t{1}, std::uint16_t{2});
        return true;
    });
    EXPECT_FALSE(done);
    ShownBox box = boxes.onlyOne();
    EXPECT_EQ(box.title, "Kolma Printer Driver");
    EXPECT_EQ(shapeOf(box.text), "Could not load the resource DLL. It's probably missing. Translated strings are not "
                                 "available. Please reinstall the driver.\r\n\r\nddd:ddd:dddd");
    EXPECT_TRUE(box.text.find("\r\n021:000:") != std::string::npos) << box.text;
    EXPECT_EQ(box.style, static_cast<UINT>(MB_ICONERROR | MB_TASKMODAL));
    EXPECT_EQ(box.owner, nullptr);
}

TEST(ReportException, aMissingStringLeavesTheSiteAsANewFailure) {
    FakeResources resources;
    MessageBoxes boxes;
    for (UINT id : {11604U, 11601U, 11602U, 11566U}) {
        resources.missing = id;
        EXPECT_EQ(messageOf<ResourceAcquisitionException>(
                      [] { reportException(std::runtime_error("x"), 11604, u"Some::site()", 11566); }),
                  "ResourceLibrary::getString(" + std::to_string(id) + ") failed - LoadString returned ZERO.\r\n");
    }
    EXPECT_TRUE(boxes.shown().empty());
    EXPECT_EQ(resources.loaded, 0);
}

TEST(ReportUnknownException, theUserChoosesWhetherTheFailureGoesOn) {
    FakeResources resources;
    CatchSite site{nullptr, 11563, u"Some::site()", 11567};
    auto fail = []() -> int { throw 5; };
    {
        MessageBoxes boxes(IDOK);
        EXPECT_EQ(runAtCatchSite(site, 7, fail), 7);
        EXPECT_EQ(boxes.onlyOne().title, "#11563");
        EXPECT_EQ(boxes.onlyOne().text, "#11601\r\n\r\n#11621\r\n\r\n#11567\r\n\r\n#11620");
        EXPECT_EQ(boxes.onlyOne().style, static_cast<UINT>(MB_OKCANCEL | MB_ICONERROR | MB_TASKMODAL));
    }
    MessageBoxes boxes(IDCANCEL);
    EXPECT_THROW(runAtCatchSite(site, 7, fail), int);
    EXPECT_EQ(runAtCatchSite(site, 7, [] { return 8; }), 8);
    EXPECT_EQ(boxes.shown().size(), 1U);
}

TEST(ExceptionDetails, tellClassPlaceAndMessage) {
    KolmaException::setFileAndLine("jtcore/File.cpp", 9);
    JtifParseException failure(u"A::b(): no.\r\n", JtifParseCode::READFILE_FAILED);
    EXPECT_EQ(toUtf8(getExceptionDetails(failure)),
              std::string(typeid(failure).name()) +
                  "\r\n\tError Type: READFILE_FAILED\r\n"
                  "Location: jtcore/File.cpp, line 9\r\nMessage is:\r\n\tA::b(): no.\r\n");
    std::runtime_error foreign("x");
    EXPECT_EQ(toUtf8(getExceptionDetails(foreign)),
              std::string(typeid(foreign).name()) + "\r\nNo additional information available.\r\n");
}
