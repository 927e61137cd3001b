#include "resources/capabilities/tool/JobStart.h"

#include <algorithm>
#include <array>

namespace {

constexpr auto common = std::to_array<StartValue>({
    {Feature::copies, u"1"},
    {Feature::finishings, u"3"},
    {Feature::sheetCollate, u"collated"},
    {Feature::sides, u"one-sided"},
    {Feature::saveDisposition, u"none"},
    {Feature::mediaColor, u"white"},
    {Feature::mediaType, u"stationery"},
    {Feature::mediaHoleCount, u"0"},
    {Feature::xSide1ImageShift, u"0"},
    {Feature::ySide1ImageShift, u"0"},
    {Feature::xSide2ImageShift, u"0"},
    {Feature::ySide2ImageShift, u"0"},
});

// Empty: the family's jobs start without it.
struct FamilyStart {
    std::int32_t family;
    std::u16string_view weight;
    std::u16string_view rotation;
};
constexpr auto families = std::to_array<FamilyStart>({
    {1, u"90", u"rotate-0"},
    {2, u"90", u"rotate-0"},
    {3, u"120", u"rotate-0"},
    {4, u"75", u"rotate-0"},
    {5, u"75", u"rotate-0"},
    {6, u"75", u"rotate-0"},
    {7, u"75", u""},
    {8, u"75", u""},
    {9, u"75", u""},
    {10, u"75", u""},
    {11, u"75", u""},
    {12, u"75", u"rotate-0"},
    {13, u"75", u"rotate-0"},
    {14, u"", u"rotate-0"},
    {15, u"75", u"rotate-0"},
    {16, u"75", u"rotate-0"},
    {17, u"90", u"rotate-0"},
    {18, u"75", u"rotate-0"},
});

// The oldest controllers shift both sides alike, and start with an imposition.
constexpr std::int32_t signatureFamily = 14;
constexpr std::int32_t genericFamily = 17;

void addFamily(std::vector<StartValue>& values, std::int32_t family) {
    const auto row = std::ranges::find(families, family, &FamilyStart::family);
    if (row == families.end()) return;
    if (!row->weight.empty()) values.push_back({Feature::mediaWeightMetric, row->weight});
    if (!row->rotation.empty()) values.push_back({Feature::pageRotation, row->rotation});
}

} // namespace

std::vector<StartValue> jobStart(std::int32_t family) {
    std::vector<StartValue> values(common.begin(), common.end());
    addFamily(values, family);
    if (family == signatureFamily) {
        std::erase_if(values, [](const StartValue& value) {
            return value.feature == Feature::xSide2ImageShift || value.feature == Feature::ySide2ImageShift;
        });
        values.push_back({Feature::impositionTemplate, u"none"});
    }
    if (family == genericFamily) {
        values.push_back({Feature::opiImageInsertion, u"insert"});
        values.push_back({Feature::opiImagePreScan, u"no-pre-scan"});
    }
    return values;
}
