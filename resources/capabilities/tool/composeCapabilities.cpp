#include "resources/capabilities/tool/composeCapabilities.h"

#include "resources/capabilities/tool/StockDatabase.h"
#include "resources/capabilities/tool/checkCapabilities.h"

#include "jtcore/AnlXlate/AbilTranslator.h"
#include "jtcore/Attributes/IppList.h"
#include "jtcore/Attributes/PrimitiveString.h"
#include "jtcore/Compress/CompressedBuffer.h"
#include "jtcore/FeatureSettings/FeatureDataBase.h"
#include "jtcore/Services/text.h"

#include <algorithm>

namespace {

void applyChanges(Composition& composition, const Changes& changes, const std::string& file) {
    constexpr bool mustBeThere = true;
    for (const auto& [name, json] : changes.set.items())
        composition.replace(name, json, file);
    for (const auto& [name, json] : changes.add.items())
        composition.join(name, json, file);
    for (const auto& [name, json] : changes.remove.items())
        composition.remove(name, json, file, mustBeThere);
}

void takeBlocks(Composition& composition, const FamilyFile& family, const SharedData& shared, FaultList& faults) {
    for (const std::string& name : family.takes) {
        const Block* block = shared.findBlock(name);
        if (!block) {
            faults.add({family.file, "takes"}, "there is no block \"" + name + "\"");
            continue;
        }
        for (const auto& [capability, json] : block->statements.items())
            composition.join(capability, json, block->file);
    }
}

// The shared form, but for what the family keeps, then the family's own changes.
class OlderFormStep {
public:
    OlderFormStep(Composition& composition, const OlderForm& form, const FamilyFile& family)
        : composition_(&composition), form_(&form), family_(&family) {}

    void apply(FaultList& faults) {
        for (const std::string& name : family_->older.keep) {
            if (!isTaken(name) || !composition_->has(name))
                faults.add({family_->file, "older/keep"}, name + " is not taken away by the older form");
        }
        for (const std::string& name : form_->drop) {
            if (composition_->findWritten(name, form_->file) && !isKept(name)) composition_->drop(name);
        }
        for (const auto& [name, values] : form_->trim.items()) {
            if (!isKept(name)) composition_->remove(name, values, form_->file, false);
        }
        for (const auto& [name, json] : form_->replace.items()) {
            if (composition_->has(name) && !isKept(name)) composition_->replace(name, json, form_->file);
        }
        applyChanges(*composition_, family_->older, family_->file);
    }

private:
    bool isTaken(const std::string& name) const {
        return std::ranges::find(form_->drop, name) != form_->drop.end() || form_->trim.contains(name) ||
               form_->replace.contains(name);
    }
    bool isKept(const std::string& name) const {
        return std::ranges::find(family_->older.keep, name) != family_->older.keep.end();
    }

    Composition* composition_;
    const OlderForm* form_;
    const FamilyFile* family_;
};

class DocumentMaker {
public:
    DocumentMaker(const Composition& composition, const SupportedFeatures& supported,
                  const std::vector<ListedStock>& stocks)
        : composition_(&composition), supported_(&supported), stocks_(&stocks) {}

    AttrNodeList make() const {
        AttrNodeList document;
        for (const CapabilitySchema& schema : CapabilitySchema::all())
            add(document, schema);
        // A list that came out empty says what its absence says.
        document.pruneEmptyLists();
        return document;
    }

private:
    void add(AttrNodeList& document, const CapabilitySchema& schema) const {
        const std::u16string name = fromUtf8(schema.name);
        if (schema.kind == StatementKind::derived)
            addDerived(document.add1setOf(name), schema);
        else if (const Statement* statement = composition_->find(schema.name))
            addStatement(document, name, *statement);
    }

    void addStatement(AttrNodeList& document, const std::u16string& name, const Statement& statement) const {
        if (!statement.schema->isList()) {
            document.addNode(name, statement.values.at(0)->clone());
            return;
        }
        AttrNodeList& values = document.add1setOf(name);
        for (const auto& value : statement.values)
            values.addNode(u"value", value->clone());
    }

    void addDerived(AttrNodeList& values, const CapabilitySchema& schema) const {
        if (!schema.row) return addStocks(values);
        if (schema.feature == Feature::mediaKey) return addStockNames(values);
        for (const Feature member : supported_->members(schema.feature))
            values.addNode(u"value", std::make_unique<IppKeyword>(FeatureDataBase::getFeatureInfo(member).uniqueId()));
    }

    void addStocks(AttrNodeList& values) const {
        for (const ListedStock& stock : *stocks_)
            values.addNode(u"value", std::make_unique<IppList>(stock.members, syntaxCollection));
    }

    void addStockNames(AttrNodeList& values) const {
        for (const ListedStock& stock : *stocks_) {
            if (const AttrNode* key = stock.members.getNode(u"media-key"))
                values.addNode(u"value", key->getAttrValue().clone());
        }
    }

    const Composition* composition_;
    const SupportedFeatures* supported_;
    const std::vector<ListedStock>* stocks_;
};

} // namespace

AttrNodeList composeCapabilities(const std::filesystem::path& dataFolder, const std::filesystem::path& familyFile,
                                 TicketForm form, FaultList& faults) {
    const SharedData shared(dataFolder / "shared", faults);
    const FamilyFile family(familyFile, faults);
    const ValueReader reader(shared.sizes(), faults);
    Composition composition(reader, faults);
    takeBlocks(composition, family, shared, faults);
    applyChanges(composition, family.changes, family.file);
    if (form == TicketForm::rendo2x) OlderFormStep(composition, shared.olderForm(), family).apply(faults);

    const bool hasStocks = !family.stocks.empty() || !family.stockSets.empty();
    const SupportedFeatures supported(composition, hasStocks);
    composition.keepSupported([&](std::u16string_view name) { return supported.has(name); });
    const std::vector<ListedStock> stocks = listStocks(family, shared, supported, faults);
    checkCapabilities({composition, supported, stocks, family, form}, faults);
    return faults.isEmpty() ? DocumentMaker(composition, supported, stocks).make() : AttrNodeList();
}

ByteBuffer toCapabilityText(const AttrNodeList& capabilities) {
    ByteBuffer text;
    AbilTranslator().anlToBuffer(capabilities, text);
    return text;
}

ByteBuffer toCapabilityResource(const AttrNodeList& capabilities) {
    CompressedBuffer compressed(CompressedBuffer::defaultLevel);
    compressed.store(toCapabilityText(capabilities));
    return compressed.getStoredData();
}
