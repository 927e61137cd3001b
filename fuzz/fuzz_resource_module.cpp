// Any bytes as a resource module: it is refused, or answers what it is asked without reading outside of itself.
#include "platform/modules.h"
#include "platform/posix/icons.h"
#include "platform/posix/resourceModuleOf.h"

#include <cstdint>
#include <cstdlib>

namespace {

// Reads every byte, so that the sanitizer sees where they lie.
void touch(const void* data, std::size_t size) {
    const auto* bytes = static_cast<const volatile std::uint8_t*>(data);
    for (std::size_t i = 0; i < size; ++i)
        static_cast<void>(bytes[i]);
}

void askForString(HMODULE module, UINT id) {
    WCHAR copied[64];
    LPCWSTR inside = nullptr;
    int length = LoadStringW(module, id, reinterpret_cast<LPWSTR>(&inside), 0);
    touch(inside, static_cast<std::size_t>(length) * sizeof(WCHAR));
    int copiedLength = LoadStringW(module, id, copied, 64);
    if (copiedLength != (length < 64 ? length : 63) || copied[copiedLength] != 0) std::abort();
}

void askForResource(HMODULE module, LPCWSTR name, LPCWSTR type) {
    HRSRC found = FindResourceW(module, name, type);
    if (found == nullptr) return;
    touch(LockResource(LoadResource(module, found)), SizeofResource(module, found));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    HMODULE module = resourceModuleOf(data, size);
    if (module == nullptr) return 0;
    for (UINT id : {0U, 1U, 2U, 15U, 16U, 65535U})
        askForString(module, id);
    for (LPCWSTR type : {RT_ICON, RT_DIALOG, RT_RCDATA, RT_GROUP_ICON})
        for (ULONG_PTR name : {ULONG_PTR{1}, ULONG_PTR{7}, ULONG_PTR{100}})
            askForResource(module, MAKEINTRESOURCEW(name), type);
    askForResource(module, u"LOGO", u"PICTURE");
    for (const IconImage& image : iconImages(LoadIconW(module, MAKEINTRESOURCEW(100))))
        touch(image.bytes.data(), image.bytes.size());
    FreeLibrary(module);
    return 0;
}
