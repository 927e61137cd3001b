// The resource modules of the build and the headers that name what lies in them.
#pragma once

#include "platform/modules.h"

#include <array>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <ostream>
#include <regex>
#include <span>
#include <string>
#include <string_view>
#include <vector>

inline const std::filesystem::path sourceDir = std::filesystem::path(KOLMA_SOURCE_DIR) / "resources";
inline const std::filesystem::path driverDir = std::filesystem::path(KOLMA_BUILD_DIR) / "lib/kolma/3";
inline const std::filesystem::path madeAgainDir = std::filesystem::path(KOLMA_BUILD_DIR) / "resources/made-again";

inline std::string readFile(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

struct NamedId {
    std::string name;
    int number;
};

// The ids of one header, by the prefix of their names.
inline std::vector<NamedId> idsOf(const std::string& header, const std::string& prefix) {
    static const std::regex definition("#define (ID[A-Z]_\\w+) (\\d+)");
    const std::string text = readFile(sourceDir / header);
    std::vector<NamedId> ids;
    for (auto match = std::sregex_iterator(text.begin(), text.end(), definition); match != std::sregex_iterator();
         ++match)
        if (match->str(1).starts_with(prefix)) ids.push_back({match->str(1), std::stoi(match->str(2))});
    return ids;
}

inline std::vector<NamedId> allIds(const std::string& prefix) {
    std::vector<NamedId> ids;
    for (const char* header : {"ids.h", "ids_dialogs.h", "ids_features.h", "ids_values.h"})
        for (const NamedId& id : idsOf(header, prefix))
            ids.push_back(id);
    return ids;
}

inline std::string narrow(const std::u16string& text) { return std::filesystem::path(text).string(); }

class ResourceFile {
public:
    explicit ResourceFile(const std::filesystem::path& path)
        : handle(LoadLibraryExW(toWide(path.u16string().c_str()), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH)) {}
    ~ResourceFile() {
        if (handle) FreeLibrary(handle);
    }
    ResourceFile(const ResourceFile&) = delete;
    ResourceFile& operator=(const ResourceFile&) = delete;

    bool isLoaded() const { return handle != nullptr; }

    // Strings lie in blocks of 16.
    bool hasBlockOf(int id) const {
        return FindResourceW(handle, MAKEINTRESOURCEW(static_cast<ULONG_PTR>(id / 16 + 1)), RT_STRING) != nullptr;
    }

    std::u16string string(int id) const {
        std::array<WCHAR, 4096> buffer{};
        const int length = LoadStringW(handle, static_cast<UINT>(id), buffer.data(), static_cast<int>(buffer.size()));
        return {buffer.begin(), buffer.begin() + length};
    }

    std::u16string rawText(int id) const {
        const std::span<const BYTE> bytes = resource(id, RT_RCDATA);
        std::u16string text;
        for (std::size_t i = 0; i + 1 < bytes.size(); i += 2)
            text += static_cast<char16_t>(bytes[i] | (bytes[i + 1] << 8U));
        return text;
    }

    // Empty for what the module does not have.
    std::span<const BYTE> resource(int id, LPCWSTR type) const {
        HRSRC found = FindResourceW(handle, MAKEINTRESOURCEW(static_cast<ULONG_PTR>(id)), type);
        if (!found) return {};
        return {static_cast<const BYTE*>(LockResource(LoadResource(handle, found))), SizeofResource(handle, found)};
    }

private:
    HMODULE handle;
};

struct Language {
    const char* name;
    std::filesystem::path file;
};

inline void PrintTo(const Language& language, std::ostream* out) { *out << language.name; }

inline const std::array languages = {Language{"en", "jtres37.dll"}, Language{"de", "de/jtres37.dll"}};
