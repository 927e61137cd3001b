#include "platform/posix/icons.h"

#include "platform/modules.h"
#include "platform/posix/Module.h"
#include "platform/posix/ResourceDirectory.h"

namespace {

constexpr std::size_t groupHeaderSize = 6;
constexpr std::size_t groupEntrySize = 14;

// A size of 256 does not fit its byte and is written as 0.
int pixels(BYTE size) { return size == 0 ? 256 : size; }

Icon readIcon(ResourceModule& module, std::span<const BYTE> group) {
    require(group.size() >= groupHeaderSize, ERROR_RESOURCE_DATA_NOT_FOUND);
    std::size_t count = wordAt(group, 4);
    require(count != 0 && group.size() - groupHeaderSize >= count * groupEntrySize, ERROR_RESOURCE_DATA_NOT_FOUND);
    Icon icon;
    for (std::size_t i = 0; i < count; ++i) {
        auto entry = group.subspan(groupHeaderSize + i * groupEntrySize, groupEntrySize);
        auto bytes = module.find(ResourceName::of(RT_ICON), {wordAt(entry, 12), {}}).bytes;
        icon.images.push_back(
            {pixels(entry[0]), pixels(entry[1]), wordAt(entry, 6), std::vector<BYTE>(bytes.begin(), bytes.end())});
    }
    return icon;
}

} // namespace

std::vector<IconImage> iconImages(HICON icon) {
    auto found = loadedIcons().lookUp(icon);
    return found == nullptr ? std::vector<IconImage>() : found->images;
}

HICON WINAPI LoadIconW(HINSTANCE hInstance, LPCWSTR lpIconName) {
    return service<HICON>(nullptr, [&] {
        auto module = moduleWithResources(hInstance);
        const Resource& group = module->resources->find(ResourceName::of(RT_GROUP_ICON), ResourceName::of(lpIconName));
        std::lock_guard lock(module->iconMutex);
        auto [at, isNew] = module->icons.try_emplace(&group, nullptr);
        if (!isNew) return at->second;
        try {
            return at->second = loadedIcons().add(std::make_shared<Icon>(readIcon(*module->resources, group.bytes)));
        } catch (...) {
            module->icons.erase(at);
            throw;
        }
    });
}
