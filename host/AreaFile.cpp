#include "host/AreaFile.h"

#include "host/commandFailure.h"
#include "host/outputFile.h"
#include "jtcore/Services/File.h"
#include "platform/files.h"

#include <array>
#include <bit>
#include <cstring>

KolmaDmType absentArea() noexcept {
    return std::bit_cast<KolmaDmType>(std::array<std::uint8_t, sizeof(KolmaDmType)>{});
}

KolmaDmType readAreaFile(const std::u16string& path) {
    const ByteBuffer bytes = File(path).read();
    KolmaDmType area;
    if (bytes.getSize() != sizeof area)
        raise<InWords<MissingOrBadPersistentSettingsFormatException>>(
            u"The file \"%s\" has %u bytes; a private area has exactly %u.", path, bytes.getSize(), sizeof area);
    std::memcpy(&area, bytes.getData(), sizeof area);
    return area;
}

KolmaDmType readAreaFileIfThere(const std::u16string& path) {
    const bool isThere = GetFileAttributesW(toWide(path)) != INVALID_FILE_ATTRIBUTES;
    return isThere ? readAreaFile(path) : absentArea();
}

void writeAreaFile(const std::u16string& path, const KolmaDmType& area) {
    writeOutputFile(path, ByteBuffer(&area, sizeof area));
}

bool hasOurHeader(const KolmaDmType& area) noexcept {
    const KolmaDmFields& fields = area.fields;
    return fields.dwSize == sizeof area && fields.dwSignature == KolmaDmFields::signature &&
           (fields.dwVersion == KolmaDmFields::currentVersion || fields.dwVersion == KolmaDmFields::olderVersion);
}
