// The printers that the system supports: three constant tables. A driver name gives model and language, the model gives
// the family, and the family everything else. No lookup takes a lock or allocates.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

// The page description language of a driver.
enum class PrinterLanguage : std::uint8_t {
    postScript = 1,
    pcl = 2,
};

// The model that stands for printers in general; no driver has it.
inline constexpr std::int32_t genericPrinterModel = 43;

struct PrinterDriverInfo {
    std::u16string_view name;
    PrinterLanguage language;
    std::int32_t model;
};

struct PrinterModelInfo {
    std::int32_t model;
    std::int32_t family;
};

// The columns of PrinterFamily.def, which tells what each means.
struct PrinterFamilyInfo {
    std::int32_t family;
    std::int32_t resourceForm1;
    std::int32_t resourceForm2;
    bool hasTicketFormChoice;
    bool separateCoversAllowed;
    bool multipleMediaAllowed;
    bool unspecifiedAllowed;
    bool embeddedSpacesAllowed;
    std::int32_t pageLimit;
    std::int32_t jobNameLimit;
    std::int32_t jobNameCharacters;
    std::int32_t accountLimit;
    std::int32_t accountMinimum;
    std::int32_t accountCharacters;
    std::int32_t senderNameLimit;
    std::int32_t recipientNameLimit;
    std::int32_t sheetMessageLimit;
    std::int32_t operatorMessageLimit;
    std::int32_t phoneNumberLimit;
    std::int32_t mediaColorLimit;
    std::int32_t imageShiftPrecision;
    std::int32_t mediaSizeXLower; // hundredths of a millimetre, as the three below
    std::int32_t mediaSizeXUpper;
    std::int32_t mediaSizeYLower;
    std::int32_t mediaSizeYUpper;
};

// All rows, in the order of the tables.
std::span<const PrinterDriverInfo> printerDrivers() noexcept;
std::span<const PrinterModelInfo> printerModels() noexcept;
std::span<const PrinterFamilyInfo> printerFamilies() noexcept;

// Null where there is no such row. Driver names compare whole and with case.
const PrinterDriverInfo* findPrinterDriver(std::u16string_view driverName) noexcept;
const PrinterModelInfo* findPrinterModel(std::int32_t model) noexcept;
const PrinterFamilyInfo* findPrinterFamily(std::int32_t family) noexcept;

// The name of a language as people write it.
std::u16string_view describe(PrinterLanguage language) noexcept;
