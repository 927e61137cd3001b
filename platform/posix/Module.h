// A loaded module: a program module, a resource module, or one of the system's own whose entries this library has.
#pragma once

#include "platform/modules.h"
#include "platform/posix/HandleTable.h"
#include "platform/posix/ResourceModule.h"

#include <string>

struct Module {
    ~Module();

    // What a second load of it is known by.
    std::string path;
    int uses = 1;
    std::unique_ptr<ResourceModule> resources;
    void* program = nullptr;
    bool isSystem = false;

    std::mutex iconMutex;
    std::map<const Resource*, HICON> icons;
};

inline HandleTable<Module, HMODULE>& loadedModules() { return handleTable<HandleKind::module, Module, HMODULE>(); }

// Fails with ERROR_INVALID_HANDLE, and with ERROR_RESOURCE_DATA_NOT_FOUND for a module without resources.
std::shared_ptr<Module> moduleWithResources(HMODULE handle);
