#include "jtcore/Services/User.h"

#include "jtcore/Services/KolmaException.h"
#include "jtcore/Services/SystemModule.h"
#include "jtcore/Services/WindowsProcessToken.h"
#include "platform/identity.h"

#include <optional>

namespace {

std::u16string upToTerminator(const std::u16string& buffer) { return buffer.c_str(); }

std::u16string askForProfileDirectory(decltype(&GetUserProfileDirectoryW) ask) {
    WindowsProcessToken token(TOKEN_QUERY);
    DWORD size = 0;
    ask(token.getHandle(), nullptr, &size);
    std::u16string buffer(size + 1, u'\0');
    if (ask(token.getHandle(), toWide(buffer.data()), &size)) return upToTerminator(buffer);
    DWORD error = GetLastError();
    raise<UserInformationRequestException>(
        u"User::getProfileDirectoryPath(): Failed call to GetUserProfileDirectory() to fill in the buffer with token "
        u"handle of 0x%lx. LastError of 0x%lx.\r\n",
        token.getHandle(), error);
}

std::u16string askForWindowsDirectory() {
    UINT size = GetWindowsDirectoryW(nullptr, 0);
    std::u16string buffer(size + 1, u'\0');
    UINT length = size == 0 ? 0 : GetWindowsDirectoryW(toWide(buffer.data()), size);
    if (length != 0 && length <= size) return upToTerminator(buffer);
    DWORD error = GetLastError();
    raise<UserInformationRequestException>(u"User::GetUserProfileDirectory(): Failed call to GetWindowsDirectory() to "
                                           u"fill in the buffer. LastError of 0x%lx.\r\n",
                                           error);
}

// The name that the workstation service knows; nothing when there is no such service.
std::optional<std::u16string> askWorkstation() {
    SystemModule network(u"netapi32.dll");
    auto ask = network.getEntry<decltype(&NetWkstaUserGetInfo)>("NetWkstaUserGetInfo");
    if (ask == nullptr) return std::nullopt;
    BYTE* info = nullptr;
    std::u16string name;
    bool known = ask(nullptr, 0, &info) == NERR_Success && info != nullptr;
    if (known) name = fromWide(reinterpret_cast<const WKSTA_USER_INFO_0*>(info)->wkui0_username);
    auto release = network.getEntry<decltype(&NetApiBufferFree)>("NetApiBufferFree");
    if (info != nullptr && release != nullptr) release(info);
    return name;
}

std::u16string askNetworkProvider() {
    std::u16string buffer(256, u'\0');
    auto size = static_cast<DWORD>(buffer.size());
    return WNetGetUserW(nullptr, toWide(buffer.data()), &size) == ERROR_SUCCESS ? upToTerminator(buffer) : u"";
}

// The first character of what the user's locale says, 0 when it does not answer.
char16_t askLocale(LCTYPE type) {
    char16_t answer[16] = {};
    return GetLocaleInfoW(LOCALE_USER_DEFAULT, type, toWide(answer), 16) > 0 ? answer[0] : u'\0';
}

} // namespace

std::u16string User::getProfileDirectoryPath() {
    SystemModule environment(u"userenv.dll");
    if (!environment.isLoaded()) return askForWindowsDirectory();
    auto ask = environment.getEntry<decltype(&GetUserProfileDirectoryW)>("GetUserProfileDirectoryW");
    if (ask != nullptr) return askForProfileDirectory(ask);
    DWORD error = GetLastError();
    raise<UserInformationRequestException>(u"User::getProfileDirectoryPath(): Failed call to GetProcAddress for the "
                                           u"GetUserProfileDirectory(). LastError of 0x%lx.\r\n",
                                           error);
}

std::u16string User::getLogonName() {
    std::optional<std::u16string> name = askWorkstation();
    return name ? *name : askNetworkProvider();
}

bool User::isUsingUSMeasurements() { return askLocale(LOCALE_IMEASURE) != u'0'; }

DefaultStockSize User::getDefaultStockSize() {
    switch (askLocale(LOCALE_IPAPERSIZE)) {
    case u'1':
        return DefaultStockSize::letter;
    case u'5':
        return DefaultStockSize::legal;
    case u'8':
        return DefaultStockSize::a3;
    case u'9':
        return DefaultStockSize::a4;
    default:
        return isUsingUSMeasurements() ? DefaultStockSize::letter : DefaultStockSize::a4;
    }
}
