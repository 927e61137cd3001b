// The published calls as this layer has them: each stands in namespace qt, in the file of its topic.
#pragma once

#include "platform/common_dialogs.h"
#include "platform/controls.h"
#include "platform/driver_host.h"
#include "platform/gdi.h"
#include "platform/window_pictures.h"
#include "platform/windows.h"

namespace qt {

#define WINDOW_CALL(Result, name, parameters, arguments, none) Result name parameters;
#include "platform/posix/windowCalls.def"

} // namespace qt
