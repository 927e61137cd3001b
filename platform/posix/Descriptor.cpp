#include "platform/posix/Descriptor.h"

#include "platform/posix/fileSystem.h"
#include "platform/posix/path.h"
#include "platform/posix/service.h"

#include <cerrno>
#include <fcntl.h>
#include <utility>

namespace {

template <typename Call>
auto uninterrupted(Call&& call) {
    auto result = call();
    while (result == -1 && errno == EINTR)
        result = call();
    return result;
}

int openOnPath(const std::string& path, int flags, mode_t mode) {
    int file = uninterrupted([&] { return fileSystem().open(path.c_str(), flags, mode); });
    if (file == -1) failOnPath(path);
    return file;
}

} // namespace

Descriptor::Descriptor(const std::string& path, int flags, mode_t mode)
    : file_(openOnPath(path, flags | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, mode)) {
    struct stat status {};
    bool known = fileSystem().fstat(file_, &status) == 0;
    if (known && S_ISREG(status.st_mode)) return;
    DWORD error = known ? ERROR_ACCESS_DENIED : errorOfErrno(errno);
    fileSystem().close(file_);
    throw PlatformError{error};
}

Descriptor::~Descriptor() {
    if (file_ != -1) fileSystem().close(file_);
}

struct stat Descriptor::status() const {
    struct stat status {};
    if (fileSystem().fstat(file_, &status) != 0) failByErrno();
    return status;
}

void Descriptor::read(void* bytes, std::size_t size, std::size_t& done) const {
    for (done = 0; done < size;) {
        ssize_t count =
            uninterrupted([&] { return fileSystem().read(file_, static_cast<char*>(bytes) + done, size - done); });
        if (count == -1) failByErrno(ERROR_READ_FAULT);
        if (count == 0) return;
        done += static_cast<std::size_t>(count);
    }
}

void Descriptor::write(const void* bytes, std::size_t size, std::size_t& done) const {
    for (done = 0; done < size;) {
        ssize_t count = uninterrupted(
            [&] { return fileSystem().write(file_, static_cast<const char*>(bytes) + done, size - done); });
        if (count == -1) failByErrno(ERROR_WRITE_FAULT);
        require(count != 0, ERROR_WRITE_FAULT);
        done += static_cast<std::size_t>(count);
    }
}

bool Descriptor::readAt(std::uint64_t offset, void* bytes, std::size_t size) const {
    for (std::size_t done = 0; done < size;) {
        ssize_t count = uninterrupted([&] {
            return fileSystem().pread(file_, static_cast<char*>(bytes) + done, size - done,
                                      static_cast<off_t>(offset + done));
        });
        if (count == -1) failByErrno(ERROR_READ_FAULT);
        if (count == 0) return false;
        done += static_cast<std::size_t>(count);
    }
    return true;
}

void Descriptor::truncate() const {
    if (uninterrupted([&] { return fileSystem().ftruncate(file_, 0); }) != 0) failByErrno(ERROR_WRITE_FAULT);
}

void Descriptor::flush() const {
    if (uninterrupted([&] { return fileSystem().fsync(file_); }) != 0) failByErrno(ERROR_WRITE_FAULT);
}

void Descriptor::close() {
    // The number is free again even after a failure, an interruption included.
    if (fileSystem().close(std::exchange(file_, -1)) != 0 && errno != EINTR) failByErrno(ERROR_WRITE_FAULT);
}

void flushFolder(const std::string& folder) {
    int file = openOnPath(folder, O_RDONLY | O_DIRECTORY | O_CLOEXEC, 0);
    int result = uninterrupted([&] { return fileSystem().fsync(file); });
    int number = errno;
    fileSystem().close(file);
    // Some file systems have no such thing for a folder, and need none.
    if (result != 0 && number != EINVAL && number != EOPNOTSUPP)
        throw PlatformError{errorOfErrno(number, ERROR_WRITE_FAULT)};
}
