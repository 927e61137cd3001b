// A resource module from memory, for tests and fuzzing.
#pragma once

#include "platform/types.h"

// The bytes are copied. Null with the last error, as LoadLibraryExW; freed with FreeLibrary.
KOLMA_PLATFORM_API HMODULE resourceModuleOf(const void* bytes, std::size_t size);
