#include "platform/modules.h"

#include "platform/identity.h"
#include "platform/posix/Descriptor.h"
#include "platform/posix/Module.h"
#include "platform/posix/driverFolder.h"
#include "platform/posix/icons.h"
#include "platform/posix/path.h"
#include "platform/posix/resourceModuleOf.h"
#include "platform/posix/wideText.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>

namespace {

struct SystemEntry {
    std::u16string_view module;
    std::string_view name;
    FARPROC entry;
};

// The modules of the system that are reached by name. The addresses are taken at the time of asking, so that a program
// that has put itself in an entry's place is the one reached.
std::array<SystemEntry, 3> systemEntries() {
    return {{
        {u"USERENV.DLL", "GetUserProfileDirectoryW", reinterpret_cast<FARPROC>(&GetUserProfileDirectoryW)},
        {u"NETAPI32.DLL", "NetWkstaUserGetInfo", reinterpret_cast<FARPROC>(&NetWkstaUserGetInfo)},
        {u"NETAPI32.DLL", "NetApiBufferFree", reinterpret_cast<FARPROC>(&NetApiBufferFree)},
    }};
}

class FileBytes : public ModuleBytes {
public:
    explicit FileBytes(const std::string& path) : file_(path, O_RDONLY), size_(file_.size()) {}
    std::uint64_t size() const override { return size_; }
    bool read(std::uint64_t offset, void* bytes, std::size_t size) const override {
        return offset <= size_ && size_ - offset >= size && file_.readAt(offset, bytes, size);
    }

private:
    Descriptor file_;
    std::uint64_t size_;
};

class MemoryBytes : public ModuleBytes {
public:
    MemoryBytes(const void* bytes, std::size_t size)
        : bytes_(static_cast<const BYTE*>(bytes), static_cast<const BYTE*>(bytes) + size) {}
    std::uint64_t size() const override { return bytes_.size(); }
    bool read(std::uint64_t offset, void* bytes, std::size_t size) const override {
        if (offset > bytes_.size() || bytes_.size() - offset < size) return false;
        std::copy_n(bytes_.begin() + static_cast<std::ptrdiff_t>(offset), size, static_cast<BYTE*>(bytes));
        return true;
    }

private:
    std::vector<BYTE> bytes_;
};

// Round the search for a module and the count of its uses.
std::mutex& loading() {
    static std::mutex mutex;
    return mutex;
}

// The loaded modules by what they are known by. REQUIRES: loading() is held.
std::map<std::string, HMODULE>& modulesByPath() {
    static auto* modules = new std::map<std::string, HMODULE>;
    return *modules;
}

HMODULE useAgain(const std::string& path) {
    std::lock_guard lock(loading());
    auto at = modulesByPath().find(path);
    if (at == modulesByPath().end()) return nullptr;
    ++loadedModules().get(at->second)->uses;
    return at->second;
}

// Another thread may have loaded the same one meanwhile; then that one counts and ours goes.
HMODULE publish(std::shared_ptr<Module> module) {
    std::lock_guard lock(loading());
    auto [at, isNew] = modulesByPath().try_emplace(module->path, nullptr);
    if (!isNew) {
        ++loadedModules().get(at->second)->uses;
        return at->second;
    }
    try {
        return at->second = loadedModules().add(std::move(module));
    } catch (...) {
        modulesByPath().erase(at);
        throw;
    }
}

bool isProgram(const FileBytes& file) {
    constexpr std::string_view mark = "\177ELF";
    char start[4];
    return file.read(0, start, sizeof start) && std::string_view(start, sizeof start) == mark;
}

std::shared_ptr<Module> openModule(const std::string& path) {
    auto module = std::make_shared<Module>();
    module->path = path;
    auto file = std::make_unique<FileBytes>(path);
    if (!isProgram(*file)) {
        module->resources = std::make_unique<ResourceModule>(std::move(file));
        return module;
    }
    module->program = ::dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    require(module->program != nullptr, ERROR_BAD_EXE_FORMAT);
    return module;
}

bool isSystemModule(std::u16string_view upperCaseName) {
    auto entries = systemEntries();
    return std::any_of(entries.begin(), entries.end(),
                       [&](const SystemEntry& row) { return row.module == upperCaseName; });
}

// A path that names a folder or a pipe, or that leads nowhere, names no module; what forbids looking is told.
[[noreturn]] void failToOpen(const PlatformError& error) {
    constexpr DWORD nowhere[] = {ERROR_FILE_NOT_FOUND, ERROR_PATH_NOT_FOUND};
    bool isMissing = std::find(std::begin(nowhere), std::end(nowhere), error.number) != std::end(nowhere);
    throw PlatformError{isMissing ? ERROR_MOD_NOT_FOUND : error.number};
}

HMODULE load(LPCWSTR name) {
    std::string path = toPath(name);
    std::u16string upper = foldCase(name);
    bool isSystem = isSystemModule(upper);
    if (isSystem)
        path = narrowText(upper);
    else if (path.find('/') == std::string::npos)
        path = driverFolder() + "/" + path;
    if (HMODULE loaded = useAgain(path)) return loaded;
    if (!isSystem) return publish(openModule(path));
    auto module = std::make_shared<Module>();
    module->path = path;
    module->isSystem = true;
    return publish(std::move(module));
}

} // namespace

Module::~Module() {
    for (const auto& [resource, icon] : icons)
        loadedIcons().remove(icon);
    if (program != nullptr) ::dlclose(program);
}

std::shared_ptr<Module> moduleWithResources(HMODULE handle) {
    auto module = loadedModules().get(handle);
    require(module->resources != nullptr, ERROR_RESOURCE_DATA_NOT_FOUND);
    return module;
}

HMODULE resourceModuleOf(const void* bytes, std::size_t size) {
    return service<HMODULE>(nullptr, [&] {
        auto module = std::make_shared<Module>();
        module->resources = std::make_unique<ResourceModule>(std::make_unique<MemoryBytes>(bytes, size));
        return loadedModules().add(std::move(module));
    });
}

HMODULE WINAPI LoadLibraryExW(LPCWSTR lpLibFileName, HANDLE hFile, DWORD dwFlags) {
    return service<HMODULE>(nullptr, [&] {
        constexpr DWORD known = LOAD_LIBRARY_AS_DATAFILE | LOAD_WITH_ALTERED_SEARCH_PATH;
        require(hFile == nullptr && (dwFlags & ~known) == 0, ERROR_INVALID_PARAMETER);
        try {
            return load(lpLibFileName);
        } catch (const PlatformError& error) {
            failToOpen(error);
        }
    });
}

HMODULE WINAPI LoadLibraryW(LPCWSTR lpLibFileName) { return LoadLibraryExW(lpLibFileName, nullptr, 0); }

BOOL WINAPI FreeLibrary(HMODULE hLibModule) {
    return service<BOOL>(FALSE, [&] {
        // Outlives the lock: a program module runs code of its own when it goes.
        std::shared_ptr<Module> last;
        std::lock_guard lock(loading());
        auto module = loadedModules().get(hLibModule);
        if (--module->uses > 0) return TRUE;
        last = loadedModules().remove(hLibModule);
        modulesByPath().erase(last->path);
        return TRUE;
    });
}

FARPROC WINAPI GetProcAddress(HMODULE hModule, LPCSTR lpProcName) {
    return service<FARPROC>(nullptr, [&] {
        auto module = loadedModules().get(hModule);
        constexpr ULONG_PTR firstName = 0x10000;
        require(reinterpret_cast<ULONG_PTR>(lpProcName) >= firstName, ERROR_PROC_NOT_FOUND);
        FARPROC entry = nullptr;
        if (module->program != nullptr) entry = reinterpret_cast<FARPROC>(::dlsym(module->program, lpProcName));
        for (const SystemEntry& row : systemEntries())
            if (module->isSystem && row.name == lpProcName && narrowText(row.module) == module->path) entry = row.entry;
        require(entry != nullptr, ERROR_PROC_NOT_FOUND);
        return entry;
    });
}
