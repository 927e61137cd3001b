// A capability file that the administrator has imported for one printer. It is kept with the printer: the file on disk
// is not needed again.
#pragma once

#include "jtcore/Capabilities/CapabilitySource.h"
#include "platform/types.h"

#include <functional>
#include <string>

class ImportedCapabilities : public CapabilitySource {
public:
    // The path that the user chose, for display only; empty when nothing was imported.
    virtual std::u16string getImportedFileName() const = 0;
    virtual bool hasImportedCapabilities() const = 0;
    // Takes the printer back to the capabilities it comes with, from the next Capabilities on.
    virtual void clearImportedCapabilities() = 0;
    // Raises CompressionException, and nothing is stored, when the data are beyond capabilityDataLimit.
    virtual void storeImportedCapabilities(const std::u16string& fileName, const ByteBuffer& data) = 0;

    // Stores the file as it stands. Raises as readCapabilityFile() and storeImportedCapabilities().
    void importPrinterCapabilityFile(const std::u16string& fileName);

    // The whole file, whatever is in it. Raises what File::read() raises, and ReadFileException for a file beyond
    // capabilityDataLimit.
    static ByteBuffer readCapabilityFile(const std::u16string& fileName);

    // Shows the open-file dialog, preset with the name, and puts the chosen path in its place; false on cancel.
    using ChooseFile = std::function<bool(HWND window, std::u16string& fileName)>;
    // The dialog step of an import: the user chooses a file, which is read once to see that it is a capability file;
    // nothing is stored. A file that is none is reported to the user. True, and the name replaced, when a good one was
    // chosen. Raises what `choose` raises.
    static bool selectPrinterCapabilityFile(HWND window, std::u16string& fileName, const ChooseFile& choose);
};
