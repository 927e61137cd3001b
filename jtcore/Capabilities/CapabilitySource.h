// A place that can hand over a printer's capability file. A source is made for one read and is cheap; what the
// capabilities mean is none of its business.
#pragma once

#include "jtcore/Attributes/AttrNodeList.h"
#include "jtcore/Services/ByteBuffer.h"

#include <cstddef>

// The largest capability file that is taken in, in bytes. A large printer's, with every stock it knows, has a tenth.
inline constexpr std::size_t capabilityDataLimit = 4U * 1024 * 1024;

class CapabilitySource {
public:
    virtual ~CapabilitySource() = default;

    // The text of the capability file. Raises what the place raises that holds it; `out` is then as it was.
    virtual void getCapabilityData(ByteBuffer& out) const = 0;

    // Appends what the capability file says. Raises what getCapabilityData() and AbilTranslator raise; the target may
    // then hold a part.
    void loadCapabilities(AttrNodeList& target) const { translateData(target); }

protected:
    CapabilitySource() = default;
    CapabilitySource(const CapabilitySource&) = default;
    CapabilitySource& operator=(const CapabilitySource&) = default;

    // Reads and translates. A source whose data never change may keep what came out.
    virtual void translateData(AttrNodeList& target) const;
};
