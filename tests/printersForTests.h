// Printers for tests: their capabilities from the resource module, or from a list that a test writes.
#pragma once

#include "jtcore/Capabilities/Capabilities.h"
#include "jtcore/Printer/PrinterDefaults.h"
#include "tests/listBuilder.h"

#include <memory>
#include <stdexcept>

// A capability file that is a list already.
class ListCapabilities final : public CapabilitySource {
public:
    explicit ListCapabilities(AttrNodeList list) : list_(std::move(list)) {}
    void getCapabilityData(ByteBuffer&) const override { throw std::logic_error("not asked for"); }

protected:
    void translateData(AttrNodeList& target) const override {
        for (const AttrNode& node : list_)
            target.addNode(node);
    }

private:
    AttrNodeList list_;
};

inline PrinterModel modelOfFamily(std::int32_t family) {
    for (const PrinterModelInfo& row : printerModels())
        if (row.family == family) return {row.model, PrinterLanguage::postScript};
    throw std::runtime_error("no such family");
}

// A printer as it comes from the factory.
struct FactoryPrinter {
    explicit FactoryPrinter(std::int32_t family, TicketForm form = TicketForm::current)
        : model(modelOfFamily(family)),
          capabilities(model, form, FactoryCapabilities(model, form)),
          defaults(model, form) {}

    const AttrNodeList& start() const { return defaults.getFeatureSettings().getAttrNodeList(); }

    PrinterModel model;
    Capabilities capabilities;
    PrinterDefaults defaults;
};

inline ListBuilder keywords(std::initializer_list<std::u16string_view> texts) {
    ListBuilder members;
    for (const std::u16string_view text : texts)
        members.keyword(u"value", text);
    return members;
}
