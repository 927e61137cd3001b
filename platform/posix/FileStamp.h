// What tells whether a file is still the one that it was: which file it is, how large, and when it was last changed.
// One system call to take.
#pragma once

#include <optional>
#include <string>
#include <sys/stat.h>

class FileStamp {
public:
    // Nothing where there is no such file; fails as any other look at the path.
    static std::optional<FileStamp> of(const std::string& path);

    // Whether any later change gives another stamp. The times of a file move in steps, so one that was changed a moment
    // ago may change again and look the same; and of a file on another machine this one knows old times. To be asked
    // before the file is read.
    bool isReliable(const std::string& path) const noexcept;

    bool operator==(const FileStamp& other) const noexcept;

private:
    explicit FileStamp(const struct stat& status) noexcept : status_(status) {}

    struct stat status_;
};
