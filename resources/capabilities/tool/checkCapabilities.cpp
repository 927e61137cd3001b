#include "resources/capabilities/tool/checkCapabilities.h"

#include "resources/capabilities/tool/CapabilityChecker.h"
#include "resources/capabilities/tool/StockChecker.h"

#include "jtcore/Printer/PrinterModel.h"

#include <algorithm>

namespace {

// Any model does: what is checked depends on the family alone.
const PrinterModelInfo* anyModelOf(std::int32_t family) {
    const auto found = std::ranges::find(printerModels(), family, &PrinterModelInfo::family);
    return found == printerModels().end() ? nullptr : &*found;
}

} // namespace

void checkCapabilities(const ComposedData& data, FaultList& faults) {
    const PrinterModelInfo* info = anyModelOf(data.family.number);
    if (!info)
        return faults.add({data.family.file, "family"}, "there is no family " + std::to_string(data.family.number));
    const PrinterModel model(info->model, PrinterLanguage::postScript);
    CapabilityChecker(data, model, faults).check();
    StockChecker(data, faults).check();
}
