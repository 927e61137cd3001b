#include "jtcore/Capabilities/DriverImportedCapabilities.h"

#include "jtcore/Compress/CompressedBuffer.h"
#include "jtcore/Services/KolmaException.h"

void DriverImportedCapabilities::getCapabilityData(ByteBuffer& out) const {
    const ByteBuffer stored = data_.getRawData(printerdata::importedCapabilities);
    CompressedBuffer(stored, capabilityDataLimit).getOriginalData(out);
}

std::u16string DriverImportedCapabilities::getImportedFileName() const {
    if (!data_.rawDataExists(printerdata::importedFileName)) return {};
    return data_.getRawData(printerdata::importedFileName).getAsString();
}

bool DriverImportedCapabilities::hasImportedCapabilities() const {
    return data_.rawDataExists(printerdata::importedCapabilities);
}

void DriverImportedCapabilities::clearImportedCapabilities() {
    for (const char16_t* name : {printerdata::importedCapabilities, printerdata::importedFileName})
        if (data_.rawDataExists(name)) data_.removeRawData(name);
}

void DriverImportedCapabilities::storeImportedCapabilities(const std::u16string& fileName, const ByteBuffer& data) {
    if (data.getSize() > capabilityDataLimit)
        raise<CompressionException>(u"DriverImportedCapabilities::storeImportedCapabilities(): %lu bytes are more than "
                                    u"the %lu of a capability file.\r\n",
                                    data.getSize(), capabilityDataLimit);
    CompressedBuffer compressed;
    compressed.store(data);
    data_.setRawData(printerdata::importedCapabilities, compressed.getStoredData());
    data_.setRawData(printerdata::importedFileName, ByteBuffer(fileName));
}
