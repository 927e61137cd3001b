// A file that is read whole.
#pragma once

#include "jtcore/Services/ByteBuffer.h"

#include <string>

class File {
public:
    // A larger file is none of ours, and is refused before memory is taken for it.
    static constexpr std::size_t maximumSize = 64U * 1024 * 1024;

    explicit File(std::u16string path);

    const std::u16string& getPath() const noexcept { return path_; }

    // True when the file can be opened for reading.
    bool exists() const;

    // The whole file, as long as it was when it was opened; an empty file gives an empty buffer. Raises
    // CreateFileForReadingException when it cannot be opened or measured, ReadFileException when it cannot be read,
    // gave fewer bytes than it promised, or is larger than maximumSize.
    ByteBuffer read() const;

private:
    std::u16string path_;
};
