// How a problem is told to a user.
#include "jtcore/Capabilities/SettingsProblem.h"

#include "jtcore/Capabilities/listValues.h"
#include "jtcore/FeatureSettings/FeatureId.h"
#include "jtcore/FeatureSettings/FeatureSettings.h"
#include "jtcore/Services/KolmaException.h"
#include "jtcore/Services/ResourceLibrary.h"
#include "jtcore/Services/formatMessage.h"
#include "jtcore/Services/trace.h"
#include "resources/ids.h"

#include <algorithm>

namespace {

std::u16string quote(std::u16string_view text) {
    std::u16string quoted(1, u'\'');
    return quoted.append(text).append(1, u'\'');
}

// The words for a value of the tables; the text itself for any other.
std::u16string describeFixedValue(const std::u16string& attribute, const AttrValue& value) {
    const std::u16string text = value.getIppValue();
    const FeatureInfo* feature = FeatureDataBase::find(attribute);
    if (!feature || !FeatureValue::isKnown(feature->number, text)) return quote(text);
    std::u16string words = FeatureValue(feature->number, text).getDisplayString();
    std::replace_if(
        words.begin(), words.end(), [](char16_t c) { return c == u'\r' || c == u'\n'; }, u' ');
    return words;
}

std::u16string describeSize(NumberPair dimensions) {
    const StockSize size(dimensions.first, dimensions.second);
    if (!size.isCustom()) return size.getName();
    return formatMessage(u"(%ld x %ld)", toWholeMillimetres(size.getX()), toWholeMillimetres(size.getY()));
}

std::u16string describeResolution(const AttrNodeList& members) {
    const PrimitiveInteger* crossFeed = findNumber(members, u"cross-feed");
    const PrimitiveInteger* feedDirection = findNumber(members, u"feed-direction");
    const PrimitiveInteger* units = findNumber(members, u"units");
    if (!crossFeed || !feedDirection || !units) return {};
    return formatMessage(u"(%ld x %ld, %ld)", crossFeed->getValue(), feedDirection->getValue(), units->getValue());
}

std::u16string describeList(const AttrValue& value) {
    if (value.isRangeOfInteger())
        if (const auto bounds = readBounds(value)) return formatMessage(u"(%ld-%ld)", bounds->first, bounds->second);
    if (value.isResolution()) return describeResolution(value.asList()->getList());
    if (value.isCollection())
        if (const auto dimensions = readDimensions(value)) return describeSize(*dimensions);
    return {};
}

// The pages of an exception, or the page that an insert comes after; 0 where the entry does not tell.
NumberPair pagesOf(const AttrNode* entry, bool isInsert) {
    const IppList* list = entry ? entry->getAttrValue().asList() : nullptr;
    if (!list) return {0, 0};
    if (isInsert) {
        const PrimitiveInteger* page = findNumber(list->getList(), u"insert-after-page-number");
        return {page ? page->getValue() : 0, 0};
    }
    const AttrNode* pages = list->getList().getNode(u"pages");
    const IppList* set = pages ? pages->getAttrValue().asList() : nullptr;
    const AttrNode* first = set ? set->getList().getNode(u"value") : nullptr;
    return first ? readBounds(first->getAttrValue()).value_or(NumberPair{0, 0}) : NumberPair{0, 0};
}

} // namespace

std::u16string SettingsProblem::getProblemFeatureName() const {
    const std::u16string name = getProblemAttrName();
    try {
        if (const FeatureInfo* feature = FeatureDataBase::find(name)) return FeatureId(feature->number).getLabel();
    } catch (const std::exception& failure) {
        traceException(&failure, getNameOperation(), {});
    }
    return quote(name);
}

std::u16string SettingsProblem::getValueDisplay(const AttrValue& value) const {
    switch (value.getValueType()) {
    case AVTE::integer:
    case AVTE::enumeration:
    case AVTE::keyword:
    case AVTE::boolean:
    case AVTE::mimeMediaType:
        return describeFixedValue(getProblemAttrName(), value);
    case AVTE::name:
    case AVTE::text:
    case AVTE::uri:
        return quote(value.getIppValue());
    case AVTE::list:
        return describeList(value);
    default:
        return {};
    }
}

ProblemContext SettingsProblem::getContext(std::int32_t& first, std::int32_t& last) const {
    const Feature nested = location_.getNestedFeature();
    NumberPair pages{0, 0};
    ProblemContext context = ProblemContext::job;
    switch (nested) {
    case Feature::coverFront:
        context = ProblemContext::frontCover;
        break;
    case Feature::coverBack:
        context = ProblemContext::backCover;
        break;
    case Feature::pageOverrides:
    case Feature::insertSheet:
        context = nested == Feature::insertSheet ? ProblemContext::insert : ProblemContext::exception;
        pages = pagesOf(location_.getNestedNode(), nested == Feature::insertSheet);
        break;
    case Feature::separatorSheets:
        break;
    default:
        if (!location_.isElementOf(u"force-front-side")) break;
        context = ProblemContext::chapterStart;
        if (const auto* page = location_.getNode()->getAttrValue().asPrimitiveInteger())
            pages = {page->getValue(), page->getValue()};
        break;
    }
    first = pages.first;
    last = pages.second;
    return context;
}

std::u16string SettingsProblem::getContextHeading() const {
    const Feature nested = location_.getNestedFeature();
    std::u16string heading =
        nested == noParentFeature ? ResourceLibrary().getString(IDS_CONTEXT_HEADING_JOB) : FeatureId(nested).getLabel();
    std::int32_t first = 0;
    std::int32_t last = 0;
    getContext(first, last);
    if (first != 0 && last != 0 && last != first)
        heading += formatMessage(u" (%ld - %ld)", first, last);
    else if (first != 0)
        heading += formatMessage(u" (%ld)", first);
    return heading + u":";
}
