// Replaces a file that holds a user's work in one step: at every moment the file has its old content or its new one,
// whole. The bytes go to a temporary file in the same folder, which takes the file's place on commit().
//
// The operations return false on failure; lastError() then says why. After a failure nothing more is written and
// commit() fails. Whatever fails, the earlier file stays as it was, byte for byte, and the temporary file goes away.
#pragma once

#include "jtcore/Services/ByteBuffer.h"
#include "jtcore/Services/FileHandle.h"
#include "platform/types.h"

#include <cstddef>
#include <string>

class AtomicFileWriter {
public:
    explicit AtomicFileWriter(std::u16string path);
    // Without a commit() that succeeded, removes the temporary file.
    ~AtomicFileWriter();
    AtomicFileWriter(const AtomicFileWriter&) = delete;
    AtomicFileWriter& operator=(const AtomicFileWriter&) = delete;

    // Creates the temporary file. Fails at once, before any work is done, when the folder is missing or closed to
    // us, or when the file is there and may not be written (read-only, a folder, held by somebody else).
    // REQUIRES: not called before on this object.
    bool open();

    // Appends the bytes. REQUIRES: open() succeeded.
    bool write(const void* data, std::size_t size);

    // Brings the bytes to the disk and puts them in the file's place. REQUIRES: open() succeeded.
    bool commit();

    const std::u16string& getPath() const noexcept { return path_; }
    // The system's error number of the first failure, 0 while there is none.
    DWORD lastError() const noexcept { return error_; }
    // The bytes that the last write() took.
    std::size_t lastWritten() const noexcept { return lastWritten_; }

private:
    bool isTargetWritable();
    bool createTemporary();
    DWORD replaceTarget();
    bool fail(DWORD error);

    std::u16string path_;
    std::u16string temporary_;
    FileHandle handle_;
    DWORD error_ = 0;
    std::size_t lastWritten_ = 0;
};

// Replaces the whole file by the bytes in one step. Returns 0, or the system's error number; the earlier file then
// stands as it was.
DWORD replaceFile(const std::u16string& path, const ByteBuffer& bytes);
