// The system calls on files that the services make, all of them through one object that can be replaced: a test puts
// its own in place and lets any of them fail.
//
// Each operation is the system call of its name: -1 and errno on failure.
#pragma once

#include "platform/types.h"

#include <sys/stat.h>
#include <sys/types.h>

class KOLMA_PLATFORM_API FileSystem {
public:
    FileSystem() = default;
    virtual ~FileSystem() = default;
    FileSystem(const FileSystem&) = delete;
    FileSystem& operator=(const FileSystem&) = delete;

    virtual int open(const char* path, int flags, mode_t mode);
    virtual ssize_t read(int file, void* bytes, std::size_t size);
    virtual ssize_t pread(int file, void* bytes, std::size_t size, off_t offset);
    virtual ssize_t write(int file, const void* bytes, std::size_t size);
    virtual int ftruncate(int file, off_t size);
    virtual int fsync(int file);
    virtual int close(int file);
    virtual int fstat(int file, struct stat* status);
    virtual int fchmod(int file, mode_t mode);
    virtual int fchown(int file, uid_t owner, gid_t group);
    virtual int stat(const char* path, struct stat* status);
    virtual int lstat(const char* path, struct stat* status);
    virtual int access(const char* path, int mode);
    // Null and errno on failure. REQUIRES: `resolved` has room for PATH_MAX characters.
    virtual char* realpath(const char* path, char* resolved);
    virtual int rename(const char* from, const char* to);
    // EEXIST when the new name is taken.
    virtual int renameNew(const char* from, const char* to);
    virtual int link(const char* from, const char* to);
    virtual int unlink(const char* path);
    virtual int mkdir(const char* path, mode_t mode);
};

// The one in place.
KOLMA_PLATFORM_API FileSystem& fileSystem() noexcept;
// Puts another in place, null for the system's own, and returns what was there (null for the system's own). The
// replacement stays the caller's.
KOLMA_PLATFORM_API FileSystem* installFileSystem(FileSystem* replacement) noexcept;
