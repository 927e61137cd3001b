// Any bytes as a printer's capability file: they are refused with a failure of the family, or everything can be asked
// of what came of them, and a question is answered or refused in the same way.
#include "jtcore/AnlXlate/AbilTranslator.h"
#include "jtcore/Capabilities/Capabilities.h"
#include "jtcore/Services/KolmaException.h"

#include <algorithm>
#include <cstdlib>

namespace {

void check(bool holds) {
    if (!holds) std::abort();
}

class GivenFile final : public CapabilitySource {
public:
    explicit GivenFile(const ByteBuffer& bytes) : bytes_(bytes) {}
    void getCapabilityData(ByteBuffer& out) const override { out = bytes_; }

private:
    const ByteBuffer& bytes_;
};

template <typename Question>
void ask(const Question& question) {
    try {
        question();
    } catch (const KolmaException&) {
    }
}

void askAboutFeature(const Capabilities& capabilities, const FeatureId& feature) {
    std::vector<FeatureValue> values;
    capabilities.getFeatureCapabilities(feature, noParentFeature, values);
    check(std::is_sorted(values.begin(), values.end()));
    capabilities.isFeatureSupported(feature);
    capabilities.isUserDefinedAllowed(feature);
    capabilities.allowsEmbeddedSpaces(feature);
    std::int32_t lower = 0;
    std::int32_t upper = 0;
    ask([&] { capabilities.getFeatureCapabilities(feature, lower, upper); });
    ask([&] { capabilities.getUpperLimit(feature); });
    ask([&] { capabilities.getPrecision(feature); });
    ask([&] { capabilities.getCharacterSetRestriction(feature); });
    for (const FeatureInfo& member : FeatureDataBase::rows())
        capabilities.isMemberSupported(feature, member.number);
}

void askEverything(const Capabilities& capabilities) {
    for (const FeatureInfo& row : FeatureDataBase::rows())
        askAboutFeature(capabilities, row.number);
    std::vector<StockSize> sizes;
    ask([&] { capabilities.getSupportedStockSizes(noParentFeature, sizes); });
    std::vector<Resolution> resolutions;
    ask([&] { capabilities.getSupportedResolutions(noParentFeature, resolutions); });
    check(capabilities.allowsSeparateCovers() == capabilities.getPrinterModel().separateCoversAllowed());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const PrinterModel models[] = {{1, PrinterLanguage::postScript}, {4, PrinterLanguage::pcl}};
    const ByteBuffer bytes(data, size);
    for (const PrinterModel& model : models)
        ask([&] {
            const Capabilities capabilities(model, TicketForm::current, GivenFile(bytes));
            askEverything(capabilities);
        });
    return 0;
}
