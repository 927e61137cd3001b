#include "jtcore/Capabilities/ResourceCapabilities.h"

#include "jtcore/Compress/CompressedBuffer.h"
#include "jtcore/Services/OwnedCriticalResource.h"
#include "jtcore/Services/ResourceData.h"

#include <map>
#include <memory>

namespace {

constinit OwnedCriticalResource decodedLock("ResourceCapabilities");

// Guarded by the lock. Holds at most one list for each resource of the module; the lists themselves never change.
using DecodedLists = std::map<std::int32_t, std::shared_ptr<const AttrNodeList>>;

DecodedLists& decodedLists() {
    static DecodedLists lists;
    return lists;
}

// Whoever comes while a resource is being decoded waits for that list instead of decoding it too.
template <typename Decode>
std::shared_ptr<const AttrNodeList> findOrDecode(std::int32_t resourceId, const Decode& decode) {
    const OwnedCriticalResource::Guard guard(decodedLock);
    DecodedLists& lists = decodedLists();
    if (const auto known = lists.find(resourceId); known != lists.end()) return known->second;
    auto list = std::make_shared<AttrNodeList>();
    decode(*list);
    return lists.emplace(resourceId, std::move(list)).first->second;
}

} // namespace

void ResourceCapabilities::getCapabilityData(ByteBuffer& out) const {
    ResourceData resource(static_cast<std::uint16_t>(resourceId_));
    library_.loadRawData(resource);
    CompressedBuffer(resource.getBytes(), capabilityDataLimit).getOriginalData(out);
}

void ResourceCapabilities::translateData(AttrNodeList& target) const {
    const auto list =
        findOrDecode(resourceId_, [this](AttrNodeList& fresh) { CapabilitySource::translateData(fresh); });
    target.reserve(target.getNumNodes() + list->getNumNodes());
    for (const AttrNode& node : *list)
        target.addNode(node);
}
