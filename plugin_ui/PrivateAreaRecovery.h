// What the host gets when an operation on the private area failed: always a usable area. Nothing here throws.
#pragma once

#include "platform/types.h"

void traceRecovery(DWORD mode) noexcept;

// Writes an area in the initial state: no settings, editable. When even that state cannot be made (no memory, a service
// that fails), the same without the user's name and preferences.
void writeEmptyArea(void* areaOut) noexcept;

// Writes the empty area, and over it the incoming one if the next operation will be able to read that: it has a valid
// header, and its settings are readable. The two areas may be the same.
void keepIncomingOrEmptyArea(const void* areaIn, void* areaOut) noexcept;
