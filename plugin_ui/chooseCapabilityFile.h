// The open-file dialog for a printer capability file.
#pragma once

#include "platform/types.h"

#include <cstddef>
#include <string>

// What the items of the printer's sheet can hold, without the terminator.
inline constexpr std::size_t maximumCapabilityPath = 259;

// Preset with the name, which becomes the chosen path; false, and the name as it was, on cancel. A path that is too
// long is refused with a message. Raises what the resource module raises, and ResourceAcquisitionException when there
// can be no dialog.
bool chooseCapabilityFile(HWND window, std::u16string& fileName);
