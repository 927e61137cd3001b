// A file system in which a chosen call fails, from its n-th use on or once; every other call is the real one.
#pragma once

#include "platform/posix/fileSystem.h"

#include <cerrno>
#include <map>
#include <string>
#include <vector>

class FaultyFileSystem : public FileSystem {
public:
    FaultyFileSystem() : before_(installFileSystem(this)) {}
    ~FaultyFileSystem() override { installFileSystem(before_); }

    // The call fails with the error, after having gone well the given number of times.
    void fail(const std::string& call, int error, int after = 0) { faults_[call] = {error, after}; }
    // Each transfer moves one byte at most, and every second one is interrupted before.
    void transferInBits() { inBits_ = true; }

    // The names of the calls made, in their order.
    std::vector<std::string> calls;

    int open(const char* path, int flags, mode_t mode) override {
        return failing("open") ? -1 : FileSystem::open(path, flags, mode);
    }
    ssize_t read(int file, void* bytes, std::size_t size) override {
        return failing("read") || interrupted() ? -1 : FileSystem::read(file, bytes, bits(size));
    }
    ssize_t pread(int file, void* bytes, std::size_t size, off_t offset) override {
        return failing("pread") || interrupted() ? -1 : FileSystem::pread(file, bytes, bits(size), offset);
    }
    ssize_t write(int file, const void* bytes, std::size_t size) override {
        return failing("write") || interrupted() ? -1 : FileSystem::write(file, bytes, bits(size));
    }
    int ftruncate(int file, off_t size) override {
        return failing("ftruncate") ? -1 : FileSystem::ftruncate(file, size);
    }
    int fsync(int file) override { return failing("fsync") ? -1 : FileSystem::fsync(file); }
    int close(int file) override {
        // As the real one: the number is free again, whatever the answer.
        int result = FileSystem::close(file);
        return failing("close") ? -1 : result;
    }
    int fstat(int file, struct stat* status) override {
        return failing("fstat") ? -1 : FileSystem::fstat(file, status);
    }
    int fchmod(int file, mode_t mode) override { return failing("fchmod") ? -1 : FileSystem::fchmod(file, mode); }
    int fchown(int file, uid_t owner, gid_t group) override {
        return failing("fchown") ? -1 : FileSystem::fchown(file, owner, group);
    }
    int stat(const char* path, struct stat* status) override {
        return failing("stat") ? -1 : FileSystem::stat(path, status);
    }
    int rename(const char* from, const char* to) override {
        return failing("rename") ? -1 : FileSystem::rename(from, to);
    }
    int renameNew(const char* from, const char* to) override {
        return failing("renameNew") ? -1 : FileSystem::renameNew(from, to);
    }
    int link(const char* from, const char* to) override { return failing("link") ? -1 : FileSystem::link(from, to); }
    int unlink(const char* path) override { return failing("unlink") ? -1 : FileSystem::unlink(path); }
    int mkdir(const char* path, mode_t mode) override { return failing("mkdir") ? -1 : FileSystem::mkdir(path, mode); }

private:
    struct Fault {
        int error;
        int after;
    };

    bool failing(const std::string& call) {
        calls.push_back(call);
        auto fault = faults_.find(call);
        if (fault == faults_.end() || fault->second.after-- > 0) return false;
        errno = fault->second.error;
        return true;
    }
    bool interrupted() {
        if (!inBits_) return false;
        isInterrupted_ = !isInterrupted_;
        errno = EINTR;
        return isInterrupted_;
    }
    std::size_t bits(std::size_t size) const { return inBits_ && size > 1 ? 1 : size; }

    FileSystem* before_;
    std::map<std::string, Fault> faults_;
    bool inBits_ = false;
    bool isInterrupted_ = false;
};
