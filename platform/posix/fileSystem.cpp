#include "platform/posix/fileSystem.h"

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

int FileSystem::open(const char* path, int flags, mode_t mode) { return ::open(path, flags, mode); }

ssize_t FileSystem::read(int file, void* bytes, std::size_t size) { return ::read(file, bytes, size); }

ssize_t FileSystem::pread(int file, void* bytes, std::size_t size, off_t offset) {
    return ::pread(file, bytes, size, offset);
}

ssize_t FileSystem::write(int file, const void* bytes, std::size_t size) { return ::write(file, bytes, size); }

int FileSystem::ftruncate(int file, off_t size) { return ::ftruncate(file, size); }

int FileSystem::fsync(int file) { return ::fsync(file); }

int FileSystem::close(int file) { return ::close(file); }

int FileSystem::fstat(int file, struct stat* status) { return ::fstat(file, status); }

int FileSystem::fchmod(int file, mode_t mode) { return ::fchmod(file, mode); }

int FileSystem::fchown(int file, uid_t owner, gid_t group) { return ::fchown(file, owner, group); }

int FileSystem::stat(const char* path, struct stat* status) { return ::stat(path, status); }

int FileSystem::lstat(const char* path, struct stat* status) { return ::lstat(path, status); }

int FileSystem::access(const char* path, int mode) { return ::access(path, mode); }

char* FileSystem::realpath(const char* path, char* resolved) { return ::realpath(path, resolved); }

int FileSystem::rename(const char* from, const char* to) { return ::rename(from, to); }

int FileSystem::renameNew(const char* from, const char* to) {
    if (::renameat2(AT_FDCWD, from, AT_FDCWD, to, RENAME_NOREPLACE) == 0) return 0;
    if (errno != EINVAL && errno != ENOSYS) return -1;
    // A file system without that call: a second name, then the first one away.
    return ::link(from, to) == 0 ? ::unlink(from) : -1;
}

int FileSystem::link(const char* from, const char* to) { return ::link(from, to); }

int FileSystem::unlink(const char* path) { return ::unlink(path); }

int FileSystem::mkdir(const char* path, mode_t mode) { return ::mkdir(path, mode); }

namespace {

std::atomic<FileSystem*> installed = nullptr;

} // namespace

FileSystem& fileSystem() noexcept {
    static FileSystem own;
    FileSystem* replacement = installed.load();
    return replacement != nullptr ? *replacement : own;
}

FileSystem* installFileSystem(FileSystem* replacement) noexcept { return installed.exchange(replacement); }
