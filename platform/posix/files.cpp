#include "platform/files.h"

#include "platform/posix/Descriptor.h"
#include "platform/posix/HandleTable.h"
#include "platform/posix/fileSystem.h"
#include "platform/posix/path.h"
#include "platform/posix/token.h"

#include <cerrno>
#include <fcntl.h>

namespace {

HandleTable<Descriptor>& openFiles() { return handleTable<HandleKind::file, Descriptor>(); }

struct Disposition {
    int flags;
    bool truncates;
};

Disposition dispositionOf(DWORD published) {
    switch (published) {
    case CREATE_NEW:
        return {O_CREAT | O_EXCL, false};
    case CREATE_ALWAYS:
        return {O_CREAT, true};
    case OPEN_EXISTING:
        return {0, false};
    case OPEN_ALWAYS:
        return {O_CREAT, false};
    case TRUNCATE_EXISTING:
        return {0, true};
    default:
        throw PlatformError{ERROR_INVALID_PARAMETER};
    }
}

int accessFlags(DWORD access) {
    if ((access & GENERIC_WRITE) == 0) return O_RDONLY;
    return (access & GENERIC_READ) != 0 ? O_RDWR : O_WRONLY;
}

HANDLE openFile(LPCWSTR name, DWORD access, DWORD published) {
    Disposition disposition = dispositionOf(published);
    require(!disposition.truncates || (access & GENERIC_WRITE) != 0, ERROR_INVALID_PARAMETER);
    std::string path = toPath(name);
    auto file = std::make_shared<Descriptor>(path, accessFlags(access) | disposition.flags, 0666);
    HANDLE handle = INVALID_HANDLE_VALUE;
    try {
        handle = openFiles().add(file);
        // Last, so that a failure before it has not cost the file its content.
        if (disposition.truncates) file->truncate();
        return handle;
    } catch (...) {
        openFiles().remove(handle);
        if (published == CREATE_NEW) fileSystem().unlink(path.c_str());
        throw;
    }
}

// The handle is good, so a refusal of its number means that it was opened for the other direction only.
[[noreturn]] void rethrowTransfer(const PlatformError& error) {
    throw PlatformError{error.number == ERROR_INVALID_HANDLE ? ERROR_ACCESS_DENIED : error.number};
}

template <typename Transfer>
BOOL transfer(HANDLE handle, LPDWORD count, LPOVERLAPPED overlapped, Transfer&& part) {
    if (count != nullptr) *count = 0;
    return service<BOOL>(FALSE, [&] {
        require(overlapped == nullptr, ERROR_INVALID_PARAMETER);
        auto file = openFiles().get(handle);
        std::size_t done = 0;
        try {
            part(*file, done);
        } catch (const PlatformError& error) {
            if (count != nullptr) *count = static_cast<DWORD>(done);
            rethrowTransfer(error);
        }
        if (count != nullptr) *count = static_cast<DWORD>(done);
        return TRUE;
    });
}

} // namespace

HANDLE WINAPI CreateFileW(LPCWSTR lpFileName, DWORD dwDesiredAccess, DWORD, LPSECURITY_ATTRIBUTES,
                          DWORD dwCreationDisposition, DWORD, HANDLE) {
    return service(INVALID_HANDLE_VALUE, [&] { return openFile(lpFileName, dwDesiredAccess, dwCreationDisposition); });
}

DWORD WINAPI GetFileSize(HANDLE hFile, LPDWORD lpFileSizeHigh) {
    return service(INVALID_FILE_SIZE, [&] {
        std::uint64_t size = openFiles().get(hFile)->size();
        if (lpFileSizeHigh != nullptr) *lpFileSizeHigh = static_cast<DWORD>(size >> 32U);
        auto low = static_cast<DWORD>(size);
        if (low == INVALID_FILE_SIZE) SetLastError(ERROR_SUCCESS);
        return low;
    });
}

BOOL WINAPI GetFileSizeEx(HANDLE hFile, PLARGE_INTEGER lpFileSize) {
    return service<BOOL>(FALSE, [&] {
        require(lpFileSize != nullptr, ERROR_INVALID_PARAMETER);
        lpFileSize->QuadPart = static_cast<LONGLONG>(openFiles().get(hFile)->size());
        return TRUE;
    });
}

BOOL WINAPI ReadFile(HANDLE hFile, LPVOID lpBuffer, DWORD nNumberOfBytesToRead, LPDWORD lpNumberOfBytesRead,
                     LPOVERLAPPED lpOverlapped) {
    return transfer(hFile, lpNumberOfBytesRead, lpOverlapped, [&](const Descriptor& file, std::size_t& done) {
        file.read(lpBuffer, nNumberOfBytesToRead, done);
    });
}

BOOL WINAPI WriteFile(HANDLE hFile, LPCVOID lpBuffer, DWORD nNumberOfBytesToWrite, LPDWORD lpNumberOfBytesWritten,
                      LPOVERLAPPED lpOverlapped) {
    return transfer(hFile, lpNumberOfBytesWritten, lpOverlapped, [&](const Descriptor& file, std::size_t& done) {
        file.write(lpBuffer, nNumberOfBytesToWrite, done);
    });
}

BOOL WINAPI FlushFileBuffers(HANDLE hFile) {
    return service<BOOL>(FALSE, [&] {
        openFiles().get(hFile)->flush();
        return TRUE;
    });
}

BOOL WINAPI CloseHandle(HANDLE hObject) {
    return service<BOOL>(FALSE, [&] {
        if (auto file = openFiles().remove(hObject)) {
            // A transfer that still runs on another thread keeps the file; it is closed with its end.
            if (file.use_count() == 1) file->close();
        } else {
            require(processTokens().remove(hObject) != nullptr, ERROR_INVALID_HANDLE);
        }
        return TRUE;
    });
}
