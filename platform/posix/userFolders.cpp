#include "platform/posix/userFolders.h"

#include "platform/posix/service.h"

#include <cerrno>
#include <cstdlib>
#include <mutex>
#include <pwd.h>
#include <unistd.h>
#include <vector>

namespace {

std::string environmentPath(const char* name) {
    const char* value = std::getenv(name);
    // As the convention on these variables says: a path that is not absolute counts as not set.
    return value != nullptr && *value == '/' ? value : "";
}

template <typename Member>
std::string accountEntry(Member member) {
    constexpr std::size_t largest = 1U << 20U;
    for (std::size_t size = 1024; size <= largest; size *= 4) {
        std::vector<char> buffer(size);
        passwd entry{};
        passwd* found = nullptr;
        int result = ::getpwuid_r(::geteuid(), &entry, buffer.data(), buffer.size(), &found);
        if (result == ERANGE) continue;
        return result == 0 && found != nullptr && found->*member != nullptr ? found->*member : "";
    }
    return "";
}

// The name of the account, kept: it is the one that was logged on under. Empty, and looked for again, when there is
// none.
std::string accountName() {
    static std::mutex mutex;
    static uid_t knownUser = 0;
    static std::string knownName;
    const std::lock_guard lock(mutex);
    const uid_t user = ::geteuid();
    if (knownName.empty() || knownUser != user) knownName = accountEntry(&passwd::pw_name);
    knownUser = user;
    return knownName;
}

std::string baseFolder(const char* variable, const char* underHome) {
    std::string base = environmentPath(variable);
    if (base.empty()) base = homeFolder() + underHome;
    return base + "/kolma";
}

} // namespace

std::string userName() {
    std::string name = accountName();
    for (const char* variable : {"LOGNAME", "USER"})
        if (const char* value = std::getenv(variable); name.empty() && value != nullptr) name = value;
    return name;
}

std::string homeFolder() {
    std::string home = environmentPath("HOME");
    if (home.empty()) home = accountEntry(&passwd::pw_dir);
    require(home.starts_with('/'), ERROR_PATH_NOT_FOUND);
    while (home.size() > 1 && home.ends_with('/'))
        home.pop_back();
    return home;
}

std::string configurationFolder() { return baseFolder("XDG_CONFIG_HOME", "/.config"); }

std::string dataFolder() { return baseFolder("XDG_DATA_HOME", "/.local/share"); }
