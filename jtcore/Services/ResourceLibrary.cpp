#include "jtcore/Services/ResourceLibrary.h"

#include "jtcore/Services/KolmaException.h"
#include "jtcore/Services/OwnedCriticalResource.h"
#include "jtcore/Services/ResourceData.h"
#include "jtcore/Services/getDriverFilePath.h"
#include "jtcore/Services/quietly.h"
#include "platform/modules.h"

#include <utility>

namespace {

constexpr char16_t fileName[] = u"jtres37.dll";
constexpr std::size_t stringBufferSize = 1024;

constinit OwnedCriticalResource lock("ResourceLibrary");

// Guarded by the lock. The handle may be read without it by whoever holds a ticket.
struct Module {
    HMODULE handle = nullptr;
    std::uint32_t uses = 0;
    // Empty until first needed, then kept.
    std::u16string path;
};

Module& module() {
    static Module theModule;
    return theModule;
}

LPCWSTR asResourceName(std::int32_t number) { return MAKEINTRESOURCEW(static_cast<WORD>(number)); }

} // namespace

ResourceLibrary::ResourceLibrary() {
    OwnedCriticalResource::Guard guard(lock);
    Module& theModule = module();
    if (theModule.handle == nullptr) {
        if (theModule.path.empty()) theModule.path = getDriverFilePath(nullptr, fileName);
        theModule.handle = LoadLibraryExW(toWide(theModule.path), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
        if (theModule.handle == nullptr) {
            DWORD error = GetLastError();
            raise<ResourceLibraryConstructionException>(
                u"ResourceLibrary ctor failed during LoadLibrary of '%s'. Last Error: %ld.\r\n", theModule.path, error);
        }
    }
    ++theModule.uses;
}

ResourceLibrary::~ResourceLibrary() {
    OwnedCriticalResource::Guard guard(lock);
    Module& theModule = module();
    if (--theModule.uses == 0 && theModule.handle != nullptr)
        quietly([&] { FreeLibrary(std::exchange(theModule.handle, nullptr)); });
}

HMODULE ResourceLibrary::getModuleHandle() const noexcept { return module().handle; }

std::u16string ResourceLibrary::getString(std::uint16_t id) const {
    std::u16string text(stringBufferSize, u'\0');
    getString(id, text.data(), static_cast<int>(text.size()));
    text.resize(text.find(u'\0'));
    return text;
}

int ResourceLibrary::getString(std::uint16_t id, char16_t* buffer, int maximum) const {
    int length = LoadStringW(getModuleHandle(), id, toWide(buffer), maximum);
    if (length == 0)
        raise<ResourceAcquisitionException>(u"ResourceLibrary::getString(%d) failed - LoadString returned ZERO.\r\n",
                                            id);
    return length;
}

HICON ResourceLibrary::getIconHandle(std::uint16_t id) const {
    HICON icon = LoadIconW(getModuleHandle(), asResourceName(id));
    if (icon == nullptr)
        raise<ResourceAcquisitionException>(
            u"ResourceLibrary::getIconHandle() failed in ::LoadIcon(), returned NULL\r\n");
    return icon;
}

void ResourceLibrary::loadResData(ResourceData& resource, std::int32_t type) const {
    if (resource.getResourceId() == 0)
        raise<ResourceAcquisitionException>(u"ResourceLibrary::loadResData() failed - ResourceID == 0\r\n");
    HMODULE library = getModuleHandle();
    HRSRC found = FindResourceW(library, asResourceName(resource.getResourceId()), asResourceName(type));
    if (found == nullptr)
        raise<ResourceAcquisitionException>(u"ResourceLibrary::loadResData() failed in ::FindResource()\r\n");
    DWORD size = SizeofResource(library, found);
    HGLOBAL loaded = LoadResource(library, found);
    if (loaded == nullptr)
        raise<ResourceAcquisitionException>(u"ResourceLibrary::loadResData() failed in ::LoadResource()\r\n");
    const void* bytes = LockResource(loaded);
    if (bytes == nullptr)
        raise<ResourceAcquisitionException>(u"ResourceLibrary::loadResData() failed in ::LockResource()\r\n");
    resource.resourceLoaded(type, size, bytes);
}

void ResourceLibrary::loadRawData(ResourceData& resource) const { loadResData(resource, resourceTypeRawData); }

void ResourceLibrary::loadDialogData(ResourceData& resource) const { loadResData(resource, resourceTypeDialog); }
