#include "platform/files.h"
#include "platform/posix/Descriptor.h"
#include "platform/posix/fileSystem.h"
#include "platform/posix/path.h"
#include "platform/posix/service.h"

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>
#include <vector>

namespace {

constexpr mode_t writeBits = S_IWUSR | S_IWGRP | S_IWOTH;
constexpr mode_t permissionBits = S_IRWXU | S_IRWXG | S_IRWXO;

bool isReadOnly(const struct stat& status) { return (status.st_mode & writeBits) == 0; }

struct stat statusOf(const std::string& path) {
    struct stat status {};
    if (fileSystem().stat(path.c_str(), &status) != 0) failOnPath(path);
    return status;
}

// A folder and a read-only file are never replaced. What is not there may be.
void requireReplaceable(const std::string& path) {
    struct stat status {};
    if (fileSystem().lstat(path.c_str(), &status) != 0) return;
    require(S_ISLNK(status.st_mode) || (S_ISREG(status.st_mode) && !isReadOnly(status)), ERROR_ACCESS_DENIED);
}

// Of the two names, the one that is at fault.
[[noreturn]] void failOnPaths(const std::string& from, const std::string& to) {
    int number = errno;
    struct stat status {};
    bool isThere = fileSystem().lstat(from.c_str(), &status) == 0;
    errno = number;
    failOnPath(isThere ? to : from);
}

void renameOver(const std::string& from, const std::string& to) {
    if (fileSystem().rename(from.c_str(), to.c_str()) != 0) failOnPaths(from, to);
}

void renameNew(const std::string& from, const std::string& to) {
    if (fileSystem().renameNew(from.c_str(), to.c_str()) == 0) return;
    require(errno != EEXIST, ERROR_ALREADY_EXISTS);
    failOnPaths(from, to);
}

void move(const std::string& from, const std::string& to, DWORD flags) {
    // Had beforehand, so that nothing but the medium can fail once the file has its new name.
    std::string source = folderOf(from);
    std::string target = folderOf(to);
    if ((flags & MOVEFILE_REPLACE_EXISTING) != 0) {
        requireReplaceable(to);
        renameOver(from, to);
    } else {
        renameNew(from, to);
    }
    if ((flags & MOVEFILE_WRITE_THROUGH) == 0) return;
    flushFolder(target);
    if (source != target) flushFolder(source);
}

// Gives the new file the old one's owner, group and mode. Nobody may give a file away but the administrator, so owner
// and group are kept as far as the user may; where the group cannot be kept, the new group gets no rights by it.
void takeOver(const Descriptor& file, const struct stat& old) {
    mode_t mode = old.st_mode & permissionBits;
    struct stat fresh = file.status();
    bool differs = fresh.st_uid != old.st_uid || fresh.st_gid != old.st_gid;
    if (differs && fileSystem().fchown(file.number(), old.st_uid, old.st_gid) != 0) {
        if (errno != EPERM && errno != EINVAL) failByErrno();
        if (fresh.st_gid != old.st_gid && fileSystem().fchown(file.number(), static_cast<uid_t>(-1), old.st_gid) != 0)
            mode &= ~static_cast<mode_t>(S_IRWXG);
    }
    if (fileSystem().fchmod(file.number(), mode) != 0) failByErrno();
}

void copyBytes(const std::string& from, const std::string& to, mode_t mode) {
    Descriptor source(from, O_RDONLY);
    Descriptor target(to, O_WRONLY | O_CREAT | O_EXCL, mode);
    std::vector<char> part(65536);
    std::size_t count = 0;
    for (source.read(part.data(), part.size(), count); count != 0; source.read(part.data(), part.size(), count)) {
        std::size_t done = 0;
        target.write(part.data(), count, done);
    }
    target.flush();
    target.close();
}

// A symbolic link can lead to another file system, where a file cannot be renamed to: it is copied there under a name
// of its own, and that one takes the place.
void renameAcross(const std::string& from, const std::string& to, const struct stat& old) {
    std::string near = to + ".kolma-" + std::to_string(::getpid()) + ".tmp";
    try {
        copyBytes(from, near, S_IRUSR | S_IWUSR);
        Descriptor copy(near, O_RDWR);
        takeOver(copy, old);
        copy.flush();
        renameOver(near, to);
    } catch (...) {
        fileSystem().unlink(near.c_str());
        throw;
    }
    fileSystem().unlink(from.c_str());
}

// A second name for the old file, or a copy where the file system cannot give it one.
void keepBackup(const std::string& path, const std::string& backup, const struct stat& status) {
    requireReplaceable(backup);
    if (fileSystem().unlink(backup.c_str()) != 0 && errno != ENOENT) failOnPath(backup);
    if (fileSystem().link(path.c_str(), backup.c_str()) == 0) return;
    if (errno != EPERM && errno != EOPNOTSUPP && errno != ENOSYS && errno != EMLINK && errno != EXDEV)
        failOnPath(backup);
    copyBytes(path, backup, status.st_mode & permissionBits);
}

void replace(const std::string& replaced, const std::string& replacement, LPCWSTR backup) {
    std::string target = resolvedPath(replaced);
    std::string folder = folderOf(target);
    struct stat old = statusOf(target);
    require(S_ISREG(old.st_mode) && !isReadOnly(old) && fileSystem().access(target.c_str(), W_OK) == 0,
            ERROR_ACCESS_DENIED);
    {
        Descriptor fresh(replacement, O_RDWR);
        takeOver(fresh, old);
        fresh.flush();
        fresh.close();
    }
    if (backup != nullptr) keepBackup(target, toPath(backup), old);
    if (statusOf(replacement).st_dev == old.st_dev)
        renameOver(replacement, target);
    else
        renameAcross(replacement, target, old);
    flushFolder(folder);
}

} // namespace

BOOL WINAPI DeleteFileW(LPCWSTR lpFileName) {
    return service<BOOL>(FALSE, [&] {
        std::string path = toPath(lpFileName);
        if (fileSystem().unlink(path.c_str()) != 0) failOnPath(path);
        return TRUE;
    });
}

BOOL WINAPI MoveFileExW(LPCWSTR lpExistingFileName, LPCWSTR lpNewFileName, DWORD dwFlags) {
    return service<BOOL>(FALSE, [&] {
        constexpr DWORD known = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
        require((dwFlags & ~known) == 0, ERROR_INVALID_PARAMETER);
        move(toPath(lpExistingFileName), toPath(lpNewFileName), dwFlags);
        return TRUE;
    });
}

BOOL WINAPI ReplaceFileW(LPCWSTR lpReplacedFileName, LPCWSTR lpReplacementFileName, LPCWSTR lpBackupFileName,
                         DWORD dwReplaceFlags, LPVOID lpExclude, LPVOID lpReserved) {
    return service<BOOL>(FALSE, [&] {
        constexpr DWORD known = REPLACEFILE_WRITE_THROUGH | REPLACEFILE_IGNORE_MERGE_ERRORS;
        require((dwReplaceFlags & ~known) == 0 && lpExclude == nullptr && lpReserved == nullptr,
                ERROR_INVALID_PARAMETER);
        replace(toPath(lpReplacedFileName), toPath(lpReplacementFileName), lpBackupFileName);
        return TRUE;
    });
}

DWORD WINAPI GetFileAttributesW(LPCWSTR lpFileName) {
    return service(INVALID_FILE_ATTRIBUTES, [&] {
        struct stat status = statusOf(toPath(lpFileName));
        DWORD attributes = S_ISDIR(status.st_mode) ? FILE_ATTRIBUTE_DIRECTORY : 0;
        if (isReadOnly(status)) attributes |= FILE_ATTRIBUTE_READONLY;
        return attributes == 0 ? FILE_ATTRIBUTE_NORMAL : attributes;
    });
}
