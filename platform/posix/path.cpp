#include "platform/posix/path.h"

#include "platform/posix/fileSystem.h"
#include "platform/posix/service.h"
#include "platform/posix/wideText.h"

#include <algorithm>
#include <cerrno>
#include <climits>

std::string toPath(LPCWSTR path) {
    std::string narrow = narrowText(path);
    require(!narrow.empty(), ERROR_PATH_NOT_FOUND);
    std::replace(narrow.begin(), narrow.end(), '\\', '/');
    return narrow;
}

std::string folderOf(const std::string& path) {
    std::size_t end = path.find_last_of('/');
    if (end == std::string::npos) return ".";
    return end == 0 ? "/" : path.substr(0, end);
}

std::string nameOf(const std::string& path) { return path.substr(path.find_last_of('/') + 1); }

std::string resolvedPath(const std::string& path) {
    char resolved[PATH_MAX];
    if (fileSystem().realpath(path.c_str(), resolved) == nullptr) failOnPath(path);
    return resolved;
}

void makeFolders(const std::string& path) {
    struct stat status {};
    if (fileSystem().stat(path.c_str(), &status) == 0) return;
    if (std::string parent = folderOf(path); parent != path) makeFolders(parent);
    // Another process may be making it at the same time.
    if (fileSystem().mkdir(path.c_str(), 0700) != 0 && errno != EEXIST) failOnPath(path);
}

DWORD errorOfErrno(int number, DWORD ofTransfer) noexcept {
    switch (number) {
    case ENOENT:
        return ERROR_FILE_NOT_FOUND;
    case ENOTDIR:
        return ERROR_PATH_NOT_FOUND;
    case EACCES:
    case EPERM:
    case EISDIR:
        return ERROR_ACCESS_DENIED;
    case EROFS:
        return ERROR_WRITE_PROTECT;
    case EEXIST:
        return ERROR_FILE_EXISTS;
    case ENOSPC:
    case EDQUOT:
        return ERROR_DISK_FULL;
    case EFBIG:
        return ERROR_FILE_TOO_LARGE;
    case EIO:
        return ofTransfer;
    case EINVAL:
        return ERROR_INVALID_PARAMETER;
    case EBADF:
        return ERROR_INVALID_HANDLE;
    case ENOMEM:
        return ERROR_NOT_ENOUGH_MEMORY;
    case EMFILE:
    case ENFILE:
        return ERROR_TOO_MANY_OPEN_FILES;
    case EBUSY:
    case ETXTBSY:
        return ERROR_SHARING_VIOLATION;
    case EXDEV:
        return ERROR_NOT_SAME_DEVICE;
    case ENXIO:
    case ENODEV:
        return ERROR_DEV_NOT_EXIST;
    case ENAMETOOLONG:
        return ERROR_FILENAME_EXCED_RANGE;
    case ELOOP:
        return ERROR_CANT_RESOLVE_FILENAME;
    case ENOSYS:
    case EOPNOTSUPP:
        return ERROR_NOT_SUPPORTED;
    default:
        return ERROR_GEN_FAILURE;
    }
}

void failOnPath(const std::string& path) {
    int number = errno;
    struct stat status {};
    if (number == ENOENT && fileSystem().stat(folderOf(path).c_str(), &status) != 0)
        throw PlatformError{ERROR_PATH_NOT_FOUND};
    throw PlatformError{errorOfErrno(number)};
}

void failByErrno(DWORD ofTransfer) { throw PlatformError{errorOfErrno(errno, ofTransfer)}; }
