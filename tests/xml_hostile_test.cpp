// Documents that mean harm, and documents that are merely broken: each is refused with a code of its own, at once, and
// leaves nothing behind.

#include "expectFailure.h"
#include "listBuilder.h"
#include "xmlDocuments.h"

#include "jtcore/Services/JtifParseException.h"

#include <arpa/inet.h>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/inotify.h>
#include <sys/socket.h>
#include <unistd.h>
#include <vector>

namespace {

constexpr auto job = XmlDataType::jobTicket;
constexpr auto abil = XmlDataType::capabilityFile;
constexpr auto compact = XmlDataType::compactTicket;

const std::string goodTicket = jobTicket("<copies syntax='integer'>2</copies>");

std::string repeat(std::string_view text, std::size_t count) {
    std::string all;
    all.reserve(text.size() * count);
    for (std::size_t i = 0; i < count; ++i)
        all += text;
    return all;
}

std::string withDoctype(const std::string& doctype, const std::string& root = "<jtif/>") {
    return "<?xml version=\"1.0\"?>\n" + doctype + "\n" + root;
}

// Ten levels of ten references: ten thousand million copies.
std::string entityBomb(const char* sign) {
    std::string entities = std::string("<!ENTITY ") + sign + " e0 'lol'>";
    for (int level = 1; level <= 10; ++level)
        entities += "<!ENTITY " + std::string(sign) + " e" + std::to_string(level) + " '" +
                    repeat((*sign != 0 ? "%e" : "&e") + std::to_string(level - 1) + ";", 10) + "'>";
    return "<!DOCTYPE jtif SYSTEM \"jtif-v02021.dtd\" [" + entities + (*sign != 0 ? "%e10;" : "") + "]>";
}

struct Hostile {
    const char* what;
    XmlDataType type;
    std::string xml;
    const char* code;
    const char* words;
};

std::vector<Hostile> hostileDocuments() {
    const std::string dtd = "<!DOCTYPE jtif SYSTEM \"jtif-v02021.dtd\"";
    const std::string bomb = "<jtif>&e10;</jtif>";
    return {
        {"nothing", job, "", "001:002", "Fatal error at line 1, column 1"},
        {"blanks", job, "  \n ", "001:002", "Fatal error at line 2"},
        {"no XML", job, "copies=2", "001:002", "Fatal error at line 1"},
        {"zeros", abil, std::string(1000, '\0'), "001:002", "Fatal error"},
        {"a zero in a text", abil, capabilityFile(std::string("<a syntax='text'>x\0y</a>", 24)), "001:002", "Fatal"},
        {"the zero by reference", abil, capabilityFile("<a syntax='text'>&#0;</a>"), "001:002", "Fatal"},
        {"a control character by reference", abil, capabilityFile("<a syntax='text'>&#1;</a>"), "001:002", "Fatal"},
        {"a surrogate in UTF-8", abil, capabilityFile("<a syntax='text'>\xed\xa0\x80</a>"), "001:002", "Fatal"},
        {"a surrogate by reference", abil, capabilityFile("<a syntax='text'>&#xD800;</a>"), "001:002", "Fatal"},
        {"an overlong form", abil, capabilityFile("<a syntax='text'>\xc0\xaf</a>"), "001:002", "Fatal"},
        {"half a character", abil, capabilityFile("<a syntax='text'>\xe2\x82</a>"), "001:002", "Fatal"},
        {"Latin-1 that claims to be UTF-8", abil, "<?xml version='1.0' encoding='UTF-8'?><abil>\xe4</abil>", "001:002",
         "Fatal"},
        {"an encoding that is none", abil, "<?xml version='1.0' encoding='klingon'?><abil/>", "001:002", "klingon"},
        {"half of UTF-16", abil, std::string("\xff\xfe<\0a\0b", 7), "001:002", "Fatal"},
        {"no document type", job, "<jtif/>", "001:002", "The document type declaration is missing"},
        {"an internal subset", job, withDoctype(dtd + " []>"), "001:002", "internal subset"},
        {"only an internal subset", job, withDoctype("<!DOCTYPE jtif [<!ELEMENT jtif ANY>]>"), "001:002",
         "internal subset"},
        {"another DTD", job, withDoctype("<!DOCTYPE jtif SYSTEM \"evil.dtd\">"), "001:002", "does not name"},
        {"a DTD that ends alike", job, withDoctype("<!DOCTYPE jtif SYSTEM \"x-jtif-v02021.dtd\">"), "001:002",
         "does not name"},
        {"a public id", job, withDoctype("<!DOCTYPE jtif PUBLIC \"-//x\" \"jtif-v02021.dtd\">"), "001:002", "public"},
        {"no DTD", job, withDoctype("<!DOCTYPE jtif>"), "001:002", "does not name"},
        {"a document type for another root", job, withDoctype("<!DOCTYPE copies SYSTEM \"jtif-v02021.dtd\">"),
         "001:002", "The document element is 'copies' where 'jtif' is expected"},
        {"two document types", job, withDoctype(dtd + ">" + dtd + ">"), "001:002", "Fatal"},
        {"a document type where there is none", compact, withDoctype("<!DOCTYPE sjtif SYSTEM \"a\">", "<sjtif/>"),
         "001:002", "has no document type"},
        {"another root", job, withDoctype(dtd + ">", "<copies syntax='integer'>2</copies>"), "001:002", "'copies'"},
        {"a ticket for a capability file", abil, "<jtif/>", "001:002", "'jtif' where 'abil' is expected"},
        {"a capability file for a compact ticket", compact, "<abil/>", "001:002", "'abil' where 'sjtif'"},
        {"an unknown element", job, jobTicket("<evil syntax='integer'>1</evil>"), "001:002", "'evil'"},
        {"an element of the other group", job, jobTicket("<job-name syntax='name'>x</job-name>"), "001:002",
         "job-name"},
        {"a member at the top", job, jobTicket("<x-dimension syntax='integer'>1</x-dimension>"), "001:002",
         "x-dimension"},
        {"a group twice", job, ticket("<job-template-attributes/><job-template-attributes/>"), "001:002",
         "content model"},
        {"no syntax", job, jobTicket("<copies>2</copies>"), "001:002", "missing required attribute 'syntax'"},
        {"an attribute twice", job, jobTicket("<copies syntax='integer' syntax='integer'>2</copies>"), "001:002",
         "Fatal"},
        {"an unknown attribute", job, jobTicket("<copies syntax='integer' evil='1'>2</copies>"), "001:002", "'evil'"},
        {"a bad xml:space", job, jobTicket("<copies syntax='integer' xml:space='x'>2</copies>"), "001:002",
         "xml:space"},
        {"text in a group", job, jobTicket("text"), "001:002", "Error"},
        {"two roots", job, goodTicket + "<jtif/>", "001:002", "Fatal"},
        {"text behind the root", job, goodTicket + "x", "001:002", "Fatal"},
        {"crossed tags", abil, "<abil><a><b></a></b></abil>", "001:002", "Fatal"},
        {"an entity that nobody declared", abil, "<abil>&evil;</abil>", "001:002", "'evil'"},
        {"a bomb of entities", job, withDoctype(entityBomb(""), bomb), "001:002", "internal subset"},
        {"a bomb of parameter entities", job, withDoctype(entityBomb("%"), bomb), "001:002", "internal subset"},
        {"a bomb where no document type is", abil, withDoctype(entityBomb(""), "<abil>&e10;</abil>"), "001:002",
         "has no document type"},
        {"an entity of itself", job, withDoctype(dtd + " [<!ENTITY a '&a;'>]>", "<jtif>&a;</jtif>"), "001:002",
         "internal subset"},
        {"a thousand document types", job, withDoctype(dtd + repeat(" ", 100000) + "[" + repeat("<!--x-->", 100000)),
         "001:002", "internal subset"},
        {"65 deep", abil, capabilityFile(repeat("<a>", 64) + repeat("</a>", 64)), "001:002",
         "nested more than 64 deep"},
        {"10,000 deep", job, jobTicket(repeat("<copies syntax='collection'>", 10000)), "001:002", "more than 64 deep"},
        {"a million deep", abil, "<abil>" + repeat("<a>", 1000000), "001:002", "more than 64 deep"},
        {"a wide element", abil, capabilityFile("<a" + repeat(" b='1'", 1) + repeat(" ", 4000000) + "/"), "001:002",
         "Fatal"},
        {"many elements", abil, capabilityFile(repeat("<a/>", 2000000)), "001:001", "more memory than it may have"},
        {"many attributes of the table", job, jobTicket(repeat("<copies syntax='integer'>1</copies>", 200000)),
         "001:001", "more memory than it may have"},
        {"many unknown elements", job, jobTicket(repeat("<evil/>", 1000000)), "001:002", "'evil'"},
        {"a long name", abil, "<" + repeat("x", 8000000) + "/>", "001:00", ""},
        {"a long attribute name", abil, "<abil " + repeat("x", 8000000) + "=''/>", "001:00", ""},
        {"many comments", abil, capabilityFile(repeat("<!---->", 1000000)), "001:001", "more memory"},
        {"many instructions", abil, capabilityFile(repeat("<?x?>", 1400000)), "001:001", "more memory"},
    };
}

std::string manyAttributes(std::size_t count) {
    std::string element = "<abil";
    for (std::size_t i = 0; i < count; ++i)
        element += " a" + std::to_string(i) + "=''";
    return element + "/>";
}

} // namespace

TEST(HostileXml, everyDocumentIsRefusedWithItsCodeAndLeavesTheReaderWhole) {
    for (const Hostile& row : hostileDocuments()) {
        auto read = [&] { readXml(row.type, row.xml); };
        auto start = std::chrono::steady_clock::now();
        EXPECT_THAT(errorCodeOf(read), testing::StartsWith(row.code)) << row.what;
        auto taken = std::chrono::steady_clock::now() - start;
        // Far above what it takes; a reader that expands, nests or searches without a bound needs minutes.
        EXPECT_LT(taken, std::chrono::seconds(5)) << row.what;
        std::string message = messageOf<JtifParseException>(read);
        EXPECT_THAT(message, testing::HasSubstr(row.words)) << row.what;
        EXPECT_LE(fromUtf8(message).size(), formatMaximum) << row.what;
        EXPECT_EQ(readXml(job, goodTicket), AttrNodeList(list().integer(u"copies", 2))) << "after " << row.what;
    }
}

TEST(HostileXml, anElementWithManyAttributesIsRefused) {
    EXPECT_EQ(readXml(abil, manyAttributes(32)), AttrNodeList());
    for (std::size_t count : {33U, 1000U, 300000U})
        EXPECT_THAT(errorCodeOf([&] { readXml(abil, manyAttributes(count)); }), testing::StartsWith("001:00")) << count;
}

TEST(HostileXml, aTicketThatIsCutOffAnywhereIsRefused) {
    const std::string whole = writeXml(job, list()
                                                .name(u"job-name", u"r\u00e9port")
                                                .integer(u"copies", 2)
                                                .set(u"page-ranges", list().range(u"value", 1, 5))
                                                .collection(u"media-col", list().keyword(u"media-color", u"white")));
    for (std::size_t length = 0; length < whole.size(); ++length)
        EXPECT_EQ(errorCodeOf([&] { readXml(job, std::string_view(whole).substr(0, length)); }), "001:002") << length;
    EXPECT_EQ(readXml(job, whole).getNumNodes(), 4U);
}

TEST(HostileXml, noByteOfATicketCanBreakTheReader) {
    const std::string whole = writeXml(job, list().name(u"job-name", u"report").integer(u"copies", 2));
    for (std::size_t at = 0; at < whole.size(); ++at)
        for (unsigned flip : {0x01U, 0x20U, 0x80U, 0xFFU}) {
            std::string broken = whole;
            broken[at] = static_cast<char>(static_cast<unsigned char>(broken[at]) ^ flip);
            std::string code = errorCodeOf([&] { readXml(job, broken); });
            EXPECT_THAT(code, testing::AnyOf("", "001:001", "001:002", "008:000")) << at << " ^ " << flip;
        }
}

// The files and addresses are real, so an attempt to reach them would be seen.
TEST(HostileXml, nothingThatADocumentNamesIsOpened) {
    std::filesystem::path file = std::filesystem::temp_directory_path() / ("hostile" + std::to_string(getpid()));
    std::ofstream(file) << "<!ENTITY secret 'x'>";
    int watch = inotify_init1(IN_NONBLOCK);
    ASSERT_GE(inotify_add_watch(watch, file.c_str(), IN_OPEN | IN_ACCESS), 0);
    int listener = socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    ASSERT_EQ(bind(listener, reinterpret_cast<sockaddr*>(&address), length), 0);
    ASSERT_EQ(getsockname(listener, reinterpret_cast<sockaddr*>(&address), &length), 0);
    ASSERT_EQ(listen(listener, 8), 0);

    std::string port = std::to_string(ntohs(address.sin_port));
    for (const std::string& target : {"file://" + file.string(), file.string(), "http://127.0.0.1:" + port + "/x"})
        for (const char* root : {"jtif", "abil"})
            for (const std::string& doctype :
                 {" SYSTEM \"" + target + "\"", " SYSTEM \"" + target + "/jtif-v02021.dtd\"",
                  " SYSTEM \"jtif-v02021.dtd\" [<!ENTITY e SYSTEM \"" + target + "\">]",
                  " [<!ENTITY % e SYSTEM \"" + target + "\"> %e;]", " PUBLIC \"x\" \"" + target + "\""}) {
                std::string xml = "<!DOCTYPE " + std::string(root) + doctype + "><" + root +
                                  " xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' "
                                  "xsi:noNamespaceSchemaLocation='" +
                                  target + "'>&e;<xi:include xmlns:xi='http://www.w3.org/2001/XInclude' href='" +
                                  target + "'/></" + root + ">";
                for (XmlDataType type : {job, abil})
                    EXPECT_EQ(errorCodeOf([&] { readXml(type, xml); }), "001:002") << xml;
            }

    char event[sizeof(inotify_event) + NAME_MAX + 1];
    EXPECT_EQ(read(watch, event, sizeof event), -1) << "the file was opened";
    EXPECT_EQ(accept(listener, nullptr, nullptr), -1) << "the address was called";
    close(listener);
    close(watch);
    std::filesystem::remove(file);
}
