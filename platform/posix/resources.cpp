#include "platform/modules.h"
#include "platform/posix/Module.h"
#include "platform/posix/wideText.h"

#include <algorithm>

namespace {

const Resource& resourceOf(HMODULE module, HRSRC handle) {
    const Resource* resource = moduleWithResources(module)->resources->check(handle);
    require(resource != nullptr, ERROR_INVALID_HANDLE);
    return *resource;
}

} // namespace

HRSRC WINAPI FindResourceW(HMODULE hModule, LPCWSTR lpName, LPCWSTR lpType) {
    return service<HRSRC>(nullptr, [&] {
        auto module = moduleWithResources(hModule);
        const Resource& resource = module->resources->find(ResourceName::of(lpType), ResourceName::of(lpName));
        return reinterpret_cast<HRSRC>(const_cast<Resource*>(&resource)); // NOLINT: the handle is given back only
    });
}

DWORD WINAPI SizeofResource(HMODULE hModule, HRSRC hResInfo) {
    return service<DWORD>(0, [&] { return static_cast<DWORD>(resourceOf(hModule, hResInfo).bytes.size()); });
}

HGLOBAL WINAPI LoadResource(HMODULE hModule, HRSRC hResInfo) {
    return service<HGLOBAL>(nullptr, [&] {
        return const_cast<BYTE*>(resourceOf(hModule, hResInfo).bytes.data()); // NOLINT: published as such
    });
}

LPVOID WINAPI LockResource(HGLOBAL hResData) { return hResData; }

int WINAPI LoadStringW(HINSTANCE hInstance, UINT uID, LPWSTR lpBuffer, int cchBufferMax) {
    return service(0, [&] {
        require(lpBuffer != nullptr && cchBufferMax >= 0, ERROR_INVALID_PARAMETER);
        if (cchBufferMax > 0) *lpBuffer = 0;
        std::u16string_view text = moduleWithResources(hInstance)->resources->string(uID);
        require(!text.empty(), ERROR_RESOURCE_NAME_NOT_FOUND);
        if (cchBufferMax == 0) {
            *reinterpret_cast<LPCWSTR*>(lpBuffer) = text.data();
            return static_cast<int>(text.size());
        }
        text = text.substr(0, static_cast<std::size_t>(cchBufferMax) - 1);
        copyText(text, lpBuffer, text.size() + 1);
        return static_cast<int>(text.size());
    });
}
