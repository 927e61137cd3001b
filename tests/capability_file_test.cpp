// Capability files as they may come: good, bad, and silent about what the driver has to know.
#include "jtcore/FeatureSettings/NestedAttrID.h"
#include "tests/capabilityBuilder.h"
#include "tests/capabilityText.h"
#include "tests/expectFailure.h"

#include <set>

namespace {

std::string codeOfFile(const std::string& text, const PrinterModel& model = modelOfFamily(1)) {
    return errorCodeOf([&] { askEverything(Capabilities(model, TicketForm::current, CapabilityText(text))); });
}

} // namespace

TEST(CapabilityFile, aBadOneIsRefusedWithItsCode) {
    std::string deep;
    for (int i = 0; i < 70; ++i)
        deep = element("value", "collection", deep);
    std::string attributes;
    for (int i = 0; i < 40; ++i)
        attributes += " a" + std::to_string(i) + "=\"1\"";
    const std::string jobNames = "job-creation-attributes-supported";
    const struct {
        const char* what;
        std::string text;
        const char* code;
    } rows[] = {
        {"good", goodFile, ""},
        {"no statements", abil(""), ""},
        {"empty", "", "001:008"},
        {"blanks", " \r\n\t", "001:002"},
        {"plain text", "copies: 1-999", "001:002"},
        {"zero bytes", std::string(64, '\0'), "001:002"},
        {"a picture", "\x89PNG\r\n\x1a\n", "001:002"},
        {"cut in the declaration", goodFile.substr(0, 20), "001:002"},
        {"cut before the root", goodFile.substr(0, 38), "001:002"},
        {"cut in a name", goodFile.substr(0, 70), "001:002"},
        {"cut in a text", goodFile.substr(0, 150), "001:002"},
        {"cut before the end", goodFile.substr(0, goodFile.size() - 7), "001:002"},
        {"a second root", goodFile + "<abil/>", "001:002"},
        {"text behind the root", goodFile + "more", "001:002"},
        {"a job ticket", "<jtif/>", "001:002"},
        {"a compact ticket", "<sjtif><A s=\"i\">2</A></sjtif>", "001:002"},
        {"a stock file", "<stockpref/>", "001:002"},
        {"the root in capitals", "<ABIL/>", "001:002"},
        {"a document type", "<!DOCTYPE abil SYSTEM \"jtif-v02021.dtd\"><abil/>", "001:002"},
        {"an entity of its own", "<!DOCTYPE abil [<!ENTITY a \"b\">]><abil>&a;</abil>", "001:002"},
        {"an entity from a file", "<!DOCTYPE abil [<!ENTITY a SYSTEM \"file:///etc/passwd\">]><abil>&a;</abil>",
         "001:002"},
        {"an unknown entity", abil("&nobody;"), "001:002"},
        {"tags that cross", abil("<a syntax=\"1setOf\"><b syntax=\"1setOf\"></a></b>"), "001:002"},
        {"an attribute twice", abil("<a syntax=\"integer\" syntax=\"integer\">1</a>"), "001:002"},
        {"an attribute without quotes", abil("<a syntax=integer>1</a>"), "001:002"},
        {"too many attributes", abil("<a" + attributes + ">1</a>"), "001:002"},
        {"too deep", abil(element("media-size-supported", "1setOf", deep)), "001:002"},
        {"a byte that is no UTF-8", abil(element("a", "name", "\xFF\xFE")), "001:002"},
        {"a control character", abil(element("a", "name", "\x01")), "001:002"},
        {"a range told as text", abil(element("copies-supported", "rangeOfInteger", "1-999")), "008:000"},
        {"a set told as text", abil(element(jobNames, "1setOf", "copies sides")), "008:000"},
        {"a collection told as text", abil(element("media-col-database", "collection", "letter")), "008:000"},
        {"a resolution told as text", abil(setOf("printer-resolution-supported", "resolution", {"600dpi"})), "008:000"},
        {"a statement of unknown syntax", abil(element("copies-supported", "rangeOfReals", "1.5")), ""},
        {"a statement without syntax", abil("<copies-supported>1</copies-supported>"), ""},
        {"yes for a boolean", abil(element("page-ranges-supported", "boolean", "perhaps")), ""},
        {"the job's list is a number", abil(element(jobNames, "integer", "1")), ""},
        {"stock members are a number", abil(element("media-col-supported", "integer", "1")), "009:000"},
        {"user's values are a keyword", abil(element("user-defined-values-supported", "keyword", "media-key")),
         "009:000"},
        {"separators are a number", abil(element("separator-sheets-supported", "integer", "1")), ""},
        {"sizes are a number", abil(element("media-size-supported", "integer", "1")), "009:000"},
        {"a size is a number", abil(setOf("media-size-supported", "integer", {"1"})), "009:000"},
        {"page range is a number", abil(element("page-ranges-allowable-range", "integer", "9")), "009:000"},
        {"page limit is a number", abil(element("pages-range", "integer", "9")), "009:000"},
        {"account limit is a keyword", abil(element("job-account-id-allowable-char-limit", "keyword", "9")), "009:000"},
        {"copies are a number",
         abil(setOf(jobNames, "keyword", {"copies"}) + element("copies-supported", "integer", "9")), "009:000"},
        {"copies without an end",
         abil(setOf(jobNames, "keyword", {"copies"}) +
              element("copies-supported", "rangeOfInteger", element("lower-bound", "integer", "1"))),
         "014:000"},
        {"copies between words",
         abil(setOf(jobNames, "keyword", {"copies"}) +
              element("copies-supported", "rangeOfInteger",
                      element("lower-bound", "keyword", "few") + element("upper-bound", "keyword", "many"))),
         "009:000"},
        {"copies in an empty set",
         abil(setOf(jobNames, "keyword", {"copies"}) + element("copies-supported", "1setOf", "\n")), "014:000"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(codeOfFile(row.text), row.code) << row.what;
    EXPECT_EQ(codeOfFile(abil(element("highlight-map-supported", "integer", "1"))), "");
    EXPECT_EQ(
        codeOfFile(abil(element("highlight-map-supported", "integer", "1")), modelOfFamily(1, PrinterLanguage::pcl)),
        "009:000")
        << "what cannot be taken out";
}

TEST(CapabilityFile, aFeatureWithoutItsRangeIsNamedInTheFailure) {
    std::size_t tried = 0;
    const std::set<std::u16string> always = [] {
        std::set<std::u16string> names;
        const Capabilities silent = makeCapabilities(list());
        for (const AttrNode& node : silent.getAttrNodeList())
            names.insert(node.getAttrID().getName());
        return names;
    }();
    for (const CapabilityInfo& row : CapabilityDataBase::rows()) {
        const std::u16string& name = row.nestedId().getOutermostId();
        if (row.type != CapabilityType::intRange || always.contains(name)) continue;
        const std::string feature = nameOf(row.feature);
        const Capabilities capabilities(
            modelOfFamily(1), TicketForm::current,
            CapabilityText(abil(setOf("job-creation-attributes-supported", "keyword", {feature.c_str()}))));
        EXPECT_EQ(messageOf<MissingCapabilityDataException>([&] { askEverything(capabilities); }),
                  "Capabilities::getFeatureCapabilities(range of integer): Could not find the " + toUtf8(name) +
                      " capability.\r\n");
        ++tried;
    }
    EXPECT_EQ(tried, 20U);
}

TEST(CapabilityFile, aLongOneIsTakenInWhole) {
    std::string names;
    for (int i = 0; i < 3000; ++i)
        names += element("value", "name", "stock " + std::to_string(i));
    const Capabilities capabilities(modelOfFamily(1), TicketForm::current,
                                    CapabilityText(abil(element("media-supported", "1setOf", names))));
    std::vector<FeatureValue> values;
    capabilities.getFeatureCapabilities(Feature::media, noParentFeature, values);
    EXPECT_EQ(values.size(), 3000U);
    EXPECT_EQ(values[1].getValueText(), u"stock 1") << "in the order of their texts";
    EXPECT_EQ(values[2].getValueText(), u"stock 10");
}
