#include "host/sheets/DocumentStore.h"

#include "host/AreaFile.h"
#include "host/commandFailure.h"
#include "jtcore/Services/formatMessage.h"
#include "platform/files.h"
#include "platform/spooler.h"

#include <cstring>

namespace {

std::u16string valueName = u"DocumentSettings";

} // namespace

std::optional<KolmaDmType> DocumentStore::load() const {
    if (path_.empty()) return loadFromPrinter();
    if (GetFileAttributesW(toWide(path_)) == INVALID_FILE_ATTRIBUTES) return std::nullopt;
    return readAreaFile(path_);
}

std::optional<KolmaDmType> DocumentStore::loadFromPrinter() const {
    KolmaDmType area{};
    DWORD type = 0;
    DWORD size = 0;
    const DWORD error =
        GetPrinterDataW(printer_, toWide(valueName.data()), &type, reinterpret_cast<BYTE*>(&area), sizeof area, &size);
    if (error != ERROR_SUCCESS || type != REG_BINARY || size != sizeof area) return std::nullopt;
    return area;
}

void DocumentStore::save(const KolmaDmType& area) {
    if (saved_ && std::memcmp(&*saved_, &area, sizeof area) == 0) return;
    if (path_.empty())
        saveWithPrinter(area);
    else
        writeAreaFile(path_, area);
    saved_ = area;
}

void DocumentStore::saveWithPrinter(const KolmaDmType& area) const {
    KolmaDmType copy = area;
    const DWORD error =
        SetPrinterDataW(printer_, toWide(valueName.data()), REG_BINARY, reinterpret_cast<BYTE*>(&copy), sizeof copy);
    if (error != ERROR_SUCCESS)
        raise<InWords<PrinterRegistryRequestException>>(
            u"The settings could not be kept with the printer (error %u). Those kept before are as they were.", error);
}

std::u16string DocumentStore::describe() const {
    return path_.empty() ? std::u16string(u"with the printer") : formatMessage(u"in \"%s\"", path_);
}
