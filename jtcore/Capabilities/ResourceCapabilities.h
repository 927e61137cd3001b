// A capability file of the resource module, compressed there.
#pragma once

#include "jtcore/Capabilities/CapabilitySource.h"
#include "jtcore/Services/ResourceLibrary.h"

#include <cstdint>

class ResourceCapabilities : public CapabilitySource {
public:
    // Raises ResourceLibraryConstructionException.
    explicit ResourceCapabilities(std::int32_t resourceId) : resourceId_(resourceId) {}

    // Raises ResourceAcquisitionException, MissingOrBadCompressedBufferFooterException and CompressionException.
    void getCapabilityData(ByteBuffer& out) const override;

    std::int32_t getResourceId() const noexcept { return resourceId_; }

protected:
    // A resource is decoded once in the process; from then on its list is copied. Failures are not kept.
    void translateData(AttrNodeList& target) const override;

private:
    ResourceLibrary library_;
    std::int32_t resourceId_;
};
