// Who shows message boxes and knows the texts of windows: the window layer when one is up, the console host that has
// the answers ready, a test. One at a time for the whole process.
#pragma once

#include "platform/windows.h"

struct WindowHooks {
    // Handed to each call as it stands.
    void* context;
    // Any of them may be null: the answer is then that of a process without windows.
    int (*messageBox)(void* context, HWND owner, LPCWSTR text, LPCWSTR caption, UINT type);
    int (*windowText)(void* context, HWND window, LPWSTR text, int size);
    int (*windowTextLength)(void* context, HWND window);
};

// Puts the hooks in place and returns those that were. A hook is called on the thread of the service and may throw
// nothing.
KOLMA_PLATFORM_API WindowHooks installWindowHooks(const WindowHooks& hooks) noexcept;
