#include "resources/ids.h"
#include "tests/ResourceFile.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <map>
#include <optional>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace {

struct FeatureRow {
    const char* name;
    int labelId;
};

const std::vector<FeatureRow> featureRows = {
#define FEATURE(number, enumerator, abbreviation, path, syntaxes, unspecified, labelId, related) {#enumerator, labelId},
#include "jtcore/FeatureSettings/Feature.def"
#undef FEATURE
};

struct ValueRow {
    int number;
    const char* text;
    int labelId;
    const char* features; // separated by ", "
};

const std::vector<ValueRow> valueRows = {
#define VALUE(number, enumerator, text, abbreviation, syntax, labelId, bitmapId, ...)                                  \
    {number, text, labelId, #__VA_ARGS__},
#include "jtcore/FeatureSettings/FeatureValue.def"
#undef VALUE
};

std::vector<std::string> split(const std::string& list) {
    static const std::regex separator(", *");
    return {std::sregex_token_iterator(list.begin(), list.end(), separator, -1), {}};
}

std::map<int, std::u16string> everyString(const ResourceFile& module) {
    std::map<int, std::u16string> strings;
    for (int block = 0; block < 0x10000; block += 16)
        for (int id = block; id < block + 16 && module.hasBlockOf(block); ++id)
            if (std::u16string text = module.string(id); !text.empty()) strings.emplace(id, text);
    return strings;
}

class ResourceModule : public testing::TestWithParam<Language> {
protected:
    const ResourceFile module{driverDir / GetParam().file};

    void SetUp() override { ASSERT_TRUE(module.isLoaded()) << driverDir / GetParam().file; }
};

std::string languageOf(const testing::TestParamInfo<Language>& info) { return info.param.name; }
INSTANTIATE_TEST_SUITE_P(Languages, ResourceModule, testing::ValuesIn(languages), languageOf);

// What a string says that code must fill in, in order.
std::vector<std::string> directivesOf(const std::u16string& text) {
    static const std::regex directive("%[-+ #0]*\\d*(\\.\\d+)?(hh|h|ll|l|I64)?[A-Za-z%]");
    const std::string bytes = narrow(text);
    std::vector<std::string> directives;
    for (auto match = std::sregex_iterator(bytes.begin(), bytes.end(), directive); match != std::sregex_iterator();
         ++match)
        directives.push_back(match->str());
    return directives;
}

} // namespace

TEST_P(ResourceModule, holdsExactlyTheStringsThatHaveAName) {
    std::map<int, std::string> names;
    for (const NamedId& id : allIds("IDS_"))
        names[id.number] = id.name;
    ASSERT_GT(names.size(), 600U) << "the headers were not read";

    for (const auto& [number, name] : names)
        EXPECT_FALSE(module.string(number).empty()) << name << " " << number << " has no string";
    for (const auto& [number, text] : everyString(module))
        EXPECT_TRUE(names.contains(number)) << number << " has no name: " << narrow(text);
}

TEST_P(ResourceModule, namesEveryFeatureAndEveryValueInWords) {
    for (const FeatureRow& row : featureRows) {
        const std::string label = narrow(module.string(row.labelId));
        EXPECT_FALSE(label.empty()) << row.name;
        EXPECT_NE(label, row.name);
    }
    for (const ValueRow& row : valueRows) {
        if (row.number == 1) continue; // not set: every feature has words of its own for that
        const std::string label = narrow(module.string(row.labelId));
        EXPECT_FALSE(label.empty()) << row.number << " " << row.text;
        EXPECT_NE(label, row.text) << row.number;
    }
}

TEST_P(ResourceModule, hasNoTwoValuesOfOneFeatureThatReadAlike) {
    std::map<std::string, std::map<std::u16string, std::string>> seen;
    for (const ValueRow& row : valueRows)
        for (const std::string& feature : split(row.features)) {
            const auto [first, isNew] = seen[feature].emplace(module.string(row.labelId), row.text);
            EXPECT_TRUE(isNew) << feature << ": " << row.text << " and " << first->second << " both read "
                               << narrow(first->first);
        }
}

TEST_P(ResourceModule, hasLabelsWithoutAPeriodAndTextsWithoutStraySpaces) {
    const std::set<int> joinedToOthers = {IDS_STOCK_PREFIX,   IDS_STOCK_SUFFIX_USER, IDS_STOCK_SUFFIX_PRINTER,
                                          IDS_TITLE_DEFAULTS, IDS_TITLE_LOAD_TICKET, IDS_TITLE_SAVE_TICKET};
    for (const NamedId& id : allIds("IDS_")) {
        const std::u16string text = module.string(id.number);
        const bool isLabel = id.name.starts_with("IDS_FEATURE_") || id.name.starts_with("IDS_VALUE_");
        EXPECT_FALSE(isLabel && (text.ends_with(u'.') || text.ends_with(u':'))) << id.name << ": " << narrow(text);
        EXPECT_EQ(text.starts_with(u' ') || text.ends_with(u' '), joinedToOthers.contains(id.number))
            << id.name << ": '" << narrow(text) << "'";
        EXPECT_EQ(text.find(u"  "), std::u16string::npos) << id.name << ": " << narrow(text);
    }
}

TEST_P(ResourceModule, hasTextsThatFitTheBuffersTheyAreReadInto) {
    for (const auto& [number, text] : everyString(module))
        EXPECT_LT(text.size(), 1024U) << number;
    for (const NamedId& id : allIds("IDS_ITEM_"))
        EXPECT_LT(module.string(id.number).size(), 512U) << id.name;
}

// A source read in the wrong code page shows as letters that no text has, and raw data widened byte by byte shows as
// code units near the end of the plane.
TEST_P(ResourceModule, keepsLettersBeyondAscii) {
    std::map<int, std::u16string> texts = everyString(module);
    for (const NamedId& id : allIds("IDR_"))
        texts[id.number] = module.rawText(id.number);
    for (const auto& [number, text] : texts)
        for (const char16_t unit : text)
            EXPECT_FALSE((unit >= 0x80 && unit < 0xA0) || unit == u'Ã' || unit == u'Â' || unit >= 0xD800)
                << number << ": " << narrow(text);
}

TEST_P(ResourceModule, givesFileFiltersInPairsOfNameAndPattern) {
    for (const NamedId& id : allIds("IDR_")) {
        const std::u16string filter = module.rawText(id.number);
        ASSERT_TRUE(filter.size() > 2 && filter.ends_with(std::u16string_view(u"\0\0", 2))) << id.name;
        const std::u16string pairs = filter.substr(0, filter.size() - 1);
        EXPECT_EQ(std::count(pairs.begin(), pairs.end(), u'\0') % 2, 0) << id.name;
        EXPECT_EQ(pairs.find(std::u16string_view(u"\0\0", 2)), std::u16string::npos) << id.name << " ends too early";
    }
}

// The resource compiler takes the last of two strings with one id and says nothing.
TEST_P(ResourceModule, isMadeFromSourcesThatGiveEachNameOneString) {
    static const std::regex entry("\n    (IDS_\\w+), \"");
    std::map<std::string, int> counts;
    for (const auto& file : std::filesystem::directory_iterator(sourceDir / "strings" / GetParam().name)) {
        const std::string text = readFile(file.path());
        EXPECT_TRUE(text.starts_with("#pragma code_page(65001)\n")) << file.path();
        for (auto match = std::sregex_iterator(text.begin(), text.end(), entry); match != std::sregex_iterator();
             ++match)
            ++counts[match->str(1)];
    }
    ASSERT_GT(counts.size(), 600U);
    for (const auto& [name, count] : counts)
        EXPECT_EQ(count, 1) << name;
}

TEST_P(ResourceModule, comesOutTheSameByteForByte) {
    const std::string bytes = readFile(driverDir / GetParam().file);
    ASSERT_GT(bytes.size(), 0x200U);
    EXPECT_TRUE(bytes == readFile(madeAgainDir / GetParam().file)) << "the second build differs from the first";

    const auto header = static_cast<std::size_t>(static_cast<unsigned char>(bytes[0x3C])); // of the image, after "MZ"
    ASSERT_EQ(bytes.substr(header, 4), std::string("PE\0\0", 4));
    EXPECT_EQ(bytes.substr(header + 8, 4), std::string(4, '\0')) << "the image has a time stamp";
    for (const char* folder : {KOLMA_SOURCE_DIR, KOLMA_BUILD_DIR})
        EXPECT_EQ(bytes.find(folder), std::string::npos) << folder;
}

TEST(ResourceModules, carryTheSameIdsInEveryLanguage) {
    const ResourceFile english(driverDir / languages[0].file);
    const ResourceFile german(driverDir / languages[1].file);
    const auto englishStrings = everyString(english);
    const auto germanStrings = everyString(german);
    for (const auto& [number, text] : englishStrings)
        EXPECT_TRUE(germanStrings.contains(number)) << number << " is not translated: " << narrow(text);
    for (const auto& [number, text] : germanStrings)
        EXPECT_TRUE(englishStrings.contains(number)) << number << " is not in the original: " << narrow(text);
}

TEST(ResourceModules, haveTheSameDirectivesInEveryLanguage) {
    const ResourceFile english(driverDir / languages[0].file);
    const ResourceFile german(driverDir / languages[1].file);
    for (const auto& [number, text] : everyString(english))
        EXPECT_EQ(directivesOf(text), directivesOf(german.string(number))) << number << ": " << narrow(text);
}

TEST(ResourceModules, areTranslated) {
    const ResourceFile english(driverDir / languages[0].file);
    const ResourceFile german(driverDir / languages[1].file);
    EXPECT_EQ(german.string(IDS_VALUE_WHITE), u"Weiß");
    EXPECT_EQ(german.string(IDS_FEATURE_FORCE_FRONT_SIDE), u"Kapitelanfang");
    for (const auto& [number, text] : everyString(english))
        EXPECT_FALSE(text.size() > 30 && text == german.string(number)) << number << ": " << narrow(text);
}

// Features may share a name that serves both; nothing else may stand under a number twice.
TEST(ResourceIds, areGivenOnce) {
    std::map<std::pair<std::string, int>, std::string> seen;
    for (const char* prefix : {"IDS_", "IDB_", "IDI_", "IDR_", "IDC_", "IDD_"})
        for (const NamedId& id : allIds(prefix)) {
            EXPECT_LT(id.number, 0x10000) << id.name;
            const auto [first, isNew] = seen.emplace(std::pair(prefix, id.number), id.name);
            const bool areFeatures = id.name.starts_with("IDS_FEATURE_") && first->second.starts_with("IDS_FEATURE_");
            EXPECT_TRUE(isNew || areFeatures) << id.number << " is " << first->second << " and " << id.name;
        }
}
