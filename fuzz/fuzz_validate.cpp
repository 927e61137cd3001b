// Any settings text, held against printers and repaired for them: a check ends, a repair ends, and a check after the
// repair finds nothing more. Settings of another shape than the tables say are refused with a failure of the family.
#include "jtcore/AnlXlate/PersistentSettings.h"
#include "jtcore/AnlXlate/SmallJtifTranslator.h"
#include "jtcore/Capabilities/Capabilities.h"
#include "jtcore/Capabilities/SettingsProblemFixer.h"
#include "jtcore/Capabilities/SettingsProblemList.h"
#include "jtcore/Capabilities/SettingsProblemReporter.h"
#include "jtcore/Printer/PrinterDefaults.h"
#include "jtcore/Services/KolmaException.h"
#include "resources/ids.h"

#include <cstdlib>

namespace {

// One that wants everything told, and one that can do nearly everything.
constexpr std::int32_t models[] = {4, 40};

struct Printer {
    explicit Printer(std::int32_t number)
        : model(number, PrinterLanguage::postScript),
          capabilities(model, TicketForm::current, FactoryCapabilities(model, TicketForm::current)),
          defaults(model, TicketForm::current) {
        state.setAttrNodeList(start());
    }
    const AttrNodeList& start() const { return defaults.getFeatureSettings().getAttrNodeList(); }

    PrinterModel model;
    Capabilities capabilities;
    PrinterDefaults defaults;
    PersistentSettings state;
};

void checkAndRepair(const Printer& printer, const AttrNodeList& job) {
    FeatureSettings settings(job);
    const auto validate = [&](SettingsProblemList& left) {
        return printer.capabilities.validateSettings(settings, left);
    };
    SettingsProblemList problems;
    if (validate(problems)) return;
    const SettingsProblemReporter reporter(nullptr, IDS_CAPTION_DRIVER, u"", printer.state, true, true);
    if (reporter.getReportText(problems).empty()) std::abort();
    if (!SettingsProblemFixer(printer.start()).fixUntilValid(problems, validate)) std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const Printer printers[] = {Printer(models[0]), Printer(models[1])};
    AttrNodeList job;
    try {
        SmallJtifTranslator().bufferToAnl(ByteBuffer(data, size), job);
    } catch (const KolmaException&) {
        return 0;
    }
    for (const Printer& printer : printers) {
        try {
            checkAndRepair(printer, job);
        } catch (const AttributeTypeMismatchException&) {
        }
    }
    return 0;
}
