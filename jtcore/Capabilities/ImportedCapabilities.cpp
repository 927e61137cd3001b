#include "jtcore/Capabilities/ImportedCapabilities.h"

#include "jtcore/AnlXlate/AbilTranslator.h"
#include "jtcore/Services/File.h"
#include "jtcore/Services/KolmaException.h"
#include "jtcore/Services/UserMessage.h"
#include "jtcore/Services/catchSite.h"
#include "resources/ids.h"

namespace {

bool isCapabilityFile(HWND window, const std::u16string& fileName) {
    const CatchSite site{window, IDS_CAPTION_PRINTER_PROPERTIES, u"ImportedCapabilities::selectPrinterCapabilityFile()",
                         IDS_CONTEXT_READ_CAPABILITY_FILE};
    return runAtCatchSite(site, false, [&] {
        AttrNodeList scratch;
        AbilTranslator().fileToAnl(fileName, scratch);
        ImportedCapabilities::readCapabilityFile(fileName);
        return true;
    });
}

} // namespace

ByteBuffer ImportedCapabilities::readCapabilityFile(const std::u16string& fileName) {
    ByteBuffer data = File(fileName).read();
    if (data.getSize() > capabilityDataLimit)
        raise<ReadFileException>(
            u"ImportedCapabilities::readCapabilityFile(): The file %s has %lu bytes, more than the "
            u"%lu of a capability file.\r\n",
            fileName, data.getSize(), capabilityDataLimit);
    return data;
}

void ImportedCapabilities::importPrinterCapabilityFile(const std::u16string& fileName) {
    storeImportedCapabilities(fileName, readCapabilityFile(fileName));
}

bool ImportedCapabilities::selectPrinterCapabilityFile(HWND window, std::u16string& fileName,
                                                       const ChooseFile& choose) {
    std::u16string chosen = fileName;
    if (!choose(window, chosen) || !isCapabilityFile(window, chosen)) return false;
    UserMessage(window, IDS_CAPTION_PRINTER_PROPERTIES, IDS_CAPABILITY_FILE_ACCEPTED, 0, Severity::information).show();
    fileName = std::move(chosen);
    return true;
}
