// An open file, closed with the object.
#pragma once

#include "platform/types.h"

#include <utility>

class FileHandle {
public:
    FileHandle() = default;
    explicit FileHandle(HANDLE handle) noexcept : handle_(handle) {}
    ~FileHandle() { close(); }
    FileHandle(FileHandle&& other) noexcept : handle_(std::exchange(other.handle_, INVALID_HANDLE_VALUE)) {}
    FileHandle& operator=(FileHandle&& other) noexcept {
        std::swap(handle_, other.handle_);
        return *this;
    }

    bool isOpen() const noexcept { return handle_ != INVALID_HANDLE_VALUE; }
    HANDLE get() const noexcept { return handle_; }
    // False when the close itself failed, which for a written file means that bytes may be lost. The last error of
    // earlier calls is kept when the close succeeds.
    bool close() noexcept;

private:
    HANDLE handle_ = INVALID_HANDLE_VALUE;
};
