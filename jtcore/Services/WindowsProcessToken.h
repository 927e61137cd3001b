// The access token of this process, closed with the object.
#pragma once

#include "platform/types.h"

class WindowsProcessToken {
public:
    // access: the desired access, TOKEN_QUERY (8) for reading. Raises ProcessTokenRequestException.
    explicit WindowsProcessToken(DWORD access);
    ~WindowsProcessToken();
    WindowsProcessToken(const WindowsProcessToken&) = delete;
    WindowsProcessToken& operator=(const WindowsProcessToken&) = delete;

    HANDLE getHandle() const noexcept { return handle_; }

private:
    HANDLE handle_ = nullptr;
};
