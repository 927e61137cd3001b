// The quick way through compact tickets against the library's way through the same text.
#include "jtcore/JtifParse/compactText.h"

#include "jtcore/JtifParse/KolmaXmlDataStream.h"
#include "jtcore/JtifParse/XmlOutputCallback.h"
#include "jtcore/Services/KolmaException.h"
#include "tests/listBuilder.h"
#include "tests/randomList.h"

#include <gtest/gtest.h>
#include <optional>

namespace {

ByteBuffer writtenByTheLibrary(const AttrNodeList& list) {
    ByteBuffer bytes;
    XmlOutputBufferCallback callback(bytes);
    callback.setFormatted(false);
    KolmaXmlDataStream stream(XmlDataType::compactTicket);
    stream.setOutputCallback(&callback);
    stream.write(list);
    return bytes;
}

std::optional<AttrNodeList> readByTheLibrary(const ByteBuffer& text) {
    AttrNodeList list;
    KolmaXmlDataStream stream(XmlDataType::compactTicket);
    stream.setBuffer(text.getData(), text.getSize());
    try {
        stream.read(list);
    } catch (const KolmaException&) {
        return std::nullopt;
    }
    return list;
}

std::string asText(const ByteBuffer& bytes) {
    return {reinterpret_cast<const char*>(bytes.getData()), bytes.getSize()};
}

ByteBuffer asBytes(std::string_view text) { return {text.data(), text.size()}; }

ByteBuffer document(std::string_view content) {
    return asBytes("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n<sjtif xml:lang=\"en-US\"> " + std::string(content) +
                   "</sjtif>");
}

// What the quick way accepts, the library reads alike.
void expectNoDifference(const ByteBuffer& text) {
    AttrNodeList quick;
    if (!readCompactText(text, quick)) return;
    std::optional<AttrNodeList> library = readByTheLibrary(text);
    ASSERT_TRUE(library.has_value()) << "only the quick way reads " << asText(text);
    ASSERT_EQ(quick, *library) << asText(text);
}

} // namespace

TEST(CompactText, isWrittenAndReadAsTheLibraryWouldWithAnyList) {
    const unsigned seed = randomSeed();
    SCOPED_TRACE(seed);
    RandomList random(seed);
    constexpr int rounds = 2000;
    int quicklyRead = 0;
    for (int round = 0; round < rounds; ++round) {
        AttrNodeList list = random.ticket();
        ByteBuffer text = writtenByTheLibrary(list);
        ByteBuffer quick;
        ASSERT_TRUE(writeCompactText(list, quick)) << show(list);
        ASSERT_EQ(asText(quick), asText(text));
        AttrNodeList read;
        quicklyRead += readCompactText(text, read) ? 1 : 0;
        expectNoDifference(text);
    }
    // Left to the library are texts with blanks at an end that are not preserved, and replacement characters: random
    // texts are full of them, so about half of the lists are read quickly.
    EXPECT_GT(quicklyRead, rounds / 3);
}

TEST(CompactText, takesNothingThatTheLibraryReadsOtherwise) {
    const AttrNodeList job = list()
                                 .name(u"f", u"a & b < c > d\r\n\té \xD83D\xDE00 ]]")
                                 .set(u"E", list().range(u"V", 1, 5))
                                 .collection(u"o", list().keyword(u"q", u"B").integer(u"Q", -21000).text(u"z", u""))
                                 .value(u"x", u"octetString", u"")
                                 .boolean(u"y", true);
    const std::string text = asText(writtenByTheLibrary(job));
    constexpr char substitutes[] = {'<', '>', '&', '"', ' ', '/', '\0', '\r', '\n', 'A', ';', '\x7F', '\xC3', '-', '='};
    for (std::size_t at = 0; at < text.size(); ++at) {
        for (char substitute : substitutes) {
            std::string changed = text;
            changed[at] = substitute;
            expectNoDifference(asBytes(changed));
        }
        expectNoDifference(asBytes(text.substr(0, at)));
        expectNoDifference(asBytes(text.substr(0, at) + text.substr(at + 1)));
        expectNoDifference(asBytes(text.substr(0, at) + " " + text.substr(at)));
    }
}

TEST(CompactText, leavesToTheLibraryWhatOurWriterDoesNotWrite) {
    struct Row {
        const char* what;
        const char* content;
    };
    const Row rows[] = {
        {"blanks about a keyword", "<q s=\"k\"> B </q>"},
        {"a name of blanks that are not preserved", "<f s=\"n\">  </f>"},
        {"a character reference", "<f s=\"n\" xml:space=\"preserve\">&#65;</f>"},
        {"text behind an element", "<o s=\"c\"><q s=\"k\">B</q>x</o>"},
        {"an element behind text", "<o s=\"c\">x<q s=\"k\">B</q></o>"},
        {"a list with a text", "<o s=\"c\">x</o>"},
        {"no syntax", "<q>B</q>"},
        {"another attribute", "<q s=\"k\" t=\"1\">B</q>"},
        {"single quotes", "<q s='k'>B</q>"},
        {"a comment", "<!-- x --><q s=\"k\">B</q>"},
        {"a section", "<f s=\"n\"><![CDATA[x]]></f>"},
        {"bytes that are not UTF-8", "<f s=\"n\" xml:space=\"preserve\">\xC3\x28</f>"},
        {"an end tag of another element", "<q s=\"k\">B</r>"},
        {"no end", "<q s=\"k\">B"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        AttrNodeList before = list().integer(u"A", 1);
        AttrNodeList read = before;
        EXPECT_FALSE(readCompactText(document(row.content), read));
        EXPECT_EQ(read, before);
    }
    ByteBuffer nothing;
    EXPECT_FALSE(writeCompactText(list().name(u"f", u"\x1"), nothing));
    EXPECT_FALSE(writeCompactText(list().name(u"f", u"\xD800"), nothing));
    EXPECT_FALSE(writeCompactText(list().name(u"gr\xF6\xDFe", u"x"), nothing));
    EXPECT_TRUE(nothing.isEmpty());
}
