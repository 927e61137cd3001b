// What libkolmaplatform finds in this library: the table of its calls.
#include "platform/posix/WindowLayer.h"
#include "platform/qt/Application.h"
#include "platform/qt/windowCalls.h"

namespace {

constexpr WindowLayer layer = {
#define WINDOW_CALL(Result, name, parameters, arguments, none) &qt::name,
#include "platform/posix/windowCalls.def"
};

} // namespace

// Null, and nothing started, when no window can be shown.
extern "C" KOLMA_PLATFORM_API const WindowLayer* kolmaWindowLayer() { return startApplication() ? &layer : nullptr; }
