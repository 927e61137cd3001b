// The capabilities that the printers come with, as the built resource module holds them.
#include "resources/capabilities/tool/JsonFile.h"
#include "resources/capabilities/tool/composeCapabilities.h"
#include "resources/ids.h"

#include "jtcore/AnlXlate/AbilTranslator.h"
#include "jtcore/Attributes/IppBoolean.h"
#include "jtcore/Attributes/IppList.h"
#include "jtcore/Attributes/PrimitiveInteger.h"
#include "jtcore/Compress/CompressedBuffer.h"
#include "jtcore/FeatureSettings/CapabilityId.h"
#include "jtcore/FeatureSettings/FeatureId.h"
#include "jtcore/FeatureSettings/FeatureSettings.h"
#include "jtcore/FeatureSettings/Value.h"
#include "jtcore/Printer/PrinterModel.h"
#include "jtcore/Services/ResourceData.h"
#include "jtcore/Services/ResourceLibrary.h"
#include "jtcore/Services/text.h"

#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace {

const std::filesystem::path dataFolder = std::filesystem::path(KOLMA_SOURCE_DIR) / "resources/capabilities";

std::set<std::int32_t> allResourceIds() {
    std::set<std::int32_t> ids;
    for (const PrinterFamilyInfo& family : printerFamilies())
        ids.insert({family.resourceForm1, family.resourceForm2});
    return ids;
}

ByteBuffer storedResource(std::int32_t id) {
    ResourceData resource(static_cast<std::uint16_t>(id));
    ResourceLibrary().loadRawData(resource);
    return resource.getBytes();
}

const AttrNodeList& capabilitiesOf(std::int32_t id) {
    static std::map<std::int32_t, AttrNodeList> known;
    const auto [at, isNew] = known.try_emplace(id);
    if (isNew) {
        ByteBuffer text;
        CompressedBuffer(storedResource(id)).getOriginalData(text);
        AbilTranslator().bufferToAnl(text, at->second);
    }
    return at->second;
}

std::string nameOf(std::int32_t family, TicketForm form) {
    return "family " + std::to_string(family) + (form == TicketForm::rendo2x ? ", older form" : "");
}

// Every family in both forms, with what the printer then has.
struct PrinterCase {
    const PrinterFamilyInfo* family;
    TicketForm form;
    std::string name;
    AttrNodeList capabilities;
};

const std::vector<PrinterCase>& allPrinters() {
    static const std::vector<PrinterCase> all = [] {
        std::vector<PrinterCase> printers;
        for (const PrinterFamilyInfo& family : printerFamilies()) {
            for (const auto& [form, id] : {std::pair(TicketForm::current, family.resourceForm1),
                                           std::pair(TicketForm::rendo2x, family.resourceForm2)})
                printers.push_back({&family, form, nameOf(family.family, form), capabilitiesOf(id)});
        }
        return printers;
    }();
    return all;
}

PrinterModel modelOf(const PrinterFamilyInfo& family) {
    const auto row = std::ranges::find(printerModels(), family.family, &PrinterModelInfo::family);
    return {row->model, PrinterLanguage::postScript};
}

const AttrNodeList* listOf(const AttrNodeList& capabilities, std::u16string_view name) {
    const AttrNode* node = capabilities.getNode(name);
    const IppList* list = node ? node->getAttrValue().asList() : nullptr;
    return list ? &list->getList() : nullptr;
}

std::set<std::u16string> textsOf(const AttrNodeList& capabilities, std::u16string_view name) {
    std::set<std::u16string> texts;
    const AttrNodeList* list = listOf(capabilities, name);
    if (!list) return texts;
    for (const AttrNode& node : *list)
        texts.insert(node.getAttrValue().getIppValue());
    return texts;
}

bool isWithin(const AttrValue& range, std::int32_t value) {
    std::int32_t lower = 0;
    std::int32_t upper = 0;
    return range.getRangeOfIntegerValues(lower, upper) && lower <= value && value <= upper;
}

// As a printer's validation looks at a single value: a listed one, one within a range, or anything where true is said.
bool allows(const AttrValue& supported, const AttrValue& tested) {
    if (const IppBoolean* answer = supported.asBoolean()) return answer->getIppValue() == u"true";
    const PrimitiveInteger* number = tested.asPrimitiveInteger();
    if (supported.isRangeOfInteger()) return number && isWithin(supported, number->getValue());
    if (!supported.isList()) return supported.getIppValue() == tested.getIppValue();
    const AttrNodeList& list = supported.asList()->getList();
    return std::ranges::any_of(list, [&](const AttrNode& node) { return allows(node.getAttrValue(), tested); });
}

bool holdsEdge(const AttrNodeList& size, std::u16string_view id, std::int32_t edge) {
    const AttrNode* node = size.getNode(id);
    return node && (allows(node->getAttrValue(), IppInteger(edge)));
}

bool allowsSize(const AttrNodeList& capabilities, std::int32_t x, std::int32_t y) {
    const AttrNodeList* sizes = listOf(capabilities, u"media-size-supported");
    return sizes && std::ranges::any_of(*sizes, [&](const AttrNode& node) {
               const AttrNodeList& size = node.getAttrValue().asList()->getList();
               return (holdsEdge(size, u"x-dimension", x) && holdsEdge(size, u"y-dimension", y)) ||
                      (holdsEdge(size, u"x-dimension", y) && holdsEdge(size, u"y-dimension", x));
           });
}

// The job that a printer starts with. The values that depend on the family stand in the two tables of its users.
FeatureSettings jobStart(std::int32_t family) {
    static const std::map<std::int32_t, std::int32_t> weights = {{1, 90}, {2, 90}, {3, 120}, {14, 0}, {17, 90}};
    const std::set<std::int32_t> withoutRotation = {7, 8, 9, 10, 11};
    FeatureSettings job;
    job.setLong(FeatureId(Feature::copies), 1);
    for (const Value value : {Value::finishingsNone, Value::collated, Value::oneSided, Value::saveDispositionNone,
                              Value::white, Value::mediaTypeStationery}) {
        const Feature feature = FeatureValueDataBase::getFeatureValueInfo(value).features[0];
        job.setFeatureValue(FeatureId(feature), FeatureValue(value));
    }
    job.setLong(FeatureId(Feature::mediaHoleCount), 0);
    job.setString(FeatureId(Feature::jobName), u"Document");
    job.setString(FeatureId(Feature::requestingUserName), u"somebody");
    job.setString(FeatureId(Feature::jobRecipientName), u"somebody");
    for (const Feature shift : {Feature::xSide1ImageShift, Feature::ySide1ImageShift})
        job.setLong(FeatureId(shift), 0);
    if (family != 14) {
        job.setLong(FeatureId(Feature::xSide2ImageShift), 0);
        job.setLong(FeatureId(Feature::ySide2ImageShift), 0);
    } else {
        job.setString(FeatureId(Feature::impositionTemplate), u"none");
    }
    const auto weight = weights.find(family);
    if (family != 14) job.setLong(FeatureId(Feature::mediaWeightMetric), weight == weights.end() ? 75 : weight->second);
    if (!withoutRotation.contains(family)) job.setString(FeatureId(Feature::pageRotation), u"rotate-0");
    if (family == 17) {
        job.setString(FeatureId(Feature::opiImageInsertion), u"insert");
        job.setString(FeatureId(Feature::opiImagePreScan), u"no-pre-scan");
    }
    return job;
}

// What the printer would find wrong with the members of one level; "" for nothing.
std::string faultsOf(const AttrNodeList& capabilities, const AttrNodeList& level, std::u16string_view memberList) {
    std::string faults;
    const std::set<std::u16string> members = textsOf(capabilities, memberList);
    for (const AttrNode& node : level) {
        const std::u16string& id = node.getAttrID().getName();
        const AttrValue& value = node.getAttrValue();
        if (!members.contains(id)) faults += toUtf8(id) + " is not allowed; ";
        const AttrNode* supported = capabilities.getNode(id + u"-supported");
        if (value.isCollection())
            faults += faultsOf(capabilities, value.asList()->getList(), id + u"-supported");
        else if (value.is1setOf())
            for (const AttrNode& element : value.asList()->getList())
                faults += supported && allows(supported->getAttrValue(), element.getAttrValue())
                              ? ""
                              : toUtf8(id) + " has a value that is not allowed; ";
        else if (supported && !allows(supported->getAttrValue(), value))
            faults += toUtf8(id) + " = " + toUtf8(value.getIppValue()) + " is not allowed; ";
    }
    return faults;
}

std::string missingOf(const PrinterCase& printer, const FeatureSettings& job, std::u16string_view memberList) {
    std::string missing;
    const PrinterModel model = modelOf(*printer.family);
    for (const std::u16string& name : textsOf(printer.capabilities, memberList)) {
        if (name == u"media" || name == u"media-key" || name == u"media-size") continue;
        const FeatureId feature(name);
        const UnspecifiedRule rule = feature.getUnspecifiedRule();
        const bool isOptional = rule == UnspecifiedRule::always ||
                                (rule == UnspecifiedRule::byPrinter &&
                                 model.isUnspecifiedAllowed(feature.getNumber(), noParentFeature, printer.form));
        if (!isOptional && !job.hasFeature(feature)) missing += toUtf8(name) + " is missing; ";
    }
    return missing;
}

std::vector<std::filesystem::path> familyFiles() {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(dataFolder / "families"))
        files.push_back(entry.path());
    std::ranges::sort(files);
    return files;
}

std::string fileContent(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string joined(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines)
        text += line + "\n";
    return text;
}

} // namespace

TEST(CapabilityResources, everyResourceOfTheFamilyTableHoldsACapabilityFile) {
    for (const std::int32_t id : allResourceIds()) {
        SCOPED_TRACE(id);
        const CompressedBuffer compressed(storedResource(id));
        EXPECT_EQ(compressed.getLevel(), CompressedBuffer::defaultLevel);
        ByteBuffer text;
        compressed.getOriginalData(text);
        const std::string start(reinterpret_cast<const char*>(text.getData()),
                                std::min<std::size_t>(text.getSize(), 120));
        EXPECT_NE(start.find("<abil version=\"1.0\" sema-version=\"2.01\""), start.npos) << start;
        const AttrNodeList& capabilities = capabilitiesOf(id);
        for (const char16_t* name :
             {u"job-creation-attributes-supported", u"user-defined-values-supported", u"media-col-supported",
              u"media-size-supported", u"media-key-supported", u"media-supported", u"media-col-database",
              u"sides-supported", u"finishings-supported", u"job-save-disposition-supported",
              u"save-disposition-supported"})
            EXPECT_NE(listOf(capabilities, name), nullptr) << toUtf8(name);
    }
    EXPECT_EQ(allResourceIds().size(), 34U);
}

TEST(CapabilityResources, theNamesOfTheResourcesAreThoseOfTheFamilyTable) {
    const std::set<std::int32_t> named = {
        IDR_CAPABILITIES_01,       IDR_CAPABILITIES_01_OLDER, IDR_CAPABILITIES_02,       IDR_CAPABILITIES_02_OLDER,
        IDR_CAPABILITIES_03,       IDR_CAPABILITIES_03_OLDER, IDR_CAPABILITIES_04,       IDR_CAPABILITIES_04_OLDER,
        IDR_CAPABILITIES_05,       IDR_CAPABILITIES_06,       IDR_CAPABILITIES_06_OLDER, IDR_CAPABILITIES_07,
        IDR_CAPABILITIES_07_OLDER, IDR_CAPABILITIES_08,       IDR_CAPABILITIES_08_OLDER, IDR_CAPABILITIES_09,
        IDR_CAPABILITIES_09_OLDER, IDR_CAPABILITIES_10,       IDR_CAPABILITIES_10_OLDER, IDR_CAPABILITIES_11,
        IDR_CAPABILITIES_11_OLDER, IDR_CAPABILITIES_12,       IDR_CAPABILITIES_12_OLDER, IDR_CAPABILITIES_13,
        IDR_CAPABILITIES_13_OLDER, IDR_CAPABILITIES_14,       IDR_CAPABILITIES_14_OLDER, IDR_CAPABILITIES_15,
        IDR_CAPABILITIES_15_OLDER, IDR_CAPABILITIES_16,       IDR_CAPABILITIES_16_OLDER, IDR_CAPABILITIES_17,
        IDR_CAPABILITIES_18,       IDR_CAPABILITIES_18_OLDER};
    EXPECT_EQ(named, allResourceIds());
}

// The number in a resource's name is that of the family whose data it holds: no two are mixed up.
TEST(CapabilityResources, eachHoldsWhatItsFamilysFileComposes) {
    for (const auto& file : familyFiles()) {
        const auto* family = findPrinterFamily(std::stoi(file.filename().string().substr(0, 2)));
        ASSERT_NE(family, nullptr) << file;
        for (const auto& [form, id] : {std::pair(TicketForm::current, family->resourceForm1),
                                       std::pair(TicketForm::rendo2x, family->resourceForm2)}) {
            if (form == TicketForm::rendo2x && (family->family == 5 || family->family == 17)) continue;
            FaultList faults;
            const AttrNodeList composed = composeCapabilities(dataFolder, file, form, faults);
            EXPECT_EQ(joined(faults.lines()), "");
            EXPECT_TRUE(composed.equals(capabilitiesOf(id))) << nameOf(family->family, form);
            EXPECT_TRUE(toCapabilityResource(composed) == storedResource(id)) << nameOf(family->family, form);
        }
    }
}

TEST(CapabilityResources, aJobThatNobodyTouchedIsLegalEverywhere) {
    constexpr std::pair<std::int32_t, std::int32_t> usualSizes[] = {{21600, 27900}, {21600, 35600}, {21000, 29700}};
    for (const PrinterCase& printer : allPrinters()) {
        const FeatureSettings job = jobStart(printer.family->family);
        const AttrNodeList& capabilities = printer.capabilities;
        EXPECT_EQ(faultsOf(capabilities, job.getAttrNodeList(), u"job-creation-attributes-supported"), "")
            << printer.name;
        for (const char16_t* level :
             {u"job-creation-attributes-supported", u"media-col-supported", u"job-save-disposition-supported"})
            EXPECT_EQ(missingOf(printer, job, level), "") << printer.name << ", " << toUtf8(level);
        EXPECT_TRUE(textsOf(capabilities, u"media-col-supported").contains(u"media-size")) << printer.name;
        for (const auto& [x, y] : usualSizes)
            EXPECT_TRUE(allowsSize(capabilities, x, y)) << printer.name << ", " << x << " x " << y;
    }
}

TEST(CapabilityResources, theModelsRangesCanBeWrittenOverTheCustomSizes) {
    for (const PrinterCase& printer : allPrinters()) {
        Settings capabilities(printer.capabilities);
        for (const Feature edge : {Feature::xDimension, Feature::yDimension}) {
            const CapabilityId id(edge, CapabilityType::intRange);
            std::int32_t lower = 0;
            std::int32_t upper = 0;
            ASSERT_TRUE(capabilities.getRange(id, lower, upper)) << printer.name;
            const bool isX = edge == Feature::xDimension;
            EXPECT_EQ(lower, isX ? printer.family->mediaSizeXLower : printer.family->mediaSizeYLower) << printer.name;
            EXPECT_EQ(upper, isX ? printer.family->mediaSizeXUpper : printer.family->mediaSizeYUpper) << printer.name;
            EXPECT_NO_THROW(capabilities.setRange(id, lower, upper)) << printer.name;
        }
        EXPECT_TRUE(capabilities.getAttrNodeList().equals(printer.capabilities)) << printer.name;
    }
}

TEST(CapabilityResources, everyListedStockCanBeAskedFor) {
    for (const PrinterCase& printer : allPrinters()) {
        const AttrNodeList& stocks = *listOf(printer.capabilities, u"media-col-database");
        EXPECT_GE(stocks.getNumNodes(), 12U) << printer.name;
        EXPECT_LE(stocks.getNumNodes(), 30U) << printer.name;
        for (const AttrNode& stock : stocks) {
            const AttrNodeList& members = stock.getAttrValue().asList()->getList();
            std::u16string key;
            EXPECT_TRUE(members.JtifAttrToString(key, u"media-key"));
            AttrNodeList told = members;
            told.deleteNode(u"media-size");
            EXPECT_EQ(faultsOf(printer.capabilities, told, u"media-col-supported"), "")
                << printer.name << ", " << toUtf8(key);
            std::int32_t x = 0;
            std::int32_t y = 0;
            const AttrNodeList* size = listOf(members, u"media-size");
            ASSERT_TRUE(size && size->JtifAttrToLong(x, u"x-dimension") && size->JtifAttrToLong(y, u"y-dimension"))
                << printer.name << ", " << toUtf8(key);
            EXPECT_TRUE(x <= y && allowsSize(printer.capabilities, x, y)) << printer.name << ", " << toUtf8(key);
        }
    }
}

TEST(CapabilityResources, noTwoFamiliesAreAlike) {
    const auto families = printerFamilies();
    for (auto one = families.begin(); one != families.end(); ++one) {
        for (auto other = families.begin(); other != one; ++other)
            EXPECT_FALSE(capabilitiesOf(one->resourceForm1).equals(capabilitiesOf(other->resourceForm1)))
                << one->family << " and " << other->family;
    }
}

TEST(CapabilityResources, theOlderFormSaysLess) {
    for (const PrinterFamilyInfo& family : printerFamilies()) {
        if (family.resourceForm1 == family.resourceForm2 || family.family == 5) continue;
        const AttrNodeList& newer = capabilitiesOf(family.resourceForm1);
        for (const std::u16string& name :
             textsOf(capabilitiesOf(family.resourceForm2), u"job-creation-attributes-supported"))
            EXPECT_TRUE(textsOf(newer, u"job-creation-attributes-supported").contains(name))
                << family.family << ", " << toUtf8(name);
        EXPECT_FALSE(newer.equals(capabilitiesOf(family.resourceForm2))) << family.family;
    }
}

TEST(CapabilityData, nothingSharedIsLeftUntaken) {
    std::string families;
    for (const auto& file : familyFiles())
        families += fileContent(file);
    FaultList faults;
    const JsonFile stocks = readJsonFile(dataFolder / "shared/stocks.json", faults);
    const std::string taken = families + show(stocks.content["sets"]) + show(stocks.content["stocks"]);
    const auto isTaken = [](const std::string& text, const std::string& name) {
        return text.find("\"" + name + "\"") != text.npos;
    };
    for (const auto& entry : std::filesystem::directory_iterator(dataFolder / "shared")) {
        const std::string file = entry.path().filename().string();
        if (file == "stocks.json" || file == "older-form.json") continue;
        const JsonFile shared = readJsonFile(entry.path(), faults);
        for (const auto& [name, content] : shared.content.items())
            EXPECT_TRUE(isTaken(taken, name)) << file << ": " << name;
    }
    for (const auto& [name, content] : stocks.content["stocks"].items())
        EXPECT_TRUE(isTaken(families + show(stocks.content["sets"]), name)) << "stocks.json: " << name;
    for (const auto& [name, content] : stocks.content["sets"].items())
        EXPECT_TRUE(isTaken(families, name)) << "stocks.json: " << name;
    EXPECT_EQ(joined(faults.lines()), "");
}
