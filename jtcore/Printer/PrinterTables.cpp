#include "jtcore/Printer/PrinterTables.h"

#include <algorithm>
#include <array>

namespace {

constexpr auto drivers = std::to_array<PrinterDriverInfo>({
#define PRINTER_DRIVER(name, language, model) {u##name, PrinterLanguage::language, model},
#include "jtcore/Printer/PrinterDriver.def"
#undef PRINTER_DRIVER
});

constexpr auto models = std::to_array<PrinterModelInfo>({
#define PRINTER_MODEL(model, family) {model, family},
#include "jtcore/Printer/PrinterModel.def"
#undef PRINTER_MODEL
});

constexpr auto makeFamilies() {
    constexpr bool yes = true;
    constexpr bool no = false;
    return std::to_array<PrinterFamilyInfo>({
#define PRINTER_FAMILY(...) {__VA_ARGS__},
#include "jtcore/Printer/PrinterFamily.def"
#undef PRINTER_FAMILY
    });
}

constexpr auto families = makeFamilies();

template <typename Rows, typename Column, typename Key>
constexpr auto findRow(const Rows& rows, Column column, const Key& key) noexcept {
    const auto found = std::find_if(rows.begin(), rows.end(), [&](const auto& row) { return row.*column == key; });
    return found == rows.end() ? nullptr : &*found;
}

template <typename Rows, typename Column>
constexpr bool keysAreUnique(const Rows& rows, Column column) {
    return std::all_of(rows.begin(), rows.end(),
                       [&](const auto& row) { return findRow(rows, column, row.*column) == &row; });
}

constexpr bool everyDriverHasItsModel() {
    return std::all_of(drivers.begin(), drivers.end(),
                       [](const auto& row) { return findRow(models, &PrinterModelInfo::model, row.model) != nullptr; });
}

constexpr bool everyModelHasItsFamily() {
    return std::all_of(models.begin(), models.end(), [](const auto& row) {
        return findRow(families, &PrinterFamilyInfo::family, row.family) != nullptr;
    });
}

static_assert(drivers.size() == 87 && models.size() == 45 && families.size() == 18);
static_assert(keysAreUnique(drivers, &PrinterDriverInfo::name));
static_assert(keysAreUnique(models, &PrinterModelInfo::model));
static_assert(keysAreUnique(families, &PrinterFamilyInfo::family));
static_assert(findRow(drivers, &PrinterDriverInfo::model, genericPrinterModel) == nullptr);
static_assert(everyDriverHasItsModel() && everyModelHasItsFamily());

} // namespace

std::span<const PrinterDriverInfo> printerDrivers() noexcept { return drivers; }
std::span<const PrinterModelInfo> printerModels() noexcept { return models; }
std::span<const PrinterFamilyInfo> printerFamilies() noexcept { return families; }

const PrinterDriverInfo* findPrinterDriver(std::u16string_view driverName) noexcept {
    return findRow(drivers, &PrinterDriverInfo::name, driverName);
}

const PrinterModelInfo* findPrinterModel(std::int32_t model) noexcept {
    return findRow(models, &PrinterModelInfo::model, model);
}

const PrinterFamilyInfo* findPrinterFamily(std::int32_t family) noexcept {
    return findRow(families, &PrinterFamilyInfo::family, family);
}

std::u16string_view describe(PrinterLanguage language) noexcept {
    return language == PrinterLanguage::pcl ? u"PCL" : u"PostScript";
}
