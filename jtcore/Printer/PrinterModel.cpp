#include "jtcore/Printer/PrinterModel.h"

#include "jtcore/Services/KolmaException.h"

namespace {

template <typename Row>
std::size_t positionOf(const Row* row, std::span<const Row> rows) noexcept {
    return static_cast<std::size_t>(row - rows.data());
}

// The families whose servers save TIFF only without printing.
constexpr std::int32_t tiffOnlyWhenSaving[] = {1, 2, 3};

} // namespace

std::unique_ptr<PrinterModel> PrinterModel::createFromDriverName(std::u16string_view driverName) {
    const PrinterDriverInfo& driver = printerDrivers()[getDriverInfoIndex(driverName)];
    return std::make_unique<PrinterModel>(driver.model, driver.language);
}

PrinterModel::PrinterModel(std::int32_t model, PrinterLanguage language)
    : model_(model),
      language_(language),
      modelRow_(getModelInfoIndex(model)),
      familyRow_(getFamilyInfoIndex(printerModels()[modelRow_].family)) {}

std::int32_t PrinterModel::getCapabilityResourceId(TicketForm form) const noexcept {
    return form == TicketForm::rendo2x ? getFamily().resourceForm2 : getFamily().resourceForm1;
}

bool PrinterModel::isUnspecifiedAllowed(Feature feature, Feature parent, TicketForm form) const noexcept {
    const bool hasParent = parent != noParentFeature;
    switch (feature) {
    case Feature::sides:
    case Feature::pageRotation:
        if (hasParent) return true;
        break;
    case Feature::jobName:
        if (form == TicketForm::rendo2x) return false;
        break;
    case Feature::xDimension:
    case Feature::yDimension:
    case Feature::mediaColor:
    case Feature::mediaType:
    case Feature::mediaHoleCount:
    case Feature::mediaWeightMetric:
    case Feature::mediaSize:
        if (hasParent && form == TicketForm::rendo2x) return false;
        break;
    default:
        break;
    }
    return unspecifiedAllowed();
}

bool PrinterModel::isTiffAllowedWithPrintSave() const noexcept {
    for (const std::int32_t family : tiffOnlyWhenSaving)
        if (getFamily().family == family) return false;
    return true;
}

std::size_t PrinterModel::getDriverInfoIndex(std::u16string_view driverName) {
    if (const auto* row = findPrinterDriver(driverName)) return positionOf(row, printerDrivers());
    raise<IndexOutOfBoundsException>(u"PrinterModel::getDriverInfoIndex(): Could not find the printer driver name '%s' "
                                     u"in the table of printer driver information.\r\n",
                                     driverName);
}

std::size_t PrinterModel::getModelInfoIndex(std::int32_t model) {
    if (const auto* row = findPrinterModel(model)) return positionOf(row, printerModels());
    raise<IndexOutOfBoundsException>(u"PrinterModel::getModelInfoIndex(): Could not find the model enumeration value "
                                     u"(%ld) in the table of printer model information.\r\n",
                                     model);
}

std::size_t PrinterModel::getFamilyInfoIndex(std::int32_t family) {
    if (const auto* row = findPrinterFamily(family)) return positionOf(row, printerFamilies());
    raise<IndexOutOfBoundsException>(u"PrinterModel::getFamilyInfoIndex(): Could not find the family enumeration value "
                                     u"(%ld) in the table of printer family information.\r\n",
                                     family);
}
