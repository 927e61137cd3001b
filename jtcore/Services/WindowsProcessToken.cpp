#include "jtcore/Services/WindowsProcessToken.h"

#include "jtcore/Services/KolmaException.h"
#include "jtcore/Services/quietly.h"
#include "platform/files.h"
#include "platform/identity.h"

WindowsProcessToken::WindowsProcessToken(DWORD access) {
    if (OpenProcessToken(GetCurrentProcess(), access, &handle_)) return;
    DWORD error = GetLastError();
    raise<ProcessTokenRequestException>(u"WindowsProcessToken::WindowsProcessToken(): Call to OpenProcessToken(0x%lx) "
                                        u"failed with LastError of 0x%lx.\r\n",
                                        access, error);
}

WindowsProcessToken::~WindowsProcessToken() {
    quietly([this] { CloseHandle(handle_); });
}
