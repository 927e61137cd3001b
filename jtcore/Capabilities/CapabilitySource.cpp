#include "jtcore/Capabilities/CapabilitySource.h"

#include "jtcore/AnlXlate/AbilTranslator.h"

void CapabilitySource::translateData(AttrNodeList& target) const {
    ByteBuffer data;
    getCapabilityData(data);
    AbilTranslator().bufferToAnl(data, target);
}
