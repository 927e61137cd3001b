#include "platform/posix/ResourceModule.h"

#include "platform/modules.h"
#include "platform/posix/ResourceDirectory.h"
#include "platform/posix/service.h"
#include "platform/posix/wideText.h"

#include <algorithm>
#include <array>
#include <tuple>

namespace {

constexpr std::size_t dosHeaderSize = 64;
constexpr std::size_t newHeaderOffset = 0x3C;
constexpr std::size_t coffSize = 24; // with the signature
constexpr std::size_t sectionSize = 40;
constexpr std::size_t mostSections = 96;
constexpr std::uint32_t largestSection = 64U << 20U;
constexpr std::size_t resourceDirectory = 2;
constexpr UINT stringsInBlock = 16;

// What differs between the two kinds of optional header.
struct OptionalHeader {
    WORD magic;
    std::size_t directories;
};
constexpr std::array<OptionalHeader, 2> optionalHeaders = {{{0x10B, 96}, {0x20B, 112}}};

template <std::size_t size>
std::array<BYTE, size> part(const ModuleBytes& source, std::uint64_t offset) {
    std::array<BYTE, size> bytes;
    require(source.read(offset, bytes.data(), size), ERROR_BAD_EXE_FORMAT);
    return bytes;
}

// The address of the resource directory, 0 when there is none.
std::uint32_t resourceAddress(const ModuleBytes& source, std::uint64_t offset, std::size_t size) {
    require(size >= 2, ERROR_BAD_EXE_FORMAT);
    WORD magic = wordAt(part<2>(source, offset), 0);
    const auto* kind = std::find_if(optionalHeaders.begin(), optionalHeaders.end(),
                                    [magic](const OptionalHeader& row) { return row.magic == magic; });
    require(kind != optionalHeaders.end(), ERROR_BAD_EXE_FORMAT);
    std::size_t entry = kind->directories + resourceDirectory * 8;
    require(size >= kind->directories, ERROR_BAD_EXE_FORMAT);
    DWORD count = doubleWordAt(part<4>(source, offset + kind->directories - 4), 0);
    if (count <= resourceDirectory) return 0;
    require(size >= entry + 8, ERROR_BAD_EXE_FORMAT);
    return doubleWordAt(part<4>(source, offset + entry), 0);
}

} // namespace

ResourceName ResourceName::of(LPCWSTR argument) {
    if (IS_INTRESOURCE(argument)) return {static_cast<WORD>(reinterpret_cast<ULONG_PTR>(argument)), {}};
    std::u16string_view text(argument);
    bool isNumber = text.size() > 1 && text.size() <= 6 && text[0] == u'#' &&
                    std::all_of(text.begin() + 1, text.end(), [](char16_t c) { return c >= u'0' && c <= u'9'; });
    if (!isNumber) return {0, foldCase(text)};
    DWORD number = 0;
    for (char16_t digit : text.substr(1))
        number = number * 10 + (digit - u'0');
    require(number <= 0xFFFF, ERROR_RESOURCE_NAME_NOT_FOUND);
    return {static_cast<WORD>(number), {}};
}

ResourceModule::ResourceModule(std::unique_ptr<ModuleBytes> source) : source_(std::move(source)) { readHeaders(); }

void ResourceModule::readHeaders() {
    auto dos = part<dosHeaderSize>(*source_, 0);
    require(dos[0] == 'M' && dos[1] == 'Z', ERROR_BAD_EXE_FORMAT);
    std::uint64_t start = doubleWordAt(dos, newHeaderOffset);
    auto coff = part<coffSize>(*source_, start);
    require(coff[0] == 'P' && coff[1] == 'E' && coff[2] == 0 && coff[3] == 0, ERROR_BAD_EXE_FORMAT);
    std::size_t sections = wordAt(coff, 6);
    std::size_t optionalSize = wordAt(coff, 20);
    require(sections <= mostSections, ERROR_BAD_EXE_FORMAT);
    std::uint64_t optional = start + coffSize;
    findSection(optional + optionalSize, sections, resourceAddress(*source_, optional, optionalSize));
}

void ResourceModule::findSection(std::uint64_t sectionTable, std::size_t count, std::uint32_t resources) {
    for (std::size_t i = 0; i < count; ++i) {
        auto header = part<sectionSize>(*source_, sectionTable + i * sectionSize);
        Section section = {doubleWordAt(header, 12), doubleWordAt(header, 20), doubleWordAt(header, 16)};
        // Of every section, so that a file cut short is known at once and not when its end is wanted.
        require(std::uint64_t{section.fileOffset} + section.size <= source_->size(), ERROR_BAD_EXE_FORMAT);
        if (resources == 0 || hasResources_ || resources < section.address ||
            resources - section.address >= section.size)
            continue;
        require(section.size <= largestSection, ERROR_BAD_EXE_FORMAT);
        section_ = section;
        directory_ = resources - section.address;
        hasResources_ = true;
    }
    require(resources == 0 || hasResources_, ERROR_BAD_EXE_FORMAT);
}

void ResourceModule::load() {
    std::lock_guard lock(mutex_);
    if (isLoaded_) return;
    require(hasResources_, ERROR_RESOURCE_DATA_NOT_FOUND);
    std::vector<BYTE> bytes(section_.size);
    require(source_->read(section_.fileOffset, bytes.data(), bytes.size()), ERROR_RESOURCE_DATA_NOT_FOUND);
    resources_ = readResourceDirectory(bytes, directory_, section_.address);
    bytes_ = std::move(bytes);
    source_.reset();
    isLoaded_ = true;
}

const Resource& ResourceModule::find(const ResourceName& type, const ResourceName& name) {
    load();
    auto at = std::lower_bound(resources_.begin(), resources_.end(), std::tie(type, name),
                               [](const Resource& row, const auto& key) { return std::tie(row.type, row.name) < key; });
    if (at != resources_.end() && at->type == type && at->name == name) return *at;
    bool hasType = std::any_of(resources_.begin(), resources_.end(), [&](const auto& row) { return row.type == type; });
    throw PlatformError{hasType ? ERROR_RESOURCE_NAME_NOT_FOUND : ERROR_RESOURCE_TYPE_NOT_FOUND};
}

const Resource* ResourceModule::check(const void* resource) {
    load();
    auto address = reinterpret_cast<std::uintptr_t>(resource);
    auto first = reinterpret_cast<std::uintptr_t>(resources_.data());
    if (address < first || (address - first) % sizeof(Resource) != 0) return nullptr;
    std::size_t index = (address - first) / sizeof(Resource);
    return index < resources_.size() ? &resources_[index] : nullptr;
}

std::u16string_view ResourceModule::string(UINT id) {
    require(id <= 0xFFFF, ERROR_RESOURCE_NAME_NOT_FOUND);
    ResourceName block = {static_cast<WORD>(id / stringsInBlock + 1), {}};
    std::span<const BYTE> bytes = find(ResourceName::of(RT_STRING), block).bytes;
    // The caller may be given the characters where they lie.
    require(reinterpret_cast<std::uintptr_t>(bytes.data()) % alignof(WCHAR) == 0, ERROR_RESOURCE_DATA_NOT_FOUND);
    for (UINT index = id % stringsInBlock;; --index) {
        require(bytes.size() >= 2, ERROR_RESOURCE_DATA_NOT_FOUND);
        std::size_t length = wordAt(bytes, 0);
        require(bytes.size() - 2 >= length * 2, ERROR_RESOURCE_DATA_NOT_FOUND);
        if (index == 0) return {reinterpret_cast<const char16_t*>(bytes.data() + 2), length};
        bytes = bytes.subspan(2 + length * 2);
    }
}
