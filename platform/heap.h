// Heaps whose blocks all go with the heap: the memory that the host lends the plug-in for its option items.
#pragma once

#include "platform/types.h"

#ifdef _WIN32

#include <windows.h>

#else

inline constexpr DWORD HEAP_ZERO_MEMORY = 0x08;

extern "C" {

// Sizes are not limited, whatever the caller says. Null on failure.
KOLMA_PLATFORM_API HANDLE WINAPI HeapCreate(DWORD flOptions, SIZE_T dwInitialSize, SIZE_T dwMaximumSize);
// Frees every block of the heap.
KOLMA_PLATFORM_API BOOL WINAPI HeapDestroy(HANDLE hHeap);
// Null when there is no memory, or no such heap.
KOLMA_PLATFORM_API LPVOID WINAPI HeapAlloc(HANDLE hHeap, DWORD dwFlags, SIZE_T dwBytes);
KOLMA_PLATFORM_API BOOL WINAPI HeapFree(HANDLE hHeap, DWORD dwFlags, LPVOID lpMem);
}

#endif
