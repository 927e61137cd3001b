#include "resources/capabilities/tool/CapabilityChecker.h"

#include "jtcore/Attributes/AttrValueFactory.h"
#include "jtcore/Attributes/IppList.h"
#include "jtcore/FeatureSettings/CapabilityId.h"
#include "jtcore/FeatureSettings/FeatureId.h"
#include "jtcore/Services/text.h"

#include <algorithm>
#include <set>

namespace {

constexpr const char* sizeList = "media-size-supported";

// Of each pair the interface offers both or neither.
constexpr std::pair<const char*, const char*> pairs[] = {
    {"cover-front-supported", "cover-back-supported"},
    {"cover-front-supported", "cover-type-supported"},
    {"media-front-coating-supported", "media-back-coating-supported"},
    {"x-side1-image-shift-supported", "y-side1-image-shift-supported"},
    {"x-side2-image-shift-supported", "y-side2-image-shift-supported"},
    {"insert-sheet-supported", "insert-after-page-number-supported"},
    {"insert-sheet-supported", "insert-count-supported"},
    {"page-overrides-supported", "pages-supported"},
    {"page-overrides-supported", "input-documents-supported"},
    {"opi-image-insertion-supported", "opi-image-pre-scan-supported"},
};

// The members that stand for a stock: a printer model never requires them, since one of them is enough.
constexpr bool isStockName(Feature feature) { return feature == Feature::media || feature == Feature::mediaKey; }

// Chosen by the interface in one step with the entry that requires them.
constexpr bool isToldWithItsCollection(Feature feature) {
    return feature == Feature::saveDocumentFormat || feature == Feature::finishingTemplate;
}

const AttrNodeList& membersOf(const AttrValue& value) { return value.asList()->getList(); }

std::string nameOf(Feature feature) { return toUtf8(FeatureDataBase::describe(feature)); }

// Fixed sizes are ranges of one value.
std::optional<IntRange> edgeOf(const AttrValue& size, std::u16string_view id) {
    const AttrNode* node = membersOf(size).getNode(id);
    if (!node) return {};
    if (const auto range = rangeOf(node->getAttrValue())) return range;
    std::int32_t edge = 0;
    membersOf(size).JtifAttrToLong(edge, id);
    return IntRange{edge, edge};
}

bool holds(const AttrValue& entry, const PaperSize& size) {
    const auto x = edgeOf(entry, u"x-dimension");
    const auto y = edgeOf(entry, u"y-dimension");
    return x && y && ((x->contains(size.x) && y->contains(size.y)) || (x->contains(size.y) && y->contains(size.x)));
}

bool isRange(const AttrValue& entry, std::u16string_view id, std::int32_t lower, std::int32_t upper) {
    const auto range = edgeOf(entry, id);
    return range && range->lower == lower && range->upper == upper;
}

bool isCustom(const AttrValue& entry) {
    const AttrNode* node = membersOf(entry).getNode(u"x-dimension");
    return node && node->getAttrValue().isRangeOfInteger();
}

} // namespace

CapabilityChecker::CapabilityChecker(const ComposedData& data, const PrinterModel& model, FaultList& faults)
    : data_(data), model_(&model), faults_(&faults), jobStart_(jobStart(data.family.number)) {}

void CapabilityChecker::check() {
    checkLists();
    checkNames();
    checkPairs();
    checkModelLimits();
    checkStorage();
    checkUserDefined();
    checkMembers();
    checkSizes();
    checkJobStart();
    checkRequired();
}

void CapabilityChecker::checkLists() {
    for (const auto& [name, statement] : data_.composition.statements()) {
        if (statement.values.empty() && statement.schema->kind != StatementKind::userSet)
            fault(name, "has no values left");
    }
}

void CapabilityChecker::checkNames() {
    for (const auto& [name, statement] : data_.composition.statements()) {
        for (const auto& value : statement.values)
            checkName(name, statement.schema->feature, value->getIppValue());
    }
}

// As long as the entry fields take them.
void CapabilityChecker::checkName(const std::string& capability, Feature feature, const std::u16string& text) {
    const bool isColor = feature == Feature::mediaColor;
    const bool isType = feature == Feature::mediaType;
    const bool isShort = isType || feature == Feature::trcName || feature == Feature::finishingTemplate;
    const std::int32_t limit = isColor ? model_->mediaColorLimit() : isShort ? 30 : 255;
    if (text.size() > static_cast<std::size_t>(limit))
        fault(capability, "\"" + toUtf8(text) + "\" is longer than the printer takes");
    if ((isColor || isType) && !model_->embeddedSpacesAllowed() && text.find(u' ') != text.npos)
        fault(capability, "\"" + toUtf8(text) + "\" has a blank, which the printer does not take");
}

void CapabilityChecker::checkPairs() {
    const auto need = [this](const std::string& present, const std::string& missing) {
        if (data_.composition.has(present) && !data_.composition.has(missing))
            fault(missing, "is missing: it goes with " + present);
    };
    for (const auto& [one, other] : pairs) {
        need(one, other);
        need(other, one);
    }
}

// What the model says about a feature that its printers do not have is 0.
void CapabilityChecker::checkModelLimits() {
    if (model_->operatorMessageLimit() == 0 && data_.composition.has("job-message-to-operator-supported"))
        fault("job-message-to-operator-supported", "the printer model leaves no character for it");
    if (model_->phoneNumberLimit() == 0 && data_.composition.has("job-phone-number-supported"))
        fault("job-phone-number-supported", "the printer model leaves no character for it");
    checkPageRange("force-front-side-supported");
    checkPageRange("insert-after-page-number-supported");
}

void CapabilityChecker::checkPageRange(const std::string& name) {
    const Statement* statement = data_.composition.find(name);
    const auto range = statement && !statement->values.empty() ? rangeOf(*statement->values[0]) : std::nullopt;
    if (range && range->upper > model_->pageLimit())
        fault(name,
              "goes beyond page " + std::to_string(model_->pageLimit()) + ", the last that the printer model knows");
}

void CapabilityChecker::checkStorage() {
    const Statement* dispositions = data_.composition.find("save-disposition-supported");
    if (dispositions && dispositions->values.size() > 1 && !data_.composition.has("save-document-format-supported"))
        fault("save-document-format-supported", "is missing: a job that is saved needs a format");
}

void CapabilityChecker::checkUserDefined() {
    const std::string name = "user-defined-values-supported";
    const Statement* statement = data_.composition.find(name);
    if (!statement) return fault(name, "is missing");
    for (const auto& value : statement->values)
        checkUserDefined(FeatureId(value->getIppValue()).getNumber(), name);
}

// A value is typed into a field whose length comes from the limit; sizes have fields of their own.
void CapabilityChecker::checkUserDefined(Feature feature, const std::string& name) {
    if (feature == Feature::mediaSize) return;
    if (!FeatureId(feature).isUserDefinable())
        fault(name, nameOf(feature) + " takes no values of the user's own");
    else if (!CapabilityId::isValid(feature, CapabilityType::intUpperLimit))
        fault(name, "there is no limit to the length of a value of " + nameOf(feature));
}

void CapabilityChecker::checkMembers() {
    for (const auto& [name, statement] : data_.composition.statements()) {
        if (statement.schema->kind == StatementKind::memberSet) checkMembers(name, statement);
    }
}

// The members of a stock within an entry are looked up in the list of the entry.
void CapabilityChecker::checkMembers(const std::string& name, const Statement& statement) {
    std::set<std::u16string> members;
    for (const auto& value : statement.values) {
        members.insert(value->getIppValue());
        if (!data_.supported.has(value->getIppValue()))
            fault(name, toUtf8(value->getIppValue()) + " is not supported by the printer");
    }
    if (members.contains(u"media-col") && !members.contains(u"media-size"))
        fault(name, "names media-col without media-size, so no stock with a size would pass");
}

// The printer model writes its range into the first entry.
void CapabilityChecker::checkSizes() {
    const Statement* sizes = data_.composition.find(sizeList);
    if (!sizes || sizes->values.empty()) return fault(sizeList, "is missing");
    const AttrValue& custom = *sizes->values[0];
    if (!isCustom(custom)) return fault(sizeList, "the range of custom sizes stands first");
    const PrinterFamilyInfo& family = model_->getFamily();
    if (!isRange(custom, u"x-dimension", family.mediaSizeXLower, family.mediaSizeXUpper) ||
        !isRange(custom, u"y-dimension", family.mediaSizeYLower, family.mediaSizeYUpper))
        fault(sizeList, "the range of custom sizes is not that of the printer model");
    for (std::size_t i = 1; i < sizes->values.size(); ++i)
        checkFixedSize(*sizes->values[i], custom);
}

void CapabilityChecker::checkFixedSize(const AttrValue& entry, const AttrValue& custom) {
    if (isCustom(entry)) return fault(sizeList, "there is one range of custom sizes");
    const PaperSize size{edgeOf(entry, u"x-dimension")->lower, edgeOf(entry, u"y-dimension")->lower};
    if (!holds(custom, size)) fault(sizeList, describe(size) + " is beyond the printer's range");
}

void CapabilityChecker::checkJobStart() {
    for (const StartValue& start : jobStart_)
        checkStartValue(start);
    checkStartSizes();
}

void CapabilityChecker::checkStartValue(const StartValue& start) {
    const std::string name = nameOf(start.feature);
    const Statement* statement = findValues(data_.composition, start.feature);
    if (!statement) return fault(name + "-supported", "is missing: a job starts with " + toUtf8(start.text));
    const Syntax& syntax = FeatureDataBase::getFeatureInfo(start.feature).syntaxes[0];
    if (!allows(*statement, *AttrValueFactory::createAttrValue(syntax.name, start.text)))
        fault(statement->schema->name, "a job starts with " + toUtf8(start.text) + ", which is not allowed");
}

// A job starts with the usual size of the user's region.
void CapabilityChecker::checkStartSizes() {
    constexpr PaperSize usual[] = {{21600, 27900}, {21600, 35600}, {21000, 29700}};
    const Statement* sizes = data_.composition.find(sizeList);
    if (!sizes) return;
    for (const PaperSize& size : usual) {
        if (!allowsSize(*sizes, size))
            fault(sizeList, "a job may start with " + describe(size) + ", which is not allowed");
    }
}

// Whatever a level requires, the start of a job must give: a repair takes it from there.
void CapabilityChecker::checkRequired() {
    for (const Feature level :
         {Feature::any, Feature::mediaCol, Feature::jobSaveDisposition, Feature::separatorSheets}) {
        for (const Feature member : data_.supported.members(level))
            checkRequired(member, noParentFeature);
    }
    for (const auto& [name, statement] : data_.composition.statements()) {
        if (statement.schema->kind != StatementKind::memberSet) continue;
        for (const auto& value : statement.values) {
            const Feature feature = FeatureId(value->getIppValue()).getNumber();
            checkRequired(feature, statement.schema->feature);
            checkRequired(feature, noParentFeature);
        }
    }
}

void CapabilityChecker::checkRequired(Feature feature, Feature level) {
    if (isStockName(feature) || SupportedFeatures::isToldByEntry(feature) || isToldWithItsCollection(feature)) return;
    const UnspecifiedRule rule = FeatureId(feature).getUnspecifiedRule();
    const bool isOptional =
        rule == UnspecifiedRule::always ||
        (rule == UnspecifiedRule::byPrinter && model_->isUnspecifiedAllowed(feature, level, data_.form));
    if (!isOptional && !startsWith(feature))
        fault(nameOf(feature) + "-supported", "the printer requires the attribute, and a job starts without it");
}

bool CapabilityChecker::startsWith(Feature feature) const {
    // The region decides the size; the names of the job and of its owner are always there.
    if (feature == Feature::mediaSize || feature == Feature::jobName || feature == Feature::requestingUserName)
        return true;
    return std::ranges::find(jobStart_, feature, &StartValue::feature) != jobStart_.end();
}

void CapabilityChecker::fault(const std::string& key, const std::string& text) {
    faults_->add({data_.family.file, key}, text + (data_.form == TicketForm::rendo2x ? " (older form)" : ""));
}

const Statement* findValues(const Composition& composition, Feature feature) {
    for (const auto& [name, statement] : composition.statements()) {
        if (statement.schema->feature == feature && statement.schema->kind != StatementKind::memberSet)
            return &statement;
    }
    return nullptr;
}

std::string describe(const PaperSize& size) { return std::to_string(size.x) + " x " + std::to_string(size.y); }

bool allowsSize(const Statement& sizes, const PaperSize& size) {
    return std::ranges::any_of(sizes.values, [&](const auto& entry) { return holds(*entry, size); });
}
