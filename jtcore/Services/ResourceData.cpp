#include "jtcore/Services/ResourceData.h"

#include "jtcore/Services/KolmaException.h"

namespace {

bool hasName(std::int32_t type) { return type >= 1 && type <= 23 && type != 13 && type != 15 && type != 18; }

} // namespace

ResourceData::ResourceData(std::uint16_t resourceId) : resourceId_(resourceId) {}

ResourceData::ResourceData(std::uint16_t resourceId, std::int32_t resourceType) : resourceId_(resourceId) {
    ResourceData::setResourceType(resourceType);
}

ResourceData::~ResourceData() = default;

std::size_t ResourceData::getResourceSize() const { return data_.getSize(); }

const std::uint8_t* ResourceData::getResourceData() const {
    if (data_.isEmpty())
        raise<ResourceAcquisitionException>(
            u"ResourceData::getResourceData() failed - ResourceData ByteBuffer EMPTY!\r\n");
    return data_.getData();
}

void ResourceData::load(std::uint16_t resourceId) { reset(resourceId); }

void ResourceData::reset(std::uint16_t resourceId) {
    resourceId_ = resourceId;
    resourceType_ = 0;
    data_.clear();
}

void ResourceData::setResourceType(std::int32_t resourceType) {
    if (!hasName(resourceType))
        raise<UnknownCaseException>(u"ResourceData::setResourceType() EXCEPTION - unknown switch (RT_) value\r\n");
    resourceType_ = resourceType;
}

void ResourceData::resourceLoaded(std::int32_t resourceType, std::size_t size, const void* data) {
    ByteBuffer bytes(data, size);
    setResourceType(resourceType);
    data_ = std::move(bytes);
}
