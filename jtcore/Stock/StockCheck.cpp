// A stock before it goes into a job.
#include "jtcore/Stock/Stock.h"

#include "jtcore/AnlXlate/PersistentSettings.h"
#include "jtcore/Capabilities/Capabilities.h"
#include "jtcore/Capabilities/SettingsProblemFixer.h"
#include "jtcore/Capabilities/SettingsProblemList.h"
#include "jtcore/Capabilities/SettingsProblemReporter.h"
#include "jtcore/Printer/PrinterDefaults.h"
#include "resources/ids.h"

bool Stock::checkStock(const Capabilities& capabilities, const PrinterDefaults& defaults, Feature feature,
                       HWND window) {
    const std::u16string displayed = getDisplayString();
    // A repair that fails half way must not reach the stock.
    FeatureSettings repaired = settings_;
    SettingsProblemList problems;
    if (capabilities.validateStock(repaired, problems, feature)) return true;
    PersistentSettings printerDefaults;
    printerDefaults.setAttrNodeList(defaults.getFeatureSettings().getAttrNodeList());
    const SettingsProblemReporter reporter(window, IDS_STOCK_PREFIX, displayed, printerDefaults, true, true);
    if (reporter.report(problems) != 1) return false;
    SettingsProblemFixer(printerDefaults).fixUntilValid(problems, [&](SettingsProblemList& left) {
        return capabilities.validateStock(repaired, left, feature);
    });
    settings_ = repaired;
    type_ = StockType::job;
    return true;
}
