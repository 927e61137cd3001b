// What a model writes into capabilities and into the settings that a job starts with.
#include "jtcore/FeatureSettings/CapabilityId.h"
#include "jtcore/FeatureSettings/FeatureSettings.h"
#include "jtcore/Printer/PrinterModel.h"

#include <algorithm>
#include <iterator>

namespace {

using enum CapabilityType;

constexpr Feature imageShifts[] = {Feature::xSide1ImageShift, Feature::ySide1ImageShift, Feature::xSide2ImageShift,
                                   Feature::ySide2ImageShift};
constexpr Feature accounting[] = {Feature::jobAccountId, Feature::jobAccountingUserId, Feature::jobAccountingData};

// A PCL driver has neither highlight colour nor image insertion.
constexpr Feature postScriptOnly[] = {Feature::highlightColorant, Feature::highlightMapColor,
                                      Feature::highlightMap,      Feature::highlightColorantMismatch,
                                      Feature::opiImageInsertion, Feature::opiImagePreScan};

class CapabilityWriter {
public:
    explicit CapabilityWriter(Settings& capabilities) noexcept : capabilities_(capabilities) {}

    void flag(Feature feature, CapabilityType type, bool value) {
        capabilities_.setBool(CapabilityId(feature, type), value);
    }
    void number(Feature feature, CapabilityType type, std::int32_t value) {
        capabilities_.setLong(CapabilityId(feature, type), value);
    }
    void range(Feature feature, std::int32_t lower, std::int32_t upper) {
        capabilities_.setRange(CapabilityId(feature, intRange), lower, upper);
    }

private:
    Settings& capabilities_;
};

void writePermissions(CapabilityWriter& writer, const PrinterFamilyInfo& family) {
    writer.flag(Feature::any, separateCovers, family.separateCoversAllowed);
    writer.flag(Feature::any, multipleMedia, family.multipleMediaAllowed);
    writer.flag(Feature::mediaType, embeddedSpaces, family.embeddedSpacesAllowed);
    writer.flag(Feature::mediaColor, embeddedSpaces, family.embeddedSpacesAllowed);
}

void writeTextLimits(CapabilityWriter& writer, const PrinterFamilyInfo& family) {
    writer.number(Feature::jobName, intUpperLimit, family.jobNameLimit);
    writer.number(Feature::jobName, charRestriction, family.jobNameCharacters);
    for (const Feature feature : accounting) {
        writer.range(feature, family.accountMinimum, family.accountLimit);
        writer.number(feature, charRestriction, family.accountCharacters);
    }
    writer.number(Feature::requestingUserName, intUpperLimit, family.senderNameLimit);
    writer.number(Feature::jobRecipientName, intUpperLimit, family.recipientNameLimit);
    writer.number(Feature::jobSheetMessage, intUpperLimit, family.sheetMessageLimit);
    writer.number(Feature::jobMessageToOperator, intUpperLimit, family.operatorMessageLimit);
    writer.number(Feature::jobPhoneNumber, intUpperLimit, family.phoneNumberLimit);
}

void writeCapabilities(CapabilityWriter& writer, const PrinterFamilyInfo& family) {
    writePermissions(writer, family);
    writer.range(Feature::pageRanges, 1, family.pageLimit);
    writer.range(Feature::pagesPerSubset, 1, family.pageLimit);
    writeTextLimits(writer, family);
    for (const Feature shift : imageShifts)
        writer.number(shift, precision, family.imageShiftPrecision);
    writer.flag(Feature::inputDocuments, isSupported, true);
    writer.range(Feature::pages, 1, family.pageLimit);
    writer.range(Feature::xDimension, family.mediaSizeXLower, family.mediaSizeXUpper);
    writer.range(Feature::yDimension, family.mediaSizeYLower, family.mediaSizeYUpper);
    writer.number(Feature::mediaColor, intUpperLimit, family.mediaColorLimit);
}

// The paper that a family starts with, in grams per square metre (0 for none), and whether it turns pages.
struct FamilyStart {
    std::int32_t family;
    std::int32_t weight;
    bool hasRotation;
};

constexpr FamilyStart familyStarts[] = {
    {1, 90, true},  {2, 90, true},  {3, 120, true}, {4, 75, true},   {5, 75, true},   {6, 75, true},
    {7, 75, false}, {8, 75, false}, {9, 75, false}, {10, 75, false}, {11, 75, false}, {12, 75, true},
    {13, 75, true}, {14, 0, true},  {15, 75, true}, {16, 75, true},  {17, 90, true},  {18, 75, true},
};

constexpr bool startsAreInOrder() {
    for (std::size_t i = 0; i < std::size(familyStarts); ++i)
        if (familyStarts[i].family != static_cast<std::int32_t>(i) + 1) return false;
    return std::size(familyStarts) == 18;
}
static_assert(startsAreInOrder());

void setValue(FeatureSettings& settings, Feature feature, Value value) {
    settings.setFeatureValue(FeatureId(feature), value);
}

// Booklets are laid out by the printer, which shifts both sides together.
void startBooklets(FeatureSettings& settings) {
    setValue(settings, Feature::impositionTemplate, Value::impositionTemplateNone);
    setValue(settings, Feature::xSide2ImageShift, Value::notSet);
    setValue(settings, Feature::ySide2ImageShift, Value::notSet);
}

void startImageInsertion(FeatureSettings& settings) {
    setValue(settings, Feature::opiImageInsertion, Value::insert);
    setValue(settings, Feature::opiImagePreScan, Value::noPreScan);
}

constexpr std::int32_t bookletFamily = 14;
constexpr std::int32_t genericFamily = 17;

} // namespace

void PrinterModel::applyCapabilities(Settings& capabilities, std::vector<FeatureId>& unsupported) const {
    CapabilityWriter writer(capabilities);
    writeCapabilities(writer, getFamily());
    if (language_ == PrinterLanguage::pcl)
        unsupported.insert(unsupported.end(), std::begin(postScriptOnly), std::end(postScriptOnly));
}

void PrinterModel::applyModelDefaults(FeatureSettings& settings, TicketForm form) const {
    for (const Feature shift : imageShifts)
        settings.setLong(FeatureId(shift), 0);
    const std::int32_t family = getFamily().family;
    if (family == genericFamily && form == TicketForm::current && language_ == PrinterLanguage::postScript)
        startImageInsertion(settings);
    const FamilyStart& start = familyStarts[family - 1];
    if (start.weight > 0) settings.setLong(FeatureId(Feature::mediaWeightMetric), start.weight);
    if (start.hasRotation) setValue(settings, Feature::pageRotation, Value::rotate0);
    if (family == bookletFamily) startBooklets(settings);
}
