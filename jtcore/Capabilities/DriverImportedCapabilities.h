// An imported capability file in the data store of a printer behind a spooler handle.
#pragma once

#include "jtcore/Capabilities/ImportedCapabilities.h"
#include "jtcore/Printer/PrinterData.h"

// Every operation raises PrinterRegistryRequestException when the store cannot be read or written.
class DriverImportedCapabilities final : public ImportedCapabilities {
public:
    explicit DriverImportedCapabilities(const PrinterData& data) noexcept : data_(data) {}

    // Raises also MissingOrBadCompressedBufferFooterException and CompressionException, when the store was tampered
    // with.
    void getCapabilityData(ByteBuffer& out) const override;
    std::u16string getImportedFileName() const override;
    bool hasImportedCapabilities() const override;
    void clearImportedCapabilities() override;
    void storeImportedCapabilities(const std::u16string& fileName, const ByteBuffer& data) override;

private:
    PrinterData data_;
};

namespace printerdata {
// The capability file, as a CompressedBuffer.
inline constexpr const char16_t* importedCapabilities = u"ImportedPrintCapData";
// Its path: text without a terminator.
inline constexpr const char16_t* importedFileName = u"ImportedPrintCapFileName";
} // namespace printerdata
