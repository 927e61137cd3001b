#include "jtcore/Capabilities/Capabilities.h"

#include "jtcore/Attributes/IppList.h"
#include "jtcore/Attributes/PrimitiveString.h"
#include "jtcore/Capabilities/ImportedCapabilities.h"
#include "jtcore/FeatureSettings/NestedAttrID.h"

#include <algorithm>

namespace {

constexpr Feature nestedFeatures[] = {Feature::coverFront, Feature::coverBack, Feature::pageOverrides,
                                      Feature::insertSheet, Feature::separatorSheets};

CapabilityId mediaMembers() { return {Feature::mediaCol, CapabilityType::memberList}; }
CapabilityId userDefinedFeatures() { return {Feature::any, CapabilityType::userDefinedList}; }

} // namespace

Capabilities::Capabilities(const PrinterModel& model, TicketForm form, const ImportedCapabilities& imported)
    : model_(model), form_(form), factory_(model, form) {
    const CapabilitySource& factory = factory_;
    const CapabilitySource& source = imported.hasImportedCapabilities() ? imported : factory;
    source.loadCapabilities(capabilities_.getAttrNodeList());
    finishLoading();
}

Capabilities::Capabilities(const PrinterModel& model, TicketForm form, const CapabilitySource& source)
    : model_(model), form_(form), factory_(model, form) {
    source.loadCapabilities(capabilities_.getAttrNodeList());
    finishLoading();
}

Capabilities::~Capabilities() = default;

std::unique_ptr<Capabilities> Capabilities::makeGenericCapabilities(const Capabilities& other) {
    const PrinterModel model(genericPrinterModel, PrinterLanguage::postScript);
    const FactoryCapabilities factory(model, TicketForm::current);
    auto generic = std::make_unique<Capabilities>(model, TicketForm::current, factory);
    generic->capabilities_.getAttrNodeList().mergeList(other.getAttrNodeList(), false);
    generic->buildIndex();
    return generic;
}

void Capabilities::finishLoading() {
    std::vector<FeatureId> unsupported;
    factory_.applyModelLimits(capabilities_, unsupported);
    for (const FeatureId& feature : unsupported)
        removeFeature(feature);
    adjustMedia();
    nestedFeatures_.assign(std::begin(nestedFeatures), std::end(nestedFeatures));
    buildIndex();
}

void Capabilities::removeFeature(const FeatureId& feature) {
    for (const CapabilityType type : CapabilityId::getCapabilityTypes(feature.getNumber())) {
        const CapabilityId id(feature.getNumber(), type);
        do // a set loses one value after the other, and goes with the last
            capabilities_.setFeatureValue(id, FeatureValue());
        while (capabilities_.hasFeature(id));
    }
    capabilities_.getAttrNodeList().deleteMatchingNodes(AttrNode(u"value", IppKeyword(feature.getUniqueId())));
}

// A stock can always be told by its key, and a separator sheet never carries a stock of its own.
void Capabilities::adjustMedia() {
    const FeatureId mediaKey(Feature::mediaKey);
    if (!isMemberSupported(Feature::mediaCol, mediaKey)) appendKeyword(mediaMembers(), mediaKey.getUniqueId());
    if (!isUserDefinedAllowed(mediaKey)) appendKeyword(userDefinedFeatures(), mediaKey.getUniqueId());
    AttrNode* separators = capabilities_.getAttrNodeList().getNode(u"separator-sheets-supported");
    IppList* members = separators ? separators->getAttrValue().asList() : nullptr;
    if (!members) return;
    for (const Feature stock : {Feature::mediaCol, Feature::media})
        members->getList().deleteMatchingNodes(AttrNode(u"value", IppKeyword(FeatureId(stock).getUniqueId())));
}

void Capabilities::appendKeyword(const CapabilityId& list, std::u16string_view keyword) {
    capabilities_.setString(list, keyword, capabilities_.getValueCount(list));
}

void Capabilities::buildIndex() { index_.emplace(capabilities_.getAttrNodeList()); }

const AttrNode* Capabilities::findSupported(std::u16string_view attributeId) const {
    if (index_) return index_->findSupported(attributeId);
    return getAttrNodeList().getNode(std::u16string(attributeId).append(supportedSuffix));
}

const AttrNode* Capabilities::findSupported(Feature feature) const {
    return index_ ? index_->findSupported(feature) : findSupported(FeatureId(feature).getUniqueId());
}

const AttrNode* Capabilities::findCapability(const CapabilityInfo& row) const {
    if (index_) return index_->findCapability(row);
    return getAttrNodeList().getNode(row.path.steps.empty() ? row.path.leaf : row.path.steps[0].id);
}

const AttrNodeList* Capabilities::getCapabilityList(const CapabilityId& id) const {
    const CapabilityInfo* row = CapabilityDataBase::find(id.getNumber(), id.getCapabilityType());
    const AttrNode* node = row && row->path.steps.size() == 1 ? findCapability(*row) : nullptr;
    const IppList* list = node ? node->getAttrValue().asList() : nullptr;
    return list ? &list->getList() : nullptr;
}

bool Capabilities::isKeywordInList(std::u16string_view attributeId, const AttrNodeList* list) {
    return list && std::any_of(list->begin(), list->end(), [&](const AttrNode& node) {
               const std::u16string* keyword = listedKeyword(node);
               return keyword && *keyword == attributeId;
           });
}

bool Capabilities::hasKeyword(const AttrNodeList* list, std::u16string_view attributeId) const {
    const KeywordList* known = list && index_ ? index_->findKeywords(*list) : nullptr;
    return known ? known->keywords.contains(attributeId) : isKeywordInList(attributeId, list);
}

std::vector<Feature> Capabilities::getListedFeatures(const AttrNodeList& list) const {
    const KeywordList* known = index_ ? index_->findKeywords(list) : nullptr;
    return known ? known->features : listedFeatures(list);
}
