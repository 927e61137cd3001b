#include "jtcore/AnlXlate/abbreviate.h"

#include "jtcore/Attributes/IppList.h"
#include "jtcore/Attributes/PrimitiveString.h"
#include "jtcore/FeatureSettings/FeatureDataBase.h"
#include "jtcore/FeatureSettings/FeatureValueDataBase.h"

#include <algorithm>
#include <array>
#include <optional>

namespace {

struct MemberName {
    std::u16string_view longName;
    std::u16string_view shortName;
};

constexpr auto memberNames = std::to_array<MemberName>({
    {u"value", u"V"},
    {u"lower-bound", u"L"},
    {u"upper-bound", u"U"},
    {u"cross-feed", u"C"},
    {u"feed-direction", u"F"},
    {u"units", u"T"},
});

// The feature that was met last, shared by a whole walk.
using Context = std::optional<Feature>;

void rename(AttrNode& node, std::u16string_view id) { node.setAttrID(AttrID(id)); }

void encodeId(AttrNode& node, Context& context) {
    const CompactSpelling::Id id = Abbreviation().spellId(node.getAttrID());
    if (id.context) context = *id.context == CompactSpelling::noContext ? Context() : Context(Feature(*id.context));
    if (id.text != node.getAttrID().getName()) rename(node, id.text);
}

void decodeId(AttrNode& node, Context& context) {
    std::u16string_view id = node.getAttrID();
    if (const FeatureInfo* feature = FeatureDataBase::findByAbbreviation(id)) {
        rename(node, feature->uniqueId());
        context = feature->number;
    } else if (const auto* row = std::ranges::find(memberNames, id, &MemberName::shortName); row != memberNames.end()) {
        rename(node, row->longName);
    } else {
        context.reset();
    }
}

void encodeValue(PrimitiveString& value, const Context& context) {
    std::u16string scratch;
    const int number = context ? static_cast<int>(*context) : CompactSpelling::noContext;
    value.setValue(std::u16string(Abbreviation().spellText(value.getValue(), number, scratch)));
}

void decodeValue(PrimitiveString& value, const Context& context) {
    const std::u16string& text = value.getValue();
    if (text.size() > 1 && text.starts_with(u'*')) {
        std::u16string rest = text.substr(1);
        bool looksAbbreviated = FeatureValueDataBase::isAbbreviation(rest);
        if (looksAbbreviated || rest.starts_with(u'*')) value.setValue(std::move(rest));
        if (looksAbbreviated) return;
    }
    if (!context.has_value()) return;
    if (const FeatureValueInfo* row = FeatureValueDataBase::findByAbbreviation(text)) value.setIppValue(row->text);
}

template <typename IdStep, typename ValueStep>
void walk(AttrNodeList& list, Context& context, IdStep idStep, ValueStep valueStep) {
    for (AttrNode& node : list) {
        if (IppList* inner = node.getAttrValue().asList()) walk(inner->getList(), context, idStep, valueStep);
        idStep(node, context);
        // The texts of numbers and truth values are no abbreviations and have none.
        if (PrimitiveString* value = node.getAttrValue().asPrimitiveString()) valueStep(*value, context);
    }
}

} // namespace

CompactSpelling::Id Abbreviation::spellId(std::u16string_view id) const {
    if (const FeatureInfo* feature = FeatureDataBase::find(id))
        return {feature->abbreviation, static_cast<int>(feature->number)};
    const auto* row = std::ranges::find(memberNames, id, &MemberName::longName);
    if (row != memberNames.end()) return {row->shortName, std::nullopt};
    return {id, noContext};
}

std::u16string_view Abbreviation::spellText(std::u16string_view text, int context, std::u16string& scratch) const {
    const auto marked = [&scratch](std::u16string_view plain) -> std::u16string_view {
        return scratch = std::u16string(1, u'*').append(plain); // which may lie in the scratch
    };
    if (text.starts_with(u'*')) text = marked(text);
    if (FeatureValueDataBase::isAbbreviation(text)) return marked(text);
    if (context == noContext) return text;
    const FeatureValueInfo* row = FeatureValueDataBase::find(Feature(context), text);
    return row != nullptr && !row->abbreviation.empty() ? row->abbreviation : text;
}

void abbreviateList(AttrNodeList& list) {
    Context context;
    walk(list, context, encodeId, encodeValue);
}

void expandList(AttrNodeList& list) {
    Context context;
    walk(list, context, decodeId, decodeValue);
}
