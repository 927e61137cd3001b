// The resources in a module file (PE). Nothing in the file is believed: every offset and length is checked against what
// is there, the directory has its three levels and no more, and what does not fit is refused as a whole.
#pragma once

#include "platform/types.h"

#include <memory>
#include <mutex>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// Where the bytes of a module come from.
class ModuleBytes {
public:
    virtual ~ModuleBytes() = default;
    virtual std::uint64_t size() const = 0;
    // False when the bytes are not there.
    virtual bool read(std::uint64_t offset, void* bytes, std::size_t size) const = 0;
};

// A resource's type or name: a number, or a text in upper case.
struct ResourceName {
    WORD number = 0;
    std::u16string text;

    auto operator<=>(const ResourceName&) const = default; // NOLINT(modernize-use-nullptr): misread by the check
    // A published argument: MAKEINTRESOURCEW, "#12" or a text.
    static ResourceName of(LPCWSTR argument);
};

struct Resource {
    ResourceName type;
    ResourceName name;
    WORD language = 0;
    std::span<const BYTE> bytes;
};

class ResourceModule {
public:
    // Reads the headers only. Fails with ERROR_BAD_EXE_FORMAT when this is no module, or not the whole of it.
    explicit ResourceModule(std::unique_ptr<ModuleBytes> source);

    // The neutral one, or the first of its name. Fails with ERROR_RESOURCE_*_NOT_FOUND. The first call reads the
    // section with the resources into memory: what later happens to the file is of no matter.
    const Resource& find(const ResourceName& type, const ResourceName& name);
    // Null for what find() has not given.
    const Resource* check(const void* resource);
    // Empty for a string that is missing or empty in a block that is there. Fails as find does.
    std::u16string_view string(UINT id);

private:
    struct Section {
        std::uint32_t address;
        std::uint32_t fileOffset;
        std::uint32_t size;
    };

    void readHeaders();
    void findSection(std::uint64_t sectionTable, std::size_t count, std::uint32_t resources);
    void load();

    std::mutex mutex_;
    std::unique_ptr<ModuleBytes> source_;
    Section section_{};
    // Where the directory begins in the section; unset when the module has no resources.
    std::uint32_t directory_ = 0;
    bool hasResources_ = false;
    bool isLoaded_ = false;
    std::vector<BYTE> bytes_;
    std::vector<Resource> resources_;
};
