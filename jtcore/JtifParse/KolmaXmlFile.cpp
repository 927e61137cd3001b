#include "jtcore/JtifParse/KolmaXmlFile.h"

#include "jtcore/Services/AtomicFileWriter.h"
#include "jtcore/Services/FileHandle.h"
#include "jtcore/Services/JtifParseException.h"
#include "platform/files.h"

#include <cstdint>
#include <memory>
#include <new>
#include <utility>

namespace {

std::uint64_t sizeOf(const FileHandle& file) {
    DWORD high = 0;
    SetLastError(ERROR_SUCCESS);
    DWORD low = GetFileSize(file.get(), &high);
    if (low == INVALID_FILE_SIZE && GetLastError() != ERROR_SUCCESS)
        raiseJtifParse(JtifParseCode::FAILED_GETFILESIZE_DURING_READ,
                       u"KolmaXmlFile::read(): Failed to get file size.\r\n");
    return std::uint64_t{high} << 32U | low;
}

ByteBuffer allocate(std::uint64_t size) {
    ByteBuffer bytes;
    try {
        if (size > KolmaXmlFile::maximumSize) throw std::bad_alloc();
        // One byte more, so that an empty file is a buffer of no bytes and not no buffer.
        bytes.resize(static_cast<std::size_t>(size) + 1);
    } catch (const std::bad_alloc&) {
        raiseJtifParse(JtifParseCode::FAILED_ALLOCATION_OF_XML_FILE_BUFFER,
                       u"KolmaXmlFile::read(): Failed to allocate enough space. Needed %ld\r\n", size);
    }
    return bytes;
}

[[noreturn]] void raiseNotWritten(std::size_t written) {
    raiseJtifParse(JtifParseCode::WRITEFILE_FAILED,
                   u"KolmaXmlFile::handleOutput(): Failed WriteFile(). dwNumBytesWritten = %ld\r\n", written);
}

} // namespace

KolmaXmlFile::KolmaXmlFile(XmlDataType type, std::u16string fileName, std::u16string dtdPath)
    : KolmaXmlDataStream(type, std::move(dtdPath)), fileName_(std::move(fileName)) {}

std::u16string KolmaXmlFile::getBufferId() const {
    return getDtdPath().empty() && !fileName_.empty() ? fileName_ : KolmaXmlDataStream::getBufferId();
}

void KolmaXmlFile::read(AttrNodeList& list) {
    if (fileName_.empty())
        raiseJtifParse(JtifParseCode::FILE_TO_READ_NOT_SPECIFIED, u"KolmaXmlFile::read(): No file to open.\r\n");
    FileHandle file(CreateFileW(toWide(fileName_), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file.isOpen())
        raiseJtifParse(JtifParseCode::FAILED_CREATFILE_DURING_READ,
                       u"KolmaXmlFile::read(): Failed to open file %s.\r\n", fileName_);
    auto size = sizeOf(file);
    ByteBuffer bytes = allocate(size);
    DWORD taken = 0;
    if (!ReadFile(file.get(), bytes.getData(), static_cast<DWORD>(size), &taken, nullptr) || taken != size)
        raiseJtifParse(JtifParseCode::READFILE_FAILED,
                       u"KolmaXmlFile::read(): Failed to read. dwNumBytesRead = %ld\r\n", taken);
    readFrom(bytes.getData(), static_cast<std::size_t>(size), list);
}

void KolmaXmlFile::write(const AttrNodeList& list) {
    if (fileName_.empty())
        raiseJtifParse(JtifParseCode::FILE_TO_WRITE_NOT_SPECIFIED, u"KolmaXmlFile::write(): No file to open.\r\n");
    AtomicFileWriter writer(fileName_);
    if (!writer.open())
        raiseJtifParse(JtifParseCode::FAILED_CREATFILE_DURING_WRITE,
                       u"KolmaXmlFile::write(): Failed to open/create the file.\r\n");
    // Undone also when a failure passes through.
    std::unique_ptr<AtomicFileWriter*, void (*)(AtomicFileWriter**)> attached(
        &writer_, [](AtomicFileWriter** slot) { *slot = nullptr; });
    writer_ = &writer;
    writeTo(*this, list);
    if (!writer.commit()) raiseNotWritten(0);
}

bool KolmaXmlFile::handleOutput(const void* bytes, std::size_t length) {
    if (writer_ == nullptr) return false;
    if (!writer_->write(bytes, length)) raiseNotWritten(writer_->lastWritten());
    return true;
}
