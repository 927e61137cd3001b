// A resource held in memory: its id, its type and a copy of its bytes.
#pragma once

#include "jtcore/Services/ByteBuffer.h"

#include <cstddef>
#include <cstdint>

// The types of resources that this system loads (RT_DIALOG and RT_RCDATA).
inline constexpr std::int32_t resourceTypeDialog = 5;
inline constexpr std::int32_t resourceTypeRawData = 10;

class ResourceData {
public:
    ResourceData() = default;
    explicit ResourceData(std::uint16_t resourceId);
    // Raises as setResourceType().
    ResourceData(std::uint16_t resourceId, std::int32_t resourceType);
    virtual ~ResourceData();

    virtual std::size_t getResourceSize() const;
    // Raises ResourceAcquisitionException when nothing is loaded.
    virtual const std::uint8_t* getResourceData() const;
    // Makes this the resource of that id, with nothing loaded yet.
    virtual void load(std::uint16_t resourceId);
    virtual void reset(std::uint16_t resourceId);
    // The types with an RT_ name: 1 to 23 but 13, 15 and 18. Raises UnknownCaseException for any other.
    virtual void setResourceType(std::int32_t resourceType);
    // Takes a copy of the bytes. Raises as setResourceType(); the object is then unchanged.
    virtual void resourceLoaded(std::int32_t resourceType, std::size_t size, const void* data);

    std::uint16_t getResourceId() const noexcept { return resourceId_; }
    // 0 while it is unset.
    std::int32_t getResourceType() const noexcept { return resourceType_; }
    const ByteBuffer& getBytes() const noexcept { return data_; }

protected:
    ResourceData(const ResourceData&) = default;
    ResourceData& operator=(const ResourceData&) = default;

private:
    std::uint16_t resourceId_ = 0;
    std::int32_t resourceType_ = 0;
    ByteBuffer data_;
};
