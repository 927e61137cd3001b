#include "jtcore/FeatureSettings/Settings.h"

#include "jtcore/Attributes/AttrValueFactory.h"
#include "jtcore/Attributes/IppBoolean.h"
#include "jtcore/Attributes/PrimitiveInteger.h"
#include "jtcore/FeatureSettings/FeatureId.h"
#include "jtcore/FeatureSettings/NestedAttrID.h"
#include "jtcore/Services/formatMessage.h"

namespace {

std::unique_ptr<AttrNodeList> copyIfOwned(const std::unique_ptr<AttrNodeList>& owned) {
    return owned ? std::make_unique<AttrNodeList>(*owned) : nullptr;
}

} // namespace

Settings::Settings() : owned_(std::make_unique<AttrNodeList>()), list_(owned_.get()) {}

Settings::Settings(const AttrNodeList& list) : owned_(std::make_unique<AttrNodeList>(list)), list_(owned_.get()) {}

Settings::Settings(AttrNodeList* list) noexcept : list_(list) {}

Settings::Settings(const Settings& other)
    : owned_(copyIfOwned(other.owned_)), list_(owned_ ? owned_.get() : other.list_) {}

Settings& Settings::operator=(const Settings& other) {
    if (this == &other) return *this;
    owned_ = copyIfOwned(other.owned_);
    list_ = owned_ ? owned_.get() : other.list_;
    return *this;
}

void Settings::assignList(const AttrNodeList& list) {
    if (&list == list_) return;
    // The list given may lie inside the one that is let go.
    auto copy = std::make_unique<AttrNodeList>(list);
    owned_ = std::move(copy);
    list_ = owned_.get();
}

AttrNodeList* Settings::findHolder(const SettingId& id) const { return id.getNestedId().findList(*list_); }

AttrNodeList& Settings::makeHolder(const SettingId& id) { return id.getNestedId().makeList(*list_); }

const AttrNode* Settings::findNode(const SettingId& id, std::size_t occurrence) const {
    const AttrNodeList* holder = findHolder(id);
    return holder ? holder->getNode(id.getAttrName(), occurrence) : nullptr;
}

AttrNodeList& Settings::makeInnerList(const SettingId& id, std::u16string_view syntaxName, std::size_t occurrence) {
    AttrNodeList& holder = makeHolder(id);
    AttrNodeList* inner = nullptr;
    if (holder.JtifAttrToList(inner, id.getAttrName(), occurrence)) return *inner;
    return holder.addListNode(id.getAttrName(), syntaxName);
}

bool Settings::hasFeature(const SettingId& id) const { return findNode(id, 0) != nullptr; }

std::size_t Settings::getValueCount(const SettingId& id) const {
    const AttrNodeList* holder = findHolder(id);
    return holder ? holder->getNumNodes() : 0;
}

FeatureValue Settings::getFeatureValue(const SettingId& id, std::size_t occurrence) const {
    const AttrNode* node = findNode(id, occurrence);
    return node ? FeatureValue::fromAttrValue(FeatureId(id.getNumber()), node->getAttrValue()) : FeatureValue();
}

bool Settings::getString(const SettingId& id, std::u16string& value, std::size_t occurrence) const {
    const AttrNodeList* holder = findHolder(id);
    return holder && holder->JtifAttrToString(value, id.getAttrName(), occurrence);
}

bool Settings::getLong(const SettingId& id, std::int32_t& value, std::size_t occurrence) const {
    const AttrNodeList* holder = findHolder(id);
    return holder && holder->JtifAttrToLong(value, id.getAttrName(), occurrence);
}

bool Settings::getBool(const SettingId& id, bool& value, std::size_t occurrence) const {
    const AttrNodeList* holder = findHolder(id);
    return holder && holder->JtifAttrToBool(value, id.getAttrName(), occurrence);
}

bool Settings::getRange(const SettingId& id, std::int32_t& lower, std::int32_t& upper, std::size_t occurrence) const {
    const AttrNodeList* holder = findHolder(id);
    return holder && holder->JtifRangeToLongs(lower, upper, id.getAttrName(), occurrence);
}

bool Settings::getResolution(const SettingId& id, Resolution& value, std::size_t occurrence) const {
    value = {};
    const AttrNode* node = findNode(id, occurrence);
    Resolution read;
    if (!node || !node->getAttrValue().isResolution() ||
        !node->getAttrValue().getResolutionValues(read.crossFeed, read.feedDirection, read.units))
        return false;
    value = read;
    return true;
}

void Settings::setFeatureValue(const SettingId& id, FeatureValue value, std::size_t occurrence) {
    if (value.isSet()) {
        auto attrValue = AttrValueFactory::createAttrValue(value.getSyntaxName(), value.getValueText());
        makeHolder(id).setNode(id.getAttrName(), *attrValue, occurrence);
    } else if (AttrNodeList* holder = findHolder(id)) {
        holder->deleteNode(id.getAttrName(), occurrence);
        id.getNestedId().removeEmptyLists(*list_);
    }
}

void Settings::setString(const SettingId& id, std::u16string_view value, std::size_t occurrence) {
    auto attrValue = AttrValueFactory::createAttrValue(id.getSyntaxName(0), value);
    makeHolder(id).setNode(id.getAttrName(), *attrValue, occurrence);
}

void Settings::setLong(const SettingId& id, std::int32_t value, std::size_t occurrence) {
    setString(id, formatMessage(u"%ld", value), occurrence);
}

void Settings::setBool(const SettingId& id, bool value, std::size_t occurrence) {
    makeHolder(id).setNode(id.getAttrName(), IppBoolean(value), occurrence);
}

void Settings::setRange(const SettingId& id, std::int32_t lower, std::int32_t upper, std::size_t occurrence) {
    AttrNodeList& range = makeInnerList(id, syntaxRangeOfInteger, occurrence);
    range.setNode(u"lower-bound", IppInteger(lower));
    range.setNode(u"upper-bound", IppInteger(upper));
}

void Settings::setResolution(const SettingId& id, const Resolution& value, std::size_t occurrence) {
    AttrNodeList& resolution = makeInnerList(id, syntaxResolution, occurrence);
    resolution.setNode(u"cross-feed", IppInteger(value.crossFeed));
    resolution.setNode(u"feed-direction", IppInteger(value.feedDirection));
    resolution.setNode(u"units", IppInteger(value.units));
}

std::unique_ptr<AttrNode> Settings::getNodeCopy(const SettingId& id) const {
    const AttrNode* node = findNode(id, 0);
    return node ? std::make_unique<AttrNode>(*node) : nullptr;
}

void Settings::setNodeValue(const SettingId& id, const AttrNode& node, std::size_t occurrence) {
    makeHolder(id).setNode(id.getAttrName(), node.getAttrValue(), occurrence);
}

void Settings::copyFeature(const SettingId& id, const Settings& source, bool prune) {
    if (auto node = source.getNodeCopy(id)) {
        setNodeValue(id, *node);
    } else if (AttrNodeList* holder = findHolder(id)) {
        holder->deleteNode(id.getAttrName());
        if (prune) id.getNestedId().removeEmptyLists(*list_);
    }
}

bool Settings::equalFeature(const SettingId& id, const Settings& other, std::size_t occurrence) const {
    const AttrNode* mine = findNode(id, occurrence);
    const AttrNode* theirs = other.findNode(id, occurrence);
    return mine && theirs ? mine->equals(*theirs) : mine == theirs;
}
