// Capabilities for tests, of a list or of the text of a capability file.
#pragma once

#include "jtcore/Capabilities/Capabilities.h"
#include "jtcore/Services/text.h"
#include "tests/listBuilder.h"

#include <stdexcept>
#include <string>

inline PrinterModel modelOfFamily(std::int32_t family, PrinterLanguage language = PrinterLanguage::postScript) {
    for (const PrinterModelInfo& row : printerModels())
        if (row.family == family) return {row.model, language};
    throw std::runtime_error("no such family");
}

// A list that needs no translating.
class BuiltCapabilities final : public CapabilitySource {
public:
    explicit BuiltCapabilities(AttrNodeList list) : list_(std::move(list)) {}
    void getCapabilityData(ByteBuffer&) const override { throw std::logic_error("there is no file"); }

protected:
    void translateData(AttrNodeList& target) const override { target = list_; }

private:
    AttrNodeList list_;
};

// A capability file of these bytes.
class CapabilityText final : public CapabilitySource {
public:
    explicit CapabilityText(std::string text) : text_(std::move(text)) {}
    void getCapabilityData(ByteBuffer& out) const override { out.setData(text_.data(), text_.size()); }

private:
    std::string text_;
};

inline Capabilities makeCapabilities(const AttrNodeList& list, const PrinterModel& model = modelOfFamily(1),
                                     TicketForm form = TicketForm::current) {
    return Capabilities(model, form, BuiltCapabilities(list));
}

// A set of keywords: keywords({u"copies", u"sides"}).
inline ListBuilder keywords(std::initializer_list<std::u16string_view> words) {
    ListBuilder set;
    for (const std::u16string_view word : words)
        set.keyword(u"value", word);
    return set;
}

inline std::string nameOf(const FeatureId& feature) { return toUtf8(feature.getUniqueId()); }

// A job, its stock, its page exceptions, and where it is saved.
inline ListBuilder aPrinter() {
    return list()
        .set(u"job-creation-attributes-supported",
             keywords({u"copies", u"sides", u"media-col", u"page-overrides", u"job-save-disposition", u"finishings"}))
        .set(u"user-defined-values-supported", keywords({u"media-type"}))
        .set(u"media-col-supported", keywords({u"media-color", u"media-size"}))
        .set(u"page-overrides-supported", keywords({u"pages", u"media-col", u"sides"}))
        .set(u"job-save-disposition-supported", keywords({u"save-disposition", u"save-info"}))
        .set(u"save-info-supported", keywords({u"save-document-format"}))
        .set(u"separator-sheets-supported", keywords({u"separator-sheets-type", u"media", u"media-col"}))
        .boolean(u"save-name-supported", true)
        .boolean(u"page-ranges-supported", false)
        .keyword(u"job-phone-number-supported", u"yes")
        .range(u"copies-supported", 1, 999);
}

inline std::vector<std::string> textsOf(const std::vector<FeatureValue>& values) {
    std::vector<std::string> texts;
    for (const FeatureValue& value : values)
        texts.push_back(value.isSet() ? toUtf8(value.getValueText()) : "(unset)");
    return texts;
}

inline std::vector<std::string> valuesOf(const Capabilities& capabilities, Feature feature,
                                         Feature parent = noParentFeature) {
    std::vector<FeatureValue> values;
    capabilities.getFeatureCapabilities(feature, parent, values);
    return textsOf(values);
}

inline std::string show(const Capabilities& capabilities, std::u16string_view id) {
    const AttrNode* node = capabilities.getAttrNodeList().getNode(id);
    AttrNodeList one;
    if (node) one.addNode(*node);
    return show(one);
}

// The driver with what a job asks for: whatever is missing or of another shape comes to light.
inline void askEverything(const Capabilities& capabilities) {
    std::int32_t lower = 0;
    std::int32_t upper = 0;
    for (const FeatureInfo& row : FeatureDataBase::rows()) {
        std::vector<FeatureValue> values;
        capabilities.getFeatureCapabilities(row.number, noParentFeature, values);
        if (!capabilities.isFeatureSupported(row.number)) continue;
        if (CapabilityId::isValid(row.number, CapabilityType::intRange))
            capabilities.getFeatureCapabilities(row.number, lower, upper);
    }
    capabilities.getStockSizeRange();
}
