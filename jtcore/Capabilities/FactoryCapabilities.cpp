#include "jtcore/Capabilities/FactoryCapabilities.h"

#include "jtcore/FeatureSettings/CapabilityId.h"

namespace {

struct CharacterLimit {
    Feature feature;
    std::int32_t limit;
};

constexpr CharacterLimit characterLimits[] = {
    {Feature::saveName, 255},
    {Feature::undefinedSourceRgbImages, 255},
    {Feature::undefinedSourceRgbGraphics, 255},
    {Feature::undefinedSourceRgbText, 255},
    {Feature::undefinedSourceGrayImages, 255},
    {Feature::undefinedSourceGrayGraphics, 255},
    {Feature::undefinedSourceGrayText, 255},
    {Feature::undefinedSourceCmykImages, 255},
    {Feature::undefinedSourceCmykGraphics, 255},
    {Feature::undefinedSourceCmykText, 255},
    {Feature::colorEmulation, 255},
    {Feature::colorDestinationProfileFront, 255},
    {Feature::colorDestinationProfileBack, 255},
    {Feature::trcName, 30},
    {Feature::finishingTemplate, 30},
    {Feature::mediaDescription, 255},
    {Feature::media, 255},
    {Feature::mediaKey, 255},
    {Feature::mediaType, 30},
};

bool isSingle(const AttrNodeList& list, std::u16string_view id) {
    const AttrNode* node = list.getNode(id);
    return node && !node->getAttrValue().isList();
}

// The model's range of custom sizes stands in the first of the sizes. A file that names a fixed size there gets a
// place for the range in front of it.
void makeRoomForCustomSizes(AttrNodeList& capabilities) {
    AttrNodeList* sizes = nullptr;
    AttrNodeList* first = nullptr;
    if (!capabilities.JtifAttrToList(sizes, u"media-size-supported") || !sizes->JtifAttrToList(first, u"value")) return;
    if (!isSingle(*first, u"x-dimension") && !isSingle(*first, u"y-dimension")) return;
    sizes->addCollection(u"value");
    std::size_t last = 0;
    while (sizes->getNode(u"value", last + 1))
        ++last;
    sizes->moveNodeToFront(u"value", last);
}

} // namespace

void FactoryCapabilities::applyModelLimits(Settings& capabilities, std::vector<FeatureId>& unsupported) const {
    for (const CharacterLimit& row : characterLimits)
        capabilities.setLong(CapabilityId(row.feature, CapabilityType::intUpperLimit), row.limit);
    makeRoomForCustomSizes(capabilities.getAttrNodeList());
    model_.applyCapabilities(capabilities, unsupported);
}
