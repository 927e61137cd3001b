#include "platform/posix/FileStamp.h"

#include "platform/posix/fileSystem.h"
#include "platform/posix/path.h"

#include <algorithm>
#include <cerrno>
#include <ctime>
#include <iterator>
#include <linux/magic.h>
#include <sys/vfs.h>
#include <tuple>

namespace {

constexpr std::int64_t second = 1'000'000'000;

// More than the steps in which the file system notes times: a few milliseconds, or whole seconds where it keeps no
// more.
std::int64_t stepOf(const struct timespec& time) noexcept { return time.tv_nsec == 0 ? 2 * second : second / 10; }

std::int64_t nanoseconds(const struct timespec& time) noexcept { return time.tv_sec * second + time.tv_nsec; }

constexpr std::int64_t zfsMagic = 0x2FC12FC1;
constexpr std::int64_t localFileSystems[] = {EXT4_SUPER_MAGIC, XFS_SUPER_MAGIC, BTRFS_SUPER_MAGIC,
                                             F2FS_SUPER_MAGIC, TMPFS_MAGIC,     OVERLAYFS_SUPER_MAGIC,
                                             zfsMagic};

bool isOfThisMachine(const std::string& path) noexcept {
    struct statfs system {};
    if (::statfs(path.c_str(), &system) != 0) return false;
    return std::find(std::begin(localFileSystems), std::end(localFileSystems), system.f_type) !=
           std::end(localFileSystems);
}

auto identify(const struct stat& status) noexcept {
    return std::tuple(status.st_dev, status.st_ino, status.st_size, nanoseconds(status.st_ctim),
                      nanoseconds(status.st_mtim));
}

} // namespace

std::optional<FileStamp> FileStamp::of(const std::string& path) {
    struct stat status {};
    if (fileSystem().stat(path.c_str(), &status) == 0) return FileStamp(status);
    if (errno == ENOENT || errno == ENOTDIR) return std::nullopt;
    failOnPath(path);
}

bool FileStamp::isReliable(const std::string& path) const noexcept {
    struct timespec now {};
    // The clock that the times of files are taken from.
    if (::clock_gettime(CLOCK_REALTIME_COARSE, &now) != 0) return false;
    const std::int64_t age = nanoseconds(now) - nanoseconds(status_.st_ctim);
    return age > stepOf(status_.st_ctim) && isOfThisMachine(path);
}

bool FileStamp::operator==(const FileStamp& other) const noexcept {
    return identify(status_) == identify(other.status_);
}
