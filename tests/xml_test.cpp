// The four XML formats: what is written, byte for byte, and what is read.

#include "expectFailure.h"
#include "listBuilder.h"
#include "xmlDocuments.h"

#include "jtcore/JtifParse/attrCategory.h"
#include "jtcore/Services/JtifParseException.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

constexpr auto job = XmlDataType::jobTicket;
constexpr auto abil = XmlDataType::capabilityFile;
constexpr auto stockpref = XmlDataType::stockPreferences;
constexpr auto compact = XmlDataType::compactTicket;

const AttrNodeList exampleJob =
    list().name(u"job-name", u"report").integer(u"copies", 2).set(u"page-ranges", list().range(u"value", 1, 5));

} // namespace

TEST(Xml, aTicketIsWrittenByteForByte) {
    EXPECT_EQ(writeXml(job, exampleJob), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n"
                                         "<!DOCTYPE jtif SYSTEM \"jtif-v02021.dtd\">\r\n"
                                         "<jtif version=\"1.0\" sema-version=\"2.01\" xml:lang=\"en-US\">\r\n"
                                         "\t<jtif-operation-attributes>\r\n"
                                         "\t\t<job-name syntax=\"name\" xml:space=\"preserve\">report</job-name>\r\n"
                                         "\t</jtif-operation-attributes>\r\n"
                                         "\t<job-template-attributes>\r\n"
                                         "\t\t<copies syntax=\"integer\">2</copies>\r\n"
                                         "\t\t<page-ranges syntax=\"1setOf\">\r\n"
                                         "\t\t\t<value syntax=\"rangeOfInteger\">\r\n"
                                         "\t\t\t\t<lower-bound syntax=\"integer\">1</lower-bound>\r\n"
                                         "\t\t\t\t<upper-bound syntax=\"integer\">5</upper-bound>\r\n"
                                         "\t\t\t</value>\r\n"
                                         "\t\t</page-ranges>\r\n"
                                         "\t</job-template-attributes>\r\n"
                                         "</jtif>");
}

TEST(Xml, eachFormatIsWrittenByteForByte) {
    const std::string declaration = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n";
    const std::string ticketHead = declaration + "<!DOCTYPE jtif SYSTEM \"jtif-v02021.dtd\">";
    const std::string root = " version=\"1.0\" sema-version=\"2.01\" xml:lang=\"en-US\"";
    AttrNodeList copies = list().integer(u"copies", 2);
    AttrNodeList templateFirst = list().integer(u"copies", 2).name(u"job-name", u"").keyword(u"sides", u"a&b<c>");
    struct {
        const char* what;
        XmlDataType type;
        bool formatted;
        AttrNodeList list;
        std::string xml;
    } rows[] = {
        {"compact", compact, false, list().integer(u"A", 2),
         declaration + "<sjtif xml:lang=\"en-US\"> <A s=\"i\">2</A></sjtif>"},
        {"empty compact", compact, false, {}, declaration + "<sjtif xml:lang=\"en-US\"> </sjtif>"},
        {"empty ticket", job, true, {}, ticketHead + "\r\n<jtif" + root + "/>"},
        {"groups in the order of need", job, false, templateFirst,
         ticketHead + "<jtif" + root +
             "><job-template-attributes><copies syntax=\"integer\">2</copies><sides "
             "syntax=\"keyword\">a&amp;b&lt;c&gt;</sides></"
             "job-template-attributes><jtif-operation-attributes><job-name "
             "syntax=\"name\" xml:space=\"preserve\"></job-name></jtif-operation-attributes></jtif>"},
        {"capabilities are not indented under the root", abil, true,
         list().set(u"sides", list().keyword(u"value", u"x")),
         declaration + "\r\n<abil" + root +
             "> \r\n<sides syntax=\"1setOf\">\r\n\t<value syntax=\"keyword\">x</value>\r\n</sides></abil>"},
        {"stock preferences", stockpref, false, copies,
         declaration + "<stockpref" + root + "> <copies syntax=\"integer\">2</copies></stockpref>"},
        {"a list without members", abil, false, list().collection(u"media-col", list()),
         declaration + "<abil" + root + "> <media-col syntax=\"collection\"/></abil>"},
        {"private nodes, at every depth", abil, false,
         list().integer(u"a", 1).hidden().collection(u"b", list().integer(u"c", 2).hidden().integer(u"d", 3)),
         declaration + "<abil" + root + "> <b syntax=\"collection\"><d syntax=\"integer\">3</d></b></abil>"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(writeXml(row.type, row.list, row.formatted), row.xml) << row.what;
}

TEST(Xml, everySyntaxComesBackFromEveryFormat) {
    AttrNodeList all =
        list()
            .integer(u"copies", -7)
            .enumeration(u"finishings", 5)
            .boolean(u"media", true)
            .keyword(u"sides", u"two-sided-long-edge")
            .name(u"job-name", u"  report \t")
            .text(u"job-sheet-message", u"line\r\nline\n\ttab\r \U0001F600 \u00e4")
            .uri(u"document-uri", u"file:///c:/jobs?a=1&b=\"2\"")
            .value(u"document-format", u"mimeMediaType", u"application/pdf")
            .name(u"job-recipient-name", u" ")
            .set(u"page-ranges", list().range(u"value", 1, 5).range(u"value", 7, 7))
            .resolution(u"printer-resolution", 600, 600, 3)
            .collection(u"media-col", list().collection(u"media-size", list().integer(u"x-dimension", 9)));
    for (XmlDataType type : {job, abil, stockpref, compact})
        for (bool formatted : {true, false}) {
            std::string xml = writeXml(type, all, formatted);
            AttrNodeList again = readXml(type, xml);
            // The groups of a ticket come one behind the other.
            if (type == job) again = readXml(abil, writeXml(abil, again));
            EXPECT_EQ(again.getNumNodes(), all.getNumNodes()) << xml;
            for (const AttrNode& node : all)
                EXPECT_NE(again.getMatchingNode(node), nullptr) << toUtf8(node.getAttrID()) << " in " << xml;
        }
}

TEST(Xml, elementsAreReadAsTheyAreWritten) {
    struct {
        const char* xml;
        AttrNodeList list;
    } rows[] = {
        {"<a syntax='name' xml:space='preserve'> x </a>", list().name(u"a", u" x ")},
        {"<a syntax='keyword'>\n x\t</a>", list().keyword(u"a", u"x")},
        {"<a syntax='name' xml:space='preserve'>  </a>", list().name(u"a", u"  ")},
        {"<a syntax='name'>  </a>", list().inner(u"a", u"name", list())},
        {"<a syntax='name' xml:space='preserve'></a>", list()},
        {"<a syntax='integer'/>", list()},
        {"<a syntax=' integer '>12abc</a>", list().integer(u"a", 12)},
        {"<a syntax='octetString'>x</a>", list().value(u"a", u"octetString", u"x")},
        {"<a>5</a><b syntax='integer'>1</b>", list().integer(u"b", 1)},
        {"<a><b syntax='integer'>1</b></a>", list()},
        {"text <b syntax='integer'>1</b> text", list().integer(u"b", 1)},
        {"<a syntax='collection'>\n <b syntax='integer'>1</b>\n</a>", list().collection(u"a", list().integer(u"b", 1))},
        {"<!-- c --><a syntax='integer'><!-- 9 -->5</a><?pi data?>", list().integer(u"a", 5)},
        {"<a syntax='integer'><![CDATA[ 7 ]]></a>", list().integer(u"a", 7)},
        {"<a syntax='text' xml:space='preserve'>&#xD;&amp;&#x1F600;</a>", list().text(u"a", u"\r&\U0001F600")},
        {"<jtif-operation-attributes><a syntax='integer'>1</a></jtif-operation-attributes>", list()},
    };
    for (const auto& row : rows)
        EXPECT_EQ(readXml(abil, capabilityFile(row.xml)), row.list) << row.xml;
}

TEST(Xml, theEncodingOfADocumentIsHeeded) {
    std::u16string wide = u"<?xml version='1.0' encoding='UTF-16'?><abil><a syntax='keyword'>\u00e4</a></abil>";
    std::string utf16 = "\xff\xfe";
    for (char16_t unit : wide)
        utf16 += {static_cast<char>(unit & 0xFFU), static_cast<char>(unit >> 8U)};
    for (const std::string& xml :
         {utf16, std::string("<?xml version='1.0' encoding='ISO-8859-1'?><abil><a syntax='keyword'>\xe4</a></abil>"),
          std::string("\xef\xbb\xbf<abil><a syntax='keyword'>\xc3\xa4</a></abil>")})
        EXPECT_EQ(readXml(abil, xml), AttrNodeList(list().keyword(u"a", u"\u00e4"))) << xml;
}

TEST(Xml, warningsAloneDoNotFailARead) {
    EXPECT_EQ(readXml(abil, "<?xml version='1.0' encoding='UTF-8' standalone='yes'?><abil/>"), AttrNodeList());
}

TEST(Xml, aListThatCannotBeWrittenFailsWithWords) {
    AttrNodeList deep = list().integer(u"copies", 1);
    for (int i = 0; i < 70; ++i) {
        AttrNodeList outer;
        outer.addCollection(u"media-col") = std::move(deep);
        deep = std::move(outer);
    }
    struct {
        const char* what;
        AttrNodeList list;
        const char* code;
        const char* words;
    } rows[] = {
        {"no place for it", list().integer(u"x-dimension", 1), "001:007", "No JTIF category for x-dimension!"},
        {"no name", list().collection(u"media-col", list().integer(u"a b", 1)), "001:006", "INVALID_CHARACTER_ERR"},
        {"a digit first", list().collection(u"media-col", list().integer(u"1a", 1)), "001:006",
         "INVALID_CHARACTER_ERR"},
        {"control character", list().name(u"job-name", u"a\u0001b"), "001:003", "'job-name' cannot be written"},
        {"zero", list().name(u"job-name", std::u16string_view(u"a\0b", 3)), "001:003", "U+0000"},
        {"lone high surrogate", list().name(u"job-name", u"a\xd800"), "001:003", "U+D800"},
        {"lone low surrogate", list().name(u"job-name", u"\xdc00 x"), "001:003", "U+DC00"},
        {"no character", list().collection(u"media-col", list().text(u"media-info", u"\xfffe")), "001:003",
         "media-info"},
        {"a syntax no document can carry", list().value(u"copies", u"\x2", u""), "001:003", "'copies'"},
        {"nested too deep", deep, "001:003", "nested too deep"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(errorCodeOf([&] { writeXml(job, row.list); }), row.code) << row.what;
        EXPECT_THAT(messageOf<JtifParseException>([&] { writeXml(job, row.list); }), testing::HasSubstr(row.words))
            << row.what;
    }
}

TEST(Xml, theDeepestListThatIsWrittenCanBeRead) {
    AttrNodeList deep = list().integer(u"copies", 1);
    for (int i = 0; i < 61; ++i) {
        AttrNodeList outer;
        outer.addCollection(u"media-col") = std::move(deep);
        deep = std::move(outer);
    }
    EXPECT_EQ(readXml(job, writeXml(job, deep)), deep);
}

TEST(Xml, aStreamThatIsNotSetUpSaysWhatIsMissing) {
    AttrNodeList out;
    ByteBuffer bytes;
    XmlOutputBufferCallback callback(bytes);
    KolmaXmlDataStream untyped;
    EXPECT_EQ(errorCodeOf([&] { untyped.read(out); }), "001:008");
    EXPECT_EQ(errorCodeOf([&] { untyped.write(out); }), "001:009");
    untyped.setBuffer("<a/>", 4);
    untyped.setOutputCallback(&callback);
    EXPECT_EQ(errorCodeOf([&] { untyped.read(out); }), "001:011");
    EXPECT_EQ(errorCodeOf([&] { untyped.write(out); }), "001:011");
    KolmaXmlDataStream withoutDtd(job);
    withoutDtd.setBuffer("<a/>", 4);
    EXPECT_EQ(errorCodeOf([&] { withoutDtd.read(out); }), "001:010");
    EXPECT_EQ(withoutDtd.getBufferId(), u"XmlStream");
    EXPECT_EQ(KolmaXmlDataStream(job, u"d").getBufferId(), u"d");
}

TEST(Xml, aMissingDtdIsNamed) {
    KolmaXmlDataStream stream(job, u"/nowhere/jtif-v02021.dtd");
    std::string xml = jobTicket("<copies syntax='integer'>2</copies>");
    stream.setBuffer(xml.data(), xml.size());
    AttrNodeList out;
    EXPECT_EQ(errorCodeOf([&] { stream.read(out); }), "001:002");
    EXPECT_THAT(messageOf<JtifParseException>([&] { stream.read(out); }),
                testing::HasSubstr("The DTD /nowhere/jtif-v02021.dtd cannot be read"));
}

TEST(Xml, aReceiverThatRefusesFailsTheWrite) {
    struct Refusing : XmlOutputCallback {
        bool handleOutput(const void*, std::size_t) override { return false; }
    } refusing;
    KolmaXmlDataStream stream(compact);
    stream.setOutputCallback(&refusing);
    EXPECT_EQ(messageOf<JtifParseException>([&] { stream.write(exampleJob); }),
              "KolmaXmlParser::writeChars(): Failed the call to handleOutput() in special callback object!\r\n");
}

TEST(Xml, aFailedReadKeepsTheNodesReadSoFar) {
    AttrNodeList out = list().integer(u"before", 1);
    std::string xml = capabilityFile("<a syntax='integer'>5</a><b syntax='1setOf'>text</b>");
    KolmaXmlDataStream stream(abil);
    stream.setBuffer(xml.data(), xml.size());
    EXPECT_EQ(errorCodeOf([&] { stream.read(out); }), "008:000");
    EXPECT_EQ(out, AttrNodeList(list().integer(u"before", 1).integer(u"a", 5)));
}

TEST(Xml, attributesOfOtherProducersAreReadAndMisspelledOnesAreNot) {
    EXPECT_EQ(readXml(job, jobTicket("<print-color-mode syntax='keyword'>auto</print-color-mode><media-col "
                                     "syntax='collection'><media-source syntax='keyword'>tray-1</media-source>"
                                     "</media-col>")),
              AttrNodeList(list()
                               .keyword(u"print-color-mode", u"auto")
                               .collection(u"media-col", list().keyword(u"media-source", u"tray-1"))));
    EXPECT_THAT(
        messageOf<JtifParseException>([&] { readXml(job, jobTicket("\n <copeis syntax='integer'>2</copeis>")); }),
        testing::HasSubstr("Error at line 4, column 9: \"no declaration found for element 'copeis'\""));
}

TEST(Xml, anAttributeBelongsToOneGroup) {
    EXPECT_EQ(getAttrCategory(u"job-name"), AttrCategory::operation);
    EXPECT_EQ(getAttrCategory(u"copies"), AttrCategory::jobTemplate);
    for (const char16_t* none : {u"", u"Copies", u"copies ", u"value", u"job-nam", u"zzz"})
        EXPECT_EQ(getAttrCategory(none), AttrCategory::none) << toUtf8(none);
}
