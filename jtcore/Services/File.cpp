#include "jtcore/Services/File.h"

#include "jtcore/Services/FileHandle.h"
#include "jtcore/Services/KolmaException.h"
#include "platform/files.h"

#include <utility>

namespace {

FileHandle openForReading(const std::u16string& path) {
    return FileHandle(CreateFileW(toWide(path), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                  FILE_ATTRIBUTE_NORMAL, nullptr));
}

} // namespace

File::File(std::u16string path) : path_(std::move(path)) {}

bool File::exists() const { return openForReading(path_).isOpen(); }

ByteBuffer File::read() const {
    FileHandle file = openForReading(path_);
    if (!file.isOpen())
        raise<CreateFileForReadingException>(u"File::read(): CreateFile() failed to open file %s.\r\n", path_);
    DWORD sizeHigh = 0;
    DWORD size = GetFileSize(file.get(), &sizeHigh);
    if (size == INVALID_FILE_SIZE)
        raise<CreateFileForReadingException>(u"File::read(): GetFileSize() failed for file %s with handle 0x%lx.\r\n",
                                             path_, file.get());
    if (sizeHigh != 0 || size > maximumSize)
        raise<ReadFileException>(u"File::read(): The file %s has %lu bytes, which is above the limit of %lu bytes.\r\n",
                                 path_, static_cast<std::uint64_t>(sizeHigh) << 32U | size, maximumSize);
    ByteBuffer bytes;
    bytes.resize(size);
    DWORD got = 0;
    if (size != 0 && (!ReadFile(file.get(), bytes.getData(), size, &got, nullptr) || got != size))
        raise<ReadFileException>(u"File::read(): ReadFile() failed or didn't read the expected number of bytes for "
                                 u"file %s with handle 0x%lx.\r\n",
                                 path_, file.get());
    return bytes;
}
