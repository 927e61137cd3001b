// The XML translators: whole tables and random lists, there and back.

#include "expectFailure.h"
#include "listBuilder.h"
#include "randomList.h"
#include "xmlDocuments.h"

#include "jtcore/AnlXlate/AbilTranslator.h"
#include "jtcore/AnlXlate/JtifTranslator.h"
#include "jtcore/AnlXlate/SmallJtifTranslator.h"
#include "jtcore/AnlXlate/SpfTranslator.h"
#include "jtcore/FeatureSettings/FeatureDataBase.h"
#include "jtcore/FeatureSettings/FeatureValueDataBase.h"
#include "jtcore/FeatureSettings/NestedAttrID.h"
#include "jtcore/JtifParse/attrCategory.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

namespace {

std::string toText(const AnlTranslator& translator, const AttrNodeList& list) {
    ByteBuffer bytes;
    translator.anlToBuffer(list, bytes);
    return {reinterpret_cast<const char*>(bytes.getData()), bytes.getSize()};
}

AttrNodeList fromText(const AnlTranslator& translator, const std::string& text) {
    AttrNodeList list;
    translator.bufferToAnl(ByteBuffer(text.data(), text.size()), list);
    return list;
}

// The compact form without its frame.
std::string compactOf(const AttrNodeList& list) {
    std::string text = toText(SmallJtifTranslator(), list);
    const std::string head = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n<sjtif xml:lang=\"en-US\"> ";
    EXPECT_TRUE(text.starts_with(head) && text.ends_with("</sjtif>")) << text;
    return text.substr(head.size(), text.size() - head.size() - 8);
}

AttrNodeList fromCompact(const std::string& attributes) {
    return fromText(SmallJtifTranslator(), "<sjtif>" + attributes + "</sjtif>");
}

std::unique_ptr<AttrValue> sampleValue(Syntax syntax) {
    AttrNodeList members = list().integer(u"lower-bound", 1).integer(u"upper-bound", 2);
    if (syntax.type == AVTE::list) return std::make_unique<IppList>(members, syntax.name);
    return AttrValueFactory::createAttrValue(syntax.name, syntax.type == AVTE::boolean ? u"true" : u"7");
}

// The value where the table says that the feature stands, in a list that a ticket can hold.
AttrNodeList settingOf(const FeatureInfo& feature, std::unique_ptr<AttrValue> value) {
    AttrNodeList job;
    const NestedAttrID& id = feature.nestedId();
    bool isTop = getAttrCategory(id.getOutermostId()) != AttrCategory::none;
    AttrNodeList& root = isTop ? job : job.addCollection(u"cover-front");
    id.makeList(root).addNode(id.getName(), std::move(value));
    return job;
}

} // namespace

TEST(Translators, theExampleIsWrittenInItsCompactForm) {
    EXPECT_EQ(toText(SmallJtifTranslator(), list().integer(u"copies", 2)),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n<sjtif xml:lang=\"en-US\"> <A s=\"i\">2</A></sjtif>");
}

TEST(Translators, theCompactFormAbbreviatesIdsAndValues) {
    struct {
        AttrNodeList list;
        const char* compact;
    } rows[] = {
        {list().keyword(u"sides", u"one-sided"), "<a s=\"k\">c</a>"},
        {list().keyword(u"sides", u"three-sided"), "<a s=\"k\">three-sided</a>"},
        {list().name(u"job-name", u"fj"), "<f s=\"n\" xml:space=\"preserve\">*fj</f>"},
        {list().name(u"job-name", u"*x"), "<f s=\"n\" xml:space=\"preserve\">**x</f>"},
        {list().name(u"job-name", u"*"), "<f s=\"n\" xml:space=\"preserve\">**</f>"},
        {list().name(u"job-name", u"*fj"), "<f s=\"n\" xml:space=\"preserve\">**fj</f>"},
        {list().keyword(u"made-up", u"one-sided"), "<made-up s=\"k\">one-sided</made-up>"},
        {list().set(u"page-ranges", list().range(u"value", 1, 5)),
         "<E s=\"s\"><V s=\"r\"><L s=\"i\">1</L><U s=\"i\">5</U></V></E>"},
        {list().resolution(u"printer-resolution", 600, 300, 3),
         "<ay s=\"o\"><C s=\"i\">600</C><F s=\"i\">300</F><T s=\"e\">3</T></ay>"},
        // The elements of a set are seen under the feature before the set.
        {list().set(u"job-offset", list().keyword(u"value", u"offset-job")),
         "<cn s=\"s\"><V s=\"k\">offset-job</V></cn>"},
        {list().keyword(u"job-offset", u"none").set(u"job-offset", list().keyword(u"value", u"offset-job")),
         "<cn s=\"k\">dn</cn><cn s=\"s\"><V s=\"k\">do</V></cn>"},
        {list()
             .keyword(u"sides", u"one-sided")
             .keyword(u"made-up", u"q1")
             .set(u"copies", list().keyword(u"value", u"one-sided")),
         "<a s=\"k\">c</a><made-up s=\"k\">q1</made-up><A s=\"s\"><V s=\"k\">one-sided</V></A>"},
    };
    for (const auto& row : rows) {
        AttrNodeList given = row.list;
        EXPECT_EQ(compactOf(given), row.compact) << show(row.list);
        EXPECT_EQ(given, row.list) << "the list that is written stays as it was";
        EXPECT_EQ(fromCompact(row.compact), row.list) << row.compact;
    }
}

TEST(Translators, theDecoderKeepsWhatNoTableKnows) {
    EXPECT_EQ(fromCompact("<a s='k'>zz</a><made-up s='k'>c</made-up><a s='?'>c</a><f s='n'>*</f><f s='n'>*zz</f>"),
              AttrNodeList(list()
                               .keyword(u"sides", u"zz")
                               .keyword(u"made-up", u"c")
                               .value(u"sides", u"?", u"")
                               .name(u"job-name", u"*")
                               .name(u"job-name", u"*zz")));
}

TEST(Translators, noMemberNameHasTheAbbreviationOfAFeature) {
    for (const char16_t* name : {u"V", u"L", u"U", u"C", u"F", u"T"})
        EXPECT_EQ(FeatureDataBase::findByAbbreviation(name), nullptr) << toUtf8(name);
}

TEST(Translators, everyFeatureComesBackInEverySyntax) {
    for (const FeatureInfo& feature : FeatureDataBase::rows())
        for (const Syntax& syntax : feature.syntaxes) {
            AttrNodeList job = settingOf(feature, sampleValue(syntax));
            std::string where = toUtf8(feature.uniqueId()) + " as " + toUtf8(syntax.name);
            EXPECT_EQ(readXml(XmlDataType::jobTicket, writeXml(XmlDataType::jobTicket, job)), job) << where;
            EXPECT_EQ(fromText(SmallJtifTranslator(), toText(SmallJtifTranslator(), job)), job) << where;
        }
}

TEST(Translators, everyValueComesBackFromTheCompactFormInTwoLetters) {
    for (const FeatureValueInfo& row : FeatureValueDataBase::fixedRows())
        for (Feature number : row.features) {
            const FeatureInfo* feature = FeatureDataBase::find(number);
            if (feature == nullptr) continue;
            AttrNodeList job = settingOf(*feature, AttrValueFactory::createAttrValue(row.syntax.name, row.text));
            std::string compact = compactOf(job);
            std::string where = toUtf8(feature->uniqueId()) + "=" + toUtf8(row.text) + ": " + compact;
            EXPECT_EQ(fromCompact(compact), job) << where;
            bool isOwnNode = feature->path.leaf == feature->uniqueId();
            if (isOwnNode && !row.abbreviation.empty()) {
                EXPECT_THAT(compact, testing::HasSubstr(">" + toUtf8(row.abbreviation) + "<")) << where;
            }
        }
}

// What another reader of XML makes of it.
TEST(Translators, aTicketWithEveryFeatureIsValidForAnotherReader) {
    if (std::system("command -v xmllint >/dev/null 2>&1") != 0) GTEST_SKIP() << "no xmllint here";
    AttrNodeList job;
    for (const FeatureInfo& feature : FeatureDataBase::rows())
        for (const AttrNode& node : settingOf(feature, sampleValue(feature.syntaxes[0])))
            job.addNode(node);
    namespace fs = std::filesystem;
    fs::path folder = fs::temp_directory_path() / ("valid" + std::to_string(getpid()));
    fs::create_directories(folder);
    fs::copy_file(KOLMA_SOURCE_DIR "/resources/jtif-v02021.dtd", folder / "jtif-v02021.dtd",
                  fs::copy_options::overwrite_existing);
    std::ofstream(folder / "all.jtif", std::ios::binary) << writeXml(XmlDataType::jobTicket, job);
    std::string command = "cd " + folder.string() + " && xmllint --noout --valid all.jtif 2>&1 >/dev/null";
    EXPECT_EQ(std::system(command.c_str()), 0);
    fs::remove_all(folder);
}

TEST(Translators, randomListsComeBackAndASecondSaveIsTheSame) {
    const unsigned seed = randomSeed();
    RandomList random(seed);
    const AbilTranslator abil;
    const SmallJtifTranslator small;
    for (int i = 0; i < 10000; ++i) {
        AttrNodeList job = random.ticket();
        std::string where = "seed " + std::to_string(seed) + ", list " + std::to_string(i);
        std::string full = writeXml(XmlDataType::jobTicket, job);
        AttrNodeList again = readXml(XmlDataType::jobTicket, full);
        ASSERT_EQ(again, job) << where;
        ASSERT_EQ(writeXml(XmlDataType::jobTicket, again), full) << where;
        std::string compact = toText(small, job);
        again = fromText(small, compact);
        ASSERT_EQ(again, job) << where;
        ASSERT_EQ(toText(small, again), compact) << where;
        if (i % 10 == 0) {
            ASSERT_EQ(fromText(abil, toText(abil, job)), job) << where;
        }
    }
}

TEST(Translators, filesAndStreamsCarryTheSameBytes) {
    struct Gathering : ByteSink {
        void takeBlock(const ByteBuffer& block) override { bytes.appendData(block.getData(), block.getSize()); }
        ByteBuffer bytes;
    };
    namespace fs = std::filesystem;
    fs::path path = fs::temp_directory_path() / ("translated" + std::to_string(getpid()));
    AttrNodeList job = list().integer(u"copies", 2).keyword(u"sides", u"one-sided");
    const AbilTranslator abil;
    const SpfTranslator spf;
    const SmallJtifTranslator small;
    for (const AnlTranslatorForXml* translator :
         {static_cast<const AnlTranslatorForXml*>(&abil), static_cast<const AnlTranslatorForXml*>(&spf),
          static_cast<const AnlTranslatorForXml*>(&small)}) {
        AttrNodeList again;
        translator->anlToFile(job, path.u16string());
        translator->fileToAnl(path.u16string(), again);
        EXPECT_EQ(again, job);
        Gathering sink;
        ByteBuffer bytes;
        translator->anlToStream(job, sink);
        translator->anlToBuffer(job, bytes);
        EXPECT_EQ(sink.bytes, bytes);
    }
    fs::remove(path);
}

TEST(Translators, noBytesAreNoDocument) {
    AttrNodeList out;
    EXPECT_EQ(errorCodeOf([&] { SmallJtifTranslator().bufferToAnl(ByteBuffer(), out); }), "001:008");
}

TEST(Translators, theDtdOfTicketsLiesBesideTheDriver) {
    EXPECT_TRUE(JtifTranslator::getDtdPath().ends_with(u"jtif-v02021.dtd"));
    EXPECT_EQ(&JtifTranslator::getDtdPath(), &JtifTranslator::getDtdPath());
}
