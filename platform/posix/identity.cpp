#include "platform/identity.h"

#include "platform/posix/token.h"
#include "platform/posix/userFolders.h"
#include "platform/posix/wideText.h"

#include <unistd.h>

namespace {

const HANDLE currentProcess = reinterpret_cast<HANDLE>(static_cast<LONG_PTR>(-1)); // NOLINT

} // namespace

HANDLE WINAPI GetCurrentProcess() { return currentProcess; }

DWORD WINAPI GetCurrentProcessId() { return static_cast<DWORD>(::getpid()); }

BOOL WINAPI OpenProcessToken(HANDLE ProcessHandle, DWORD DesiredAccess, PHANDLE TokenHandle) {
    return service<BOOL>(FALSE, [&] {
        require(ProcessHandle == currentProcess, ERROR_INVALID_HANDLE);
        require(TokenHandle != nullptr, ERROR_INVALID_PARAMETER);
        *TokenHandle = processTokens().add(std::make_shared<ProcessToken>(ProcessToken{DesiredAccess}));
        return TRUE;
    });
}

UINT WINAPI GetWindowsDirectoryW(LPWSTR lpBuffer, UINT uSize) {
    return service<UINT>(0, [&] {
        CopiedText copied = copyText(wideText(homeFolder()), lpBuffer, uSize);
        return static_cast<UINT>(copied.fits ? copied.needed - 1 : copied.needed);
    });
}

BOOL WINAPI GetUserProfileDirectoryW(HANDLE hToken, LPWSTR lpProfileDir, LPDWORD lpcchSize) {
    return service<BOOL>(FALSE, [&] {
        require(lpcchSize != nullptr, ERROR_INVALID_PARAMETER);
        auto token = processTokens().get(hToken);
        require((token->access & TOKEN_QUERY) != 0, ERROR_ACCESS_DENIED);
        CopiedText copied = copyText(wideText(homeFolder()), lpProfileDir, *lpcchSize);
        *lpcchSize = static_cast<DWORD>(copied.needed);
        require(copied.fits, ERROR_INSUFFICIENT_BUFFER);
        return TRUE;
    });
}

DWORD WINAPI WNetGetUserW(LPCWSTR lpName, LPWSTR lpUserName, LPDWORD lpnLength) {
    return errorNumberOf([&] {
        require(lpName == nullptr && lpnLength != nullptr, ERROR_INVALID_PARAMETER);
        std::u16string name = wideText(userName());
        require(!name.empty(), ERROR_NO_SUCH_USER);
        CopiedText copied = copyText(name, lpUserName, *lpnLength);
        if (!copied.fits) *lpnLength = static_cast<DWORD>(copied.needed);
        require(copied.fits, ERROR_MORE_DATA);
    });
}

NET_API_STATUS WINAPI NetWkstaUserGetInfo(LPWSTR, DWORD level, LPBYTE* bufptr) {
    return errorNumberOf([&] {
        require(bufptr != nullptr, ERROR_INVALID_PARAMETER);
        *bufptr = nullptr;
        require(level == 0, ERROR_INVALID_LEVEL);
        std::u16string name = wideText(userName());
        require(!name.empty(), ERROR_NO_SUCH_USER);
        // The text lies behind the structure, so that one call frees both.
        auto* block =
            static_cast<LPBYTE>(::operator new(sizeof(WKSTA_USER_INFO_0) + (name.size() + 1) * sizeof(WCHAR)));
        auto* text = reinterpret_cast<LPWSTR>(block + sizeof(WKSTA_USER_INFO_0));
        copyText(name, text, name.size() + 1);
        new (block) WKSTA_USER_INFO_0{text};
        *bufptr = block;
    });
}

NET_API_STATUS WINAPI NetApiBufferFree(LPVOID Buffer) {
    ::operator delete(Buffer);
    return NERR_Success;
}
