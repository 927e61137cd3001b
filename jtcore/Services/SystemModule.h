// A module of the system that is looked for by name at run time, freed with the object.
#pragma once

#include "jtcore/Services/quietly.h"
#include "platform/modules.h"

class SystemModule {
public:
    explicit SystemModule(const char16_t* name) : handle_(LoadLibraryW(toWide(name))) {}
    ~SystemModule() {
        quietly([this] {
            if (handle_ != nullptr) FreeLibrary(handle_);
        });
    }
    SystemModule(const SystemModule&) = delete;
    SystemModule& operator=(const SystemModule&) = delete;

    bool isLoaded() const noexcept { return handle_ != nullptr; }

    // The entry as a function pointer of this type; null when the module or the entry is missing.
    template <typename FunctionPointer>
    FunctionPointer getEntry(const char* name) const {
        if (handle_ == nullptr) return nullptr;
        return reinterpret_cast<FunctionPointer>(reinterpret_cast<void*>(GetProcAddress(handle_, name)));
    }

private:
    HMODULE handle_;
};
