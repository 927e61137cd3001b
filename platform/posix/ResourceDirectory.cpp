#include "platform/posix/ResourceDirectory.h"

#include "platform/posix/service.h"
#include "platform/posix/wideText.h"

#include <algorithm>

namespace {

constexpr std::size_t tableHeaderSize = 16;
constexpr std::size_t entrySize = 8;
constexpr std::size_t dataEntrySize = 16;
constexpr DWORD highBit = 0x80000000U;

class Reader {
public:
    Reader(std::span<const BYTE> section, std::uint32_t directory, std::uint32_t address)
        : section_(section),
          directory_(section.subspan(directory)),
          address_(address),
          // No honest directory has more entries than fit; one that goes round in circles soon does.
          entriesLeft_(directory_.size() / entrySize) {}

    std::vector<Resource> read() {
        readTable(0, [this](DWORD type, DWORD names) {
            resource_.type = name(type);
            readTable(subdirectory(names), [this](DWORD id, DWORD languages) {
                resource_.name = name(id);
                readTable(subdirectory(languages), [this](DWORD language, DWORD data) { addData(language, data); });
            });
        });
        return std::move(resources_);
    }

private:
    void requirePart(std::size_t offset, std::size_t size) const {
        require(offset <= directory_.size() && directory_.size() - offset >= size, ERROR_RESOURCE_DATA_NOT_FOUND);
    }

    template <typename Visit>
    void readTable(std::size_t offset, Visit&& visit) {
        requirePart(offset, tableHeaderSize);
        std::size_t count = std::size_t{wordAt(directory_, offset + 12)} + wordAt(directory_, offset + 14);
        require(count <= entriesLeft_, ERROR_RESOURCE_DATA_NOT_FOUND);
        entriesLeft_ -= count;
        requirePart(offset + tableHeaderSize, count * entrySize);
        for (std::size_t i = 0; i < count; ++i) {
            std::size_t entry = offset + tableHeaderSize + i * entrySize;
            visit(doubleWordAt(directory_, entry), doubleWordAt(directory_, entry + 4));
        }
    }

    static std::size_t subdirectory(DWORD offset) {
        require((offset & highBit) != 0, ERROR_RESOURCE_DATA_NOT_FOUND);
        return offset & ~highBit;
    }

    ResourceName name(DWORD value) const {
        if ((value & highBit) == 0) return {static_cast<WORD>(value), {}};
        std::size_t offset = value & ~highBit;
        requirePart(offset, 2);
        std::size_t length = wordAt(directory_, offset);
        requirePart(offset + 2, length * 2);
        std::u16string text(length, u'\0');
        for (std::size_t i = 0; i < length; ++i)
            text[i] = wordAt(directory_, offset + 2 + 2 * i);
        return {0, foldCase(text)};
    }

    void addData(DWORD language, DWORD entry) {
        require((entry & highBit) == 0, ERROR_RESOURCE_DATA_NOT_FOUND);
        requirePart(entry, dataEntrySize);
        DWORD address = doubleWordAt(directory_, entry);
        DWORD size = doubleWordAt(directory_, entry + 4);
        require(address >= address_ && address - address_ <= section_.size() &&
                    section_.size() - (address - address_) >= size,
                ERROR_RESOURCE_DATA_NOT_FOUND);
        resource_.language = static_cast<WORD>(language);
        resource_.bytes = section_.subspan(address - address_, size);
        resources_.push_back(resource_);
    }

    std::span<const BYTE> section_;
    std::span<const BYTE> directory_;
    std::uint32_t address_;
    std::size_t entriesLeft_;
    Resource resource_;
    std::vector<Resource> resources_;
};

} // namespace

WORD wordAt(std::span<const BYTE> bytes, std::size_t offset) {
    return static_cast<WORD>(bytes[offset] | bytes[offset + 1] << 8U);
}

DWORD doubleWordAt(std::span<const BYTE> bytes, std::size_t offset) {
    return wordAt(bytes, offset) | static_cast<DWORD>(wordAt(bytes, offset + 2)) << 16U;
}

std::vector<Resource> readResourceDirectory(std::span<const BYTE> section, std::uint32_t directory,
                                            std::uint32_t address) {
    std::vector<Resource> resources = Reader(section, directory, address).read();
    std::stable_sort(resources.begin(), resources.end(), [](const Resource& a, const Resource& b) {
        if (a.type != b.type) return a.type < b.type;
        if (a.name != b.name) return a.name < b.name;
        return a.language == 0 && b.language != 0;
    });
    return resources;
}
