// An open file, owned. All its calls go through fileSystem() and fail with published error numbers.
#pragma once

#include "platform/types.h"

#include <cstdint>
#include <string>

#include <sys/stat.h>

class Descriptor {
public:
    // Opens with the given flags. A path that does not lead to a regular file fails with ERROR_ACCESS_DENIED, at once
    // also where opening would wait for somebody.
    Descriptor(const std::string& path, int flags, mode_t mode = 0);
    ~Descriptor();
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    struct stat status() const;
    std::uint64_t size() const { return static_cast<std::uint64_t>(status().st_size); }

    // Both go on until all is transferred; read also ends with the file. `done` counts on the way, so that it is right
    // after a failure too.
    void read(void* bytes, std::size_t size, std::size_t& done) const;
    void write(const void* bytes, std::size_t size, std::size_t& done) const;
    // All of it from that place, false when the file ends before.
    bool readAt(std::uint64_t offset, void* bytes, std::size_t size) const;
    void truncate() const;
    void flush() const;
    // Tells what the destructor cannot: late bytes that did not reach the file.
    void close();

    int number() const noexcept { return file_; }

private:
    int file_;
};

// Puts the names in a folder on the medium.
void flushFolder(const std::string& folder);
