#include "jtcore/Services/FileHandle.h"

#include "jtcore/Services/quietly.h"
#include "platform/files.h"

bool FileHandle::close() noexcept {
    if (!isOpen()) return true;
    bool isClosed = false;
    quietly([&] { isClosed = CloseHandle(std::exchange(handle_, INVALID_HANDLE_VALUE)) != FALSE; });
    return isClosed;
}
