// Calls that belong to windows by name only: they need no window layer.
#include "platform/posix/service.h"
#include "platform/windows.h"

#include <limits>
#include <unistd.h>

DWORD WINAPI GetCurrentThreadId() { return static_cast<DWORD>(::gettid()); }

BOOL WINAPI GetVersionExW(LPOSVERSIONINFOW lpVersionInformation) {
    return service<BOOL>(FALSE, [&] {
        require(lpVersionInformation != nullptr, ERROR_INVALID_PARAMETER);
        require(lpVersionInformation->dwOSVersionInfoSize >= sizeof(OSVERSIONINFOW), ERROR_INSUFFICIENT_BUFFER);
        constexpr DWORD major = 10;
        lpVersionInformation->dwMajorVersion = major;
        lpVersionInformation->dwMinorVersion = 0;
        lpVersionInformation->dwBuildNumber = 0;
        lpVersionInformation->dwPlatformId = VER_PLATFORM_WIN32_NT;
        lpVersionInformation->szCSDVersion[0] = 0;
        return TRUE;
    });
}

int WINAPI MulDiv(int nNumber, int nNumerator, int nDenominator) {
    if (nDenominator == 0) return -1;
    LONGLONG product = static_cast<LONGLONG>(nNumber) * nNumerator;
    LONGLONG divisor = nDenominator;
    LONGLONG half = (divisor < 0 ? -divisor : divisor) / 2;
    LONGLONG quotient = (product < 0 ? product - half : product + half) / divisor;
    bool fits = quotient >= std::numeric_limits<int>::min() && quotient <= std::numeric_limits<int>::max();
    return fits ? static_cast<int>(quotient) : -1;
}
