// Whether windows that nobody sees will do, for the window layer.
#pragma once

#include "platform/types.h"

KOLMA_PLATFORM_API bool mayDoWithoutDisplay() noexcept;
