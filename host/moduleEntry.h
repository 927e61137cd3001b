// An entry of a loaded module as a function of its own type; null when the module has none of that name.
#pragma once

#include "platform/modules.h"

template <typename Function>
Function getModuleEntry(HMODULE module, const char* name) {
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}
