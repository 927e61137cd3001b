#include "host/driverCommands.h"

#include "host/ExitCode.h"
#include "host/output.h"
#include "jtcore/Printer/PrinterTables.h"
#include "jtcore/Services/text.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <algorithm>

namespace {

std::int32_t familyOf(const PrinterDriverInfo& driver) {
    const PrinterModelInfo* model = findPrinterModel(driver.model);
    return model ? model->family : 0;
}

nlohmann::ordered_json toJson(const PrinterDriverInfo& driver) {
    return {{"name", toUtf8(driver.name)},
            {"model", driver.model},
            {"language", toUtf8(describe(driver.language))},
            {"family", familyOf(driver)}};
}

void printTable() {
    std::size_t width = 0;
    for (const PrinterDriverInfo& driver : printerDrivers())
        width = std::max(width, toUtf8(driver.name).size());
    print(fmt::format("{:{}}  Model  Language    Family\n", "Driver", width));
    for (const PrinterDriverInfo& driver : printerDrivers())
        print(fmt::format("{:{}}  {:5}  {:10}  {:6}\n", toUtf8(driver.name), width, driver.model,
                          toUtf8(describe(driver.language)), familyOf(driver)));
}

} // namespace

int listDrivers(bool json) {
    if (!json) {
        printTable();
        return exitDone;
    }
    auto drivers = nlohmann::ordered_json::array();
    for (const PrinterDriverInfo& driver : printerDrivers())
        drivers.push_back(toJson(driver));
    printJson({{"drivers", drivers}});
    return exitDone;
}
