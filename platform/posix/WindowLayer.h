// The window layer as the platform library sees it: one function for each call, in a library of its own that is loaded
// when the first window is wanted.
#pragma once

#include "platform/common_dialogs.h"
#include "platform/controls.h"
#include "platform/driver_host.h"
#include "platform/gdi.h"
#include "platform/window_pictures.h"
#include "platform/windows.h"

struct WindowLayer {
#define WINDOW_CALL(Result, name, parameters, arguments, none) Result(*name) parameters;
#include "platform/posix/windowCalls.def"
};

// What the layer's library exports: null when no display can start, or when called from another thread than that of
// the windows.
using WindowLayerEntry = const WindowLayer* (*)();
inline constexpr const char* windowLayerLibrary = "libkolmawindows.so";
inline constexpr const char* windowLayerEntry = "kolmaWindowLayer";

// The layer, when it is loaded and this is its thread; else null with ERROR_INVALID_WINDOW_HANDLE.
const WindowLayer* loadedWindowLayer() noexcept;
// Loads it. Null, with ERROR_REQUIRES_INTERACTIVE_WINDOWSTATION when no window can be shown here, and with
// ERROR_MOD_NOT_FOUND when the layer is not installed.
const WindowLayer* wantedWindowLayer() noexcept;
